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

    /// The lines as they are, but for those that are longer than `columns`: these are broken at blanks, and what
    /// follows begins with `hang` blanks. A word that is longer stays whole.
    static std::string fitted(const std::string& text, std::size_t columns, std::size_t hang);

    Wrapping() = delete;
};

} // namespace Cli
