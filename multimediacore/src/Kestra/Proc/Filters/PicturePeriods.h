// Which period of a constant frame rate shows a picture first.
#pragma once

#include "KestraExport.h"
#include <boost/rational.hpp>
#include <cstdint>

namespace Kestra::Proc {

/// The middle of period `index` of a grid from time 0. Engine time.
KESTRA_EXPORT std::int64_t MiddleOfPeriod(std::int64_t index, const boost::rational<long long>& rate);

/// The first period whose middle is not before `time`: a period shows what the source shows at its middle.
KESTRA_EXPORT std::int64_t FirstPeriodOf(std::int64_t time, const boost::rational<long long>& rate);

/// As FirstPeriodOf, for the picture after one that is first shown in `last`. It takes the period after that one if it
/// is off it by less than three quarters of a period: pictures that jitter around the grid are all shown, each once. An
/// answer not after `last` replaces the picture before it.
KESTRA_EXPORT std::int64_t FirstPeriodAfter(std::int64_t last, std::int64_t time,
                                            const boost::rational<long long>& rate);

} // namespace Kestra::Proc
