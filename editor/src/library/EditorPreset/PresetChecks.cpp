#include "EditorPreset/PresetChecks.h"
#include "EditorPreset/PresetTags.h"
#include "EditorPreset/TreeAccess.h"
#include "Kestra/ClientAPI/ContainerLimits.h"

namespace EditorPreset {

namespace {

using Kestra::ClientAPI::ContainerLimits;
using Kestra::Conf::CodecID;

void checkCodec(const std::string& container, CodecID codec, const JsonPlace& place) {
    if (!ContainerLimits::Holds(container, codec))
        place.at(TAG_CODEC).refuse("the container \"" + container + "\" does not hold \"" +
                                   Kestra::Conf::CodecIDToString(codec) + "\"");
}

void checkStreams(const Preset& preset, const JsonPlace& place) {
    const std::string container = preset.containerId();
    if (!preset.hasVideo() && !preset.hasAudio())
        place.refuse("has neither video nor audio");
    if (!ContainerLimits::IsContainer(container))
        place.at(TAG_CONTAINER).refuse("unknown container \"" + container + "\"");
    if (preset.hasVideo())
        checkCodec(container, preset.videoCodec(), place.at(TAG_VIDEO));
    if (preset.hasAudio())
        checkCodec(container, preset.audioCodec(), place.at(TAG_AUDIO));
}

/// Codecs whose quality is their profile, so that the mode needs no number.
bool hasQualityByProfile(CodecID codec) {
    return codec == CodecID::ProRes || codec == CodecID::DNxHD || codec == CodecID::FFV1;
}

void checkBitrateMode(const Preset& preset, const JsonPlace& place) {
    const Export::BitrateMode mode = preset.videoBitrateMode();
    if (mode == Export::BitrateMode::Variable && preset.videoBitrateBps() == 0)
        place.refuse("the bitrate mode \"variable\" needs a bitrate");
    if (mode == Export::BitrateMode::Quality && preset.videoQuality() == 0.0 &&
        !hasQualityByProfile(preset.videoCodec()))
        place.refuse("the bitrate mode \"quality\" needs a quality");
}

void checkSide(int side, int limit, const char* tag, const JsonPlace& place) {
    if (side % 2 != 0)
        place.at(tag).refuse(std::to_string(side) + " is odd: encoders need even sides");
    if (side > limit)
        place.at(tag).refuse(std::to_string(side) + " is beyond the preset's own limit of " + std::to_string(limit));
}

void checkSize(const Preset& preset, const JsonPlace& place) {
    if (preset.hasFixedResolution() && (preset.width() == 0 || preset.height() == 0))
        place.at(TAG_FIXED_RESOLUTION).refuse("a fixed resolution needs width and height");
    if ((preset.width() == 0) != (preset.height() == 0))
        place.refuse("width and height go together");
    checkSide(preset.width(), preset.maxWidth(), TAG_WIDTH, place);
    checkSide(preset.height(), preset.maxHeight(), TAG_HEIGHT, place);
}

/// Lossless material of the archive follows its source's format.
void checkDynamicRange(const Preset& preset, const JsonPlace& place) {
    if (!preset.keepsDynamicRange() || preset.videoCodec() == CodecID::FFV1)
        return;
    const std::string format = readString(preset.property(), TAG_VIDEO, TAG_PIXEL_FORMAT);
    const bool deep = format.size() > 2 && (format.compare(format.size() - 2, 2, "10") == 0 ||
                                            format.compare(format.size() - 2, 2, "12") == 0);
    if (!deep)
        place.at(TAG_DYNAMIC_RANGE).refuse("a high dynamic range takes a pixel format of 10 bits");
}

} // namespace

void checkPreset(const Preset& preset, const JsonPlace& place) {
    checkStreams(preset, place);
    if (!preset.hasVideo())
        return;
    checkBitrateMode(preset, place.at(TAG_VIDEO));
    checkSize(preset, place.at(TAG_VIDEO));
    checkDynamicRange(preset, place.at(TAG_VIDEO));
}

} // namespace EditorPreset
