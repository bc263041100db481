// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::PresetChoice: which preset a request means.
#pragma once

#include "ExportCoreExport.h"
#include <QString>
#include <string>

namespace ExportCore {

class PresetCatalogue;

/// A value.
struct EXPORTCORE_EXPORT PresetChoice {
    /// `wanted` names a preset, or a tag, whose default it is, or the first one that suits the output's extension.
    /// Where it is empty the output's extension decides: the default of the tag of that name, else of the first tag
    /// whose default writes such files, else the first preset that does. Throws Refusal where there is none, with near
    /// names.
    static PresetChoice of(const std::string& wanted, const QString& outputPath, const PresetCatalogue& catalogue);

    std::string id;
    std::string reason; ///< a clause: "the default for .mp4"; empty where the preset itself was named
};

} // namespace ExportCore
