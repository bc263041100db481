// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::ScaledDown: inputs that lose by the size of the first pictures.
#pragma once

#include "EditorPreset/Preset.h"
#include "EditorProject/SeenPictures.h"
#include "ExportCore/ExportRequest.h"
#include <string>
#include <vector>

namespace ExportCore {

class ScaledDown {
public:
    /// Of an export whose frame is that of the first of these media, which later ones in it are larger, though the
    /// preset would take more, and the way out; empty where none are, or the size was ordered.
    static std::string note(const std::vector<Project::SeenPictures>& pictures, const ExportRequest& request,
                            const Preset& preset);

    ScaledDown() = delete;
};

} // namespace ExportCore
