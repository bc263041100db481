// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::NearFiles: which file somebody may have meant.
#pragma once

#include "ExportCoreExport.h"
#include <QByteArray>
#include <string>

namespace ExportCore {

struct EXPORTCORE_EXPORT NearFiles {
    /// '; did you mean "clips/film.mov"?' with names that stand in the folder of a path that leads nowhere; empty when
    /// none is near. Looks at the first thousands of a folder, at none that are hidden.
    static std::string question(const QByteArray& path);

    NearFiles() = delete;
};

} // namespace ExportCore
