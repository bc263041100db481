// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Conf::Draft: a consumer that will look at frames roughly, in a smaller size.
#pragma once

#include "Kestra/Conf/IFormatCodecVideo.h"
#include <optional>
#include <string>

namespace Kestra::Conf {

/// A value; it travels in what a consumer prefers, whose frame stays the whole one. Nobody has to give smaller frames:
/// who scales anyway should do it straight to this size, quickly, and who decodes may leave out what only makes frames
/// look better. The consumer takes frames of either size, and what is to be seen or kept never comes from them.
struct KESTRA_EXPORT Draft {
    std::uint32_t width = 0;
    std::uint32_t height = 0;

    /// Nothing where whole frames are wanted.
    static std::optional<Draft> Of(const IFormatCodecVideo& format);
    /// Nothing takes back what the description told before.
    static void TellIn(IFormatCodecVideo& format, const std::optional<Draft>& draft);

    /// A sentence for the user whose order of smaller frames the consumer does not follow; empty where there is none.
    /// Whoever collects notes for the user notes it.
    static std::string WhyWhole(const IFormatCodecVideo& format);
    static void TellWhyWhole(IFormatCodecVideo& format, const std::string& sentence);
};

} // namespace Kestra::Conf
