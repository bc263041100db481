#include "Kestra/Proc/Filters/PicturePeriods.h"

#include "Kestra/Base/Time.h"
#include <algorithm>
#include <cstdlib>

namespace Kestra::Proc {

std::int64_t MiddleOfPeriod(std::int64_t index, const boost::rational<long long>& rate) {
    const std::int64_t begin = FramesToTime(index, rate);
    return begin + (FramesToTime(index + 1, rate) - begin) / 2;
}

std::int64_t FirstPeriodOf(std::int64_t time, const boost::rational<long long>& rate) {
    // The estimate may be one off either way; the middles decide.
    std::int64_t index = TimeToFrames(time, rate) - 1;
    while (MiddleOfPeriod(index, rate) < time)
        ++index;
    return index;
}

std::int64_t FirstPeriodAfter(std::int64_t last, std::int64_t time, const boost::rational<long long>& rate) {
    const std::int64_t following = last + 1;
    const std::int64_t off = std::abs(time - FramesToTime(following, rate));
    if (4 * off < 3 * FramesToTime(1, rate))
        return following;
    return std::max(last, FirstPeriodOf(time, rate));
}

} // namespace Kestra::Proc
