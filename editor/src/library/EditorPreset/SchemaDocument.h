// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonObject>

namespace EditorPreset {

/// The JSON schema (draft 7) of a catalogue. What it says of a preset's settings follows from their table; the copy for
/// editors of catalogues, resources/presets/catalogue.schema.json, is this document.
QJsonObject schemaDocument();

} // namespace EditorPreset
