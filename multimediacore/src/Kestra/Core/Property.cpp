// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Core/Property.h"
#include "Kestra/Base/SourcePlace.h"
#include <algorithm>
#include <cmath>
#include <iomanip>
#include <limits>
#include <locale>
#include <optional>
#include <sstream>

namespace Kestra::Core {

namespace {

/// 2^63, the first number above the range; the negative of it is the lowest number within.
constexpr double INT64_LIMIT = 9223372036854775808.0;

template <class... Ts>
struct Overloaded : Ts... {
    using Ts::operator()...;
};
template <class... Ts>
Overloaded(Ts...) -> Overloaded<Ts...>;

bool IsWholeInt64(double number) {
    return number >= -INT64_LIMIT && number < INT64_LIMIT && std::trunc(number) == number;
}

std::optional<std::int64_t> ToInt64(const Property::Value& value) {
    using Result = std::optional<std::int64_t>;
    return std::visit(Overloaded{[](std::int64_t number) -> Result { return number; },
                                 [](double number) -> Result {
                                     return IsWholeInt64(number) ? Result(static_cast<std::int64_t>(number)) : Result();
                                 },
                                 [](const Property::Rational& number) -> Result {
                                     return number.denominator() == 1 ? Result(number.numerator()) : Result();
                                 },
                                 [](const auto&) -> Result { return std::nullopt; }},
                      value);
}

std::optional<double> ExactDouble(std::int64_t number) {
    const double converted = static_cast<double>(number);
    if (!IsWholeInt64(converted) || static_cast<std::int64_t>(converted) != number)
        return std::nullopt;
    return converted;
}

std::optional<double> RationalToDouble(const Property::Rational& number) {
    const long long denominator = number.denominator();
    const std::optional<double> numerator = ExactDouble(number.numerator());
    // Only a division by a power of two is exact in binary.
    if (!numerator || (denominator & (denominator - 1)) != 0)
        return std::nullopt;
    return *numerator / static_cast<double>(denominator);
}

std::optional<double> ToDouble(const Property::Value& value) {
    using Result = std::optional<double>;
    return std::visit(Overloaded{[](std::int64_t number) -> Result { return ExactDouble(number); },
                                 [](double number) -> Result { return number; },
                                 [](const Property::Rational& number) -> Result { return RationalToDouble(number); },
                                 [](const auto&) -> Result { return std::nullopt; }},
                      value);
}

std::optional<Property::Rational> DoubleToRational(double number) {
    long long denominator = 1;
    for (int bits = 0; bits < 62 && std::isfinite(number) && std::trunc(number) != number; ++bits) {
        number *= 2;
        denominator *= 2;
    }
    if (!IsWholeInt64(number))
        return std::nullopt;
    return Property::Rational(static_cast<long long>(number), denominator);
}

std::optional<Property::Rational> ToRational(const Property::Value& value) {
    using Result = std::optional<Property::Rational>;
    return std::visit(Overloaded{[](std::int64_t number) -> Result { return Property::Rational(number); },
                                 [](double number) -> Result { return DoubleToRational(number); },
                                 [](const Property::Rational& number) -> Result { return number; },
                                 [](const auto&) -> Result { return std::nullopt; }},
                      value);
}

std::string ValueToString(const Property::Value& value) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << std::setprecision(std::numeric_limits<double>::digits10);
    std::visit(Overloaded{[](std::monostate) {}, [&text](bool flag) { text << (flag ? "true" : "false"); },
                          [&text](const Property::Rational& number) {
                              text << number.numerator() << '/' << number.denominator();
                          },
                          [&text](const auto& other) { text << other; }},
               value);
    return text.str();
}

const char* KindOf(const Property::Value& value) {
    static constexpr const char* NAMES[] = {"no value", "a boolean", "an integer",
                                            "a number", "a string",  "a rational"};
    return NAMES[value.index()];
}

[[noreturn]] void ThrowKind(const Property& node, const char* wanted, SourcePlace place = SourcePlace::Here()) {
    std::string message = "Property \"" + node.GetName() + "\" holds " + KindOf(node.GetValue());
    if (node.HasValue())
        message += " (" + ValueToString(node.GetValue()) + ")";
    ThrowFrom(Exception(message + " where " + wanted + " is needed"), place);
}

template <class T>
T ValueOrThrow(const std::optional<T>& converted, const Property& node, const char* wanted,
               SourcePlace place = SourcePlace::Here()) {
    if (!converted)
        ThrowKind(node, wanted, place);
    return *converted;
}

void AppendLines(const Property& node, const std::string& path, std::string& text) {
    if (node.HasValue() || (node.GetChildren().empty() && !path.empty()))
        text += path + " = " + ValueToString(node.GetValue()) + "\n";
    for (const Property& child : node.GetChildren())
        AppendLines(child, path.empty() ? child.GetName() : path + "/" + child.GetName(), text);
}

} // namespace

