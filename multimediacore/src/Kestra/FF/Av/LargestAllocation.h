// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Proc/MediaLimits.h"

namespace Kestra::FF {

/// As Proc::SetLargestAllocation() says. Allowances that live go on.
void SetLargestAllocation(const Proc::MediaLimits& limits) noexcept;

/// While it lives, that much memory may be taken in one piece, whatever the limit: what is needed for pictures whose
/// size we have chosen. The limit is the process's, so what is read meanwhile may take as much. Any thread.
class AllocationAllowance {
public:
    /// Nothing changes where no limit is set, or a higher one.
    explicit AllocationAllowance(std::int64_t bytes);
    ~AllocationAllowance();
    AllocationAllowance(const AllocationAllowance&) = delete;
    AllocationAllowance& operator=(const AllocationAllowance&) = delete;

private:
    const std::int64_t bytes;
};

} // namespace Kestra::FF
