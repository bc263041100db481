// Preset: what muxer and encoders are told, and how presets are compared.
#include "EditorPreset/Preset.h"
#include "EditorPreset/PresetTags.h"
#include "EditorPreset/TreeAccess.h"
#include "Kestra/ClientAPI/CodecLimits.h"
#include "Kestra/Conf/CreateDataHelper.h"
#include "Kestra/Conf/IFormatCodecAudio.h"
#include "Kestra/Conf/IFormatCodecVideo.h"
#include "Kestra/Conf/IFormatFile.h"
#include <limits>
#include <locale>
#include <sstream>
#include <utility>

using namespace EditorPreset;

namespace {

using Kestra::Conf::CodecID;
using Kestra::Conf::IFormatCodec;
using Kestra::Conf::IFormatCodecAudio;
using Kestra::Conf::IFormatCodecVideo;
using Kestra::Conf::IFormatFile;
using Kestra::Conf::IPreset;
using Kestra::Core::Property;

/// Options reach the libraries as text, whatever the catalogue writes them as.
std::string optionText(const Property& option) {
    if (const bool* const flag = std::get_if<bool>(&option.GetValue()))
        return *flag ? "1" : "0";
    if (const std::string* const text = std::get_if<std::string>(&option.GetValue()))
        return *text;
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.precision(std::numeric_limits<double>::digits10);
    text << option.GetDouble();
    return text.str();
}

void copyOptions(const Property& tree, const char* section, Property& target, const char* targetTag) {
    const Property* const options = findNode(tree, section, TAG_OPTIONS);
    if (options == nullptr)
        return;
    for (const Property& option : options->GetChildren())
        target[targetTag].SetChild(option.GetName(), optionText(option));
}

void copyValue(const Property& tree, const char* section, const char* tag, Property& target, const char* targetTag) {
    if (const Property* const node = findNode(tree, section, tag)) {
        // Assigned and moved, never copied: see Property's copy constructor.
        Property::Value value;
        value = node->GetValue();
        target.SetChild(targetTag, std::move(value));
    }
}

/// Formats have several names; presets that mean the same one are alike.
void copyPixelFormat(const Property& tree, Property& target) {
    const Property* const node = findNode(tree, TAG_VIDEO, TAG_PIXEL_FORMAT);
    if (node == nullptr)
        return;
    const std::string name = node->GetString();
    const auto format = Kestra::Conf::PixelFormatFromString(name);
    const bool known = Kestra::Conf::PixelFormatRecord::Find(format) != nullptr;
    target.SetChild(IFormatCodecVideo::TAG_PIXEL_FORMAT,
                    known ? std::string(Kestra::Conf::PixelFormatToString(format)) : name);
}

void complete(Property& data, const char* key, CodecID codec, const std::string& container) {
    Kestra::Conf::CreateDataHelper(key, codec)->Apply(data);
    Kestra::Conf::CreateDataHelper(IPreset::KEY_FORMAT, container)->Apply(data);
}

void describeResizing(const Preset& preset, Property& video) {
    const Kestra::Proc::SettingsResizer resizer = preset.resizerSettings();
    video.SetChild(TAG_WIDTH, std::int64_t{preset.width()});
    video.SetChild(TAG_HEIGHT, std::int64_t{preset.height()});
    video.SetChild(TAG_RESIZE, static_cast<std::int64_t>(resizer.aspectMode));
    video.SetChild(TAG_INTERPOLATION, static_cast<std::int64_t>(resizer.interpolation));
    video.SetChild(TAG_FRAME_RATE, preset.frameRate());
}

/// Only what the bitrate mode makes use of.
void describeBits(const Preset& preset, Property& video) {
    const Export::BitrateMode mode = preset.videoBitrateMode();
    const bool automatic = mode == Export::BitrateMode::Automatic || mode == Export::BitrateMode::Constant;
    video.SetChild(TAG_BITRATE_MODE, static_cast<std::int64_t>(mode));
    if (automatic)
        video.SetChild(TAG_MULTIPLIER, preset.videoBitrateMultiplier());
    else
        video.SetChild(TAG_BITRATE, preset.videoBitrateBps());
    if (mode == Export::BitrateMode::Quality)
        video.SetChild(TAG_QUALITY, preset.videoQuality());
    else
        video.SetChild(TAG_TWO_PASS, preset.isVideoTwoPassEncodingEnabled());
}

/// Everything that shapes the file, defaults spelled out.
Property effect(const Preset& preset) {
    Property result;
    result.SetChild(TAG_CONTAINER).Merge(preset.muxerData());
    if (preset.hasVideo()) {
        // The encoder's data would tell bitrates apart that the mode leaves unused.
        Property encoder = preset.videoEncoderData();
        encoder.RemoveChild(IFormatCodec::TAG_BITRATE);
        Property& video = result.SetChild(TAG_VIDEO);
        video.Merge(encoder);
        describeResizing(preset, video);
        describeBits(preset, video);
    }
    if (preset.hasAudio())
        result.SetChild(TAG_AUDIO).Merge(preset.audioEncoderData());
    return result;
}

/// The settings that show in no file of today but in what the preset offers.
Property reserve(const Preset& preset) {
    Property result;
    if (!preset.hasVideo())
        return result;
    result.SetChild(TAG_MAX_WIDTH, std::int64_t{preset.maxWidth()});
    result.SetChild(TAG_MAX_HEIGHT, std::int64_t{preset.maxHeight()});
    result.SetChild(TAG_FIXED_RESOLUTION, preset.hasFixedResolution());
    result.SetChild(TAG_BITRATE, preset.videoBitrateBps());
    result.SetChild(TAG_MULTIPLIER, preset.videoBitrateMultiplier());
    result.SetChild(TAG_QUALITY, preset.videoQuality());
    result.SetChild(TAG_TWO_PASS, preset.isVideoTwoPassEncodingEnabled());
    return result;
}

} // namespace

