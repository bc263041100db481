// SPDX-License-Identifier: GPL-3.0-or-later
// Names of the nodes of a preset's tree: those of the catalogue. SettingTable.h names those below the sections.
#pragma once

namespace EditorPreset {

constexpr const char* TAG_ID = "id";
constexpr const char* TAG_TITLE = "title";
constexpr const char* TAG_CONTAINER = "container";
constexpr const char* TAG_VIDEO = "video";
constexpr const char* TAG_AUDIO = "audio";
constexpr const char* TAG_QUALITY_MODIFIERS = "qualityModifiers";

/// "As the source", for frame rate, fields, channel layout and dynamic range.
constexpr const char* VALUE_SOURCE = "source";

} // namespace EditorPreset
