// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Decode/AudioDrift.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace Kestra::FF {

namespace {

// Averages are taken over so many seconds.
constexpr std::int64_t MEMORY = 2;
// Further off, a timestamp is a wrong one.
constexpr std::int64_t WRONG_PER_SECOND = 10;
// Audio and video are noticed to be apart from some twenty milliseconds on; correction begins well below that, and
// above what rounding and the average of jitter come to.
constexpr double BEGIN_SECONDS = 0.004;
constexpr double END_SECONDS = 0.0005;
// Of a correction's distance: a hundredth is 17 cents. Differences go within two seconds, or as fast as that allows.
constexpr double FASTEST = 0.01;
constexpr double STEP = 0.25;

} // namespace

AudioDrift::AudioDrift(int sampleRate, std::int64_t jitter)
    : sampleRate(sampleRate)
    , jitter(static_cast<double>(jitter)) {}

void AudioDrift::Take(std::int64_t deviation, std::int64_t count) {
    sinceCorrection += count;
    if (std::abs(deviation) > sampleRate / WRONG_PER_SECOND)
        return;
    taken = std::min(taken + count, MEMORY * sampleRate);
    const double weight = static_cast<double>(count) / static_cast<double>(taken);
    drift += (static_cast<double>(deviation) - drift) * weight;
    // What is known from the start counts until there is more to go by.
    const double slow = static_cast<double>(count) / static_cast<double>(MEMORY * sampleRate);
    jitter += (static_cast<double>(std::abs(deviation - last)) - jitter) * slow;
    last = deviation;
}

void AudioDrift::Settle() {
    drift = 0;
    last = 0;
    taken = 0;
    correcting = false;
}

TimestampHabit AudioDrift::GetHabit() const {
    return {std::lround(drift), std::lround(jitter)};
}

std::int64_t AudioDrift::Correct() {
    sinceCorrection = 0;
    const double off = std::abs(drift) / sampleRate;
    correcting = taken >= MEMORY * sampleRate && off > (correcting ? END_SECONDS : BEGIN_SECONDS);
    if (!correcting)
        return 0;
    const double most = FASTEST * static_cast<double>(Distance());
    const std::int64_t samples = std::lround(std::clamp(drift * STEP, -most, most));
    drift -= static_cast<double>(samples);
    last -= samples;
    return samples;
}

} // namespace Kestra::FF
