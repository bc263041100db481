// ExportCore::TimeText: times as people write them.
#pragma once

#include "ExportCoreExport.h"
#include "KTime/KTime.h"
#include <optional>
#include <string>

namespace ExportCore {

struct EXPORTCORE_EXPORT TimeText {
    /// Reads "HH:MM:SS.mmm" or seconds ("90", "90.5"); the fraction is optional and rounded to the millisecond. Nothing
    /// for everything else, negative times, 60 minutes or 60 seconds after a colon, and times beyond a million hours.
    static std::optional<KTime> parse(const std::string& text);
    /// "HH:MM:SS.mmm"; negative times with a leading minus.
    static std::string format(KTime time);

    TimeText() = delete;
};

} // namespace ExportCore
