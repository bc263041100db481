// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Base/Exception.h"
#include "Kestra/Base/SourcePlace.h"
#include <string>

namespace EditorPreset {

/// Why a catalogue was refused. The message is "file: /json/pointer: reason", without the pointer when the file as a
/// whole is meant.
class CatalogueError : public Kestra::Exception {
public:
    using Kestra::Exception::Exception;
};

/// Collects the pointer on the way down; the file's name is added at the top.
struct JsonPlace {
    std::string file;
    std::string pointer;

    /// The place of a member or an element below this one.
    JsonPlace at(const std::string& key) const;
    JsonPlace at(std::size_t index) const;
    [[noreturn]] void refuse(const std::string& reason, Kestra::SourcePlace place = Kestra::SourcePlace::Here()) const;
};

} // namespace EditorPreset
