// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::TimeText: times as people write them.
#pragma once

#include "ExportCore/TimePoint.h"
#include <string>

namespace ExportCore {

struct EXPORTCORE_EXPORT TimeText {
    /// What readings take, for a message.
    static const char* const FORMS;

    /// Reads "HH:MM:SS.mmm", "MM:SS.mmm" or seconds ("90", "90.5", "90.5s"); the fraction is optional and rounded to
    /// the millisecond. Nothing for everything else, negative times, 60 minutes or 60 seconds after a colon, and times
    /// beyond a million hours.
    static std::optional<KTime> parse(const std::string& text);
    /// The same, and frames: "120f", up to 2^31.
    static std::optional<TimePoint> parsePoint(const std::string& text);
    /// "HH:MM:SS.mmm"; negative times with a leading minus.
    static std::string format(KTime time);

    TimeText() = delete;
};

} // namespace ExportCore
