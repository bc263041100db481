// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Filter/AudioConversion.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Data/ChannelPair.h"
#include "Kestra/FF/Data/DataAudioFF.h"
#include "Kestra/FF/Data/MixDown.h"
#include <algorithm>
#include <utility>

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

/// Silence is made up, and long input is cut, in blocks of this many samples.
constexpr int BLOCK = 4096;
constexpr int DEFAULT_RATE = 48000;

} // namespace

AudioConversion::AudioConversion(boost::intrusive_ptr<Proc::IStreamAudio> source, const Conf::SampleInfo& target,
                                 std::optional<std::int64_t> length, std::string name)
    : AudioFilterBase(std::move(source), std::move(name))
    , target(target)
    , length(length) {}

void AudioConversion::GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const {
    source->GetAudioFormat(format);
    if (target.GetRate() > 0)
        format->SetSampleRate(target.GetRate());
    if (target.GetLayoutRecord()->layout != Conf::CHANNEL_LAYOUT_UNKNOWN)
        format->SetChannelLayout(target.GetLayoutRecord()->layout);
    if (target.GetFormatRecord()->format != Conf::SAMPLE_FORMAT_UNKNOWN)
        format->SetSampleFormat(target.GetFormatRecord()->format);
}

std::int64_t AudioConversion::GetDuration() const {
    return length ? *length : source->GetDuration();
}

std::int64_t AudioConversion::GetPosition() const {
    return output.rate > 0 ? SamplesToTime(position, output.rate) : 0;
}

void AudioConversion::Prepare() {
    source->Prepare();
    Settle();
}

void AudioConversion::Settle() {
    if (output.rate > 0)
        return;
    boost::intrusive_ptr<Conf::IFormatCodecAudio> format;
    GetAudioFormat(format);
    output.format = ToAv(static_cast<Conf::SampleFormats>(format->GetSampleFormat()));
    if (output.format == AV_SAMPLE_FMT_NONE)
        output.format = AV_SAMPLE_FMT_FLTP;
    output.layout = ToAvLayout(format->GetChannelLayout());
    if (output.layout.nb_channels == 0)
        Fail(TranscodingError::FilterFailed,
             "Nobody says how many channels the sound of " + source->Describe() + " has");
    output.rate = format->GetSampleRate() > 0 ? format->GetSampleRate() : DEFAULT_RATE;
    const std::int64_t duration = GetDuration();
    total = duration == TIME_UNKNOWN ? -1 : std::max<std::int64_t>(TimeToSamples(duration, output.rate), 0);
}

std::vector<boost::intrusive_ptr<Proc::IStreamAudio>> AudioConversion::GetFurtherTracks() const {
    std::vector<boost::intrusive_ptr<Proc::IStreamAudio>> tracks;
    for (const auto& track : source->GetFurtherTracks())
        tracks.emplace_back(new AudioConversion(track, target, length, GetName()));
    return tracks;
}

void AudioConversion::Reset() {
    source->Reset();
    output = Shape();
    ForgetConverter();
    queue.Clear();
    position = 0;
    dropBefore = 0;
    sourceEnded = false;
}

boost::intrusive_ptr<Proc::IDataAudio> AudioConversion::ReadAudio() {
    Settle();
    if (total >= 0 && position >= total)
        return nullptr;
    while (queue.GetCount() == 0 && !sourceEnded)
        ReadOn();
    FrameHandle block = TakeBlock();
    if (!block)
        return nullptr;
    const std::int64_t time = SamplesToTime(position, output.rate);
    position += block->nb_samples;
    return new DataAudioFF(std::move(block), time);
}

FrameHandle AudioConversion::TakeBlock() {
    const std::int64_t left = total >= 0 ? total - position : INT64_MAX;
    if (queue.GetCount() > 0)
        return queue.TakeFront(std::min<std::int64_t>(left, INT_MAX));
    if (total < 0)
        return nullptr;
    return MakeSamples(output.format, output.rate, output.layout,
                       static_cast<int>(std::min<std::int64_t>(left, BLOCK)));
}

void AudioConversion::ReadOn() {
    auto data = source->ReadAudio();
    if (!data) {
        DrainConverter();
        sourceEnded = true;
        return;
    }
    // A source that cannot land exactly still has something before the target of a seek.
    const std::int64_t early = TimeToSamples(dropBefore - data->GetTime(), data->GetSampleRate());
    if (early >= data->GetSampleCount())
        return;
    if (early > 0)
        data = data->Slice(early, data->GetSampleCount() - early);
    const AVFrame& block = FrameOf(*data);
    if (!FitsOutput(block))
        return Convert(block);
    DrainConverter();
    queue.Push(MakeFrameReference(block));
}

bool AudioConversion::FitsOutput(const AVFrame& block) const {
    return block.format == output.format && block.sample_rate == output.rate &&
           av_channel_layout_compare(&block.ch_layout, &output.layout) == 0;
}

