#include "Kestra/ClientAPI/BitrateLimits.h"
#include "Kestra/Conf/IFormatCodecAudio.h"
#include <algorithm>
#include <cmath>
#include <iterator>

// The model and where its numbers come from: docs/bitrates.md.
namespace Kestra::ClientAPI {

namespace {

using Conf::CodecID;

// The frame at which a codec's rate is written down: 1920x1080 at 30 frames a second.
constexpr double REFERENCE_PIXELS = 1920.0 * 1080.0;
constexpr double REFERENCE_FRAME_RATE = 30.0;
// Neighbouring pixels and neighbouring frames resemble each other the more, the more of them there are.
constexpr double SIZE_EXPONENT = 0.75;
constexpr double RATE_EXPONENT = 0.6;
/// No picture is worth less than this, no encoder takes more than that.
constexpr double LOWEST_VIDEO_BITRATE = 32'000.0;
constexpr double HIGHEST_VIDEO_BITRATE = 2'000'000'000.0;

struct VideoModel {
    CodecID codec;
    double referenceBitrate; ///< default at the reference frame, bit/s
    bool intraOnly;          ///< every picture stands alone: bits grow as pixels and frames do
    double lowestFactor;     ///< of the default
    double highestFactor;
};

constexpr VideoModel VIDEO_MODELS[] = {
    {CodecID::H264, 8.0e6, false, 0.1, 6.0},    {CodecID::HEVC, 5.0e6, false, 0.1, 6.0},
    {CodecID::VP9, 5.2e6, false, 0.1, 6.0},     {CodecID::AV1, 4.2e6, false, 0.1, 6.0},
    {CodecID::VP8, 9.0e6, false, 0.1, 6.0},     {CodecID::MPEG4, 12.0e6, false, 0.1, 4.0},
    {CodecID::MPEG2, 16.0e6, false, 0.15, 4.0}, {CodecID::ProRes, 147.0e6, true, 0.3, 2.3},
    {CodecID::DNxHD, 145.0e6, true, 0.25, 3.0}, {CodecID::MJPEG, 75.0e6, true, 0.2, 3.0},
    {CodecID::FFV1, 450.0e6, true, 0.2, 2.0},
};

struct AudioModel {
    CodecID codec;
    double lowestPerChannel;  ///< bit/s at 48 kHz
    double highestPerChannel; ///< bit/s at 48 kHz
    bool scalesWithRate;
    double lowest; ///< of all channels together
    double highest;
};

constexpr double NO_LIMIT = 1.0e12;
constexpr AudioModel AUDIO_MODELS[] = {
    // 6144 bits a frame of 1024 samples and channel.
    {CodecID::AAC, 16'000, 288'000, true, 0, NO_LIMIT},
    {CodecID::Opus, 6'000, 256'000, false, 0, 510'000},
    {CodecID::MP3, 16'000, 320'000, false, 32'000, 320'000},
    {CodecID::Vorbis, 24'000, 240'000, true, 0, NO_LIMIT},
    {CodecID::AC3, 32'000, 320'000, false, 32'000, 640'000},
    // Lossless: from near silence to what the samples themselves take.
    {CodecID::FLAC, 0.3 * 24 * 48'000, 24 * 48'000, true, 0, NO_LIMIT},
    {CodecID::ALAC, 0.3 * 24 * 48'000, 24 * 48'000, true, 0, NO_LIMIT},
    {CodecID::PCM_S16LE, 16 * 48'000, 16 * 48'000, true, 0, NO_LIMIT},
    {CodecID::PCM_S24LE, 24 * 48'000, 24 * 48'000, true, 0, NO_LIMIT},
    {CodecID::PCM, 8 * 48'000, 64 * 48'000, true, 0, NO_LIMIT},
};

constexpr double REFERENCE_SAMPLE_RATE = 48'000.0;
constexpr int REFERENCE_CHANNELS = 2;

template <class Model, std::size_t N>
const Model* FindModel(const Model (&models)[N], CodecID codec) {
    const auto* const found = std::find_if(std::begin(models), std::end(models),
                                           [codec](const Model& model) { return model.codec == codec; });
    return found == std::end(models) ? nullptr : found;
}

/// 0 when codec or size are not known: then there is nothing to reckon from.
std::int64_t VideoBitrate(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format, double VideoModel::*factor) {
    const VideoModel* const model = format ? FindModel(VIDEO_MODELS, format->GetCodecID()) : nullptr;
    if (model == nullptr)
        return 0;
    const Conf::FrameInfo frame = format->GetFrameInfo();
    const double size = double(frame.width) * frame.height / REFERENCE_PIXELS;
    const double given = boost::rational_cast<double>(format->GetFrameRate());
    const double rate = (given > 0 ? given : REFERENCE_FRAME_RATE) / REFERENCE_FRAME_RATE;
    if (size <= 0)
        return 0;
    const double growth =
        model->intraOnly ? size * rate : std::pow(size, SIZE_EXPONENT) * std::pow(rate, RATE_EXPONENT);
    const double bitrate = model->referenceBitrate * growth * (factor == nullptr ? 1.0 : model->*factor);
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

/// Of one channel: below full sample rates its encoder's own tables end earlier than in proportion.
double HighestOfVorbis(double sampleRate) {
    if (sampleRate < 9'000)
        return 32'000;
    if (sampleRate < 15'000)
        return 44'000;
    return sampleRate < 26'000 ? 86'000 : sampleRate < 40'000 ? 190'000 : 240'000;
}

std::int64_t AudioBitrate(const Core::Property& description, double AudioModel::*perChannel) {
    const char* const codecTag = Conf::IFormatCodec::TAG_CODEC_ID;
    const CodecID codec =
        description.ChildExists(codecTag) ? Conf::CodecIDFromString(description[codecTag].GetString()) : CodecID::None;
    const AudioModel* const model = FindModel(AUDIO_MODELS, codec);
    if (model == nullptr)
        return 0;
    const std::int64_t given = ReadOpen(description, Conf::IFormatCodecAudio::TAG_SAMPLE_RATE);
    const double rate = given > 0 ? static_cast<double>(given) : REFERENCE_SAMPLE_RATE;
    const double scale = model->scalesWithRate ? rate / REFERENCE_SAMPLE_RATE : 1.0;
    const double wanted = model->*perChannel * scale;
    const double bitrate =
        (codec == CodecID::Vorbis ? std::min(wanted, HighestOfVorbis(rate)) : wanted) * CountChannels(description);
    return std::llround(std::clamp(bitrate, model->lowest, model->highest));
}

} // namespace

std::int64_t GetMinBitrate(const Core::Property& audioDescription) {
    return AudioBitrate(audioDescription, &AudioModel::lowestPerChannel);
}

std::int64_t GetMaxBitrate(const Core::Property& audioDescription) {
    const std::int64_t highest = AudioBitrate(audioDescription, &AudioModel::highestPerChannel);
    const std::int64_t decided = ReadOpen(audioDescription, Conf::IFormatCodec::TAG_BITRATE);
    return decided > 0 ? std::clamp(decided, GetMinBitrate(audioDescription), highest) : highest;
}

std::int64_t GetMinVideoBitrate(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) {
    return VideoBitrate(format, &VideoModel::lowestFactor);
}

std::int64_t GetMaxVideoBitrate(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) {
    return VideoBitrate(format, &VideoModel::highestFactor);
}

std::int64_t GetDefaultVideoBitrate(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) {
    return VideoBitrate(format, nullptr);
}

} // namespace Kestra::ClientAPI
