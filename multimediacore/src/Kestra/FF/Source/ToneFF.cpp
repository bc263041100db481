// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Source/ToneFF.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Data/DataAudioFF.h"
#include "Kestra/FF/Data/SampleQueue.h"
#include <algorithm>
#include <cmath>

namespace Kestra::FF {

namespace {

constexpr int BLOCK = 4096;
// 20 dB below full scale, which is the sine that just is not clipped.
constexpr double PEAK = 0.1;
constexpr double FULL_TURN = 6.283185307179586476925286766559;

} // namespace

ToneFF::ToneFF(const Proc::SettingsGenerator& settings)
    : settings(settings)
    , total(TimeToSamples(settings.duration, settings.sampleRate)) {}

float ToneFF::SampleAt(std::int64_t index) const {
    const double rate = settings.sampleRate;
    const double turns = std::fmod(settings.frequency * static_cast<double>(index), rate) / rate;
    return static_cast<float>(PEAK * std::sin(FULL_TURN * turns));
}

boost::intrusive_ptr<Proc::IDataAudio> ToneFF::ReadAudio() {
    if (position >= total)
        return nullptr;
    const int count = static_cast<int>(std::min<std::int64_t>(total - position, BLOCK));
    FrameHandle block = MakeSamples(AV_SAMPLE_FMT_FLTP, settings.sampleRate, ToAvLayout(settings.channelLayout), count);
    auto* const first = reinterpret_cast<float*>(block->extended_data[0]);
    for (int index = 0; index < count; ++index)
        first[index] = SampleAt(position + index);
    for (int channel = 1; channel < block->ch_layout.nb_channels; ++channel)
        std::copy_n(first, count, reinterpret_cast<float*>(block->extended_data[channel]));
    const std::int64_t time = GetPosition();
    position += count;
    return new DataAudioFF(std::move(block), time);
}

void ToneFF::GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const {
    format = Conf::IFormatCodecAudio::Create();
    format->SetSampleRate(settings.sampleRate);
    format->SetChannelLayout(settings.channelLayout);
    format->SetSampleFormat(Conf::SAMPLE_FORMAT_FLTP);
}

std::int64_t ToneFF::GetPosition() const {
    return SamplesToTime(position, settings.sampleRate);
}

void ToneFF::Seek(std::int64_t time, Proc::SeekMode) {
    position = std::clamp<std::int64_t>(TimeToSamples(time, settings.sampleRate), 0, total);
}

} // namespace Kestra::FF
