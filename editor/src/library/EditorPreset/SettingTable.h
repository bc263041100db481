// SPDX-License-Identifier: GPL-3.0-or-later
// The settings that a preset has, each declared in one row. Reading, the schema, what encoders and muxer are told,
// comparison and docs/presets.md follow from the rows.
#pragma once

#include "EditorPreset/SettingReading.h"
#include "EditorPreset/SettingRow.h"
#include "Kestra/Conf/SampleInfo.h"
#include "Kestra/Proc/Settings/SettingsResizer.h"
#include <iterator>

namespace EditorPreset {

enum class Setting : int {
    ContainerId,
    MuxerOptions,

    VideoCodec,
    Width,
    Height,
    MaxWidth,
    MaxHeight,
    FixedResolution,
    Resize,
    Interpolation,
    FrameRate,
    VideoBitrate,
    BitrateMode,
    Multiplier,
    Quality,
    TwoPass,
    Profile,
    PixelFormat,
    DynamicRange,
    GopSeconds,
    Fields,
    FirstPass,
    VideoOptions,

    AudioCodec,
    AudioBitrate,
    SampleRate,
    ChannelLayout,
    AudioOptions,

    Count ///< no setting
};

namespace Table {

using Export::BitrateMode;
using Kestra::Conf::AudioSetting;
using Kestra::Conf::ContainerSetting;
using Kestra::Conf::VideoSetting;
using Kestra::Proc::AspectMode;

template <class Enum>
constexpr std::int64_t as(Enum value) {
    return static_cast<std::int64_t>(value);
}

constexpr Choice RESIZE_MODES[] = {{"stretch", as(AspectMode::Stretch)},
                                   {"keepSize", as(AspectMode::KeepSize)},
                                   {"fitInside", as(AspectMode::FitInside)},
                                   {"crop", as(AspectMode::Crop)},
                                   {"letterbox", as(AspectMode::Letterbox)}};
constexpr Choice INTERPOLATIONS[] = {{"nearest", as(Kestra::Proc::Interpolation::Nearest)},
                                     {"bilinear", as(Kestra::Proc::Interpolation::Bilinear)},
                                     {"bicubic", as(Kestra::Proc::Interpolation::Bicubic)},
                                     {"lanczos", as(Kestra::Proc::Interpolation::Lanczos)}};
constexpr Choice MODES[] = {{"constant", as(BitrateMode::Constant)},
                            {"automatic", as(BitrateMode::Automatic)},
                            {"variable", as(BitrateMode::Variable)},
                            {"quality", as(BitrateMode::Quality)}};
constexpr Choice RANGES[] = {{"standard", 0}, {VALUE_SOURCE, 1}};
constexpr Choice FIELDS[] = {{"progressive", 0}, {VALUE_SOURCE, 1}};
constexpr Choice FIRST_PASSES[] = {{"full", 0}, {"half", 1}};
constexpr Choice LAYOUTS[] = {
    {VALUE_SOURCE, as(Kestra::Conf::CHANNEL_LAYOUT_UNKNOWN)}, {"mono", as(Kestra::Conf::CHANNEL_LAYOUT_MONO)},
    {"stereo", as(Kestra::Conf::CHANNEL_LAYOUT_STEREO)},      {"quad", as(Kestra::Conf::CHANNEL_LAYOUT_QUAD)},
    {"5.0", as(Kestra::Conf::CHANNEL_LAYOUT_5POINT0)},        {"5.1", as(Kestra::Conf::CHANNEL_LAYOUT_5POINT1)},
    {"7.1", as(Kestra::Conf::CHANNEL_LAYOUT_7POINT1)}};

constexpr std::int64_t LARGEST_SIDE = 16384;
constexpr Whole SIDE{2, LARGEST_SIDE};
/// What a preset without limits is taken to be meant for: more than the largest frame in use.
constexpr std::int64_t NO_SIZE_LIMIT = 16384;

constexpr Told NOBODY{{}, std::nullopt};
constexpr Compared AS_TOLD{0, std::nullopt};
constexpr unsigned NO_MODE = 0;
constexpr unsigned AUTOMATIC_MODES = bitOf(BitrateMode::Constant) | bitOf(BitrateMode::Automatic);
constexpr unsigned QUALITY_MODE = bitOf(BitrateMode::Quality);
constexpr unsigned RATE_MODES = AUTOMATIC_MODES | bitOf(BitrateMode::Variable);
constexpr unsigned EVERY_MODE = RATE_MODES | QUALITY_MODE;

constexpr SettingRow ROWS[] = {
    {Setting::ContainerId, Section::Container, "id", NameOf{containerNames}, 0,
     Told{ContainerSetting::Id, answer<&Preset::containerId>}, AS_TOLD, Rules::More, "The kind of file."},
    {Setting::MuxerOptions, Section::Container, "options", Options{}, 0, Told{ContainerSetting::Options, std::nullopt},
     AS_TOLD, Rules::More, "Handed on by name; the names are the muxer's own."},

    {Setting::VideoCodec, Section::Video, "codec", NameOf{videoCodecNames}, 0,
     Told{VideoSetting::Codec, videoCodecName}, AS_TOLD, Rules::More, "What the pictures are encoded as."},
    {Setting::Width, Section::Video, "width", SIDE, 0, NOBODY, Compared{EVERY_MODE, answer<&Preset::width>},
     Rules::More, "Pixels; the source's when missing."},
    {Setting::Height, Section::Video, "height", SIDE, 0, NOBODY, Compared{EVERY_MODE, answer<&Preset::height>},
     Rules::More, "Pixels; the source's when missing."},
    {Setting::MaxWidth, Section::Video, "maxWidth", SIDE, NO_SIZE_LIMIT, NOBODY,
     Compared{NO_MODE, answer<&Preset::maxWidth>}, Rules::More, "Pixels: the largest frame that the preset is for."},
    {Setting::MaxHeight, Section::Video, "maxHeight", SIDE, NO_SIZE_LIMIT, NOBODY,
     Compared{NO_MODE, answer<&Preset::maxHeight>}, Rules::More, "Pixels: the largest frame that the preset is for."},
    {Setting::FixedResolution, Section::Video, "fixedResolution", Flag{}, 0, NOBODY,
     Compared{NO_MODE, answer<&Preset::hasFixedResolution>}, Rules::More,
     "Every source comes out in exactly width x height."},
    {Setting::Resize, Section::Video, "resize", OneOf(RESIZE_MODES), as(AspectMode::FitInside), NOBODY,
     Compared{EVERY_MODE, aspectMode}, Rules::More,
     "How the frame is filled; \"letterbox\" when missing where the resolution is fixed, else \"fitInside\"."},
    {Setting::Interpolation, Section::Video, "interpolation", OneOf(INTERPOLATIONS),
     as(Kestra::Proc::Interpolation::Bicubic), NOBODY, Compared{EVERY_MODE, interpolation}, Rules::Range,
     "Of scaled pictures; \"bicubic\" when missing."},
    {Setting::FrameRate, Section::Video, "frameRate", FrameRateText{}, 0, NOBODY,
     Compared{EVERY_MODE, answer<&Preset::frameRate>}, Rules::More,
     "\"source\", or frames a second as \"25\" or \"30000/1001\"."},
    {Setting::VideoBitrate, Section::Video, "bitrate", Whole{1000, 2000000000}, 0,
     Told{VideoSetting::Bitrate, answer<&Preset::videoBitrateBps>},
     Compared{EVERY_MODE & ~AUTOMATIC_MODES, answer<&Preset::videoBitrateBps>}, Rules::More, "bit/s."},
    {Setting::BitrateMode, Section::Video, "bitrateMode", OneOf(MODES), as(BitrateMode::Automatic),
     Told{VideoSetting::BitrateMode, modeName}, Compared{EVERY_MODE, answer<&Preset::videoBitrateMode>}, Rules::More,
     "What decides about the bits of a picture; \"automatic\" when missing."},
    {Setting::Multiplier, Section::Video, "multiplier", Number{0.01, 100}, 1, NOBODY,
     Compared{AUTOMATIC_MODES, answer<&Preset::videoBitrateMultiplier>}, Rules::More,
     "Factor on the codec's default bitrate, for \"automatic\" and \"constant\"."},
    {Setting::Quality, Section::Video, "quality", Number{0, 255}, 0, Told{VideoSetting::Quality, usedQuality},
     Compared{QUALITY_MODE, answer<&Preset::videoQuality>}, Rules::More, "In the codec's own scale."},
    {Setting::TwoPass, Section::Video, "twoPass", Flag{}, 0, NOBODY,
     Compared{RATE_MODES, answer<&Preset::isVideoTwoPassEncodingEnabled>}, Rules::More,
     "Two passes, in every mode but \"quality\"."},
    {Setting::Profile, Section::Video, "profile", Text{1, 50}, 0, Told{VideoSetting::Profile, asWritten}, AS_TOLD,
     Rules::More, "As the codec names it."},
    {Setting::PixelFormat, Section::Video, "pixelFormat", NameOf{pixelFormatNames}, 0,
     Told{VideoSetting::PixelFormat, pixelFormatName}, AS_TOLD, Rules::More,
     "When missing, the one that players are sure to show; without loss the source's."},
    {Setting::DynamicRange, Section::Video, "dynamicRange", OneOf(RANGES), 0,
     Told{VideoSetting::DynamicRange, keptRange}, AS_TOLD, Rules::More,
     "\"source\" keeps a high dynamic range (PQ, HLG), which takes 10 bits; \"standard\", when missing, maps it."},
    {Setting::GopSeconds, Section::Video, "gopSeconds", Number{0.01, 600}, 0, Told{VideoSetting::GopSeconds, asWritten},
     AS_TOLD, Rules::Range, "Longest distance of keyframes."},
    {Setting::Fields, Section::Video, "fields", OneOf(FIELDS), 0, Told{VideoSetting::Fields, keptFields}, AS_TOLD,
     Rules::More,
     "\"source\": interlaced pictures stay so where their size and rate do; otherwise they are deinterlaced."},
    {Setting::FirstPass, Section::Video, "firstPass", OneOf(FIRST_PASSES), 0,
     Told{VideoSetting::FirstPass, halfFirstPass}, AS_TOLD, Rules::Range,
     "Of two: \"full\", when missing, looks at whole pictures, \"half\" at half the width and height where it can."},
    {Setting::VideoOptions, Section::Video, "options", Options{}, 0, Told{VideoSetting::Options, std::nullopt}, AS_TOLD,
     Rules::More, "Handed on by name; the names are the encoder's own."},

    {Setting::AudioCodec, Section::Audio, "codec", NameOf{audioCodecNames}, 0,
     Told{AudioSetting::Codec, audioCodecName}, AS_TOLD, Rules::More, "What the sound is encoded as."},
    {Setting::AudioBitrate, Section::Audio, "bitrate", Whole{1000, 100000000}, 0,
     Told{AudioSetting::Bitrate, audioBitrate}, AS_TOLD, Rules::More, "bit/s."},
    {Setting::SampleRate, Section::Audio, "sampleRate", OneOfNumbers{usualSampleRates}, 0,
     Told{AudioSetting::SampleRate, answerUnlessOpen<&Preset::sampleRate>}, AS_TOLD, Rules::More,
     "Samples a second; 0 is the source's."},
    {Setting::ChannelLayout, Section::Audio, "channelLayout", OneOf(LAYOUTS), 0,
     Told{AudioSetting::ChannelLayout, answerUnlessOpen<&Preset::channelLayout>}, AS_TOLD, Rules::More,
     "The speakers; the source's when missing."},
    {Setting::AudioOptions, Section::Audio, "options", Options{}, 0, Told{AudioSetting::Options, std::nullopt}, AS_TOLD,
     Rules::More, "Handed on by name; the names are the encoder's own."},
};

} // namespace Table

constexpr int SETTINGS = static_cast<int>(Setting::Count);

constexpr const SettingRow& rowOf(Setting setting) {
    return Table::ROWS[static_cast<int>(setting)];
}

constexpr const char* nameOf(Setting setting) {
    return rowOf(setting).name;
}

namespace Table {

constexpr bool isInOrder() {
    for (int row = 0; row < SETTINGS; ++row) {
        if (static_cast<int>(ROWS[row].setting) != row)
            return false;
    }
    return true;
}

/// What an engine is told as, a section has.
constexpr bool tellsItsOwn(const SettingRow& row) {
    return std::holds_alternative<std::monostate>(row.told.as) ||
           row.told.as.index() == static_cast<std::size_t>(row.section) + 1;
}

constexpr bool tellsSomething(const SettingRow& row) {
    const bool told = !std::holds_alternative<std::monostate>(row.told.as);
    const bool byName = std::holds_alternative<Options>(row.values);
    return (told || row.compared.value.has_value()) && row.told.value.has_value() == (told && !byName);
}

constexpr bool isWhole() {
    for (const SettingRow& row : ROWS) {
        if (row.name == nullptr || row.description == nullptr || !tellsItsOwn(row) || !tellsSomething(row))
            return false;
    }
    return true;
}

template <class EngineSetting>
constexpr bool tellsEvery() {
    int told = 0;
    for (const SettingRow& row : ROWS) {
        if (std::holds_alternative<EngineSetting>(row.told.as))
            told += 1;
    }
    for (int setting = 0; setting < Kestra::Conf::CountOf<EngineSetting>(); ++setting) {
        bool found = false;
        for (const SettingRow& row : ROWS) {
            const EngineSetting* const as = std::get_if<EngineSetting>(&row.told.as);
            found = found || (as != nullptr && static_cast<int>(*as) == setting);
        }
        if (!found)
            return false;
    }
    return told == Kestra::Conf::CountOf<EngineSetting>();
}

} // namespace Table

static_assert(std::size(Table::ROWS) == static_cast<std::size_t>(SETTINGS), "a setting has no row");
static_assert(Table::isInOrder(), "the rows are not in the order of the settings");
static_assert(Table::isWhole(), "a row lacks a name or a description, or tells and compares nothing");
static_assert(Table::tellsEvery<Kestra::Conf::ContainerSetting>(), "presets cannot say something that a muxer obeys");
static_assert(Table::tellsEvery<Kestra::Conf::VideoSetting>(), "presets cannot say something that an encoder obeys");
static_assert(Table::tellsEvery<Kestra::Conf::AudioSetting>(), "presets cannot say something that an encoder obeys");

} // namespace EditorPreset
