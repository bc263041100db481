// SPDX-License-Identifier: GPL-3.0-or-later
#include "Message/Details/Lifeline.h"

namespace Message::Details {

// Not inline: a compiler that sees into this takes the watch on the stack for a pointer that stays behind.
Lifeline::Watch::Watch(Lifeline& line)
    : lifeline(&line)
    , outer(line.innermost) {
    line.innermost = this;
}

} // namespace Message::Details
