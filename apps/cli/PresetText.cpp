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

std::string rateControlText(const Preset& preset) {
    if (!Kestra::ClientAPI::CodecLimits::HasBitrate(preset.videoCodec()))
        return preset.videoProfile().empty() ? "as many as the picture takes" : "profile " + preset.videoProfile();
    switch (preset.videoBitrateMode()) {
    case BitrateMode::Quality:
        return "constant quality " + numberText(preset.videoQuality()) + " on the codec's scale, lower is better";
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
    constexpr std::size_t WIDTH = 14;
    std::string head = "  " + name;
    head.resize(std::max(WIDTH, head.size() + 1), ' ');
    return head + value + '\n';
}

/// Empty where the codec's usual one is taken.
std::string pixelFormatOf(const Preset& preset) {
    const Kestra::Core::Property& tree = preset.property();
    const bool says = tree.ChildExists("video") && tree["video"].ChildExists("pixelFormat");
    return says ? tree["video"]["pixelFormat"].GetString() : std::string();
}

/// What the qualities change, the best one first.
std::string qualityRows(const Preset& preset, const PresetCatalogue& catalogue) {
    std::string rows;
    for (const std::string& name : catalogue.qualitiesOf(preset.id())) {
        const Preset changed = catalogue.withQuality(preset.id(), name);
        std::vector<std::string> changes;
        if (changed.hasVideo())
            changes.push_back(rateControlText(changed));
        if (pixelFormatOf(changed) != pixelFormatOf(preset))
            changes.push_back("pixel format " + pixelFormatOf(changed));
        if (changed.hasAudio() && changed.audioBitrateBps() > 0)
            changes.push_back("sound " + bitrateText(changed.audioBitrateBps()));
        rows += row(rows.empty() ? "qualities" : "", name + ": " + NameList::joined(changes, "; ", "; "));
    }
    return rows;
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
        const std::string defaults = defaultMarks(preset, catalogue);
        return cut(cut(text, columns - std::min(columns, defaults.size())) + defaults, columns);
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
