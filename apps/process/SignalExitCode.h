// SPDX-License-Identifier: GPL-3.0-or-later
// What a process exits with that a signal has ended.
#pragma once

namespace Process {

inline constexpr int EXIT_SIGNAL_BASE = 128; ///< plus the signal's number

} // namespace Process
