// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "EditorPreset/CatalogueError.h"
#include "EditorPreset/Preset.h"

namespace EditorPreset {

/// What a schema cannot say of one preset: what its container cannot hold, what its codecs do not take just so (rates,
/// layouts, sizes, bitrates, qualities, profiles, pixel formats, passes), options that encoder or muxer do not know,
/// and settings that contradict each other. Throws CatalogueError at `place`.
void checkPreset(const Preset& preset, const JsonPlace& place);

} // namespace EditorPreset
