// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Reader/OtioNode.h"

#include <algorithm>
#include <charconv>
#include <climits>

namespace Timeline {
namespace {

const rapidjson::Value& nothing() {
    static const auto& value = *new rapidjson::Value;
    return value;
}

} // namespace

std::string OtioNode::escaped(const std::string& name) {
    std::string result;
    for (const char letter : name) {
        if (letter == '~')
            result += "~0";
        else if (letter == '/')
            result += "~1";
        else
            result += letter;
    }
    return result;
}

OtioNode::OtioNode(const rapidjson::Value& value, std::string pointer)
    : json(&value)
    , place(std::move(pointer)) {}

bool OtioNode::has(const char* member) const {
    if (!isObject())
        return false;
    const auto found = json->FindMember(member);
    return found != json->MemberEnd() && !found->value.IsNull();
}

OtioNode OtioNode::operator[](const char* member) const {
    return OtioNode(has(member) ? (*json)[member] : nothing(), place + '/' + escaped(member));
}

OtioNode OtioNode::at(std::size_t index) const {
    return OtioNode((*json)[static_cast<rapidjson::SizeType>(index)], place + '/' + std::to_string(index));
}

std::string OtioNode::text(const char* member) const {
    if (!has(member) || !(*json)[member].IsString())
        return {};
    const rapidjson::Value& text = (*json)[member];
    return std::string(text.GetString(), text.GetStringLength());
}

bool OtioNode::flag(const char* member, bool otherwise) const {
    return has(member) && (*json)[member].IsBool() ? (*json)[member].GetBool() : otherwise;
}

OtioNode::Schema OtioNode::schema() const {
    const std::string whole = text("OTIO_SCHEMA");
    const std::size_t dot = std::min(whole.rfind('.'), whole.size());
    const char* const end = whole.data() + whole.size();
    int version = 0;
    const auto [rest, error] = std::from_chars(std::min(whole.data() + dot + 1, end), end, version);
    if (error == std::errc::result_out_of_range && rest == end && whole[dot + 1] != '-')
        version = INT_MAX;
    if (rest != end || version < 1)
        return {whole, 0};
    return {whole.substr(0, dot), version};
}

} // namespace Timeline
