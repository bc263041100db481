// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/CutPoints.h"

#include "ExportCore/Refusal.h"
#include "ExportCore/TimeText.h"
#include <algorithm>

namespace ExportCore {
namespace {

using Given = std::optional<TimePoint>;

std::optional<KTime> timeOf(const Given& point, const TimePoint::Rate& rate) {
    return point ? std::optional(point->at(rate)) : std::nullopt;
}

/// Before an out point, or before the inputs' end where that comes first.
void requireRoomFor(KTime duration, KTime out, KTime end) {
    if (duration > end)
        KESTRA_THROW(Refusal("The duration " + TimeText::format(duration) + " up to the " +
                             (end < out ? "inputs' end, " : "out point, ") + TimeText::format(end) +
                             ", would begin before the start"));
}

void requireOrder(const CutPoints& cut) {
    const KTime start = cut.in.value_or(KTime(0));
    if (start < KTime(0))
        KESTRA_THROW(Refusal("The in point " + TimeText::format(start) + " lies before the start"));
    if (cut.out && *cut.out <= start)
        KESTRA_THROW(Refusal("The out point " + TimeText::format(*cut.out) + " does not lie after the in point " +
                             TimeText::format(start) + (cut.in ? "; a duration counts from the in point" : "")));
}

} // namespace

CutPoints CutPoints::of(const ExportRequest& request, const TimePoint::Rate& rate, const std::optional<KTime>& length) {
    CutPoints cut{timeOf(request.in, rate), timeOf(request.out, rate)};
    if (const auto duration = timeOf(request.duration, rate)) {
        if (cut.in && cut.out)
            KESTRA_THROW(
                Refusal("In point, out point and duration were given; two of them say where to begin and end"));
        if (*duration <= KTime(0))
            KESTRA_THROW(Refusal("The duration " + TimeText::format(*duration) + " is none"));
        if (cut.out) {
            const KTime end = std::min(*cut.out, length.value_or(*cut.out));
            requireRoomFor(*duration, *cut.out, end);
            cut.in = end - *duration;
        } else {
            cut.out = cut.in.value_or(KTime(0)) + *duration;
        }
    }
    requireOrder(cut);
    return cut;
}

bool CutPoints::countFrames(const ExportRequest& request) {
    const auto counts = [](const Given& point) { return point && point->frames; };
    return counts(request.in) || counts(request.out) || counts(request.duration);
}

} // namespace ExportCore
