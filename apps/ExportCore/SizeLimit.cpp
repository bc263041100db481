// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/SizeLimit.h"

#include "EditorPreset/Preset.h"
#include <algorithm>

namespace ExportCore {

bool isWithinLimits(double width, double height, const Preset& preset) {
    const auto [shorter, longer] = std::minmax({preset.maxWidth(), preset.maxHeight()});
    return std::min(width, height) <= shorter && std::max(width, height) <= longer;
}

} // namespace ExportCore
