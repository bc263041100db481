// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::TimePoint: a time, or a number of frames.
#pragma once

#include "ExportCoreExport.h"
#include "KTime/KTime.h"
#include <boost/rational.hpp>
#include <optional>
#include <string>

namespace ExportCore {

/// A value.
struct EXPORTCORE_EXPORT TimePoint {
    /// Frames a second; unset where there are no pictures.
    using Rate = std::optional<boost::rational<long long>>;

    TimePoint(KTime time) // NOLINT(google-explicit-constructor): a time is one
        : time(time) {}
    static TimePoint ofFrames(qint64 count);

    /// To the millisecond. Throws Refusal for frames without a rate, and so many that no time holds them.
    KTime at(const Rate& rate) const;

    KTime time;
    std::optional<qint64> frames{}; ///< set: counts in place of the time
};

} // namespace ExportCore
