// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Filter/OnsetWatch.h"

#include <algorithm>
#include <cmath>

namespace Kestra::FF {

namespace {

constexpr float LOUD = 0.01F;
constexpr float STEP = 4;
constexpr int QUIETS_A_SECOND = 50;
constexpr int PAUSES_A_SECOND = 200;

float LevelAt(const AVFrame& block, int sample) {
    float level = 0;
    for (int channel = 0; channel < block.ch_layout.nb_channels; ++channel)
        level = std::max(level, std::abs(reinterpret_cast<const float*>(block.extended_data[channel])[sample]));
    return level;
}

} // namespace

OnsetWatch::OnsetWatch(int rate)
    : leastQuiet(rate / QUIETS_A_SECOND)
    , leastPause(rate / PAUSES_A_SECOND)
    , fading(std::exp(-static_cast<float>(QUIETS_A_SECOND) / static_cast<float>(rate))) {}

bool OnsetWatch::BeginsAt(float level) {
    const bool loud = level >= LOUD;
    const bool sudden = quiet >= leastQuiet || level >= STEP * before;
    const bool begins = loud && sudden && pause >= leastPause;
    quiet = loud ? 0 : quiet + 1;
    pause = begins ? 0 : pause + 1;
    before = std::max(level, before * fading);
    return begins;
}

int OnsetWatch::Find(const AVFrame& block, int begin) {
    for (int sample = begin; sample < block.nb_samples; ++sample)
        if (BeginsAt(LevelAt(block, sample)))
            return sample;
    return block.nb_samples;
}

} // namespace Kestra::FF
