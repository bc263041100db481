// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::OutputExtension: what the end of a file's name says of its kind.
#pragma once

#include "ExportCoreExport.h"
#include <QByteArray>
#include <string>

class Preset;

namespace ExportCore {

struct EXPORTCORE_EXPORT OutputExtension {
    /// In lower case, without the dot; empty where the name has none. A dot in front hides a file, it begins no
    /// extension.
    static std::string of(const QByteArray& path);
    /// Whether what the preset writes is usually called so.
    static bool suits(const Preset& preset, const std::string& extension);

    OutputExtension() = delete;
};

} // namespace ExportCore
