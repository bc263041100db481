// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/IOutputTransaction.h"

namespace ExportCore {

IOutputTransaction::~IOutputTransaction() = default;

} // namespace ExportCore
