// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/ClientAPI/BitrateLimits.h"
#include "Kestra/Conf/Codec.h"
#include "Kestra/Conf/IFormatCodecAudio.h"
#include <algorithm>
#include <cmath>

// The model and where its numbers come from: docs/bitrates.md.
namespace Kestra::ClientAPI {

namespace {

// The frame at which a codec's rate is written down: 1920x1080 at 30 frames a second.
constexpr double REFERENCE_PIXELS = 1920.0 * 1080.0;
constexpr double REFERENCE_FRAME_RATE = 30.0;
// Neighbouring pixels and neighbouring frames resemble each other the more, the more of them there are.
constexpr double SIZE_EXPONENT = 0.75;
constexpr double RATE_EXPONENT = 0.6;
/// No picture is worth less than this, no encoder takes more than that.
constexpr double LOWEST_VIDEO_BITRATE = 32'000.0;
constexpr double HIGHEST_VIDEO_BITRATE = 2'000'000'000.0;

constexpr double REFERENCE_SAMPLE_RATE = 48'000.0;
constexpr int REFERENCE_CHANNELS = 2;

/// 0 when codec or size are not known: then there is nothing to reckon from.
std::int64_t VideoBitrate(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format,
                          double Conf::VideoBitrates::*factor) {
    const Conf::VideoCodec* const codec = format ? Conf::Codec::FindVideo(format->GetCodecID()) : nullptr;
    if (codec == nullptr)
        return 0;
    const Conf::FrameInfo frame = format->GetFrameInfo();
    const double size = double(frame.width) * frame.height / REFERENCE_PIXELS;
    const double given = boost::rational_cast<double>(format->GetFrameRate());
    const double rate = (given > 0 ? given : REFERENCE_FRAME_RATE) / REFERENCE_FRAME_RATE;
    if (size <= 0)
        return 0;
    const double growth =
        codec->intraOnly ? size * rate : std::pow(size, SIZE_EXPONENT) * std::pow(rate, RATE_EXPONENT);
    const double bitrate = codec->bitrates.atReference * growth * (factor == nullptr ? 1.0 : codec->bitrates.*factor);
    return std::llround(std::clamp(bitrate, LOWEST_VIDEO_BITRATE, HIGHEST_VIDEO_BITRATE));
}

/// 0 when the description does not say.
std::int64_t ReadOpen(const Core::Property& tree, const char* tag) {
    return tree.ChildExists(tag) ? tree[tag].GetInt64() : 0;
}

int CountChannels(const Core::Property& description) {
    const auto layout = static_cast<std::uint32_t>(ReadOpen(description, Conf::IFormatCodecAudio::TAG_CHANNEL_LAYOUT));
    const int channels = Conf::CountChannels(layout);
    return channels == 0 ? REFERENCE_CHANNELS : channels;
}

std::int64_t AudioBitrate(const Core::Property& description, double Conf::AudioBitrates::*perChannel) {
    const char* const codecTag = Conf::IFormatCodec::TAG_CODEC_ID;
    const Conf::AudioCodec* const codec =
        description.ChildExists(codecTag)
            ? Conf::Codec::FindAudio(Conf::CodecIDFromString(description[codecTag].GetString()))
            : nullptr;
    if (codec == nullptr)
        return 0;
    const Conf::AudioBitrates& model = codec->bitrates;
    const std::int64_t given = ReadOpen(description, Conf::IFormatCodecAudio::TAG_SAMPLE_RATE);
    const double rate = given > 0 ? static_cast<double>(given) : REFERENCE_SAMPLE_RATE;
    const double scale = model.scalesWithRate ? rate / REFERENCE_SAMPLE_RATE : 1.0;
    const double wanted = model.*perChannel * scale;
    const double ofChannel = model.highestAt ? std::min(wanted, model.highestAt(rate)) : wanted;
    return std::llround(std::clamp(ofChannel * CountChannels(description), model.lowest, model.highest));
}

} // namespace

std::int64_t GetMinBitrate(const Core::Property& audioDescription) {
    return AudioBitrate(audioDescription, &Conf::AudioBitrates::lowestPerChannel);
}

std::int64_t GetMaxBitrate(const Core::Property& audioDescription) {
    const std::int64_t highest = AudioBitrate(audioDescription, &Conf::AudioBitrates::highestPerChannel);
    const std::int64_t decided = ReadOpen(audioDescription, Conf::IFormatCodec::TAG_BITRATE);
    return decided > 0 ? std::clamp(decided, GetMinBitrate(audioDescription), highest) : highest;
}

std::int64_t GetMinVideoBitrate(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) {
    return VideoBitrate(format, &Conf::VideoBitrates::lowest);
}

std::int64_t GetMaxVideoBitrate(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) {
    return VideoBitrate(format, &Conf::VideoBitrates::highest);
}

std::int64_t GetDefaultVideoBitrate(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) {
    return VideoBitrate(format, nullptr);
}

} // namespace Kestra::ClientAPI
