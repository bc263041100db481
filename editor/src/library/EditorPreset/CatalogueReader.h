// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "EditorPreset/Catalogue.h"
#include <QString>

namespace EditorPreset {

/// Reads and checks a catalogue file. Throws CatalogueError.
Catalogue readCatalogue(const QString& path);

/// Reads the user's own presets and lays them over `installed`: a preset of a known id and a tag of a known name are
/// replaced, new ones are added; new presets that no tag names are put under `ownTag`. Throws CatalogueError.
Catalogue readOverlay(const QString& path, const Catalogue& installed, const std::string& ownTag);

} // namespace EditorPreset
