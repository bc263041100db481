#include "Kestra/Conf/CreateDataHelper.h"
#include "Kestra/Base/Exception.h"
#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Conf/IFormatCodecAudio.h"
#include "Kestra/Conf/IFormatCodecVideo.h"
#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace Kestra::Conf {

const char* const IPreset::KEY_FILTER_VIDEO_CODEC = "videoCodec";
const char* const IPreset::KEY_FILTER_AUDIO_CODEC = "audioCodec";
const char* const IPreset::KEY_FORMAT = "format";

IDataHelper::~IDataHelper() = default;

namespace {

struct VideoDefaults {
    CodecID codec;
    PixelFormat pixelFormat;
    double gopSeconds; ///< 0: every picture is a keyframe
};

// What players are sure to show. Keyframes lie close enough for seeking in a player, not so close that they cost
// visible quality; the old codecs drift more and get the half second that discs and broadcast use.
constexpr VideoDefaults VIDEO_DEFAULTS[] = {
    {CodecID::H264, PixelFormat::YUV420P, 5.0},  {CodecID::HEVC, PixelFormat::YUV420P, 5.0},
    {CodecID::VP9, PixelFormat::YUV420P, 5.0},   {CodecID::AV1, PixelFormat::YUV420P, 5.0},
    {CodecID::VP8, PixelFormat::YUV420P, 5.0},   {CodecID::MPEG4, PixelFormat::YUV420P, 0.5},
    {CodecID::MPEG2, PixelFormat::YUV420P, 0.5}, {CodecID::ProRes, PixelFormat::YUV422P10, 0.0},
    {CodecID::DNxHD, PixelFormat::YUV422P, 0.0}, {CodecID::MJPEG, PixelFormat::YUVJ420P, 0.0},
};

/// Containers that keep the encoders' headers apart from the packets.
constexpr const char* GLOBAL_HEADER_CONTAINERS[] = {"mp4", "mov", "m4a", "mkv", "webm"};
constexpr const char* OPTION_FLAGS = "flags";
constexpr const char* GLOBAL_HEADER = "+global_header";

/// Adds to a description what it does not hold yet.
class DataHelper final : public RefCountImpl, public IDataHelper {
public:
    explicit DataHelper(Core::Property settings)
        : fixed(std::move(settings)) {}

    void Apply(Core::Property& tree) const override { AddMissing(tree, fixed); }

private:
    static void AddMissing(Core::Property& tree, const Core::Property& settings) {
        if (settings.HasValue() && !tree.HasValue())
            tree.SetValue(settings.GetValue());
        for (const Core::Property& child : settings.GetChildren())
            AddMissing(tree[child.GetName()], child);
    }

    const Core::Property fixed;
};

/// Opus runs at 48 kHz only. A rate of 0 in a description means "open", so it is not a value that must stay.
class OpusDataHelper final : public RefCountImpl, public IDataHelper {
public:
    void Apply(Core::Property& tree) const override {
        const char* const tag = IFormatCodecAudio::TAG_SAMPLE_RATE;
        if (!tree.ChildExists(tag) || tree[tag].GetInt64() <= 0)
            tree.SetChild(tag, std::int64_t{48000});
    }
};

Core::Property VideoSettings(CodecID codecId) {
    Core::Property settings;
    const auto* const found = std::find_if(std::begin(VIDEO_DEFAULTS), std::end(VIDEO_DEFAULTS),
                                           [codecId](const VideoDefaults& entry) { return entry.codec == codecId; });
    if (found == std::end(VIDEO_DEFAULTS))
        return settings;
    settings.SetChild(IFormatCodecVideo::TAG_PIXEL_FORMAT, std::string(PixelFormatToString(found->pixelFormat)));
    if (found->gopSeconds > 0)
        settings.SetChild(IFormatCodecVideo::TAG_GOP_SECONDS, found->gopSeconds);
    return settings;
}

} // namespace

boost::intrusive_ptr<IDataHelper> CreateDataHelper(const std::string& key, CodecID codecId) {
    if (key == IPreset::KEY_FILTER_VIDEO_CODEC)
        return new DataHelper(VideoSettings(codecId));
    if (key != IPreset::KEY_FILTER_AUDIO_CODEC)
        KESTRA_THROW(std::invalid_argument("CreateDataHelper: \"" + key + "\" is not a key for codecs"));
    if (codecId == CodecID::Opus)
        return new OpusDataHelper;
    return new DataHelper(Core::Property());
}

boost::intrusive_ptr<IDataHelper> CreateDataHelper(const std::string& key, const std::string& containerId) {
    if (key != IPreset::KEY_FORMAT)
        KESTRA_THROW(std::invalid_argument("CreateDataHelper: \"" + key + "\" is not the key for containers"));
    Core::Property settings;
    if (std::find(std::begin(GLOBAL_HEADER_CONTAINERS), std::end(GLOBAL_HEADER_CONTAINERS), containerId) !=
        std::end(GLOBAL_HEADER_CONTAINERS))
        settings[IFormatCodec::TAG_CODEC_OPTIONS_ENCODE].SetChild(OPTION_FLAGS, std::string(GLOBAL_HEADER));
    return new DataHelper(std::move(settings));
}

} // namespace Kestra::Conf
