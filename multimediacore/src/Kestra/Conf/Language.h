// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Conf::Language: the codes by which files tell a language.
#pragma once

#include "KestraExport.h"
#include <string>

namespace Kestra::Conf {

/// "de", "deu", "ger" and "de-AT" are one language. Codes are those of ISO 639-2, in lower case.
struct KESTRA_EXPORT Language {
    /// The terminological code of what a file or a person writes: two letters, three letters, or a tag that begins with
    /// such and has subtags behind a hyphen or an underscore. Three letters that are no known code stay what they are.
    /// Empty for "und", and for what is no code.
    static std::string CodeOf(const std::string& text);
    static bool AreSame(const std::string& a, const std::string& b);
    /// "ger" for "deu"; the code itself where both are the same.
    static std::string BibliographicCode(const std::string& code);
    /// The name that FFmpeg's libraries have for the language's number in a QuickTime file; empty where there is no
    /// number.
    static std::string QuickTimeName(const std::string& code);

    Language() = delete;
};

} // namespace Kestra::Conf
