// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Base/IRefCountable.h"

namespace Kestra {

IRefCountable::~IRefCountable() = default;

} // namespace Kestra
