// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/TimeToProgress.h"

#include "Kestra/Base/Exception.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace Kestra::Proc {

TimeToProgress::TimeToProgress(Function newFunction)
    : function(std::move(newFunction)) {
    if (!function)
        KESTRA_THROW(std::invalid_argument("Progress over time was given no function"));
}

double TimeToProgress::GetProgress(std::int64_t time) const {
    return function(std::max(start, std::min(time, end)), start, end);
}

} // namespace Kestra::Proc
