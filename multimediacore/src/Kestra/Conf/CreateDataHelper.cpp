// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/CreateDataHelper.h"
#include "Kestra/Base/Exception.h"
#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Conf/Codec.h"
#include "Kestra/Conf/Container.h"
#include "Kestra/Conf/IFormatCodecAudio.h"
#include "Kestra/Conf/IFormatCodecVideo.h"
#include <stdexcept>
#include <utility>

namespace Kestra::Conf {

const char* const IPreset::KEY_FILTER_VIDEO_CODEC = "videoCodec";
const char* const IPreset::KEY_FILTER_AUDIO_CODEC = "audioCodec";
const char* const IPreset::KEY_FORMAT = "format";

IDataHelper::~IDataHelper() = default;

namespace {

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
        if (settings.HasValue() && !tree.HasValue()) {
            // Assigned and moved, never copied: see Property's copy constructor.
            Core::Property::Value value;
            value = settings.GetValue();
            tree.SetValue(std::move(value));
        }
        for (const Core::Property& child : settings.GetChildren())
            AddMissing(tree[child.GetName()], child);
    }

    const Core::Property fixed;
};

/// For a codec that knows one rate only. A rate of 0 in a description means "open", so it is not a value that must
/// stay.
class OneRateHelper final : public RefCountImpl, public IDataHelper {
public:
    explicit OneRateHelper(int sampleRate)
        : sampleRate(sampleRate) {}

    void Apply(Core::Property& tree) const override {
        const char* const tag = IFormatCodecAudio::TAG_SAMPLE_RATE;
        if (!tree.ChildExists(tag) || tree[tag].GetInt64() <= 0)
            tree.SetChild(tag, std::int64_t{sampleRate});
    }

private:
    const int sampleRate;
};

Core::Property VideoSettings(CodecID codecId) {
    Core::Property settings;
    const VideoCodec* const codec = Codec::FindVideo(codecId);
    if (codec && codec->playable != PixelFormat::Unknown)
        settings.SetChild(IFormatCodecVideo::TAG_PIXEL_FORMAT, std::string(PixelFormatToString(codec->playable)));
    if (codec && codec->gopSeconds > 0)
        settings.SetChild(IFormatCodecVideo::TAG_GOP_SECONDS, codec->gopSeconds);
    return settings;
}

} // namespace

boost::intrusive_ptr<IDataHelper> CreateDataHelper(const std::string& key, CodecID codecId) {
    if (key == IPreset::KEY_FILTER_VIDEO_CODEC)
        return new DataHelper(VideoSettings(codecId));
    if (key != IPreset::KEY_FILTER_AUDIO_CODEC)
        KESTRA_THROW(std::invalid_argument("CreateDataHelper: \"" + key + "\" is not a key for codecs"));
    const AudioCodec* const codec = Codec::FindAudio(codecId);
    if (codec && codec->sampleRates.size() == 1)
        return new OneRateHelper(codec->sampleRates.front());
    return new DataHelper(Core::Property());
}

boost::intrusive_ptr<IDataHelper> CreateDataHelper(const std::string& key, const std::string& containerId) {
    if (key != IPreset::KEY_FORMAT)
        KESTRA_THROW(std::invalid_argument("CreateDataHelper: \"" + key + "\" is not the key for containers"));
    Core::Property settings;
    const Container* const container = Container::Find(containerId);
    if (container && container->globalHeaders)
        settings[IFormatCodec::TAG_CODEC_OPTIONS_ENCODE].SetChild(OPTION_FLAGS, std::string(GLOBAL_HEADER));
    return new DataHelper(std::move(settings));
}

} // namespace Kestra::Conf
