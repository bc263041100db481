// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <string>

namespace EditorPreset {

/// Refuses a key that stands twice in one object, which a parsed document no longer shows. `bytes` are JSON that has
/// been parsed before. Throws CatalogueError with `file`, the key's pointer and the reason.
void checkKeysAreUnique(const QByteArray& bytes, const std::string& file);

} // namespace EditorPreset
