// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/NumberedName.h"

#include <algorithm>
#include <charconv>
#include <cstddef>

namespace Kestra::Conf {

namespace {

/// A place in a pattern; its end is npos where there is none.
struct Place {
    std::size_t begin = std::string::npos;
    std::size_t end = std::string::npos;
};

bool IsDigit(char letter) {
    return letter >= '0' && letter <= '9';
}

Place FindPlace(const std::string& pattern, std::size_t from) {
    for (std::size_t begin = pattern.find('%', from); begin != std::string::npos;
         begin = pattern.find('%', begin + 1)) {
        std::size_t end = begin + 1;
        while (end < pattern.size() && IsDigit(pattern[end]))
            ++end;
        if (end < pattern.size() && pattern[end] == 'd')
            return {begin, end + 1};
    }
    return {};
}

} // namespace

int NumberedName::CountPlaces(const std::string& pattern) {
    int count = 0;
    for (Place place = FindPlace(pattern, 0); place.end != std::string::npos; place = FindPlace(pattern, place.end))
        ++count;
    return count;
}

std::optional<NumberedName> NumberedName::Parse(const std::string& pattern) {
    if (CountPlaces(pattern) != 1)
        return std::nullopt;
    const Place place = FindPlace(pattern, 0);
    NumberedName name;
    name.prefix = pattern.substr(0, place.begin);
    name.suffix = pattern.substr(place.end);
    const char* const first = pattern.data() + place.begin + 1;
    const char* const last = pattern.data() + place.end - 1;
    if (first == last)
        return name;
    const auto [rest, error] = std::from_chars(first, last, name.digits);
    if (error != std::errc() || rest != last || name.digits > MOST_DIGITS)
        return std::nullopt;
    name.digits = std::max(name.digits, 1);
    return name;
}

std::string NumberedName::ToPattern() const {
    return prefix + "%0" + std::to_string(digits) + 'd' + suffix;
}

std::string NumberedName::NameOf(std::int64_t number) const {
    std::string text = std::to_string(number);
    const auto wanted = static_cast<std::size_t>(std::max(digits, 1));
    text.insert(0, std::max(text.size(), wanted) - text.size(), '0');
    return prefix + text + suffix;
}

std::optional<std::int64_t> NumberedName::NumberOf(const std::string& name) const {
    const std::size_t around = prefix.size() + suffix.size();
    if (name.size() <= around || name.compare(0, prefix.size(), prefix) != 0 ||
        name.compare(name.size() - suffix.size(), suffix.size(), suffix) != 0)
        return std::nullopt;
    const char* const first = name.data() + prefix.size();
    const char* const last = name.data() + name.size() - suffix.size();
    std::int64_t number = 0;
    const auto [rest, error] = std::from_chars(first, last, number);
    if (error != std::errc() || rest != last || number < 0)
        return std::nullopt;
    return NameOf(number) == name ? std::optional(number) : std::nullopt;
}

} // namespace Kestra::Conf
