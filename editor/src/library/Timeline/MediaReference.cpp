// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/MediaReference.h"

#include <algorithm>
#include <cctype>

namespace Timeline {

std::string ImageSequence::nameOf(std::int64_t index) const {
    const std::int64_t number = firstNumber + index * step;
    std::string text = std::to_string(number < 0 ? -number : number);
    const std::size_t length = std::max<std::size_t>(text.size(), static_cast<std::size_t>(std::max(digits, 0)));
    text.insert(0, length - text.size(), '0');
    return prefix + (number < 0 ? "-" : "") + text + suffix;
}

bool ImageSequence::isName(const std::string& file) const {
    const std::size_t around = prefix.size() + suffix.size();
    if (file.size() <= around || file.compare(0, prefix.size(), prefix) != 0 ||
        file.compare(file.size() - suffix.size(), suffix.size(), suffix) != 0)
        return false;
    const std::size_t sign = file[prefix.size()] == '-' && file.size() > around + 1 ? 1 : 0;
    return std::all_of(file.begin() + static_cast<std::ptrdiff_t>(prefix.size() + sign),
                       file.end() - static_cast<std::ptrdiff_t>(suffix.size()),
                       [](unsigned char letter) { return std::isdigit(letter) != 0; });
}

} // namespace Timeline
