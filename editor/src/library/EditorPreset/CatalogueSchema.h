// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonValue>
#include <string>

namespace EditorPreset {

/// Checks a document against the catalogue's JSON schema, which is built into the library. Throws CatalogueError with
/// `file`, the pointer of the deepest place that is wrong, and the reason.
void checkAgainstSchema(const QJsonValue& document, const std::string& file);

} // namespace EditorPreset
