// SPDX-License-Identifier: GPL-3.0-or-later
// How often an animation is shown, by the muxer's options.
#pragma once

#include "Kestra/FF/Av/OptionList.h"

namespace Kestra::FF {

/// 0: for ever, which it is without an option. There is one, "loop". Throws ProcException (MuxerRefused) for another
/// name and for a value that is no whole number from 0 to 65535.
int PlaysOf(const OptionList& options);

} // namespace Kestra::FF