Property::Property() = default;
Property::Property(std::string nodeName, Value nodeValue)
    : name(std::move(nodeName))
    , value(std::move(nodeValue)) {}
// The value is assigned: libstdc++ 12 takes a variant of these types for one that always holds something, and where the
// copy of a text finds no memory it would destroy what is not there.
Property::Property(const Property& other)
    : name(other.name)
    , children(other.children) {
    value = other.value;
}
Property::Property(Property&&) noexcept = default;
Property& Property::operator=(const Property& other) {
    return *this = Property(other);
}
Property& Property::operator=(Property&&) noexcept = default;
Property::~Property() = default;

const Property* Property::Find(const std::string& childName) const {
    const auto found = std::find_if(children.begin(), children.end(),
                                    [&childName](const Property& child) { return child.name == childName; });
    return found == children.end() ? nullptr : &*found;
}

bool Property::ChildExists(const std::string& childName) const {
    return Find(childName) != nullptr;
}

Property& Property::SetChild(const std::string& childName, Value newValue) {
    return SetChild(Property(childName, std::move(newValue)));
}

Property& Property::SetChild(const Property& child) {
    // The argument may be a part of this very tree, so it is copied before anything moves.
    Property copy = child;
    Property& place = (*this)[copy.name];
    place = std::move(copy);
    return place;
}

bool Property::RemoveChild(const std::string& childName) {
    const Property* const found = Find(childName);
    if (found == nullptr)
        return false;
    children.erase(children.begin() + (found - children.data()));
    return true;
}

Property& Property::operator[](const std::string& childName) {
    const Property* const found = Find(childName);
    if (found != nullptr)
        return children[static_cast<std::size_t>(found - children.data())];
    return children.emplace_back(childName);
}

const Property& Property::operator[](const std::string& childName) const {
    const Property* const found = Find(childName);
    if (found == nullptr)
        KESTRA_THROW(Exception("Property \"" + name + "\" has no child \"" + childName + "\""));
    return *found;
}

bool Property::GetBool() const {
    const bool* const held = std::get_if<bool>(&value);
    if (held == nullptr)
        ThrowKind(*this, "a boolean");
    return *held;
}

std::int64_t Property::GetInt64() const {
    return ValueOrThrow(ToInt64(value), *this, "an integer");
}

double Property::GetDouble() const {
    return ValueOrThrow(ToDouble(value), *this, "a number");
}

const std::string& Property::GetString() const {
    const std::string* const held = std::get_if<std::string>(&value);
    if (held == nullptr)
        ThrowKind(*this, "a string");
    return *held;
}

Property::Rational Property::GetRational() const {
    return ValueOrThrow(ToRational(value), *this, "a rational");
}

void Property::Merge(const Property& other) {
    if (this == &other)
        return;
    if (other.HasValue())
        value = other.value;
    for (const Property& child : other.children)
        (*this)[child.name].Merge(child);
}

std::string Property::ToString() const {
    std::string text;
    AppendLines(*this, name, text);
    return text;
}

bool operator==(const Property& a, const Property& b) {
    if (a.name != b.name || a.value != b.value || a.children.size() != b.children.size())
        return false;
    return std::all_of(a.children.begin(), a.children.end(), [&b](const Property& child) {
        const Property* const other = b.Find(child.name);
        return other != nullptr && child == *other;
    });
}

} // namespace Kestra::Core