Property Preset::muxerData() const {
    Property data;
    data.SetChild(IFormatFile::TAG_CONTAINER_ID, containerId());
    copyOptions(tree, TAG_CONTAINER, data, IFormatFile::TAG_MUXER_OPTIONS);
    return data;
}

Property Preset::audioEncoderData() const {
    Property data;
    data.SetChild(IFormatCodec::TAG_CODEC_ID, std::string(Kestra::Conf::CodecIDToString(audioCodec())));
    data.SetChild(IFormatCodec::TAG_BITRATE,
                  Kestra::ClientAPI::CodecLimits::IsLossless(audioCodec()) ? std::int64_t{0} : audioBitrateBps());
    if (sampleRate() != 0)
        data.SetChild(IFormatCodecAudio::TAG_SAMPLE_RATE, std::int64_t{sampleRate()});
    if (channelLayout() != 0)
        data.SetChild(IFormatCodecAudio::TAG_CHANNEL_LAYOUT, std::int64_t{channelLayout()});
    copyOptions(tree, TAG_AUDIO, data, IFormatCodec::TAG_CODEC_OPTIONS_ENCODE);
    complete(data, IPreset::KEY_FILTER_AUDIO_CODEC, audioCodec(), containerId());
    return data;
}

Property Preset::videoEncoderData() const {
    Property data;
    data.SetChild(IFormatCodec::TAG_CODEC_ID, std::string(Kestra::Conf::CodecIDToString(videoCodec())));
    data.SetChild(IFormatCodec::TAG_BITRATE, videoBitrateBps());
    data.SetChild(IFormatCodec::TAG_BITRATE_MODE, modeToString(videoBitrateMode()));
    if (videoBitrateMode() == Export::BitrateMode::Quality && videoQuality() != 0.0)
        data.SetChild(IFormatCodec::TAG_QUALITY, videoQuality());
    copyValue(tree, TAG_VIDEO, TAG_PROFILE, data, IFormatCodec::TAG_PROFILE);
    copyPixelFormat(tree, data);
    if (keepsDynamicRange())
        data.SetChild(IFormatCodecVideo::TAG_DYNAMIC_RANGE, std::string(IFormatCodecVideo::DYNAMIC_RANGE_SOURCE));
    copyValue(tree, TAG_VIDEO, TAG_GOP_SECONDS, data, IFormatCodecVideo::TAG_GOP_SECONDS);
    if (readString(tree, TAG_VIDEO, TAG_FIELDS) == VALUE_SOURCE)
        data.SetChild(IFormatCodecVideo::TAG_INTERLACED, true);
    copyOptions(tree, TAG_VIDEO, data, IFormatCodec::TAG_CODEC_OPTIONS_ENCODE);
    complete(data, IPreset::KEY_FILTER_VIDEO_CODEC, videoCodec(), containerId());
    return data;
}

std::string Preset::formattedPresetInfo() const {
    return tree.ToString();
}

bool Preset::equalsTo(const Preset& other) const {
    return affectsAs(other) && reserve(*this) == reserve(other);
}

bool Preset::affectsAs(const Preset& other) const {
    return effect(*this) == effect(other);
}

bool Preset::applyQualityModifier(const Property& modifier) {
    const Property before = tree;
    const std::string ownId = id();
    tree.Merge(modifier);
    if (!ownId.empty())
        tree.SetChild(TAG_ID, ownId);
    else
        tree.RemoveChild(TAG_ID);
    return tree != before;
}
