// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/FrameSnap.h"

#include "Kestra/Base/Time.h"
#include "Types/Time.h"
#include <algorithm>

namespace ExportCore {

Types::Range FrameSnap::range(const Types::Range& range, const boost::rational<long long>& rate) {
    if (rate <= 0)
        return range;
    const std::int64_t first = Kestra::TimeToFrames(Types::toAvTime(range.start), rate);
    const std::int64_t last = std::max(Kestra::TimeToFrames(Types::toAvTime(range.end), rate), first + 1);
    return {Types::fromAvTime(Kestra::FramesToTime(first, rate)), Types::fromAvTime(Kestra::FramesToTime(last, rate))};
}

} // namespace ExportCore
