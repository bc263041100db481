// SPDX-License-Identifier: GPL-3.0-or-later
// Timeline::OtioNode: a value of a timeline's file and its place.
#pragma once

#include <cstddef>
#include <rapidjson/document.h>
#include <string>

namespace Timeline {

/// A value; it refers into a document, which outlives it.
class OtioNode {
public:
    /// As a schema's name and version are written: "Clip.2".
    struct Schema {
        std::string name;
        int version = 0; ///< from 1 on, what no number holds is the largest; 0 where it is written otherwise
    };

    /// A member's name as a step of a pointer.
    static std::string escaped(const std::string& name);

    explicit OtioNode(const rapidjson::Value& value, std::string pointer = {});

    const rapidjson::Value& value() const { return *json; }
    const std::string& pointer() const { return place; }
    bool isObject() const { return json->IsObject(); }
    bool isArray() const { return json->IsArray(); }
    std::size_t size() const { return json->Size(); }

    /// A member that is there and not null; nothing but objects has members.
    bool has(const char* member) const;
    /// A member, or a null where there is none.
    OtioNode operator[](const char* member) const;
    /// An element of an array.
    OtioNode at(std::size_t index) const;

    /// Empty where the member is no text.
    std::string text(const char* member) const;
    bool flag(const char* member, bool otherwise) const;
    Schema schema() const;

private:
    const rapidjson::Value* json;
    std::string place; ///< RFC 6901
};

} // namespace Timeline
