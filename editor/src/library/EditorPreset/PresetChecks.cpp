#include "EditorPreset/PresetChecks.h"
#include "EditorPreset/PresetTags.h"
#include <algorithm>
#include <vector>

namespace EditorPreset {

namespace {

using Kestra::Conf::CodecID;

struct Container {
    const char* id;
    std::vector<CodecID> video;
    std::vector<CodecID> audio;
};

/// The pairs that players and editors really read, not all that a muxer would write.
const std::vector<Container>& containers() {
    static const std::vector<Container> table = {
        {"mp4",
         {CodecID::H264, CodecID::HEVC, CodecID::AV1, CodecID::VP9, CodecID::MPEG4, CodecID::MPEG2},
         {CodecID::AAC, CodecID::MP3, CodecID::AC3, CodecID::ALAC, CodecID::Opus, CodecID::FLAC}},
        {"mov",
         {CodecID::H264, CodecID::HEVC, CodecID::ProRes, CodecID::DNxHD, CodecID::MJPEG, CodecID::MPEG4},
         {CodecID::AAC, CodecID::PCM_S16LE, CodecID::PCM_S24LE, CodecID::ALAC, CodecID::MP3, CodecID::AC3}},
        {"webm", {CodecID::VP9, CodecID::VP8, CodecID::AV1}, {CodecID::Opus, CodecID::Vorbis}},
        {"mkv",
         {CodecID::H264, CodecID::HEVC, CodecID::VP9, CodecID::AV1, CodecID::VP8, CodecID::MPEG4, CodecID::MPEG2,
          CodecID::FFV1, CodecID::MJPEG, CodecID::ProRes},
         {CodecID::AAC, CodecID::Opus, CodecID::MP3, CodecID::FLAC, CodecID::PCM_S16LE, CodecID::PCM_S24LE,
          CodecID::Vorbis, CodecID::AC3, CodecID::ALAC}},
        {"m4a", {}, {CodecID::AAC, CodecID::ALAC}},
        {"mp3", {}, {CodecID::MP3}},
        {"flac", {}, {CodecID::FLAC}},
        {"wav", {}, {CodecID::PCM_S16LE, CodecID::PCM_S24LE}},
    };
    return table;
}

void checkCodec(const std::string& container, const std::vector<CodecID>& allowed, CodecID codec,
                const JsonPlace& place) {
    if (std::find(allowed.begin(), allowed.end(), codec) == allowed.end())
        place.at(TAG_CODEC).refuse("the container \"" + container + "\" does not hold \"" +
                                   Kestra::Conf::CodecIDToString(codec) + "\"");
}

void checkStreams(const Preset& preset, const JsonPlace& place) {
    if (!preset.hasVideo() && !preset.hasAudio())
        place.refuse("has neither video nor audio");
    const auto found = std::find_if(containers().begin(), containers().end(), [&preset](const Container& container) {
        return preset.containerId() == container.id;
    });
    if (found == containers().end())
        place.at(TAG_CONTAINER).refuse("unknown container \"" + preset.containerId() + "\"");
    if (preset.hasVideo())
        checkCodec(found->id, found->video, preset.videoCodec(), place.at(TAG_VIDEO));
    if (preset.hasAudio())
        checkCodec(found->id, found->audio, preset.audioCodec(), place.at(TAG_AUDIO));
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

} // namespace

void checkPreset(const Preset& preset, const JsonPlace& place) {
    checkStreams(preset, place);
    if (!preset.hasVideo())
        return;
    checkBitrateMode(preset, place.at(TAG_VIDEO));
    checkSize(preset, place.at(TAG_VIDEO));
}

} // namespace EditorPreset
