// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Interrupted.h"

namespace Kestra::Proc {

Interrupted::Interrupted()
    : Exception("The reading was interrupted") {}

Interrupted::~Interrupted() noexcept = default;

} // namespace Kestra::Proc
