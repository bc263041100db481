// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::PlainText: names in messages as they cannot do harm.
#pragma once

#include "ExportCoreExport.h"
#include <string>

namespace ExportCore {

struct EXPORTCORE_EXPORT PlainText {
    /// The UTF-8 text as one line: control characters (C0 and C1), direction marks, line and paragraph separators and
    /// bytes that are no UTF-8 are written as \n, \t, \xNN and \u{NNNN}. Blanks stay as they are, and so does a
    /// backslash: the text is for people, not for programs.
    static std::string escaped(const std::string& text);

    PlainText() = delete;
};

} // namespace ExportCore
