// What the first of two passes may look at instead of whole frames.
#pragma once

#include "Kestra/Conf/Draft.h"
#include "Kestra/FF/Picture/EncoderInput.h"
#include <boost/rational.hpp>
#include <cstdint>
#include <optional>

namespace Kestra::FF {

/// Half the width and half the height, in even numbers, so that fields stay fields. Nothing where the whole frames have
/// to be looked at: small ones, whose halves tell too little, and fewer (`frames`, less than 0 when nobody knows) than
/// the second pass takes to make good what halves tell wrongly.
std::optional<Conf::Draft> FirstPassDraft(const EncoderInput& input, std::int64_t frames,
                                          const boost::rational<long long>& rate);

} // namespace Kestra::FF
