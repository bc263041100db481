// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/streams/SyntheticAudio.h"

#include "Kestra/Base/Time.h"
#include "Kestra/Proc/Filters/AudioFilterBase.h"
#include "Kestra/Proc/Interrupted.h"
#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace Fakes {

using namespace Kestra;

namespace {

void Put(AVFrame& frame, int channel, int index, double value) {
    const auto format = static_cast<AVSampleFormat>(frame.format);
    const bool planar = av_sample_fmt_is_planar(format) != 0;
    const int at = planar ? index : index * frame.ch_layout.nb_channels + channel;
    std::uint8_t* plane = frame.extended_data[planar ? channel : 0];
    switch (av_get_packed_sample_fmt(format)) {
    case AV_SAMPLE_FMT_S16:
        reinterpret_cast<std::int16_t*>(plane)[at] =
            static_cast<std::int16_t>(std::clamp(std::lround(value * 32768), -32768L, 32767L));
        break;
    case AV_SAMPLE_FMT_S32:
        reinterpret_cast<std::int32_t*>(plane)[at] =
            static_cast<std::int32_t>(std::clamp(std::llround(value * 2147483648.0), -2147483648LL, 2147483647LL));
        break;
    case AV_SAMPLE_FMT_FLT:
        reinterpret_cast<float*>(plane)[at] = static_cast<float>(value);
        break;
    default:
        throw std::invalid_argument("a sample format that the synthetic stream does not make");
    }
}

} // namespace

SyntheticAudio::SyntheticAudio(AudioShape shape)
    : shape(std::move(shape)) {}

boost::intrusive_ptr<Proc::IDataAudio> SyntheticAudio::ReadAudio() {
    if (interrupted)
        throw Proc::Interrupted();
    if (next >= shape.samples)
        return nullptr;
    const auto count = static_cast<int>(std::min<std::int64_t>(shape.block, shape.samples - next));
    FF::FrameHandle frame = FF::MakeFrame();
    frame->format = static_cast<AVSampleFormat>(shape.format);
    frame->sample_rate = shape.rate;
    frame->nb_samples = count;
    if (av_channel_layout_from_mask(&frame->ch_layout, shape.layout) < 0 || av_frame_get_buffer(frame.get(), 0) < 0)
        throw std::bad_alloc();
    for (int channel = 0; channel < frame->ch_layout.nb_channels; ++channel)
        for (int index = 0; index < count; ++index)
            Put(*frame, channel, index, shape.wave ? shape.wave(channel, next + index) : 0.0);
    const std::int64_t time = SamplesToTime(next, shape.rate);
    next += count;
    samplesRead += count;
    return new FF::DataAudioFF(std::move(frame), time);
}

void SyntheticAudio::GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const {
    format = Conf::IFormatCodecAudio::Create();
    format->SetSampleRate(shape.rate);
    format->SetChannelLayout(shape.layout);
    format->SetSampleFormat(shape.format);
}

std::int64_t SyntheticAudio::GetDuration() const {
    return shape.durationKnown ? SamplesToTime(shape.samples, shape.rate) : TIME_UNKNOWN;
}

std::int64_t SyntheticAudio::GetPosition() const {
    return SamplesToTime(next, shape.rate);
}

void SyntheticAudio::Seek(std::int64_t time, Proc::SeekMode) {
    // Lands in the block that covers the time, as a decoder does.
    next = std::clamp<std::int64_t>(TimeToSamples(time, shape.rate) / shape.block * shape.block, 0, shape.samples);
}

void SyntheticAudio::GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const {
    GetFormatCodecBase(format);
}

void SyntheticAudio::Reset() {
    next = 0;
    interrupted = false;
}

boost::intrusive_ptr<SyntheticAudio> MakeAudio(AudioShape shape) {
    return new SyntheticAudio(std::move(shape));
}

namespace {

class SoundWithOthers final : public Proc::AudioFilterBase {
public:
    SoundWithOthers(const boost::intrusive_ptr<Proc::IStreamAudio>& first,
                    std::vector<boost::intrusive_ptr<Proc::IStreamAudio>> others)
        : AudioFilterBase(first, "several tracks")
        , others(std::move(others)) {}
    std::vector<boost::intrusive_ptr<Proc::IStreamAudio>> GetFurtherTracks() const override { return others; }

private:
    const std::vector<boost::intrusive_ptr<Proc::IStreamAudio>> others;
};

} // namespace

boost::intrusive_ptr<Proc::IStreamAudio> MakeSounds(std::vector<boost::intrusive_ptr<Proc::IStreamAudio>> tracks) {
    const auto first = tracks.front();
    tracks.erase(tracks.begin());
    return new SoundWithOthers(first, std::move(tracks));
}

} // namespace Fakes
