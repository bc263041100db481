// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/PresetText.h"

#include "ExportCore/NameList.h"
#include "ExportCore/Passes.h"
#include "Kestra/ClientAPI/BitrateLimits.h"
#include "Kestra/ClientAPI/CodecLimits.h"
#include "Kestra/ClientAPI/ContainerLimits.h"
#include "Kestra/Conf/CodecID.h"
#include "Kestra/Conf/IFormatCodecVideo.h"
#include "Kestra/Conf/SampleInfo.h"
#include "cli/JsonText.h"
#include "cli/OutcomeText.h"
#include <cstdio>

namespace Cli {
namespace {

using Export::BitrateMode;
using ExportCore::NameList;
using ExportCore::PresetCatalogue;

std::vector<std::string> markedTags(const Preset& preset, const PresetCatalogue& catalogue) {
    std::vector<std::string> tags = catalogue.tagsOf(preset.id());
    for (std::string& tag : tags)
        if (catalogue.defaultOf(tag) == preset.id())
            tag += '*';
    return tags;
}

/// " [web*]": what it is the default of; empty where it is none.
std::string defaultMarks(const Preset& preset, const PresetCatalogue& catalogue) {
    std::vector<std::string> defaults;
    for (const std::string& tag : markedTags(preset, catalogue))
        if (tag.back() == '*')
            defaults.push_back(tag);
    return defaults.empty() ? std::string() : " [" + NameList::joined(defaults) + ']';
}

/// Letters count.
std::string cut(const std::string& text, std::size_t columns) {
    return text.size() > columns ? QString::fromStdString(text).left(static_cast<int>(columns)).toStdString() : text;
}

/// With as many places as it has, two at most.
std::string numberText(double number) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", number);
    std::string shown = text;
    shown.erase(shown.find_last_not_of('0') + 1);
    if (shown.back() == '.')
        shown.pop_back();
    return shown;
}

/// As a catalogue writes it.
std::string jsonText(const Kestra::Core::Property& value) {
    const std::string line = value.ToString(); // "path = value"
    const std::size_t sign = line.find(" = ");
    const std::string text = sign == std::string::npos ? line : line.substr(sign + 3);
    return text.substr(0, text.find_last_not_of('\n') + 1);
}

std::string bitrateText(std::int64_t bitsPerSecond) {
    return OutcomeText::bitrate(bitsPerSecond);
}

/// Of the largest frame that the preset makes, or of 1080p where it keeps every size.
std::string automaticText(const Preset& preset) {
    constexpr int SIDE_OF_ANY = 16384, WIDTH = 1920, HEIGHT = 1080, RATE = 30;
    const bool any = preset.maxWidth() <= 0 || preset.maxWidth() >= SIDE_OF_ANY;
    const int width = any ? WIDTH : preset.maxWidth();
    const int height = any ? HEIGHT : preset.maxHeight();
    const auto format = Kestra::Conf::IFormatCodecVideo::Create();
    format->InitByFrameAspect(width, height, width, height);
    format->SetCodecID(preset.videoCodec());
    format->SetFrameRate(RATE);
    const auto standard = static_cast<double>(Kestra::ClientAPI::GetDefaultVideoBitrate(format));
    return bitrateText(static_cast<std::int64_t>(standard * preset.videoBitrateMultiplier())) + " at " +
           std::to_string(width) + 'x' + std::to_string(height) + " and " + std::to_string(RATE) + " fps";
}

std::string qualityText(const Preset& preset) {
    const auto range = Kestra::ClientAPI::CodecLimits::VideoQuality(preset.videoCodec());
    return "constant quality " + numberText(preset.videoQuality()) + " on the codec's scale, " +
           (range.best < range.worst ? "lower" : "higher") + " is better";
}

/// Of a codec that is not asked for any.
std::string bitsAsTaken(const Preset& preset) {
    if (!preset.videoProfile().empty())
        return "profile " + preset.videoProfile();
    const bool byQuality = Kestra::ClientAPI::CodecLimits::VideoQuality(preset.videoCodec()).Exists();
    return byQuality ? qualityText(preset) : "as many as the picture takes";
}

std::string rateControlText(const Preset& preset) {
    if (!Kestra::ClientAPI::CodecLimits::HasBitrate(preset.videoCodec()))
        return bitsAsTaken(preset);
    switch (preset.videoBitrateMode()) {
    case BitrateMode::Quality:
        return qualityText(preset);
    case BitrateMode::Variable:
        return bitrateText(preset.videoBitrateBps()) + " on average";
    case BitrateMode::Constant:
        return "constant bitrate, " + automaticText(preset);
    case BitrateMode::Automatic:
        break;
    }
    return "bitrate by size and rate, " + automaticText(preset);
}

std::string sizeText(const Preset& preset) {
    if (preset.hasFixedResolution())
        return std::to_string(preset.width()) + 'x' + std::to_string(preset.height());
    if (preset.width() == 0 && preset.height() == 0)
        return "the source's size";
    return "up to " + std::to_string(preset.width()) + 'x' + std::to_string(preset.height());
}

std::string pictureText(const Preset& preset) {
    if (!preset.hasVideo())
        return "none";
    const auto rate = preset.frameRate();
    std::string text = std::string(Kestra::Conf::CodecIDToString(preset.videoCodec())) + ", " + sizeText(preset) +
                       ", " + (rate == 0 ? "the source's rate" : fractionText(rate).toStdString() + " fps");
    return text + (preset.keepsDynamicRange() ? ", high dynamic range kept" : "");
}

std::string soundText(const Preset& preset) {
    if (!preset.hasAudio())
        return "none";
    std::string text = Kestra::Conf::CodecIDToString(preset.audioCodec());
    if (preset.audioBitrateBps() > 0)
        text += ", " + bitrateText(preset.audioBitrateBps());
    text += preset.sampleRate() > 0 ? ", " + std::to_string(preset.sampleRate()) + " Hz" : ", the source's sample rate";
    return text + ", " +
           (preset.channelLayout() != 0 ? Kestra::Conf::LayoutRecord::Find(preset.channelLayout())->name
                                        : "the source's channels");
}

std::string fileText(const Preset& preset) {
    return preset.containerId() + " (." +
           NameList::joined(Kestra::ClientAPI::ContainerLimits::Extensions(preset.containerId(), preset.hasVideo()),
                            ", .", ", .") +
           (Kestra::ClientAPI::ContainerLimits::IsSequence(preset.containerId()) ? ", a file for each picture)" : ")");
}

std::string passesText(const Preset& preset) {
    return PresetText::runsTwoPasses(preset)
               ? "two: the first one looks where bits are needed, so that the bitrate is met"
               : "one";
}

std::string row(const std::string& name, const std::string& value) {
    std::string head = "  " + name;
    head.resize(std::max(PresetText::SECOND, head.size() + 1), ' ');
    return head + value + '\n';
}

std::string pixelFormatText(const Preset& preset) {
    const Kestra::Core::Property& tree = preset.property();
    const bool says = tree.ChildExists("video") && tree["video"].ChildExists("pixelFormat");
    return says ? "pixel format " + tree["video"]["pixelFormat"].GetString() : "the codec's own pixel format";
}

std::string rateText(const Preset& preset) {
    return preset.frameRate() == 0 ? "the source's rate"
                                   : numberText(boost::rational_cast<double>(preset.frameRate())) + " fps";
}

std::string encoderOptionsText(const Preset& preset) {
    const Kestra::Core::Property& tree = preset.property();
    if (!tree.ChildExists("video") || !tree["video"].ChildExists("options"))
        return "no options of the encoder";
    std::vector<std::string> options;
    for (const Kestra::Core::Property& option : tree["video"]["options"].GetChildren())
        options.push_back(option.GetName() + ' ' + jsonText(option));
    return options.empty() ? "no options of the encoder" : NameList::joined(options);
}

std::string soundBitsText(const Preset& preset) {
    return preset.hasAudio() && preset.audioBitrateBps() > 0 ? "sound " + bitrateText(preset.audioBitrateBps())
                                                             : std::string();
}

/// What may be told of a preset beside others of its kind; empty where it has no such thing.
std::vector<std::string> aspects(const Preset& preset) {
    if (!preset.hasVideo())
        return {soundBitsText(preset)};
    return {rateControlText(preset), rateText(preset), pixelFormatText(preset), encoderOptionsText(preset),
            soundBitsText(preset)};
}

/// What the qualities change, the best one first, and which of them is the preset as it is.
std::string qualityRows(const Preset& preset, const PresetCatalogue& catalogue) {
    const std::vector<std::string> names = catalogue.qualitiesOf(preset.id());
    if (names.empty())
        return {};
    const std::vector<std::string> own = aspects(preset);
    std::vector<std::vector<std::string>> all;
    all.reserve(names.size());
    for (const std::string& name : names)
        all.push_back(aspects(catalogue.withQuality(preset.id(), name)));
    const auto differs = [&](std::size_t at) {
        return std::any_of(all.begin(), all.end(), [&](const auto& one) { return one[at] != own[at]; });
    };
    const auto textOf = [&](const std::vector<std::string>& one) {
        std::vector<std::string> told;
        for (std::size_t at = 0; at < one.size(); ++at)
            if (!one[at].empty() && differs(at))
                told.push_back(one[at]);
        return NameList::joined(told, "; ", "; ");
    };
    std::string rows;
    for (std::size_t i = 0; i < names.size(); ++i)
        rows += row(rows.empty() ? "qualities" : "",
                    names[i] + (all[i] == own ? " (the default): " : ": ") + textOf(all[i]));
    const bool isNone = std::find(all.begin(), all.end(), own) == all.end();
    return isNone ? rows + row("", "none of them: " + textOf(own)) : rows;
}

} // namespace

