#include "Kestra/FF/Filter/OnsetWatch.h"

#include <cmath>

namespace Kestra::FF {

namespace {

constexpr float LOUD = 0.01F;

bool IsLoud(const AVFrame& block, int sample) {
    for (int channel = 0; channel < block.ch_layout.nb_channels; ++channel)
        if (std::abs(reinterpret_cast<const float*>(block.extended_data[channel])[sample]) >= LOUD)
            return true;
    return false;
}

} // namespace

int OnsetWatch::Find(const AVFrame& block, int begin) {
    for (int sample = begin; sample < block.nb_samples; ++sample) {
        const bool loud = IsLoud(block, sample);
        const bool onset = loud && quiet >= least;
        quiet = loud ? 0 : quiet + 1;
        if (onset)
            return sample;
    }
    return block.nb_samples;
}

} // namespace Kestra::FF
