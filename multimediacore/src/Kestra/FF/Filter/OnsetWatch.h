// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::OnsetWatch: where sounds begin suddenly.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include <cstdint>

namespace Kestra::FF {

/// Looks through planar floating point samples in their order, as blocks come. A sound begins where one channel reaches
/// 1/100 of full scale after a fiftieth of a second of less, or four times the level that was there before, which fades
/// within as long. After one, none begins for 5 ms.
class OnsetWatch {
public:
    explicit OnsetWatch(int rate);

    /// The first sample from `begin` on that begins a sound; the block's length where none does. What was looked at up
    /// to there counts for the next call, which begins at that sample.
    int Find(const AVFrame& block, int begin);

private:
    bool BeginsAt(float level);

    const int leastQuiet; ///< samples
    const int leastPause;
    const float fading; ///< of the level, by a sample
    std::int64_t quiet = 0;
    std::int64_t pause = 0; ///< since the last beginning
    float before = 0;
};

} // namespace Kestra::FF