bool PresetText::runsTwoPasses(const Preset& preset) {
    return ExportCore::Passes::of(preset).count > 1;
}

std::string PresetText::line(const Preset& preset, const PresetCatalogue& catalogue, std::size_t idWidth,
                             std::size_t columns) {
    std::string text = preset.id();
    text.resize(std::max(idWidth, text.size()), ' ');
    text += ' ' + preset.title();
    const std::string tags = " [" + NameList::joined(markedTags(preset, catalogue)) + ']';
    if (text.size() + tags.size() > columns) {
        // The id is what is typed: it is whole however narrow the terminal is.
        const std::string& id = preset.id();
        std::string defaults = defaultMarks(preset, catalogue);
        if (id.size() + defaults.size() > columns)
            defaults.clear();
        return cut(text, std::max(id.size(), columns - defaults.size())) + defaults;
    }
    const std::vector<std::string> qualities = catalogue.qualitiesOf(preset.id());
    const std::string quality =
        qualities.empty() ? std::string() : ", quality " + NameList::joined(qualities, "|", "|");
    return text + tags + (text.size() + tags.size() + quality.size() > columns ? std::string() : quality);
}

std::string PresetText::whole(const Preset& preset, const PresetCatalogue& catalogue) {
    std::string text = preset.id() + ": " + preset.title() + '\n';
    text += row("tags", NameList::joined(markedTags(preset, catalogue)));
    text += row("file", fileText(preset));
    text += row("picture", pictureText(preset));
    if (preset.hasVideo()) {
        text += row("bits", rateControlText(preset));
        text += row("passes", passesText(preset));
    }
    text += row("sound", soundText(preset));
    return text + qualityRows(preset, catalogue);
}

} // namespace Cli
