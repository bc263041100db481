// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/WebP/WebPPlays.h"

#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/WebP/WebPLayout.h"
#include <charconv>

namespace Kestra::FF {

namespace {

int PlaysIn(const OptionList::Option& option) {
    constexpr const char* OWNER = "The container \"webp\"";
    const std::string& text = option.value;
    int plays = -1;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), plays);
    if (option.name != "loop")
        Fail(Proc::TranscodingError::MuxerRefused,
             OWNER + (" knows no option \"" + option.name) + "\" (given with the value \"" + text + "\")");
    if (error != std::errc() || end != text.data() + text.size() || plays < 0 || plays > WebPLayout::MOST_PLAYS)
        Fail(Proc::TranscodingError::MuxerRefused, OWNER + (" refuses the value \"" + text) +
                                                       "\" for its option \"loop\": it is a whole number from 0, for "
                                                       "ever, to " +
                                                       std::to_string(WebPLayout::MOST_PLAYS));
    return plays;
}

} // namespace

int PlaysOf(const OptionList& options) {
    int plays = 0;
    for (const OptionList::Option& option : options.Get())
        plays = PlaysIn(option);
    return plays;
}

} // namespace Kestra::FF
