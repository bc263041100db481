// SPDX-License-Identifier: GPL-3.0-or-later
// What the first of two passes may look at instead of whole frames.
#pragma once

#include "Kestra/Conf/Draft.h"
#include "Kestra/FF/Picture/EncoderInput.h"
#include <boost/rational.hpp>
#include <cstdint>
#include <optional>
#include <string>

namespace Kestra::FF {

/// A smaller frame, or why the whole ones have to be looked at, in the user's words.
struct FirstPassDraft {
    std::optional<Conf::Draft> draft;
    std::string whyWhole;

    /// Half the width and half the height, in even numbers, so that fields stay fields. Whole are small frames, whose
    /// halves tell too little, and fewer (`frames`, less than 0 when nobody knows) than the second pass takes to make
    /// good what halves tell wrongly.
    static FirstPassDraft HalfOf(const EncoderInput& input, std::int64_t frames,
                                 const boost::rational<long long>& rate);
    static FirstPassDraft WholeFrames(const std::string& why);
};

} // namespace Kestra::FF
