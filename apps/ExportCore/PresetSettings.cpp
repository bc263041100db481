// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/PresetSettings.h"

#include "EditorPreset/Preset.h"
#include "ExportCore/NameList.h"
#include "ExportCore/NearNames.h"
#include "ExportCore/OtherPresets.h"
#include "ExportCore/Refusal.h"
#include "ExportCore/SettingKey.h"
#include "Kestra/Base/SourcePlace.h"
#include <algorithm>

namespace ExportCore {
namespace {

SettingEntry split(const std::string& text) {
    const std::size_t sign = text.find('=');
    if (sign == std::string::npos)
        KESTRA_THROW(Refusal("\"" + text + "\" is no setting; write KEY=VALUE"));
    return {text.substr(0, sign), text.substr(sign + 1)};
}

const SettingKey* find(const std::string& name) {
    const std::vector<SettingKey>& keys = SettingKey::all();
    const auto found =
        std::find_if(keys.begin(), keys.end(), [&name](const SettingKey& key) { return name == key.shown.name; });
    return found == keys.end() ? nullptr : &*found;
}

[[noreturn]] void refuseUnknown(const std::string& key) {
    std::vector<std::string> names;
    for (const PresetSettings::Key& known : PresetSettings::keys())
        names.emplace_back(known.name);
    const std::string question = NearNames::question(key, names);
    KESTRA_THROW(Refusal("There is no setting \"" + key + '"' +
                         (question.empty() ? "; the settings are " : question + " The settings are ") +
                         NameList::joined(names)));
}

void requireOnce(const std::vector<std::string>& given, const std::string& key) {
    if (std::count(given.begin(), given.end(), key) > 1)
        KESTRA_THROW(Refusal("Cannot set " + key + " twice"));
}

void requireNotBoth(const std::vector<std::string>& given, const char* one, const char* other, const char* reason) {
    const auto has = [&given](const char* key) { return std::find(given.begin(), given.end(), key) != given.end(); };
    if (has(one) && has(other))
        KESTRA_THROW(Refusal(std::string("Cannot set both ") + one + " and " + other + ": " + reason));
}

void requireStreams(const PresetSettings& settings, const Preset& preset) {
    for (const std::string& name : settings.given) {
        const bool ofPicture = find(name)->shown.ofPicture;
        if (ofPicture && !preset.hasVideo())
            SettingKey::refuse(name, "the preset \"" + preset.id() + "\" has no picture");
        if (!ofPicture && !preset.hasAudio())
            SettingKey::refuse(name,
                               "the preset \"" + preset.id() + "\" has no sound" + OtherPresets::withSound(preset));
    }
}

} // namespace

const std::vector<PresetSettings::Key>& PresetSettings::keys() {
    static const auto& all = *new std::vector<Key>([] {
        std::vector<Key> shown;
        for (const SettingKey& key : SettingKey::all())
            shown.push_back(key.shown);
        return shown;
    }());
    return all;
}

PresetSettings PresetSettings::parse(const std::vector<std::string>& texts) {
    PresetSettings settings;
    for (const std::string& text : texts) {
        const SettingEntry entry = split(text);
        const SettingKey* const key = find(entry.key);
        if (!key)
            refuseUnknown(entry.key);
        settings.given.push_back(entry.key);
        requireOnce(settings.given, entry.key);
        key->read(entry, settings);
    }
    requireNotBoth(settings.given, "size", "width", "the size says it");
    requireNotBoth(settings.given, "size", "height", "the size says it");
    requireNotBoth(settings.given, "bitrate", "quality", "each alone decides how many bits a picture gets");
    return settings;
}

void PresetSettings::requireFit(const Preset& preset) const {
    requireStreams(*this, preset);
    for (const SettingKey& key : SettingKey::givenTo(*this))
        key.requireFit(*this, preset);
}

} // namespace ExportCore
