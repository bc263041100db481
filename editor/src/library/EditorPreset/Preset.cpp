// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorPreset/Preset.h"

#include "EditorPreset/PresetTags.h"
#include "EditorPreset/SettingTable.h"
#include "EditorPreset/TreeAccess.h"
#include "Kestra/ClientAPI/CodecLimits.h"
#include "Kestra/Proc/Settings/SettingsFilterFrameRate.h"
#include <utility>

using namespace EditorPreset;

using Kestra::Core::Property;
using Kestra::Proc::AspectMode;

Preset::Preset() = default;

Preset::Preset(Property newTree)
    : tree(std::move(newTree)) {}

std::string Preset::id() const {
    return readString(tree, TAG_ID);
}

std::string Preset::title() const {
    const std::string given = readString(tree, TAG_TITLE);
    return given.empty() ? id() : given;
}

std::string Preset::containerId() const {
    return readString(tree, Setting::ContainerId);
}

bool Preset::hasVideo() const {
    return videoCodec() != Kestra::Conf::CodecID::None;
}

bool Preset::hasAudio() const {
    return audioCodec() != Kestra::Conf::CodecID::None;
}

Kestra::Conf::CodecID Preset::videoCodec() const {
    return Kestra::Conf::CodecIDFromString(readString(tree, Setting::VideoCodec));
}

Kestra::Conf::CodecID Preset::audioCodec() const {
    return Kestra::Conf::CodecIDFromString(readString(tree, Setting::AudioCodec));
}

int Preset::width() const {
    return static_cast<int>(readNumber(tree, Setting::Width));
}

int Preset::height() const {
    return static_cast<int>(readNumber(tree, Setting::Height));
}

void Preset::setWidth(int pixels) {
    writeNumber(tree, Setting::Width, pixels);
}

void Preset::setHeight(int pixels) {
    writeNumber(tree, Setting::Height, pixels);
}

int Preset::maxWidth() const {
    return static_cast<int>(readNumber(tree, Setting::MaxWidth));
}

int Preset::maxHeight() const {
    return static_cast<int>(readNumber(tree, Setting::MaxHeight));
}

void Preset::setLimits(int widthPixels, int heightPixels) {
    writeNumber(tree, Setting::MaxWidth, widthPixels);
    writeNumber(tree, Setting::MaxHeight, heightPixels);
}

bool Preset::hasFixedResolution() const {
    return readFlag(tree, Setting::FixedResolution);
}

void Preset::setFixedResolution(bool fixed) {
    writeValue(tree, Setting::FixedResolution, fixed);
    const std::string mode = readString(tree, Setting::Resize);
    if (fixed && (mode == "fitInside" || mode == "keepSize"))
        removeValue(tree, Setting::Resize);
}

Kestra::Proc::SettingsResizer Preset::resizerSettings() const {
    Kestra::Proc::SettingsResizer settings;
    settings.target.width = static_cast<std::uint32_t>(width());
    settings.target.height = static_cast<std::uint32_t>(height());
    const auto usual = static_cast<std::int64_t>(hasFixedResolution() ? AspectMode::Letterbox : AspectMode::FitInside);
    settings.aspectMode = static_cast<AspectMode>(readChoice(tree, Setting::Resize, usual));
    settings.interpolation = static_cast<Kestra::Proc::Interpolation>(readChoice(tree, Setting::Interpolation));
    settings.oddSides =
        Kestra::ClientAPI::CodecLimits::TakesOddSides(videoCodec(), readString(tree, Setting::PixelFormat));
    return settings;
}

Preset::Rational Preset::frameRate() const {
    const Property* const node = findNode(tree, Setting::FrameRate);
    return node == nullptr ? Kestra::Proc::SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE : node->GetRational();
}

void Preset::setFrameRate(const Rational& rate) {
    writeValue(tree, Setting::FrameRate, rate);
}

std::int64_t Preset::videoBitrateBps() const {
    return readNumber(tree, Setting::VideoBitrate);
}

void Preset::setVideoBitrateBps(std::int64_t bitsPerSecond) {
    writeNumber(tree, Setting::VideoBitrate, bitsPerSecond);
}

Export::BitrateMode Preset::videoBitrateMode() const {
    return static_cast<Export::BitrateMode>(readChoice(tree, Setting::BitrateMode));
}

void Preset::setVideoBitrateMode(Export::BitrateMode mode) {
    writeChoice(tree, Setting::BitrateMode, static_cast<std::int64_t>(mode));
}

std::string Preset::modeToString(Export::BitrateMode mode) {
    switch (mode) {
    case Export::BitrateMode::Constant:
        return "cbr";
    case Export::BitrateMode::Automatic:
        return "abr";
    case Export::BitrateMode::Variable:
        return "vbr";
    case Export::BitrateMode::Quality:
        return "quality";
    }
    return {};
}

double Preset::videoBitrateMultiplier() const {
    return readFraction(tree, Setting::Multiplier);
}

double Preset::videoQuality() const {
    return readFraction(tree, Setting::Quality);
}

std::string Preset::videoProfile() const {
    return readString(tree, Setting::Profile);
}

void Preset::setVideoQuality(double quality) {
    writeValue(tree, Setting::Quality, quality);
}

bool Preset::isVideoTwoPassEncodingEnabled() const {
    return readFlag(tree, Setting::TwoPass);
}

void Preset::setHalfFirstPass(bool half) {
    writeValue(tree, Setting::FirstPass, std::string(half ? "half" : "full"));
}

bool Preset::keepsDynamicRange() const {
    return readChoice(tree, Setting::DynamicRange) != 0;
}

std::int64_t Preset::audioBitrateBps() const {
    return readNumber(tree, Setting::AudioBitrate);
}

void Preset::setAudioBitrateBps(std::int64_t bitsPerSecond) {
    writeNumber(tree, Setting::AudioBitrate, bitsPerSecond);
}

std::uint32_t Preset::channelLayout() const {
    return static_cast<std::uint32_t>(readChoice(tree, Setting::ChannelLayout));
}

void Preset::setChannelLayout(std::uint32_t layout) {
    writeChoice(tree, Setting::ChannelLayout, layout);
}

std::uint32_t Preset::sampleRate() const {
    return static_cast<std::uint32_t>(readNumber(tree, Setting::SampleRate));
}

void Preset::setSampleRate(std::uint32_t samplesPerSecond) {
    writeNumber(tree, Setting::SampleRate, samplesPerSecond);
}
