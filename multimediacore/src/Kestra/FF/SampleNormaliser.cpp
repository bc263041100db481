#include "Kestra/FF/SampleNormaliser.h"

#include "Kestra/FF/Error.h"

namespace Kestra::FF {

using Proc::TranscodingError;

SampleNormaliser::SampleNormaliser(AVSampleFormat format, int sampleRate, const AVChannelLayout& layout)
    : format(format)
    , sampleRate(sampleRate) {
    Check(av_channel_layout_copy(&this->layout, &layout), TranscodingError::FilterFailed,
          "Copying a channel layout failed");
}

SampleNormaliser::~SampleNormaliser() {
    av_channel_layout_uninit(&layout);
}

FrameHandle SampleNormaliser::MakeBlock(int samples) const {
    FrameHandle block = MakeFrame();
    block->format = format;
    block->sample_rate = sampleRate;
    block->nb_samples = samples;
    Check(av_channel_layout_copy(&block->ch_layout, &layout), TranscodingError::FilterFailed,
          "Copying a channel layout failed");
    Check(av_frame_get_buffer(block.get(), 0), TranscodingError::OutOfMemory, "Allocating samples failed");
    return block;
}

FrameHandle SampleNormaliser::MakeSilence(int samples) const {
    FrameHandle block = MakeBlock(samples);
    av_samples_set_silence(block->extended_data, 0, samples, layout.nb_channels, format);
    return block;
}

FrameHandle SampleNormaliser::Normalise(FrameHandle block) {
    if (block->ch_layout.order == AV_CHANNEL_ORDER_UNSPEC)
        av_channel_layout_default(&block->ch_layout, block->ch_layout.nb_channels);
    if (block->format == format && block->sample_rate == sampleRate &&
        av_channel_layout_compare(&block->ch_layout, &layout) == 0)
        return block;
    const char* const what = "Converting sound that changed its format failed";
    SwrContext* raw = nullptr;
    Check(swr_alloc_set_opts2(&raw, &layout, format, sampleRate, &block->ch_layout,
                              static_cast<AVSampleFormat>(block->format), block->sample_rate, 0, nullptr),
          TranscodingError::FilterFailed, what);
    converter.reset(raw);
    Check(swr_init(raw), TranscodingError::FilterFailed, what);
    FrameHandle converted = MakeBlock(swr_get_out_samples(raw, block->nb_samples));
    const int count = Check(swr_convert(raw, converted->extended_data, converted->nb_samples,
                                        const_cast<const std::uint8_t**>(block->extended_data), block->nb_samples),
                            TranscodingError::FilterFailed, what);
    converted->nb_samples = count;
    converted->best_effort_timestamp = block->best_effort_timestamp;
    return converted;
}

} // namespace Kestra::FF
