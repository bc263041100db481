// SPDX-License-Identifier: GPL-3.0-or-later
// The settings of a request that are about its sound.
#include "ExportCore/SettingKey.h"

#include "Export/PresetProvider.h"
#include "ExportCore/NameList.h"
#include "ExportCore/NearNames.h"
#include "ExportCore/SettingText.h"
#include "Kestra/ClientAPI/BitrateLimits.h"
#include "Kestra/ClientAPI/CodecLimits.h"
#include "Kestra/Conf/SampleInfo.h"
#include <algorithm>

namespace ExportCore {
namespace {

using Kestra::ClientAPI::CodecLimits;
using Kestra::Conf::CodecIDToString;

constexpr int HIGHEST_SAMPLE_RATE = 192'000;

struct ChannelName {
    const char* name;
    const char* count;
    std::uint32_t layout;
};
constexpr ChannelName CHANNELS[] = {
    {"mono", "1", Kestra::Conf::CHANNEL_LAYOUT_MONO},   {"stereo", "2", Kestra::Conf::CHANNEL_LAYOUT_STEREO},
    {"quad", "4", Kestra::Conf::CHANNEL_LAYOUT_QUAD},   {"5.0", "5", Kestra::Conf::CHANNEL_LAYOUT_5POINT0},
    {"5.1", "6", Kestra::Conf::CHANNEL_LAYOUT_5POINT1}, {"7.1", "8", Kestra::Conf::CHANNEL_LAYOUT_7POINT1},
};

void readSampleRate(const SettingEntry& entry, PresetSettings& settings) {
    const auto rate = SettingText::amount(entry.value);
    if (!rate)
        entry.refuse("write samples a second, as 48000 or 44.1k");
    if (*rate == 0 || *rate > HIGHEST_SAMPLE_RATE)
        entry.refuse("sample rates go up to " + std::to_string(HIGHEST_SAMPLE_RATE));
    settings.sampleRate = static_cast<int>(*rate);
}

void requireSampleRate(const PresetSettings& settings, const Preset& preset) {
    const std::vector<int> rates = CodecLimits::SampleRates(preset.audioCodec());
    if (std::find(rates.begin(), rates.end(), *settings.sampleRate) != rates.end())
        return;
    std::vector<std::string> names;
    names.reserve(rates.size());
    for (const int known : rates)
        names.push_back(std::to_string(known));
    SettingKey::refuse("sample-rate", std::string(CodecIDToString(preset.audioCodec())) + " does not take " +
                                          std::to_string(*settings.sampleRate) + ", only " +
                                          NameList::joined(names, " and "));
}

void editSampleRate(const PresetSettings& settings, const Media::Video&, Preset& preset) {
    preset.setSampleRate(static_cast<std::uint32_t>(*settings.sampleRate));
}

void readChannels(const SettingEntry& entry, PresetSettings& settings) {
    const std::string value = SettingText::lowered(entry.value);
    std::vector<std::string> names;
    for (const ChannelName& known : CHANNELS) {
        names.emplace_back(known.name);
        if (value == known.name || value == known.count) {
            settings.channelLayout = known.layout;
            return;
        }
    }
    entry.refuse("write mono, stereo, quad, 5.0, 5.1 or 7.1, or their number 1, 2, 4, 5, 6 or 8" +
                 NearNames::question(value, names));
}

void requireChannels(const PresetSettings& settings, const Preset& preset) {
    const std::vector<std::uint32_t> layouts = CodecLimits::ChannelLayouts(preset.audioCodec());
    if (std::find(layouts.begin(), layouts.end(), *settings.channelLayout) != layouts.end())
        return;
    std::vector<std::string> names;
    names.reserve(layouts.size());
    for (const std::uint32_t known : layouts)
        names.emplace_back(Kestra::Conf::LayoutRecord::Find(known)->name);
    SettingKey::refuse("channels", std::string(CodecIDToString(preset.audioCodec())) + " does not take " +
                                       Kestra::Conf::LayoutRecord::Find(*settings.channelLayout)->name + ", only " +
                                       NameList::joined(names, " and "));
}

/// The preset's bitrate is for its own channels: more of them get as much each, as far as the codec takes it.
std::int64_t bitrateFor(std::uint32_t layout, const Preset& preset) {
    const std::int64_t own = preset.audioBitrateBps();
    const int channels = Kestra::Conf::CountChannels(layout);
    const int before = preset.channelLayout() != 0 ? Kestra::Conf::CountChannels(preset.channelLayout()) : channels;
    if (own <= 0 || channels <= before || !CodecLimits::HasBitrate(preset.audioCodec()))
        return own;
    Preset widened = preset;
    widened.setChannelLayout(layout);
    Kestra::Core::Property tree = widened.audioEncoderData();
    tree.RemoveChild(Kestra::Conf::IFormatCodec::TAG_BITRATE); // which would be its own limit
    const std::int64_t most = std::min(own * channels / before, Kestra::ClientAPI::GetMaxBitrate(tree));
    std::int64_t bitrate = std::max(own, most);
    const std::vector<std::int64_t> steps =
        CodecLimits::AudioBitrateSteps(preset.audioCodec(), static_cast<int>(preset.sampleRate()));
    for (const std::int64_t step : steps)
        if (step <= most && step >= own)
            bitrate = step;
    return bitrate;
}

void editChannels(const PresetSettings& settings, const Media::Video&, Preset& preset) {
    const std::int64_t bitrate = bitrateFor(*settings.channelLayout, preset);
    preset.setChannelLayout(*settings.channelLayout);
    if (bitrate > 0)
        preset.setAudioBitrateBps(bitrate);
}

void readBitrate(const SettingEntry& entry, PresetSettings& settings) {
    settings.audioBitrateBps = SettingKey::bitrateOf(entry);
}

void requireBitrate(const PresetSettings&, const Preset& preset) {
    SettingKey::requireBitrate("audio-bitrate", preset, false);
}

void editBitrate(const PresetSettings& settings, const Media::Video&, Preset& preset) {
    preset.setAudioBitrateBps(*settings.audioBitrateBps);
}

void requireStep(std::int64_t bitrate, const std::vector<std::int64_t>& steps, const std::string& subject) {
    if (steps.empty() || std::find(steps.begin(), steps.end(), bitrate) != steps.end())
        return;
    std::vector<std::string> all;
    all.reserve(steps.size());
    for (const std::int64_t step : steps)
        all.push_back(std::to_string(step));
    SettingKey::refuse("audio-bitrate to " + std::to_string(bitrate),
                       subject + " takes " + NameList::joined(all) + " bit/s");
}

void requireBitrateInside(const PresetSettings& settings, const Export::PresetProvider& provider, const Media::Video&,
                          const Media::Audio& audio) {
    const std::int64_t bitrate = *settings.audioBitrateBps;
    const auto format = provider.formatCodec(&audio);
    Kestra::Core::Property tree = format->GetProperty();
    // Decided already, it would be its own limit.
    tree.RemoveChild(Kestra::Conf::IFormatCodec::TAG_BITRATE);
    const int rate = format->GetSampleRate() > 0 ? format->GetSampleRate() : audio.sampleRate;
    const std::string subject =
        std::string(CodecIDToString(format->GetCodecID())) + " at " + std::to_string(rate) + " Hz";
    SettingKey::requireRange("audio-bitrate", bitrate, Kestra::ClientAPI::GetMinBitrate(tree),
                             Kestra::ClientAPI::GetMaxBitrate(tree), subject);
    requireStep(bitrate, CodecLimits::AudioBitrateSteps(format->GetCodecID(), rate), subject);
}

} // namespace

std::vector<SettingKey> SettingKey::ofSound() {
    return {
        {{"sample-rate", "HZ", "samples a second, as 48000 or 44.1k", false},
         readSampleRate,
         requireSampleRate,
         editSampleRate,
         insideAnyway},
        {{"channels", "LAYOUT", "mono, stereo, quad, 5.0, 5.1, 7.1, or their number", false},
         readChannels,
         requireChannels,
         editChannels,
         insideAnyway},
        {{"audio-bitrate", "BITS", "of the sound, bit/s, as 128k", false},
         readBitrate,
         ExportCore::requireBitrate,
         editBitrate,
         requireBitrateInside},
    };
}

} // namespace ExportCore
