// ExportCore::ExportRequest: everything one export is asked for.
#pragma once

#include "ExportCore/WatchdogLimits.h"
#include "KTime/KTime.h"
#include "Types/Range.h"
#include <QString>
#include <QStringList>
#include <optional>
#include <string>

namespace ExportCore {

/// A value. Paths are UTF-8 on their way to the system, whatever the locale says.
struct ExportRequest {
    QStringList inputs;
    std::string presetId;
    QString outputPath;
    /// Whether a file that stands at outputPath may be replaced.
    bool overwrite = false;
    /// The part of the inputs to export; what is left open is their start and their end.
    std::optional<KTime> in;
    std::optional<KTime> out;
    /// A window on the finished streams, snapped to frames; zero to zero is none.
    Types::Range exportRange;
    /// Names the outro; empty for none.
    QString brandingName;
    WatchdogLimits limits;
};

} // namespace ExportCore
