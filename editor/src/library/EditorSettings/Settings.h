// SPDX-License-Identifier: GPL-3.0-or-later
// Settings: what the editor remembers between runs, and where it finds its preset catalogue.
#pragma once

#include "EditorPresetExport.h"
#include <QString>
#include <string>

/// Static access to one ini file in the user's configuration folder; every write reaches the file before it returns.
/// One that does not returns false and warns, with the file's name, through Qt's messages. Strings are UTF-8.
/// Thread-safe.
class EDITORPRESET_EXPORT Settings {
public:
    /// The environment variable EDITOR_EXPORT_PRESETS when it is set and not empty; else the catalogue installed beside
    /// the library; else the one of the source tree that the library was built in. Where none is found, the place at
    /// which the installed one ought to be.
    static QString presetFilePath();
    /// The user's own presets, in the configuration folder; the file need not exist.
    static QString userPresetFilePath();

    /// Empty when nothing was remembered.
    static std::string lastUsedPresetGroup();
    static bool setLastUsedPresetGroup(const std::string& group);
    static std::string lastUsedPresetId();
    static bool setLastUsedPresetId(const std::string& id);

    Settings() = delete;
};
