// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Data/SampleQueue.h"

#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Data/DataAudioFF.h"
#include <algorithm>
#include <utility>

extern "C" {
#include <libavutil/samplefmt.h>
}

namespace Kestra::FF {

namespace {

FrameHandle MakeRoom(AVSampleFormat format, int rate, const AVChannelLayout& layout, int samples) {
    FrameHandle frame = MakeFrame();
    frame->format = format;
    frame->sample_rate = rate;
    frame->nb_samples = samples;
    Check(av_channel_layout_copy(&frame->ch_layout, &layout), Proc::TranscodingError::OutOfMemory, "channel layout");
    Check(av_frame_get_buffer(frame.get(), 0), Proc::TranscodingError::OutOfMemory, "buffer for samples");
    return frame;
}

void Silence(AVFrame& frame, int from) {
    av_samples_set_silence(frame.extended_data, from, frame.nb_samples - from, frame.ch_layout.nb_channels,
                           static_cast<AVSampleFormat>(frame.format));
}

} // namespace

FrameHandle MakeSamples(AVSampleFormat format, int rate, const AVChannelLayout& layout, int samples) {
    FrameHandle frame = MakeRoom(format, rate, layout, samples);
    Silence(*frame, 0);
    return frame;
}

void SampleQueue::Push(FrameHandle samples) {
    if (!samples || samples->nb_samples == 0)
        return;
    count += samples->nb_samples;
    blocks.push_back(std::move(samples));
}

void SampleQueue::Clear() {
    blocks.clear();
    offset = 0;
    count = 0;
}

void SampleQueue::Skip(std::int64_t samples) {
    samples = std::min(samples, count);
    count -= samples;
    while (samples > 0) {
        const int left = blocks.front()->nb_samples - offset;
        if (samples < left) {
            offset += static_cast<int>(samples);
            return;
        }
        samples -= left;
        offset = 0;
        blocks.pop_front();
    }
}

FrameHandle SampleQueue::Take(int samples) {
    if (blocks.empty())
        return nullptr;
    if (offset == 0 && blocks.front()->nb_samples == samples) {
        FrameHandle whole = std::move(blocks.front());
        blocks.pop_front();
        count -= samples;
        return whole;
    }
    const AVFrame& first = *blocks.front();
    const auto format = static_cast<AVSampleFormat>(first.format);
    FrameHandle result = MakeRoom(format, first.sample_rate, first.ch_layout, samples);
    int filled = 0;
    while (filled < samples && !blocks.empty()) {
        const AVFrame& block = *blocks.front();
        const int part = std::min(samples - filled, block.nb_samples - offset);
        av_samples_copy(result->extended_data, block.extended_data, filled, offset, part, block.ch_layout.nb_channels,
                        format);
        filled += part;
        Skip(part);
    }
    if (filled < samples)
        Silence(*result, filled);
    return result;
}

FrameHandle SampleQueue::TakeFront(std::int64_t limit) {
    if (blocks.empty())
        return nullptr;
    const std::int64_t left = blocks.front()->nb_samples - offset;
    const std::int64_t part = std::min(left, limit);
    if (offset == 0 && part == left)
        return Take(static_cast<int>(part));
    const DataAudioFF block(MakeFrameReference(*blocks.front()), 0);
    FrameHandle result = MakeFrameReference(FrameOf(*block.Slice(offset, part)));
    Skip(part);
    return result;
}

} // namespace Kestra::FF
