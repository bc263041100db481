// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::SettingsImageSequence: pictures that are files of their own, numbered.
#pragma once

#include "Kestra/Base/ioPath.h"
#include <boost/rational.hpp>
#include <cstdint>
#include <optional>
#include <string>

namespace Kestra::Proc {

/// Picture i is the file prefix + number + suffix in the folder. The number, firstNumber + i * step, is filled up with
/// noughts to so many digits, behind the sign of one below 0. Names are taken as they are: none is a pattern.
struct SettingsImageSequence {
    /// What stands where a file is missing.
    enum class Missing {
        Refused, ///< nothing: reading it throws
        Held,    ///< the picture before it; at the start the next one that is there
        Black,   ///< black; transparent where the pictures have alpha
    };

    ioPath folder;
    std::string prefix;
    std::string suffix;
    std::int64_t firstNumber = 0;
    std::int64_t step = 1;
    int digits = 0;
    boost::rational<long long> rate = 1; ///< pictures a second
    std::optional<std::int64_t> count{}; ///< pictures that may be asked for; unset: nobody knows how many there are
    Missing missing = Missing::Refused;
};

} // namespace Kestra::Proc
