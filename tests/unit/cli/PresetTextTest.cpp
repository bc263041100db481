// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/PresetText.h"
#include "ExportCore/PresetCatalogue.h"
#include <QByteArray>
#include <algorithm>
#include <gtest/gtest.h>

namespace {

TEST(PresetText, MarksDefaultsHoweverNarrowTheTerminalIs) {
    qputenv("EDITOR_EXPORT_PRESETS", EDITOR_EXPORT_CATALOGUE);
    qputenv("XDG_CONFIG_HOME", "/nonexistent");
    const ExportCore::PresetCatalogue catalogue;
    constexpr std::size_t ID_WIDTH = 29;
    for (const std::string& tag : catalogue.tags())
        for (std::size_t columns = 60; columns <= 160; columns += 5) {
            const Preset preset = catalogue.preset(catalogue.defaultOf(tag));
            const std::string line = Cli::PresetText::line(preset, catalogue, ID_WIDTH, columns);
            EXPECT_NE(line.find(tag + '*'), std::string::npos) << columns << ": " << line;
            EXPECT_LE(line.size(), columns);
        }
}

TEST(PresetText, NeverCutsAnId) {
    qputenv("EDITOR_EXPORT_PRESETS", EDITOR_EXPORT_CATALOGUE);
    qputenv("XDG_CONFIG_HOME", "/nonexistent");
    const ExportCore::PresetCatalogue catalogue;
    for (const std::string& id : catalogue.ids())
        for (const std::size_t columns : {1, 20, 30}) {
            const std::string line = Cli::PresetText::line(catalogue.preset(id), catalogue, 29, columns);
            EXPECT_EQ(line.rfind(id, 0), 0U) << line;
            EXPECT_LE(line.size(), std::max(columns, id.size()));
        }
}

TEST(PresetText, TellsWhatQualitiesDifferInAndTheDefault) {
    qputenv("EDITOR_EXPORT_PRESETS", EDITOR_EXPORT_CATALOGUE);
    qputenv("XDG_CONFIG_HOME", "/nonexistent");
    const ExportCore::PresetCatalogue catalogue;
    const auto textOf = [&catalogue](const char* id) {
        return Cli::PresetText::whole(catalogue.preset(id), catalogue);
    };
    const auto expect = [&textOf](const char* id, const char* part) {
        EXPECT_NE(textOf(id).find(part), std::string::npos) << part << " in\n" << textOf(id);
    };
    expect("gif-gif-480p", "high: 25 fps\n");
    expect("gif-gif-480p", "medium (the default): 12.5 fps\n");
    expect("gif-gif-480p", "low: 6.25 fps\n");
    expect("mov-prores-1080p-4444", "medium (the default): profile 4444; no options of the encoder\n");
    expect("mov-prores-1080p-4444", "low: profile 4444; alpha_bits 8\n");
    expect("mkv-ffv1-flac", "none of them: the codec's own pixel format\n");
    expect("mp4-h264-720p", "medium (the default): ");
}

} // namespace
