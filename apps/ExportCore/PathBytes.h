// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::PathBytes: names that the system has no bytes for.
#pragma once

#include "ExportCoreExport.h"
#include <QString>
#include <string>

namespace ExportCore {

struct EXPORTCORE_EXPORT PathBytes {
    /// Why the system would take the text for another one, as the end of a refusal; empty where it does not.
    static std::string whyNone(const QString& text);

    PathBytes() = delete;
};

} // namespace ExportCore
