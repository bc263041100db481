// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::SquarePixels: files whose pixels are taken for square, whatever they tell.
#pragma once

#include "EditorPreset/Preset.h"
#include "EditorProject/SeenPictures.h"
#include "ExportCoreExport.h"
#include "Media/Video.h"
#include <string>
#include <vector>

namespace ExportCore {

class EXPORTCORE_EXPORT SquarePixels {
public:
    /// Whether the preset makes such files.
    static bool areNeeded(const Preset& preset);
    /// The pictures as an export with the preset takes them.
    static Media::Video of(const Media::Video& pictures, const Preset& preset);
    /// That pixels become square, of an export whose frame is that of the first of these media; empty where they are.
    static std::string note(const std::vector<Project::SeenPictures>& pictures, const Preset& preset);

    SquarePixels() = delete;
};

} // namespace ExportCore
