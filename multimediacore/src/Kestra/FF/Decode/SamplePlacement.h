// SPDX-License-Identifier: GPL-3.0-or-later
// Where decoded blocks of samples belong, told from timestamps that containers round, jitter or repeat.
#pragma once

#include <cstdint>
#include <vector>

namespace Kestra::FF {

/// A decoded block: where its timestamp puts it, and how long it is; in samples from the start of the stream.
struct TimedBlock {
    std::int64_t place = 0;
    std::int64_t count = 0;
};

/// What timestamps are known to be off by, in samples.
struct TimestampHabit {
    std::int64_t drift = 0;  ///< by how much they have lately come after the samples, on average
    std::int64_t jitter = 0; ///< by how much one differs from the next, on average
};

/// More than this off its place, a block may stand beside a gap; in samples.
std::int64_t GapTolerance(std::int64_t jitter, int sampleRate);

/// Where the first of `blocks` begins, when the one before it ended at `flow`; `blocks` are those of the following
/// half second. It follows on, unless it and most of them stand further off than jitter explains: that is a gap, or an
/// overlap to be cut.
std::int64_t PlaceNext(const std::vector<TimedBlock>& blocks, std::int64_t flow, int sampleRate,
                       const TimestampHabit& habit = {});

/// Where the first of `blocks` begins when nothing is known before it: the earliest place that two of them agree on,
/// for wrong timestamps are those of later blocks; the first one's own when no two agree.
std::int64_t PlaceFirst(const std::vector<TimedBlock>& blocks, int sampleRate);

/// The same where timestamps are known to jitter: the place that they mean on average.
std::int64_t PlaceFirstOfJittery(const std::vector<TimedBlock>& blocks);

/// `place` brought to the nearest number that is `phase` modulo `grain`, if it is no further away than `tolerance`.
std::int64_t SnapToGrain(std::int64_t place, std::int64_t phase, int grain, std::int64_t tolerance);

} // namespace Kestra::FF
