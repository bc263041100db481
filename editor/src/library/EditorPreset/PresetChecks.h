#pragma once

#include "EditorPreset/CatalogueError.h"
#include "EditorPreset/Preset.h"

namespace EditorPreset {

/// What a schema cannot say of one preset: streams that the container cannot hold, a bitrate mode without its value, a
/// fixed size without one, a size beyond its limit. Throws CatalogueError at `place`.
void checkPreset(const Preset& preset, const JsonPlace& place);

} // namespace EditorPreset
