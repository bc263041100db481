// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/PresetText.h"
#include "ExportCore/PresetCatalogue.h"
#include <QByteArray>
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

} // namespace
