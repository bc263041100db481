// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Filter/SilenceFF.h"

#include "Kestra/Base/Exception.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Data/DataAudioFF.h"
#include "Kestra/FF/Data/SampleQueue.h"
#include "Kestra/FF/Filter/ResamplerFF.h"
#include <algorithm>
#include <stdexcept>
#include <utility>

namespace Kestra::FF {

namespace {

constexpr int BLOCK = 4096;
constexpr int DEFAULT_RATE = 48000;

} // namespace

SilenceFF::SilenceFF(const Conf::IFormatCodecAudio& format, std::int64_t duration)
    : duration(duration) {
    AVSampleFormat samples = ToAv(static_cast<Conf::SampleFormats>(format.GetSampleFormat()));
    if (samples == AV_SAMPLE_FMT_NONE)
        samples = AV_SAMPLE_FMT_FLTP;
    const AVChannelLayout layout = ToAvLayout(format.GetChannelLayout());
    if (layout.nb_channels == 0)
        KESTRA_THROW(std::invalid_argument("silence was ordered without a channel layout"));
    block = MakeSamples(samples, format.GetSampleRate() > 0 ? format.GetSampleRate() : DEFAULT_RATE, layout, BLOCK);
    total = TimeToSamples(duration, block->sample_rate);
}

boost::intrusive_ptr<Proc::IDataAudio> SilenceFF::ReadAudio() {
    if (position >= total)
        return nullptr;
    FrameHandle next = MakeFrameReference(*block);
    next->nb_samples = static_cast<int>(std::min<std::int64_t>(total - position, BLOCK));
    const std::int64_t time = SamplesToTime(position, block->sample_rate);
    position += next->nb_samples;
    return new DataAudioFF(std::move(next), time);
}

void SilenceFF::GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const {
    format = Conf::IFormatCodecAudio::Create();
    format->SetSampleRate(block->sample_rate);
    format->SetChannelLayout(FromAv(block->ch_layout));
    format->SetSampleFormat(FromAv(static_cast<AVSampleFormat>(block->format)));
}

std::int64_t SilenceFF::GetPosition() const {
    return SamplesToTime(position, block->sample_rate);
}

void SilenceFF::Seek(std::int64_t time, Proc::SeekMode) {
    position = std::clamp<std::int64_t>(TimeToSamples(time, block->sample_rate), 0, total);
}

boost::intrusive_ptr<Proc::IStreamAudio> MakeSilence(const boost::intrusive_ptr<Conf::IFormatCodecAudio>& format,
                                                     std::int64_t duration) {
    if (!format)
        KESTRA_THROW(std::invalid_argument("silence needs a format; it was given none"));
    if (duration < 0)
        KESTRA_THROW(std::invalid_argument("silence was ordered with a negative duration"));
    return new SilenceFF(*format, duration);
}

} // namespace Kestra::FF
