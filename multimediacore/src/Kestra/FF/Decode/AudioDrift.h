// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::AudioDrift: how far audio that is read on and on comes away from its timestamps.
#pragma once

#include "Kestra/FF/Decode/SamplePlacement.h"

namespace Kestra::FF {

/// Jitter averages out; what is left of a difference is spread over so many samples that nobody hears it.
class AudioDrift {
public:
    /// `jitter`: what is known of the file's timestamps beforehand; in samples.
    AudioDrift(int sampleRate, std::int64_t jitter);

    /// A block of `count` samples, stamped `deviation` samples after the place that it follows on to.
    void Take(std::int64_t deviation, std::int64_t count);
    /// A block was put where its timestamp says.
    void Settle();
    TimestampHabit GetHabit() const;

    /// By how many samples the next Distance() ones are to become more, or fewer when negative. Asked again after that
    /// many. Reckons that it is done.
    std::int64_t Correct();
    std::int64_t Distance() const { return sampleRate / 2; }
    /// As many have been taken since the last correction.
    bool IsDue() const { return sinceCorrection >= Distance(); }

private:
    const int sampleRate;
    double jitter;
    double drift = 0;
    std::int64_t taken = 0; ///< samples that the drift stands on
    std::int64_t last = 0;  ///< deviation
    std::int64_t sinceCorrection = 0;
    bool correcting = false;
};

} // namespace Kestra::FF
