// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Decode/SampleNormaliser.h"

#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Data/ChannelPair.h"
#include "Kestra/FF/Data/DataAudioFF.h"
#include "Kestra/FF/Data/MixDown.h"
#include "Kestra/FF/Data/SampleQueue.h"
#include <algorithm>
#include <utility>

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

const char* const FAILURE = "Converting sound that changed its format failed";

int Checked(int result, SourcePlace place = SourcePlace::Here()) {
    return Check(result, TranscodingError::FilterFailed, FAILURE, place);
}

bool SameLayout(const AVChannelLayout& a, const AVChannelLayout& b) {
    return av_channel_layout_compare(&a, &b) == 0;
}

// Without its first samples.
FrameHandle Cut(FrameHandle block, std::int64_t samples) {
    if (samples == 0)
        return block;
    if (samples == block->nb_samples) {
        block->nb_samples = 0;
        return block;
    }
    const std::int64_t count = block->nb_samples - samples;
    const DataAudioFF whole(std::move(block), 0);
    return MakeFrameReference(FrameOf(*whole.Slice(samples, count)));
}

} // namespace

SampleNormaliser::SampleNormaliser(AVSampleFormat format, int sampleRate, const AVChannelLayout& layout)
    : format(format)
    , sampleRate(sampleRate) {
    Checked(av_channel_layout_copy(&this->layout, &layout));
}

SampleNormaliser::~SampleNormaliser() {
    av_channel_layout_uninit(&layout);
}

FrameHandle SampleNormaliser::MakeBlock(AVSampleFormat sampleFormat, int samples) const {
    FrameHandle block = MakeFrame();
    block->format = sampleFormat;
    block->sample_rate = sampleRate;
    block->nb_samples = samples;
    Checked(av_channel_layout_copy(&block->ch_layout, &layout));
    Check(av_frame_get_buffer(block.get(), 0), TranscodingError::OutOfMemory, "Allocating samples failed");
    return block;
}

FrameHandle SampleNormaliser::MakeSilence(int samples) const {
    FrameHandle block = MakeBlock(format, samples);
    av_samples_set_silence(block->extended_data, 0, samples, layout.nb_channels, format);
    return block;
}

bool SampleNormaliser::HasShape(const AVFrame& block) const {
    const bool unnamed = block.ch_layout.order == AV_CHANNEL_ORDER_UNSPEC;
    return block.sample_rate == sampleRate &&
           (unnamed ? block.ch_layout.nb_channels == layout.nb_channels : SameLayout(block.ch_layout, layout));
}

bool SampleNormaliser::Fits(const AVFrame& block) const {
    return block.format == format && HasShape(block);
}

bool SampleNormaliser::FitsConverter(const AVFrame& block) const {
    return converter && block.format == shape->format && block.sample_rate == shape->sample_rate &&
           SameLayout(block.ch_layout, shape->ch_layout);
}

std::vector<SampleNormaliser::Piece> SampleNormaliser::Normalise(FrameHandle block) {
    // As many channels are the track's own, whatever the block says or leaves unsaid.
    const bool unsaid = block->ch_layout.order != AV_CHANNEL_ORDER_NATIVE || layout.order != AV_CHANNEL_ORDER_NATIVE;
    if (unsaid && block->ch_layout.nb_channels == layout.nb_channels)
        Checked(av_channel_layout_copy(&block->ch_layout, &layout));
    std::vector<Piece> pieces;
    if (converter && !FitsConverter(*block))
        if (FrameHandle rest = Drain())
            pieces.push_back({std::move(rest), 0, true});
    if (!converter && stretch == 0 && Fits(*block)) {
        previous = MakeFrameReference(*block);
        pieces.push_back({std::move(block), 0, false});
        return pieces;
    }
    if (!converter)
        Start(*block);
    if (stretch != 0)
        Checked(swr_set_compensation(converter.get(), static_cast<int>(std::exchange(stretch, 0)),
                                     static_cast<int>(stretchDistance)));
    const std::int64_t early = GetDelay();
    pieces.push_back({Convert(block.get()), early, false});
    return pieces;
}

void SampleNormaliser::Start(const AVFrame& block) {
    shape = MakeFrameReference(block);
    ChannelPair channels(shape->ch_layout, layout);
    if (LoudestMix(channels.input, channels.output) > 1)
        limiter.emplace(MixLimiter(format), FAILURE);
    SwrContext* raw = nullptr;
    Checked(swr_alloc_set_opts2(&raw, &channels.output, ConverterFormat(), sampleRate, &channels.input,
                                static_cast<AVSampleFormat>(block.format), block.sample_rate, 0, nullptr));
    converter.reset(raw);
    Checked(av_opt_set_int(raw, "flags", SWR_FLAG_RESAMPLE, 0));
    // Whole numbers would be mixed down more quietly than floating point.
    if (!SameLayout(block.ch_layout, layout))
        Checked(av_opt_set_sample_fmt(raw, "internal_sample_fmt", AV_SAMPLE_FMT_FLTP, 0));
    Checked(swr_init(raw));
    Prime();
}

// A resampler mirrors what it does not know. Where it begins in the midst of audio, it hears what came before.
void SampleNormaliser::Prime() {
    if (!previous || !FitsConverter(*previous))
        return;
    surplus = previous->nb_samples;
    Convert(previous.get());
    previous.reset();
}

// Null drains. What comes may be null too.
FrameHandle SampleNormaliser::Convert(const AVFrame* block) {
    const int given = block ? block->nb_samples : 0;
    FrameHandle converted =
        MakeBlock(ConverterFormat(), std::max(Checked(swr_get_out_samples(converter.get(), given)), 1));
    const auto* const* data = block ? const_cast<const std::uint8_t* const*>(block->extended_data) : nullptr;
    converted->nb_samples = Checked(swr_convert(converter.get(), converted->extended_data, converted->nb_samples,
                                                const_cast<const std::uint8_t**>(data), given));
    const std::int64_t dropped = std::min<std::int64_t>(surplus, converted->nb_samples);
    surplus -= dropped;
    converted = Cut(std::move(converted), dropped);
    return limiter ? Limit(std::move(converted), !block) : std::move(converted);
}

FrameHandle SampleNormaliser::Limit(FrameHandle mixed, bool last) {
    SampleQueue ready;
    heldBack += mixed->nb_samples;
    if (mixed->nb_samples > 0)
        limiter->Send(*mixed);
    while (FrameHandle block = limiter->Receive())
        ready.Push(std::move(block));
    if (last)
        limiter->Finish();
    while (FrameHandle block = limiter->Receive())
        ready.Push(std::move(block));
    heldBack -= ready.GetCount();
    return ready.Take(static_cast<int>(ready.GetCount()));
}

FrameHandle SampleNormaliser::Drain() {
    if (!converter)
        return {};
    FrameHandle rest = Convert(nullptr);
    Reset();
    return rest && rest->nb_samples > 0 ? std::move(rest) : FrameHandle();
}

std::int64_t SampleNormaliser::GetDelay() const {
    return converter ? std::max<std::int64_t>(swr_get_delay(converter.get(), sampleRate) - surplus, 0) + heldBack : 0;
}

void SampleNormaliser::Stretch(std::int64_t samples, std::int64_t distance) {
    stretch = samples;
    stretchDistance = distance;
}

void SampleNormaliser::Reset() {
    converter.reset();
    limiter.reset();
    heldBack = 0;
    shape.reset();
    previous.reset();
    surplus = 0;
    stretch = 0;
}

} // namespace Kestra::FF
