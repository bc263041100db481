#include "Timeline/MediaReference.h"

#include <algorithm>

namespace Timeline {

std::string ImageSequence::nameOf(std::int64_t index) const {
    const std::int64_t number = firstNumber + index * step;
    std::string text = std::to_string(number < 0 ? -number : number);
    const std::size_t length = std::max<std::size_t>(text.size(), static_cast<std::size_t>(std::max(digits, 0)));
    text.insert(0, length - text.size(), '0');
    return prefix + (number < 0 ? "-" : "") + text + suffix;
}

} // namespace Timeline
