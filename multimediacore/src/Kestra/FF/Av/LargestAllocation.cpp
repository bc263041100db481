// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Av/LargestAllocation.h"

extern "C" {
#include <libavutil/mem.h>
}
#include <algorithm>
#include <mutex>
#include <set>

namespace Kestra::FF {

namespace {

struct Allocations {
    std::mutex mutex;
    std::int64_t limit = 0;   ///< 0: none is set
    std::int64_t inForce = 0; ///< what the library was last told
    std::multiset<std::int64_t> allowances;

    // Called under the mutex.
    void Settle() noexcept {
        const std::int64_t allowed = allowances.empty() ? 0 : *allowances.rbegin();
        const std::int64_t most = std::max(limit, allowed);
        if (limit == 0 || most == inForce)
            return;
        av_max_alloc(static_cast<std::size_t>(most));
        inForce = most;
    }
};

// Encoders of runs that were left behind may outlive everything else.
Allocations& TheAllocations() {
    static auto* const allocations = new Allocations;
    return *allocations;
}

} // namespace

void SetLargestAllocation(const Proc::MediaLimits& limits) noexcept {
    // Most encoders size their packets for the worst case, which is more than the frame.
    constexpr std::int64_t least = std::int64_t{1} << 30;
    Allocations& all = TheAllocations();
    const std::lock_guard<std::mutex> lock(all.mutex);
    all.limit = std::max(least, limits.pictureBytes * 2);
    all.inForce = 0;
    all.Settle();
}

AllocationAllowance::AllocationAllowance(std::int64_t bytes)
    : bytes(bytes) {
    Allocations& all = TheAllocations();
    const std::lock_guard<std::mutex> lock(all.mutex);
    all.allowances.insert(bytes);
    all.Settle();
}

AllocationAllowance::~AllocationAllowance() {
    Allocations& all = TheAllocations();
    const std::lock_guard<std::mutex> lock(all.mutex);
    all.allowances.erase(all.allowances.find(bytes));
    all.Settle();
}

} // namespace Kestra::FF
