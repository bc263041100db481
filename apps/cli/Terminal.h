// SPDX-License-Identifier: GPL-3.0-or-later
// Cli::Terminal: where the program's words are shown.
#pragma once

#include <cstddef>
#include <optional>

namespace Cli {

struct Terminal {
    /// How wide the terminal is behind that descriptor; nothing where it is none, or does not tell.
    static std::optional<int> columns(int descriptor);

    /// Of standard output; endless where that is no terminal.
    static std::size_t outputColumns();

    Terminal() = delete;
};

} // namespace Cli
