// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/PresetCatalogue.h"

#include "EditorSettings/Settings.h"
#include "ExportCore/NearNames.h"
#include "ExportCore/Refusal.h"
#include "Kestra/ClientAPI/CodecLimits.h"
#include <algorithm>
#include <array>
#include <set>
#include <string_view>
#include <tuple>
#include <utility>

namespace ExportCore {
namespace {

using Kestra::ClientAPI::CodecLimits;

/// Of a preset: more is better, the picture first, and then what its name promises.
using Worth = std::tuple<double, std::int64_t, std::ptrdiff_t>;

std::ptrdiff_t worthOfName(const std::string& name) {
    constexpr std::array<std::string_view, 5> rising{"draft", "low", "medium", "high", "best"};
    const auto found = std::find(rising.begin(), rising.end(), name);
    return found == rising.end() ? -1 : found - rising.begin();
}

double worthOfQuality(const Preset& preset) {
    const auto scale = CodecLimits::VideoQuality(preset.videoCodec());
    return scale.best < scale.worst ? -preset.videoQuality() : preset.videoQuality();
}

/// They are listed from least to most.
double worthOfProfile(const Preset& preset) {
    constexpr double ANY_QUALITY = 1000;
    const std::vector<std::string> profiles = CodecLimits::Profiles(preset.videoCodec());
    const std::string profile = preset.videoProfile();
    const auto place = static_cast<double>(std::find(profiles.begin(), profiles.end(), profile) - profiles.begin());
    if (!CodecLimits::VideoQuality(preset.videoCodec()).Exists())
        return place;
    return (profile.empty() ? 0 : place * ANY_QUALITY) + worthOfQuality(preset);
}

double worthOfPicture(const Preset& preset) {
    if (!CodecLimits::HasBitrate(preset.videoCodec()))
        return worthOfProfile(preset);
    switch (preset.videoBitrateMode()) {
    case Export::BitrateMode::Quality:
        return worthOfQuality(preset);
    case Export::BitrateMode::Variable:
        return static_cast<double>(preset.videoBitrateBps());
    case Export::BitrateMode::Constant:
    case Export::BitrateMode::Automatic:
        break;
    }
    return preset.videoBitrateMultiplier();
}

Worth worthOf(const Preset& preset, const std::string& name) {
    return {preset.hasVideo() ? worthOfPicture(preset) : 0, preset.audioBitrateBps(), worthOfName(name)};
}

} // namespace

PresetCatalogue::PresetCatalogue() {
    if (!storage.loadPresets(Kestra::ioPath(Settings::presetFilePath().toStdString())))
        KESTRA_THROW(Refusal("Cannot load the presets: " + storage.lastError()));
    for (const std::string& tag : storage.tags()) {
        for (const Preset& preset : storage.presets(tag)) {
            const std::string id = preset.id();
            std::vector<std::string>& holders = tagsById[id];
            if (holders.empty())
                known.push_back(id);
            holders.push_back(tag);
            idsByTag[tag].push_back(id);
        }
    }
}

std::vector<std::string> PresetCatalogue::tags() const {
    const auto tags = storage.tags();
    return {tags.begin(), tags.end()};
}

std::vector<std::string> PresetCatalogue::tagsOf(const std::string& id) const {
    const auto found = tagsById.find(id);
    return found == tagsById.end() ? std::vector<std::string>() : found->second;
}

std::vector<std::string> PresetCatalogue::idsOf(const std::string& tag) const {
    const auto found = idsByTag.find(tag);
    if (found == idsByTag.end())
        NearNames::refuseUnknown("tag", tag, tags());
    return found->second;
}

std::string PresetCatalogue::defaultOf(const std::string& tag) const {
    return idsOf(tag).at(storage.defaultPresetIndex(tag));
}

std::vector<std::string> PresetCatalogue::qualitiesOf(const std::string& id) const {
    const std::set<std::string> names = storage.qualityModifierTags(id);
    std::vector<std::pair<Worth, std::string>> byWorth;
    byWorth.reserve(names.size());
    for (const std::string& name : names)
        byWorth.emplace_back(worthOf(withQuality(id, name), name), name);
    std::stable_sort(byWorth.begin(), byWorth.end(), [](const auto& a, const auto& b) { return a.first > b.first; });
    std::vector<std::string> sorted;
    sorted.reserve(byWorth.size());
    for (auto& [worth, name] : byWorth)
        sorted.push_back(std::move(name));
    return sorted;
}

Preset PresetCatalogue::withQuality(const std::string& id, const std::string& quality) const {
    Preset changed = preset(id);
    changed.applyQualityModifier(storage.qualityModifierData(id, quality));
    return changed;
}

Preset PresetCatalogue::preset(const std::string& id) const {
    if (tagsById.count(id) == 0)
        NearNames::refuseUnknownPreset(id, known, tags());
    return storage.preset(id);
}

} // namespace ExportCore
