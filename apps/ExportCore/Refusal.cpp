// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/Refusal.h"

namespace ExportCore {

Refusal::~Refusal() noexcept = default;

} // namespace ExportCore
