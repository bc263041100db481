// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::CutPoints: where in the inputs an export begins and where it ends.
#pragma once

#include "ExportCore/ExportRequest.h"

namespace ExportCore {

/// A value; what is unset is the inputs' own start or end.
struct CutPoints {
    /// What the request says of both, or of one of them and the duration. Throws Refusal where it says all three, where
    /// they do not lie one after the other, and where frames are to be counted and there is no rate. A duration up to
    /// an out point behind `length`, that of the inputs, counts from their end.
    static CutPoints of(const ExportRequest& request, const TimePoint::Rate& rate,
                        const std::optional<KTime>& length = std::nullopt);
    /// Whether frames count, so that only the inputs' rate tells what is meant.
    static bool countFrames(const ExportRequest& request);

    std::optional<KTime> in{};
    std::optional<KTime> out{};
};

} // namespace ExportCore
