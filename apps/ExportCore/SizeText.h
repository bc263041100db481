// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::SizeText: sizes of files as people read them.
#pragma once

#include "ExportCoreExport.h"
#include <QtGlobal>
#include <string>

namespace ExportCore {

struct EXPORTCORE_EXPORT SizeText {
    /// "1 byte", "999 bytes", "1.23 kB", "45.6 MB", "789 GB": three figures, units of a thousand each, English.
    static std::string format(qint64 bytes);

    SizeText() = delete;
};

} // namespace ExportCore
