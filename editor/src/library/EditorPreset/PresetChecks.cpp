// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorPreset/PresetChecks.h"
#include "EditorPreset/CatalogueText.h"
#include "EditorPreset/PresetTags.h"
#include "EditorPreset/SettingTable.h"
#include "EditorPreset/TreeAccess.h"
#include "Kestra/ClientAPI/BitrateLimits.h"
#include "Kestra/ClientAPI/CodecLimits.h"
#include "Kestra/ClientAPI/ContainerLimits.h"
#include "Kestra/ClientAPI/EncoderQuery.h"
#include "Kestra/Conf/IFormatCodecAudio.h"
#include "Kestra/Conf/IFormatCodecVideo.h"
#include "Kestra/Conf/IFormatFile.h"
#include "Kestra/Conf/SampleInfo.h"
#include <QString>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>

namespace EditorPreset {

namespace {

using Kestra::ClientAPI::CodecLimits;
using Kestra::ClientAPI::ContainerLimits;
using Kestra::ClientAPI::EncoderQuery;
using Kestra::ClientAPI::QualityRange;
using Kestra::Conf::CodecID;
using Kestra::Conf::IFormatCodec;
using Kestra::Conf::IFormatCodecAudio;
using Kestra::Conf::IFormatFile;
using Kestra::Core::Property;

std::string nameOf(CodecID codec) {
    return Kestra::Conf::CodecIDToString(codec);
}

std::string shown(double number) {
    return QString::number(number).toStdString();
}

std::string listOf(const std::vector<std::string>& names) {
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i)
        text += (i == 0 ? "" : i + 1 < names.size() ? ", " : " and ") + names[i];
    return text;
}

void checkCodec(const std::string& container, CodecID codec, const JsonPlace& place) {
    if (!ContainerLimits::Holds(container, codec))
        place.refuse("the container \"" + container + "\" does not hold \"" + Kestra::Conf::CodecIDToString(codec) +
                     "\"");
}

void checkStreams(const Preset& preset, const JsonPlace& place) {
    const std::string container = preset.containerId();
    if (!preset.hasVideo() && !preset.hasAudio())
        place.refuse("has neither video nor audio");
    if (!ContainerLimits::IsContainer(container))
        place.at(TAG_CONTAINER).refuse("unknown container \"" + container + "\"");
    if (preset.hasVideo())
        checkCodec(container, preset.videoCodec(), place.at(TAG_VIDEO).at(nameOf(Setting::VideoCodec)));
    if (preset.hasAudio())
        checkCodec(container, preset.audioCodec(), place.at(TAG_AUDIO).at(nameOf(Setting::AudioCodec)));
}

bool says(const Preset& preset, Setting setting) {
    return findNode(preset.property(), setting) != nullptr;
}

/// A profile or the absence of loss decides about bits there, so nothing may ask for any.
void checkNoBits(const Preset& preset, const JsonPlace& place) {
    if (CodecLimits::HasBitrate(preset.videoCodec()))
        return;
    const std::string reason = nameOf(preset.videoCodec()) + " does not let its bitrate be chosen";
    for (const Setting setting : {Setting::VideoBitrate, Setting::Multiplier}) {
        if (says(preset, setting))
            place.at(nameOf(setting)).refuse(reason);
    }
    if (says(preset, Setting::BitrateMode) && preset.videoBitrateMode() != Export::BitrateMode::Quality)
        place.at(nameOf(Setting::BitrateMode)).refuse(reason + ": its mode is \"quality\"");
    if (preset.isVideoTwoPassEncodingEnabled())
        place.at(nameOf(Setting::TwoPass)).refuse(reason + ", and two passes aim at one");
}

void checkQuality(const Preset& preset, const JsonPlace& place) {
    const QualityRange range = CodecLimits::VideoQuality(preset.videoCodec());
    const double quality = preset.videoQuality();
    const std::string codec = nameOf(preset.videoCodec());
    if (preset.videoBitrateMode() == Export::BitrateMode::Quality && range.Exists() && quality == 0.0)
        place.refuse("the bitrate mode \"quality\" needs a quality");
    if (!says(preset, Setting::Quality))
        return;
    const JsonPlace here = place.at(nameOf(Setting::Quality));
    if (!range.Exists())
        here.refuse(codec + " has no scale of qualities");
    if (!range.Holds(quality))
        here.refuse(shown(quality) + ": " + codec + " takes " + std::to_string(std::min(range.best, range.worst)) +
                    " to " + std::to_string(std::max(range.best, range.worst)));
    if (!range.fractions && std::trunc(quality) != quality)
        here.refuse(shown(quality) + ": " + codec + " takes whole numbers");
}

/// What the codec can make of the one frame that there is; of others it depends on the source.
void checkVideoBitrate(const Preset& preset, const JsonPlace& place) {
    if (preset.videoBitrateMode() == Export::BitrateMode::Variable && preset.videoBitrateBps() == 0)
        place.refuse("the bitrate mode \"variable\" needs a bitrate");
    if (!says(preset, Setting::VideoBitrate) || !preset.hasFixedResolution())
        return;
    const auto format = Kestra::Conf::IFormatCodecVideo::Create();
    const auto width = static_cast<std::uint32_t>(preset.width()), height = static_cast<std::uint32_t>(preset.height());
    format->SetCodecID(preset.videoCodec());
    format->InitByFrameAspect(width, height, width, height);
    format->SetFrameRate(preset.frameRate());
    const std::int64_t lowest = Kestra::ClientAPI::GetMinVideoBitrate(format);
    const std::int64_t highest = Kestra::ClientAPI::GetMaxVideoBitrate(format);
    if (preset.videoBitrateBps() < lowest || preset.videoBitrateBps() > highest)
        place.at(nameOf(Setting::VideoBitrate))
            .refuse(std::to_string(preset.videoBitrateBps()) + ": " + nameOf(preset.videoCodec()) + " at " +
                    std::to_string(width) + "x" + std::to_string(height) + " takes " + std::to_string(lowest) + " to " +
                    std::to_string(highest) + " bit/s");
}

void checkPicture(const Preset& preset, const JsonPlace& place) {
    const CodecID codec = preset.videoCodec();
    const Preset::Rational rate = preset.frameRate();
    if (rate > 0 && !CodecLimits::TakesFrameRate(codec, rate))
        place.at(nameOf(Setting::FrameRate))
            .refuse(nameOf(codec) + " does not take " + std::to_string(rate.numerator()) + "/" +
                    std::to_string(rate.denominator()));
    const std::string format = readString(preset.property(), Setting::PixelFormat);
    const bool mute = codec == CodecID::H264 && format.compare(0, 4, "gray") == 0;
    if (!format.empty() && !EncoderQuery::TakesPixelFormat(codec, format))
        place.at(nameOf(Setting::PixelFormat))
            .refuse(nameOf(codec) + " does not take " + format +
                    (mute ? ": its files would not tell their colour; a grey picture fits into yuv420p" : ""));
}

bool needsExactRate(const Preset& preset) {
    return preset.videoBitrateMode() == Export::BitrateMode::Constant ||
           (preset.isVideoTwoPassEncodingEnabled() && preset.videoBitrateMode() != Export::BitrateMode::Quality);
}

void checkAlpha(const Preset& preset, const JsonPlace& place) {
    const std::string format = readString(preset.property(), Setting::PixelFormat);
    if (format.compare(0, 4, "yuva") != 0 || !CodecLimits::KeepsAlphaBeside(preset.videoCodec()))
        return;
    const JsonPlace here = place.at(nameOf(Setting::PixelFormat));
    if (!ContainerLimits::HoldsAlphaBeside(preset.containerId()))
        here.refuse(format + ": " + preset.containerId() + " does not hold the transparency of " +
                    nameOf(preset.videoCodec()));
    if (needsExactRate(preset))
        here.refuse(format + ": " + nameOf(preset.videoCodec()) + " encodes transparency in one pass alone");
}

void checkProfile(const Preset& preset, const JsonPlace& place) {
    const CodecID codec = preset.videoCodec();
    const std::vector<std::string> known = CodecLimits::Profiles(codec);
    const std::string profile = readString(preset.property(), Setting::Profile);
    if (profile.empty() && !CodecLimits::NeedsProfile(codec))
        return;
    const JsonPlace here = place.at(nameOf(Setting::Profile));
    if (profile.empty())
        place.refuse(nameOf(codec) + " needs a profile: " + listOf(known));
    if (std::find(known.begin(), known.end(), profile) == known.end())
        here.refuse("\"" + profile + "\": " + nameOf(codec) +
                    (known.empty() ? " has no profiles to choose" : " has the profiles " + listOf(known)));
    const std::string format = preset.videoEncoderData()[Kestra::Conf::IFormatCodecVideo::TAG_PIXEL_FORMAT].GetString();
    if (!CodecLimits::ProfileTakes(codec, profile, format))
        here.refuse("\"" + profile + "\" does not go with the pixel format " + format);
}

void checkFields(const Preset& preset, const JsonPlace& place) {
    const bool kept = preset.videoEncoderData().ChildExists(Kestra::Conf::IFormatCodecVideo::TAG_INTERLACED);
    if (kept && !Kestra::ClientAPI::CodecLimits::CodesFields(preset.videoCodec()))
        place.at(nameOf(Setting::Fields))
            .refuse(std::string("\"") + Kestra::Conf::CodecIDToString(preset.videoCodec()) +
                    "\" does not code interlaced pictures");
}

void checkSide(int side, int limit, Setting setting, const JsonPlace& place) {
    if (side % 2 != 0)
        place.at(nameOf(setting)).refuse(std::to_string(side) + " is odd: encoders need even sides");
    if (side > limit)
        place.at(nameOf(setting))
            .refuse(std::to_string(side) + " is beyond the preset's own limit of " + std::to_string(limit));
}

void checkCodecSize(const Preset& preset, const JsonPlace& place) {
    const CodecID codec = preset.videoCodec();
    if (preset.width() != 0 && !CodecLimits::TakesWidth(codec, preset.width()))
        place.at(nameOf(Setting::Width))
            .refuse(nameOf(codec) + " does not take a width of " + std::to_string(preset.width()));
    if (preset.height() != 0 && !CodecLimits::TakesHeight(codec, preset.height()))
        place.at(nameOf(Setting::Height))
            .refuse(nameOf(codec) + " does not take a height of " + std::to_string(preset.height()));
    if (preset.width() != 0 && !CodecLimits::TakesSize(codec, preset.width(), preset.height()))
        place.at(nameOf(preset.width() < preset.height() ? Setting::Width : Setting::Height))
            .refuse(nameOf(codec) + " does not take a side so short beside one of " +
                    std::to_string(std::max(preset.width(), preset.height())));
}

void checkSize(const Preset& preset, const JsonPlace& place) {
    if (preset.hasFixedResolution() && (preset.width() == 0 || preset.height() == 0))
        place.at(nameOf(Setting::FixedResolution)).refuse("a fixed resolution needs width and height");
    if ((preset.width() == 0) != (preset.height() == 0))
        place.refuse("width and height go together");
    checkSide(preset.width(), preset.maxWidth(), Setting::Width, place);
    checkSide(preset.height(), preset.maxHeight(), Setting::Height, place);
    checkCodecSize(preset, place);
    const std::string resize = readString(preset.property(), Setting::Resize);
    if (preset.hasFixedResolution() && (resize == "keepSize" || resize == "fitInside"))
        place.at(nameOf(Setting::Resize)).refuse("\"" + resize + "\" does not fill a fixed resolution");
}

template <class Number>
void checkOneOf(Number wanted, const std::vector<Number>& known, CodecID codec, const JsonPlace& place) {
    if (std::find(known.begin(), known.end(), wanted) != known.end())
        return;
    std::vector<std::string> names;
    names.reserve(known.size());
    for (const Number number : known)
        names.push_back(std::to_string(number));
    place.refuse(std::to_string(wanted) + ": " + nameOf(codec) + " takes " + listOf(names));
}

void checkSampleRate(const Preset& preset, const JsonPlace& place) {
    if (preset.sampleRate() != 0)
        checkOneOf(static_cast<int>(preset.sampleRate()), CodecLimits::SampleRates(preset.audioCodec()),
                   preset.audioCodec(), place.at(nameOf(Setting::SampleRate)));
}

void checkLayout(const Preset& preset, const JsonPlace& place) {
    const std::vector<std::uint32_t> known = CodecLimits::ChannelLayouts(preset.audioCodec());
    if (preset.channelLayout() == 0 || std::find(known.begin(), known.end(), preset.channelLayout()) != known.end())
        return;
    std::vector<std::string> names;
    names.reserve(known.size());
    for (const std::uint32_t layout : known)
        names.emplace_back(Kestra::Conf::LayoutRecord::Find(layout)->name);
    place.at(nameOf(Setting::ChannelLayout))
        .refuse(readString(preset.property(), Setting::ChannelLayout) + ": " + nameOf(preset.audioCodec()) + " takes " +
                listOf(names));
}

std::int64_t soundLimit(const Preset& preset, int rate, std::uint32_t layout, std::int64_t (*limit)(const Property&)) {
    Property tree = preset.audioEncoderData();
    tree.RemoveChild(IFormatCodecAudio::TAG_BITRATE);
    tree.SetChild(IFormatCodecAudio::TAG_SAMPLE_RATE, std::int64_t{rate});
    tree.SetChild(IFormatCodecAudio::TAG_CHANNEL_LAYOUT, std::int64_t{layout});
    return limit(tree);
}

/// Where rate or layout are the source's, what suits some source is accepted.
void checkSoundBitrate(const Preset& preset, const JsonPlace& section) {
    if (!says(preset, Setting::AudioBitrate))
        return;
    const JsonPlace place = section.at(nameOf(Setting::AudioBitrate));
    const CodecID codec = preset.audioCodec();
    const std::int64_t bitrate = preset.audioBitrateBps();
    if (!CodecLimits::HasBitrate(codec))
        place.refuse(nameOf(codec) + " does not let its bitrate be chosen");
    const auto chosen = static_cast<int>(preset.sampleRate());
    const std::vector<int> rates = chosen != 0 ? std::vector<int>{chosen} : CodecLimits::SampleRates(codec);
    const std::uint32_t layout = preset.channelLayout();
    const std::vector<std::uint32_t> layouts =
        layout != 0 ? std::vector<std::uint32_t>{layout} : CodecLimits::ChannelLayouts(codec);
    const std::int64_t lowest = soundLimit(preset, rates.front(), layouts.front(), Kestra::ClientAPI::GetMinBitrate);
    const std::int64_t highest = soundLimit(preset, rates.back(), layouts.back(), Kestra::ClientAPI::GetMaxBitrate);
    if (bitrate < lowest || bitrate > highest)
        place.refuse(std::to_string(bitrate) + ": " + nameOf(codec) + " takes " + std::to_string(lowest) + " to " +
                     std::to_string(highest) + " bit/s here");
    const std::vector<std::int64_t> steps = CodecLimits::AudioBitrateSteps(codec, rates.back());
    if (!steps.empty())
        checkOneOf(bitrate, steps, codec, place);
}

/// Lossless material of the archive follows its source's format.
void checkDynamicRange(const Preset& preset, const JsonPlace& place) {
    if (!preset.keepsDynamicRange())
        return;
    if (CodecLimits::IsOfStandardRange(preset.videoCodec()))
        place.at(nameOf(Setting::DynamicRange))
            .refuse(nameOf(preset.videoCodec()) + " holds no high dynamic range: its pictures are of sRGB");
    if (CodecLimits::IsLossless(preset.videoCodec()))
        return;
    const std::string format = readString(preset.property(), Setting::PixelFormat);
    const bool deep = format.size() > 2 && (format.compare(format.size() - 2, 2, "10") == 0 ||
                                            format.compare(format.size() - 2, 2, "12") == 0);
    if (!deep)
        place.at(nameOf(Setting::DynamicRange)).refuse("a high dynamic range takes a pixel format of 10 bits");
}

/// `data` holds the options as the library is given them, below `tag`.
template <class WhyNot>
void checkOptions(const Preset& preset, Setting setting, const Property& data, const char* tag, const JsonPlace& place,
                  const WhyNot& whyNot) {
    const Property* const options = findNode(preset.property(), setting);
    if (options == nullptr || findNode(data, tag) == nullptr)
        return;
    for (const Property& option : options->GetChildren()) {
        const JsonPlace here = place.at(nameOf(setting)).at(option.GetName());
        const std::string value = data[tag][option.GetName()].GetString();
        checkText(option.GetName(), here);
        checkText(value, here);
        const std::string reason = whyNot(option.GetName(), value);
        if (!reason.empty())
            here.refuse(reason);
    }
}

void checkVideoOptions(const Preset& preset, const JsonPlace& place) {
    checkOptions(preset, Setting::VideoOptions, preset.videoEncoderData(), IFormatCodec::TAG_CODEC_OPTIONS_ENCODE,
                 place, [&preset](const std::string& name, const std::string& value) {
                     return EncoderQuery::WhyNotOption(preset.videoCodec(), name, value, needsExactRate(preset));
                 });
}

void checkAudioOptions(const Preset& preset, const JsonPlace& place) {
    checkOptions(preset, Setting::AudioOptions, preset.audioEncoderData(), IFormatCodec::TAG_CODEC_OPTIONS_ENCODE,
                 place, [&preset](const std::string& name, const std::string& value) {
                     return EncoderQuery::WhyNotOption(preset.audioCodec(), name, value, false);
                 });
}

void checkMuxerOptions(const Preset& preset, const JsonPlace& place) {
    checkOptions(preset, Setting::MuxerOptions, preset.muxerData(), IFormatFile::TAG_MUXER_OPTIONS, place,
                 [&preset](const std::string& name, const std::string& value) {
                     return EncoderQuery::WhyNotMuxerOption(preset.containerId(), name, value);
                 });
}

constexpr std::size_t MOST_SETTINGS = 6;

/// Has the place of its section, or without one that of the preset.
struct Step {
    std::optional<Section> section;
    void (*check)(const Preset& preset, const JsonPlace& place);
    Setting settings[MOST_SETTINGS]; ///< that it has rules about
    std::size_t count;
};

template <class... Settings>
constexpr Step step(std::optional<Section> section, void (*check)(const Preset&, const JsonPlace&),
                    Settings... settings) {
    return {section, check, {settings...}, sizeof...(settings)};
}

/// In the order in which a preset is told its faults.
constexpr Step STEPS[] = {
    step({}, checkStreams, Setting::ContainerId, Setting::VideoCodec, Setting::AudioCodec),
    step(Section::Container, checkMuxerOptions, Setting::MuxerOptions),
    step(Section::Video, checkNoBits, Setting::VideoBitrate, Setting::Multiplier, Setting::BitrateMode,
         Setting::TwoPass),
    step(Section::Video, checkQuality, Setting::Quality, Setting::BitrateMode),
    step(Section::Video, checkSize, Setting::Width, Setting::Height, Setting::MaxWidth, Setting::MaxHeight,
         Setting::FixedResolution, Setting::Resize),
    step(Section::Video, checkPicture, Setting::FrameRate, Setting::PixelFormat),
    step(Section::Video, checkAlpha, Setting::PixelFormat, Setting::TwoPass, Setting::BitrateMode),
    step(Section::Video, checkProfile, Setting::Profile),
    step(Section::Video, checkVideoBitrate, Setting::VideoBitrate, Setting::BitrateMode),
    step(Section::Video, checkDynamicRange, Setting::DynamicRange),
    step(Section::Video, checkFields, Setting::Fields),
    step(Section::Video, checkVideoOptions, Setting::VideoOptions),
    step(Section::Audio, checkSampleRate, Setting::SampleRate),
    step(Section::Audio, checkLayout, Setting::ChannelLayout),
    step(Section::Audio, checkSoundBitrate, Setting::AudioBitrate),
    step(Section::Audio, checkAudioOptions, Setting::AudioOptions),
};

constexpr bool isChecked(Setting setting) {
    for (const Step& step : STEPS) {
        for (std::size_t i = 0; i < step.count; ++i) {
            if (step.settings[i] == setting)
                return true;
        }
    }
    return false;
}

constexpr bool areCheckedAsDeclared() {
    for (const SettingRow& row : Table::ROWS) {
        if (isChecked(row.setting) != (row.rules == Rules::More))
            return false;
    }
    return true;
}
static_assert(areCheckedAsDeclared(), "a setting has rules by its row, but no step that checks it, or the reverse");

bool has(const Preset& preset, Section section) {
    switch (section) {
    case Section::Container:
        return true;
    case Section::Video:
        return preset.hasVideo();
    case Section::Audio:
        return preset.hasAudio();
    }
    return false;
}

} // namespace

void checkPreset(const Preset& preset, const JsonPlace& place) {
    for (const Step& step : STEPS) {
        if (!step.section)
            step.check(preset, place);
        else if (has(preset, *step.section))
            step.check(preset, place.at(nameOf(*step.section)));
    }
}

} // namespace EditorPreset
