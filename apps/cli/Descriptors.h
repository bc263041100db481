// SPDX-License-Identifier: GPL-3.0-or-later
// Whether the system lets this process open what an export opens.
#pragma once

namespace Cli {

/// Enough for the libraries underneath, some of which abort the process where they cannot open a pipe of their own, and
/// for one export. What is short later on fails by name.
constexpr int NEEDED_DESCRIPTORS = 32;

/// Whether that many files more can be open at a time.
bool canOpen(int descriptors) noexcept;

/// Where the caller has closed standard input, output or error, nothing that is opened later takes its number, and with
/// it what is meant for that. Reading from it and writing to it fail as before. Before anything is opened.
void keepStandardOnesFree() noexcept;

} // namespace Cli
