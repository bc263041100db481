// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Data/ChannelPair.h"

#include "Kestra/FF/Av/Error.h"
#include <string>

namespace Kestra::FF {

namespace {

bool HasSpeakers(const AVChannelLayout& layout) {
    return layout.order == AV_CHANNEL_ORDER_NATIVE;
}

AVChannelLayout Discrete(int channels) {
    AVChannelLayout layout = {};
    layout.order = AV_CHANNEL_ORDER_UNSPEC;
    layout.nb_channels = channels;
    return layout;
}

AVChannelLayout Usual(const AVChannelLayout& layout) {
    if (HasSpeakers(layout))
        return layout;
    AVChannelLayout usual = {};
    av_channel_layout_default(&usual, layout.nb_channels);
    if (!HasSpeakers(usual))
        Fail(Proc::TranscodingError::FilterFailed,
             "Sound of " + std::to_string(layout.nb_channels) +
                 " channels that name no speakers cannot be mixed to another number of channels");
    return usual;
}

} // namespace

ChannelPair::ChannelPair(const AVChannelLayout& from, const AVChannelLayout& to) {
    const bool oneByOne = from.nb_channels == to.nb_channels && !(HasSpeakers(from) && HasSpeakers(to));
    input = oneByOne ? Discrete(from.nb_channels) : Usual(from);
    output = oneByOne ? Discrete(to.nb_channels) : Usual(to);
}

FrameHandle WithSpeakers(const AVFrame& block) {
    constexpr int MOST = 63;
    FrameHandle result = MakeFrameReference(block);
    const int channels = block.ch_layout.nb_channels;
    if (block.ch_layout.order == AV_CHANNEL_ORDER_NATIVE)
        return result;
    if (channels > MOST)
        Fail(Proc::TranscodingError::NotSupported,
             "Sound of " + std::to_string(channels) + " channels without speakers cannot be filtered");
    av_channel_layout_uninit(&result->ch_layout);
    Check(av_channel_layout_from_mask(&result->ch_layout, (std::uint64_t{1} << channels) - 1),
          Proc::TranscodingError::FilterFailed, "channel layout");
    return result;
}

} // namespace Kestra::FF
