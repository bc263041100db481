// Settings against what a preset and its codecs can do.
#include "ExportCore/PresetSettings.h"

#include "EditorPreset/Preset.h"
#include "ExportCore/NameList.h"
#include "ExportCore/Refusal.h"
#include "Kestra/Base/SourcePlace.h"
#include "Kestra/ClientAPI/CodecLimits.h"
#include "Kestra/Conf/SampleInfo.h"
#include <QString>
#include <algorithm>
#include <cmath>

namespace ExportCore {
namespace {

using Kestra::ClientAPI::CodecLimits;
using Kestra::Conf::CodecIDToString;

[[noreturn]] void refuse(const std::string& key, const std::string& reason,
                         Kestra::SourcePlace place = Kestra::SourcePlace::Here()) {
    Kestra::ThrowFrom(Refusal("Cannot set " + key + ": " + reason), place);
}

std::string quoted(const Preset& preset) {
    return "the preset \"" + preset.id() + '"';
}

const PresetSettings::Key& keyNamed(const std::string& name) {
    const auto& keys = PresetSettings::keys();
    return *std::find_if(keys.begin(), keys.end(), [&name](const auto& key) { return name == key.name; });
}

void requireStreams(const PresetSettings& settings, const Preset& preset) {
    for (const std::string& name : settings.given) {
        const bool ofPicture = keyNamed(name).ofPicture;
        if (ofPicture && !preset.hasVideo())
            refuse(name, quoted(preset) + " has no picture");
        if (!ofPicture && !preset.hasAudio())
            refuse(name, quoted(preset) + " has no sound");
    }
}

void requireSide(int side, int limit, const char* name, const Preset& preset) {
    const int smallest = CodecLimits::SmallestSide(preset.videoCodec());
    const std::string what = std::string(name) + " of " + std::to_string(side);
    if (side > limit)
        refuse("a " + what, quoted(preset) + " is for pictures up to " + std::to_string(preset.maxWidth()) + 'x' +
                                std::to_string(preset.maxHeight()));
    if (side < smallest)
        refuse("a " + what,
               std::string(CodecIDToString(preset.videoCodec())) + " takes no side below " + std::to_string(smallest));
}

void requireFrameRate(const boost::rational<long long>& rate, const Preset& preset) {
    if (rate != 0 && !CodecLimits::TakesFrameRate(preset.videoCodec(), rate))
        refuse("frame-rate", std::string(CodecIDToString(preset.videoCodec())) + " does not take " +
                                 std::to_string(rate.numerator()) + '/' + std::to_string(rate.denominator()));
}

void requireQuality(double quality, const Preset& preset) {
    const auto range = CodecLimits::VideoQuality(preset.videoCodec());
    const std::string codec = CodecIDToString(preset.videoCodec());
    const std::string what = "quality to " + QString::number(quality).toStdString();
    if (range.worst == 0)
        refuse("quality", codec + " has no scale of qualities");
    if (preset.isVideoTwoPassEncodingEnabled() && preset.videoBitrateMode() != Export::BitrateMode::Quality)
        refuse("quality", quoted(preset) + " encodes in two passes, which aim at a bitrate");
    if (quality < range.best || quality > range.worst)
        refuse(what, codec + " takes " + std::to_string(range.best) + " to " + std::to_string(range.worst));
    if (!range.fractions && std::trunc(quality) != quality)
        refuse(what, codec + " takes whole numbers");
}

void requireSampleRate(int rate, const Preset& preset) {
    const std::vector<int> rates = CodecLimits::SampleRates(preset.audioCodec());
    if (std::find(rates.begin(), rates.end(), rate) != rates.end())
        return;
    std::vector<std::string> names;
    names.reserve(rates.size());
    for (const int known : rates)
        names.push_back(std::to_string(known));
    refuse("sample-rate", std::string(CodecIDToString(preset.audioCodec())) + " does not take " + std::to_string(rate) +
                              ", only " + NameList::joined(names, " and "));
}

void requireLayout(std::uint32_t layout, const Preset& preset) {
    const std::vector<std::uint32_t> layouts = CodecLimits::ChannelLayouts(preset.audioCodec());
    if (std::find(layouts.begin(), layouts.end(), layout) != layouts.end())
        return;
    std::vector<std::string> names;
    names.reserve(layouts.size());
    for (const std::uint32_t known : layouts)
        names.emplace_back(Kestra::Conf::LayoutRecord::Find(known)->name);
    refuse("channels", std::string(CodecIDToString(preset.audioCodec())) + " does not take " +
                           Kestra::Conf::LayoutRecord::Find(layout)->name + ", only " +
                           NameList::joined(names, " and "));
}

void requireBitrate(const char* key, Kestra::Conf::CodecID codec) {
    if (!CodecLimits::HasBitrate(codec))
        refuse(key, std::string(CodecIDToString(codec)) + " does not let its bitrate be chosen");
}

} // namespace

void PresetSettings::requireFit(const Preset& preset) const {
    requireStreams(*this, preset);
    if (width)
        requireSide(*width, preset.maxWidth(), "width", preset);
    if (height)
        requireSide(*height, preset.maxHeight(), "height", preset);
    if (frameRate)
        requireFrameRate(*frameRate, preset);
    if (bitrateBps)
        requireBitrate("bitrate", preset.videoCodec());
    if (quality)
        requireQuality(*quality, preset);
    if (sampleRate)
        requireSampleRate(*sampleRate, preset);
    if (channelLayout)
        requireLayout(*channelLayout, preset);
    if (audioBitrateBps)
        requireBitrate("audio-bitrate", preset.audioCodec());
}

} // namespace ExportCore
