// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/SettingText.h"

#include "Kestra/Conf/StandardRates.h"
#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <map>

namespace ExportCore {
namespace {

using Ratio = boost::rational<long long>;

constexpr std::int64_t LARGEST = std::numeric_limits<std::int64_t>::max();

bool isDigits(const std::string& text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// How many decimal places the unit at the end of an amount moves the point.
int takeUnit(std::string& text) {
    const char unit = text.empty() ? '\0' : text.back();
    const int places = unit == 'k' || unit == 'K' ? 3 : unit == 'M' ? 6 : 0;
    if (places != 0)
        text.pop_back();
    return places;
}

} // namespace

std::string SettingText::lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter;
    });
    return text;
}

std::optional<std::int64_t> SettingText::wholeNumber(const std::string& text) {
    if (!isDigits(text))
        return std::nullopt;
    std::int64_t number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc() ? number : LARGEST;
}

std::optional<std::int64_t> SettingText::amount(const std::string& text) {
    std::string digits = text;
    const auto places = static_cast<std::size_t>(takeUnit(digits));
    std::string fraction;
    if (const std::size_t point = digits.find('.'); point != std::string::npos) {
        fraction = digits.substr(point + 1);
        digits.resize(point);
        // There is no part of a bit.
        if (!isDigits(fraction) || fraction.size() > places)
            return std::nullopt;
    }
    if (!isDigits(digits))
        return std::nullopt;
    fraction.resize(places, '0');
    return wholeNumber(digits + fraction);
}

std::optional<double> SettingText::decimal(const std::string& text) {
    if (text.empty() || !isDigits(text.substr(0, 1)) || !isDigits(text.substr(text.size() - 1)))
        return std::nullopt;
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number, std::chars_format::fixed);
    if (result.ec == std::errc::result_out_of_range)
        return std::numeric_limits<double>::max();
    return result.ec == std::errc() && result.ptr == end ? std::optional<double>(number) : std::nullopt;
}

std::optional<Ratio> SettingText::frameRate(const std::string& text) {
    static const auto& names = *new std::map<std::string, Ratio>{
        {"film", 24}, {"pal", 25}, {"ntsc", {30000, 1001}}, {"ntsc-film", {24000, 1001}}};
    if (const auto named = names.find(lowered(text)); named != names.end())
        return named->second;
    const std::size_t point = text.find('.');
    if (point == std::string::npos)
        return ratio(text);
    constexpr std::size_t MOST_PLACES = 6;
    const std::string places = text.substr(point + 1);
    if (point == 0 || places.empty() || places.size() > MOST_PLACES)
        return std::nullopt;
    const std::string unit = '1' + std::string(places.size(), '0');
    const auto exact = ratio(text.substr(0, point) + places + '/' + unit);
    if (!exact)
        return std::nullopt;
    const auto number = boost::rational_cast<double>(*exact);
    const Ratio standard = Kestra::Conf::NearStandardRate(number);
    const double distance = std::abs(boost::rational_cast<double>(standard) - number);
    const bool abbreviates = standard.denominator() != 1 && distance * 2 * std::stod(unit) <= 1;
    return abbreviates ? standard : exact;
}

std::optional<Ratio> SettingText::ratio(const std::string& text) {
    const std::size_t line = text.find('/');
    const auto above = wholeNumber(text.substr(0, line));
    const auto below = line == std::string::npos ? std::int64_t{1} : wholeNumber(text.substr(line + 1));
    constexpr std::int64_t largest = std::numeric_limits<std::int32_t>::max();
    if (!above || !below || *below < 1 || *above > largest || *below > largest)
        return std::nullopt;
    return Ratio(*above, *below);
}

} // namespace ExportCore
