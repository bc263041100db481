// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/TimePoint.h"

#include "ExportCore/Refusal.h"
#include "Kestra/Base/Time.h"
#include "Types/Time.h"

namespace ExportCore {

TimePoint TimePoint::ofFrames(qint64 count) {
    TimePoint point{KTime(0)};
    point.frames = count;
    return point;
}

KTime TimePoint::at(const Rate& rate) const {
    if (!frames)
        return time;
    if (!rate || *rate <= 0)
        KESTRA_THROW(Refusal("Frame " + std::to_string(*frames) +
                             " is no time: none of the inputs has pictures; write seconds"));
    return Types::fromAvTime(Kestra::FramesToTime(*frames, *rate));
}

} // namespace ExportCore
