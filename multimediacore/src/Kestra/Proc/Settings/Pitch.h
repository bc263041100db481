// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::Pitch: what becomes of the pitch of sound whose speed changes.
#pragma once

namespace Kestra::Proc {

enum class Pitch {
    Kept,  ///< only the speed changes
    Moved, ///< twice as fast is an octave higher
};

} // namespace Kestra::Proc
