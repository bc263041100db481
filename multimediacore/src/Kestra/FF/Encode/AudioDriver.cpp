// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/AudioDriver.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Encode/DriverSettings.h"
#include <algorithm>
#include <cstring>

namespace Kestra::FF {

namespace {

bool TakesLayout(const AVCodec& codec, const AVChannelLayout& wanted) {
    for (const AVChannelLayout* known = codec.ch_layouts; known->nb_channels != 0; ++known)
        if (av_channel_layout_compare(known, &wanted) == 0)
            return true;
    return false;
}

/// The usual speakers of so many channels: most codecs cannot leave open where a channel is heard.
AVChannelLayout WithSpeakers(const AVCodec& codec, std::uint32_t wanted) {
    AVChannelLayout layout = ToAvLayout(wanted);
    if (layout.order == AV_CHANNEL_ORDER_UNSPEC)
        av_channel_layout_default(&layout, Conf::CountChannels(wanted));
    if (layout.order != AV_CHANNEL_ORDER_NATIVE)
        RefuseLayout(codec, wanted, "it has to know where each is heard, and they do not say");
    return layout;
}

} // namespace

const AudioDriver& AudioDriver::Of(const AVCodec& encoder) {
    static const auto& usual = *new AudioDriver(Conf::CodecID::None, nullptr);
    const auto& all = All();
    const auto found = std::find_if(all.begin(), all.end(), [&](const AudioDriver* d) { return d->Drives(encoder); });
    return found == all.end() ? usual : **found;
}

bool AudioDriver::Drives(const AVCodec& other) const {
    return encoder && std::strcmp(encoder, other.name) == 0;
}

const AVCodec& AudioDriver::EncoderFor(const AVCodec& own, Conf::CodecID, AVSampleFormat, int) const {
    return own;
}

std::uint32_t AudioDriver::LayoutFor(const AVCodec& own, std::uint32_t wanted) const {
    const AVChannelLayout layout = WithSpeakers(own, wanted);
    if (!own.ch_layouts || TakesLayout(own, layout))
        return FromAv(layout);
    const AVChannelLayout* best = nullptr;
    for (const AVChannelLayout* known = own.ch_layouts; known->nb_channels != 0; ++known)
        if (known->nb_channels <= layout.nb_channels && (!best || known->nb_channels > best->nb_channels))
            best = known;
    return FromAv(best ? *best : own.ch_layouts[0]);
}

int AudioDriver::BitsKept(const AVCodec&, AVSampleFormat) const {
    return 0;
}

void AudioDriver::SetMode(AVCodecContext&, const std::string&) const {}

void AudioDriver::Settle(AVCodecContext&) const {}

// Encoders of fixed frames give the last one only what was asked of it.
AudioDriver::PacketLength AudioDriver::LengthsOf(const AVCodecContext& context) const {
    return [frameSize = context.frame_size](const AVPacket& packet) {
        return frameSize == 0 ? packet.duration : frameSize;
    };
}

std::shared_ptr<PacketJoiner> AudioDriver::MakeJoiner(const AVCodecContext&) const {
    return std::make_shared<PacketJoiner>();
}

} // namespace Kestra::FF
