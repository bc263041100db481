// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorPreset/SettingReading.h"
#include "EditorPreset/SettingTable.h"
#include "EditorPreset/TreeAccess.h"
#include "Kestra/ClientAPI/CodecLimits.h"
#include "Kestra/Conf/Codec.h"
#include "Kestra/Conf/Container.h"
#include "Kestra/Conf/IFormatCodecVideo.h"
#include "Kestra/Conf/PixelFormat.h"

namespace EditorPreset {

namespace {

using Kestra::Core::Property;

std::vector<std::string> codecNames(bool ofPictures) {
    std::vector<std::string> names;
    for (const Kestra::Conf::Codec& codec : Kestra::Conf::Codec::All()) {
        if (codec.video.has_value() == ofPictures)
            names.emplace_back(codec.name);
    }
    return names;
}

} // namespace

Value asWritten(const Preset& preset, Setting setting) {
    const Property* const node = findNode(preset.property(), setting);
    Value value;
    // Assigned, never copied: see Property's copy constructor.
    if (node != nullptr)
        value = node->GetValue();
    return value;
}

Value videoCodecName(const Preset& preset, Setting) {
    return std::string(Kestra::Conf::CodecIDToString(preset.videoCodec()));
}

Value audioCodecName(const Preset& preset, Setting) {
    return std::string(Kestra::Conf::CodecIDToString(preset.audioCodec()));
}

Value modeName(const Preset& preset, Setting) {
    return Preset::modeToString(preset.videoBitrateMode());
}

Value usedQuality(const Preset& preset, Setting) {
    const bool used = preset.videoBitrateMode() == Export::BitrateMode::Quality && preset.videoQuality() != 0.0;
    return used ? Value(preset.videoQuality()) : Value();
}

Value pixelFormatName(const Preset& preset, Setting setting) {
    const Property* const node = findNode(preset.property(), setting);
    if (node == nullptr)
        return {};
    const std::string name = node->GetString();
    const auto format = Kestra::Conf::PixelFormatFromString(name);
    const bool known = Kestra::Conf::PixelFormatRecord::Find(format) != nullptr;
    return known ? std::string(Kestra::Conf::PixelFormatToString(format)) : name;
}

Value keptRange(const Preset& preset, Setting) {
    return preset.keepsDynamicRange() ? Value(std::string(Kestra::Conf::IFormatCodecVideo::DYNAMIC_RANGE_SOURCE))
                                      : Value();
}

Value keptFields(const Preset& preset, Setting setting) {
    return readChoice(preset.property(), setting) != 0 ? Value(true) : Value();
}

Value halfFirstPass(const Preset& preset, Setting setting) {
    const bool isHalf = readChoice(preset.property(), setting) != 0;
    return isHalf ? Value(std::string(Kestra::Conf::IFormatCodecVideo::FIRST_PASS_HALF)) : Value();
}

Value audioBitrate(const Preset& preset, Setting) {
    return Kestra::ClientAPI::CodecLimits::IsLossless(preset.audioCodec()) ? std::int64_t{0} : preset.audioBitrateBps();
}

Value aspectMode(const Preset& preset, Setting) {
    return static_cast<std::int64_t>(preset.resizerSettings().aspectMode);
}

Value interpolation(const Preset& preset, Setting) {
    return static_cast<std::int64_t>(preset.resizerSettings().interpolation);
}

std::vector<std::string> containerNames() {
    std::vector<std::string> names;
    for (const Kestra::Conf::Container& container : Kestra::Conf::Container::All())
        names.emplace_back(container.id);
    return names;
}

std::vector<std::string> videoCodecNames() {
    return codecNames(true);
}

std::vector<std::string> audioCodecNames() {
    return codecNames(false);
}

std::vector<std::string> pixelFormatNames() {
    return {"yuv420p",   "yuv422p",   "yuv444p",   "nv12",      "yuvj420p",  "yuvj422p", "yuvj444p", "yuv420p10",
            "yuv422p10", "yuv444p10", "yuv420p12", "yuv422p12", "yuv444p12", "gray8",    "gray10",   "gbrp",
            "gbrp10",    "bgra",      "rgb24",     "rgba",      "rgb48be",   "rgba64be", "yuva420p", "yuva444p10"};
}

std::vector<int> usualSampleRates() {
    return {0, 8000, 11025, 12000, 16000, 22050, 24000, 32000, 44100, 48000, 88200, 96000, 176400, 192000};
}

} // namespace EditorPreset
