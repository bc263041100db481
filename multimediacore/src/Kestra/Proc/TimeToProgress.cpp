#include "Kestra/Proc/TimeToProgress.h"

#include <algorithm>
#include <boost/throw_exception.hpp>
#include <stdexcept>
#include <utility>

namespace Kestra::Proc {

TimeToProgress::TimeToProgress(Function newFunction)
    : function(std::move(newFunction)) {
    if (!function)
        BOOST_THROW_EXCEPTION(std::invalid_argument("Progress over time was given no function"));
}

double TimeToProgress::GetProgress(std::int64_t time) const {
    return function(std::max(start, std::min(time, end)), start, end);
}

} // namespace Kestra::Proc
