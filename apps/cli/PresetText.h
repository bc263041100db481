// SPDX-License-Identifier: GPL-3.0-or-later
// Cli::PresetText: a preset in words.
#pragma once

#include "ExportCore/PresetCatalogue.h"
#include <string>

namespace Cli {

struct PresetText {
    /// Where the second column of whole() begins.
    static constexpr std::size_t SECOND = 14;

    /// One line without its end: id, title, tags (an asterisk where it is the default) and qualities, the best first.
    /// `idWidth` columns for the id. What does not fit into `columns` is left out from the end on, the title is cut.
    static std::string line(const Preset& preset, const ExportCore::PresetCatalogue& catalogue, std::size_t idWidth,
                            std::size_t columns);
    /// Several lines: what the preset does with a source, and what its qualities change.
    static std::string whole(const Preset& preset, const ExportCore::PresetCatalogue& catalogue);
    static bool runsTwoPasses(const Preset& preset);

    PresetText() = delete;
};

} // namespace Cli
