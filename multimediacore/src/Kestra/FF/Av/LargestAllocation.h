// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Proc/MediaLimits.h"

namespace Kestra::FF {

/// As Proc::SetLargestAllocation() says.
void SetLargestAllocation(const Proc::MediaLimits& limits) noexcept;

} // namespace Kestra::FF
