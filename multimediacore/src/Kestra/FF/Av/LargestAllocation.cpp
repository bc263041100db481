// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Av/LargestAllocation.h"

extern "C" {
#include <libavutil/mem.h>
}
#include <algorithm>

namespace Kestra::FF {

void SetLargestAllocation(const Proc::MediaLimits& limits) noexcept {
    // Encoders size their packets for the worst case, which is more than the frame.
    constexpr std::int64_t least = std::int64_t{1} << 30;
    av_max_alloc(static_cast<std::size_t>(std::max(least, limits.pictureBytes * 2)));
}

} // namespace Kestra::FF
