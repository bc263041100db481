// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Conf::NumberedName: how files are called that differ by a number.
#pragma once

#include "KestraExport.h"
#include <cstdint>
#include <optional>
#include <string>

namespace Kestra::Conf {

/// A value. The file of a number is prefix + number + suffix; the number is filled up with noughts to `digits`.
struct KESTRA_EXPORT NumberedName {
    /// More than any number has.
    static constexpr int MOST_DIGITS = 18;

    std::string prefix;
    std::string suffix;
    int digits = 1;

    /// How often the text has a place for a number, which is written %d or, with the number of its digits, %05d. Every
    /// other percent sign stands for itself.
    static int CountPlaces(const std::string& pattern);
    /// Nothing unless there is one place, with MOST_DIGITS at most.
    static std::optional<NumberedName> Parse(const std::string& pattern);
    /// What Parse makes this of.
    std::string ToPattern() const;

    /// For a number that is not below 0.
    std::string NameOf(std::int64_t number) const;
    /// The number of a file so called; nothing for another one's name, be it the same number in other digits.
    std::optional<std::int64_t> NumberOf(const std::string& name) const;
};

} // namespace Kestra::Conf
