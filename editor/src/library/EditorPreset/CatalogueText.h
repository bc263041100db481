// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "EditorPreset/CatalogueError.h"

namespace EditorPreset {

/// Ids and names of modifiers stand in settings, on command lines and in translations: a-z, 0-9, '-', '_', '.' alone.
/// Throws CatalogueError at `place`.
void checkName(const std::string& name, const JsonPlace& place);

/// What people read, in UTF-8: no control characters and no marks that turn the direction of what follows. Throws
/// CatalogueError at `place` that names the character.
void checkText(const std::string& text, const JsonPlace& place);

} // namespace EditorPreset
