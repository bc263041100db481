// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Finding.h"

namespace Timeline {

std::string Finding::inWords() const {
    std::string words = place.empty() ? text : place + ": " + text;
    return pointer.empty() ? words : words + " (" + pointer + ")";
}

} // namespace Timeline
