// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/SettingKey.h"

#include "ExportCore/OtherPresets.h"
#include "ExportCore/Refusal.h"
#include "ExportCore/SettingText.h"
#include "Kestra/ClientAPI/CodecLimits.h"
#include <algorithm>
#include <iterator>

namespace ExportCore {
namespace {

constexpr std::int64_t HIGHEST_BITRATE = 2'000'000'000;

} // namespace

void SettingEntry::refuse(const std::string& reason, Kestra::SourcePlace place) const {
    Kestra::ThrowFrom(Refusal("Cannot set " + key + " to \"" + value + "\": " + reason), place);
}

const std::vector<SettingKey>& SettingKey::all() {
    static const auto& keys = *new std::vector<SettingKey>([] {
        std::vector<SettingKey> made = ofPicture();
        const std::vector<SettingKey> sound = ofSound();
        made.insert(made.end(), sound.begin(), sound.end());
        return made;
    }());
    return keys;
}

std::vector<SettingKey> SettingKey::givenTo(const PresetSettings& settings) {
    std::vector<SettingKey> keys;
    std::copy_if(all().begin(), all().end(), std::back_inserter(keys), [&settings](const SettingKey& key) {
        return std::find(settings.given.begin(), settings.given.end(), key.shown.name) != settings.given.end();
    });
    return keys;
}

void SettingKey::insideAnyway(const PresetSettings&, const Export::PresetProvider&, const Media::Video&,
                              const Media::Audio&) {}

void SettingKey::refuse(const std::string& what, const std::string& reason, Kestra::SourcePlace place) {
    Kestra::ThrowFrom(Refusal("Cannot set " + what + ": " + reason), place);
}

std::int64_t SettingKey::bitrateOf(const SettingEntry& entry) {
    const auto bitrate = SettingText::amount(entry.value);
    if (!bitrate)
        entry.refuse("write bits a second, as 2500000, 2500k or 2.5M");
    if (*bitrate == 0 || *bitrate > HIGHEST_BITRATE)
        entry.refuse("bitrates go from 1 to " + std::to_string(HIGHEST_BITRATE) + " bit/s");
    return *bitrate;
}

void SettingKey::requireBitrate(const char* key, const Preset& preset, bool ofPicture) {
    const Kestra::Conf::CodecID codec = ofPicture ? preset.videoCodec() : preset.audioCodec();
    if (Kestra::ClientAPI::CodecLimits::HasBitrate(codec))
        return;
    const std::string qualities = ofPicture ? OtherPresets::qualitiesOf(preset) : std::string();
    refuse(key, std::string(Kestra::Conf::CodecIDToString(codec)) + " does not let its bitrate be chosen" +
                    (qualities.empty() ? OtherPresets::choosingBitrate(preset, ofPicture) : qualities));
}

void SettingKey::requireRange(const char* key, std::int64_t bitrate, std::int64_t lowest, std::int64_t highest,
                              const std::string& subject) {
    if (bitrate < lowest || bitrate > highest)
        refuse(std::string(key) + " to " + std::to_string(bitrate),
               subject + " takes " + std::to_string(lowest) + " to " + std::to_string(highest) + " bit/s");
}

} // namespace ExportCore
