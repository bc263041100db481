// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Core::Property: a tree of named, typed values. Muxer, encoder and modifier data travel in it.
#pragma once

#include "KestraExport.h"
#include <boost/rational.hpp>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace Kestra::Core {

/// A value type; copies are independent. A node has a name, at most one value and any number of children in insertion
/// order, at most one of each name. Not thread-safe for writing.
class KESTRA_EXPORT Property {
public:
    using Rational = boost::rational<long long>;
    using Value = std::variant<std::monostate, bool, std::int64_t, double, std::string, Rational>;

    Property();
    explicit Property(std::string name, Value value = {});
    Property(const Property&);
    Property(Property&&) noexcept;
    Property& operator=(const Property&);
    Property& operator=(Property&&) noexcept;
    ~Property();

    const std::string& GetName() const { return name; }
    const std::vector<Property>& GetChildren() const { return children; }

    bool ChildExists(const std::string& childName) const;
    /// Replaces the child of that name, its children included, or appends it; returns it.
    Property& SetChild(const std::string& childName, Value value = {});
    /// The same with a whole subtree, under the subtree's own name.
    Property& SetChild(const Property& child);
    bool RemoveChild(const std::string& childName);
    /// The child of that name, added without a value when there is none.
    Property& operator[](const std::string& childName);
    /// The child of that name; throws Kestra::Exception that names it when there is none.
    const Property& operator[](const std::string& childName) const;

    const Value& GetValue() const { return value; }
    void SetValue(Value newValue) { value = std::move(newValue); }
    bool HasValue() const { return !std::holds_alternative<std::monostate>(value); }
    /// Numbers convert between each other where nothing is lost; everything else throws Kestra::Exception naming the
    /// node.
    bool GetBool() const;
    std::int64_t GetInt64() const;
    double GetDouble() const;
    const std::string& GetString() const;
    Rational GetRational() const;

    /// Takes over every value of `other`, node by node; what `other` does not hold stays.
    void Merge(const Property& other);
    /// One "path = value" a line, for logs and messages.
    std::string ToString() const;

    /// Same names, values and children, the order of children aside.
    friend KESTRA_EXPORT bool operator==(const Property& a, const Property& b);
    friend bool operator!=(const Property& a, const Property& b) { return !(a == b); }

private:
    const Property* Find(const std::string& childName) const;

    std::string name;
    Value value;
    std::vector<Property> children;
};

} // namespace Kestra::Core
