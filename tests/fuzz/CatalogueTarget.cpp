// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a catalogue of presets, or as a user's own presets over a good one: they are refused with a reason, or
// all that they say can be asked for and used.
#include "EditorPreset/PresetStorage.h"
#include "fuzz/Fuzz.h"
#include <QByteArray>
#include <filesystem>

namespace {

constexpr const char* CATALOGUE = "catalogue.json";
constexpr const char* GOOD = "good.json";
constexpr const char* OWN = "EditorExport/presets.json";
constexpr const char* CONTENT = R"({"version": 1, "tags": [{"name": "t", "default": 0, "presets": ["p"]}],
 "presets": [{"id": "p", "container": {"id": "mp4"}, "video": {"codec": "h264", "width": 640, "height": 360},
 "audio": {"codec": "aac", "bitrate": 96000}}]})";

struct Place {
    Place() {
        std::filesystem::create_directory(folder.path("EditorExport"));
        folder.write(GOOD, CONTENT);
        qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(folder.path(".")));
    }
    const Fuzz::Folder folder;
};

void use(const Preset& preset) {
    preset.formattedPresetInfo();
    preset.muxerData();
    if (preset.hasVideo())
        preset.videoEncoderData();
    if (preset.hasAudio())
        preset.audioEncoderData();
    preset.resizerSettings();
    Fuzz::require(preset.equalsTo(preset), "a preset equals itself");
}

void useModifiers(const PresetStorage& storage, const Preset& preset) {
    for (const std::string& modifier : storage.qualityModifierTags(preset.id())) {
        Preset modified = preset;
        modified.applyQualityModifier(storage.qualityModifierData(preset.id(), modifier));
        use(modified);
    }
}

void use(const PresetStorage& storage) {
    Fuzz::require(!storage.tags().empty(), "a catalogue has tags");
    for (const std::string& tag : storage.tags()) {
        const auto presets = storage.presets(tag);
        Fuzz::require(storage.defaultPresetIndex(tag) < presets.size(), "a tag's default is one of its presets");
        for (const Preset& preset : presets) {
            Fuzz::require(storage.isPresetExists(preset.id()), "a tag's presets are there");
            use(preset);
            useModifiers(storage, preset);
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Place place;
    Fuzz::Bytes bytes(data, size);
    // The first byte says whose presets the others are.
    const bool own = bytes.next() == 'o';
    place.folder.write(own ? OWN : CATALOGUE, bytes.rest());
    PresetStorage storage;
    if (storage.loadPresets(Kestra::ioPath(place.folder.path(own ? GOOD : CATALOGUE)))) {
        Fuzz::require(storage.lastError().empty(), "a catalogue that is good is not complained of");
        use(storage);
    } else {
        Fuzz::require(!storage.lastError().empty(), "a catalogue is refused with a reason");
        Fuzz::require(!own, "a user's presets spoil no catalogue");
    }
    place.folder.remove(OWN);
    return 0;
}
