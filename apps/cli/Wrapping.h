// SPDX-License-Identifier: GPL-3.0-or-later
// Cli::Wrapping: text in lines that fit.
#pragma once

#include <string>

namespace Cli {

struct Wrapping {
    /// Breaks each line of `text` at blanks, so that none is longer than `columns`, unless a word is. Lines after the
    /// first begin with `indent` blanks; so does, beyond its own blanks, the rest of a line that was broken.
    /// `begun` columns of the first line are taken already.
    static std::string wrapped(const std::string& text, std::size_t columns, std::size_t indent = 0,
                               std::size_t begun = 0);

    Wrapping() = delete;
};

} // namespace Cli