bool AudioConversion::FitsConverter(const AVFrame& block) const {
    return converter && converterInput->format == block.format && converterInput->sample_rate == block.sample_rate &&
           av_channel_layout_compare(&converterInput->ch_layout, &block.ch_layout) == 0;
}

void AudioConversion::StartConverter(const AVFrame& block) {
    DrainConverter();
    converterInput = MakeFrame();
    Check(av_frame_copy_props(converterInput.get(), &block), TranscodingError::FilterFailed, "properties of samples");
    converterInput->format = block.format;
    converterInput->sample_rate = block.sample_rate;
    Check(av_channel_layout_copy(&converterInput->ch_layout, &block.ch_layout), TranscodingError::FilterFailed,
          "channel layout");
    ChannelPair channels(block.ch_layout, output.layout);
    const bool exceeds = LoudestMix(channels.input, channels.output) > 1;
    const AVSampleFormat format = exceeds ? AV_SAMPLE_FMT_FLTP : output.format;
    SwrContext* context = nullptr;
    Check(swr_alloc_set_opts2(&context, &channels.output, format, output.rate, &channels.input,
                              static_cast<AVSampleFormat>(block.format), block.sample_rate, 0, nullptr),
          TranscodingError::FilterFailed, "the resampler's settings");
    converter.reset(context);
    if (exceeds) {
        // In whole numbers libswresample would lower everything to what the loudest possible mix needs.
        Check(av_opt_set_sample_fmt(context, "internal_sample_fmt", format, 0), TranscodingError::FilterFailed,
              "the mixer's format");
        limiter.emplace(MixLimiter(output.format), "Limiting the peaks of mixed channels failed");
    }
    Check(swr_init(context), TranscodingError::FilterFailed, "the resampler does not start");
}

void AudioConversion::Convert(const AVFrame& block) {
    if (!FitsConverter(block))
        StartConverter(block);
    const int room = Check(swr_get_out_samples(converter.get(), block.nb_samples), TranscodingError::FilterFailed,
                           "the resampler's delay");
    FrameHandle result = MakeSamples(ConverterFormat(), output.rate, output.layout, std::max(room, 1));
    const int made = Check(swr_convert(converter.get(), result->extended_data, result->nb_samples,
                                       const_cast<const std::uint8_t**>(block.extended_data), block.nb_samples),
                           TranscodingError::FilterFailed, "resampling");
    result->nb_samples = made;
    Store(std::move(result));
}

AVSampleFormat AudioConversion::ConverterFormat() const {
    return limiter ? AV_SAMPLE_FMT_FLTP : output.format;
}

void AudioConversion::Store(FrameHandle converted) {
    if (!limiter || converted->nb_samples == 0)
        return queue.Push(std::move(converted));
    limiter->Send(*converted);
    TakeLimited();
}

void AudioConversion::TakeLimited() {
    while (FrameHandle block = limiter->Receive())
        queue.Push(std::move(block));
}

void AudioConversion::DrainConverter() {
    if (!converter)
        return;
    for (;;) {
        FrameHandle result = MakeSamples(ConverterFormat(), output.rate, output.layout, BLOCK);
        const int made = Check(swr_convert(converter.get(), result->extended_data, BLOCK, nullptr, 0),
                               TranscodingError::FilterFailed, "the end of resampling");
        result->nb_samples = made;
        Store(std::move(result));
        if (made < BLOCK)
            break;
    }
    if (limiter) {
        limiter->Finish();
        TakeLimited();
    }
    ForgetConverter();
}

void AudioConversion::ForgetConverter() {
    converter.reset();
    limiter.reset();
}

// Input and output samples coincide at whole seconds; from there on, what the converter makes after a seek is sample
// for sample what it makes without one. The second before lets its filter settle.
std::int64_t AudioConversion::AlignedSeek(std::int64_t time) {
    const std::int64_t from = std::max<std::int64_t>(time / TIME_BASE - 1, 0) * TIME_BASE;
    source->Seek(from, Proc::SeekMode::Exact);
    return from;
}

void AudioConversion::Seek(std::int64_t time, Proc::SeekMode) {
    Settle();
    const std::int64_t last = total >= 0 ? total : INT64_MAX;
    const std::int64_t wanted = std::clamp<std::int64_t>(TimeToSamples(time, output.rate), 0, last);
    ForgetConverter();
    queue.Clear();
    sourceEnded = false;
    dropBefore = AlignedSeek(SamplesToTime(wanted, output.rate));
    std::int64_t ahead = wanted - TimeToSamples(dropBefore, output.rate);
    while (ahead > 0 && !sourceEnded) {
        if (queue.GetCount() == 0)
            ReadOn();
        const std::int64_t skipped = std::min(ahead, queue.GetCount());
        queue.Skip(skipped);
        ahead -= skipped;
    }
    position = wanted;
}

} // namespace Kestra::FF
