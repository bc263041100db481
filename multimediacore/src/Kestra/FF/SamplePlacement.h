// Where decoded blocks of samples belong, told from timestamps that containers round, jitter or repeat.
#pragma once

#include "KestraExport.h"
#include <cstdint>
#include <vector>

namespace Kestra::FF {

/// A decoded block: where its timestamp puts it, and how long it is; in samples from the start of the stream.
struct TimedBlock {
    std::int64_t place = 0;
    std::int64_t count = 0;
};

/// Where the first of `blocks` begins, when the one before it ended at `flow`. Small deviations, and large ones that
/// the following blocks do not share, are jitter: the block follows on. Anything else is a gap, or an overlap to be
/// cut.
KESTRA_EXPORT std::int64_t PlaceNext(const std::vector<TimedBlock>& blocks, std::int64_t flow, int sampleRate);

/// Where the first of `blocks` begins when nothing is known before it: the earliest place that two of them agree on,
/// for wrong timestamps are those of later blocks; the first one's own when no two agree.
KESTRA_EXPORT std::int64_t PlaceFirst(const std::vector<TimedBlock>& blocks, int sampleRate);

/// `place` brought to the nearest number that is `phase` modulo `grain`, if it is no further away than `tolerance`.
KESTRA_EXPORT std::int64_t SnapToGrain(std::int64_t place, std::int64_t phase, int grain, std::int64_t tolerance);

} // namespace Kestra::FF
