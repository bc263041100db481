#include "Timeline/Reader/OtioNode.h"

#include <charconv>

namespace Timeline {
namespace {

const rapidjson::Value NOTHING;

std::string escaped(const std::string& name) {
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

} // namespace

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
    return OtioNode(has(member) ? (*json)[member] : NOTHING, place + '/' + escaped(member));
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
    const std::size_t dot = whole.rfind('.');
    Schema schema{whole.substr(0, dot)};
    if (dot != std::string::npos)
        std::from_chars(whole.data() + dot + 1, whole.data() + whole.size(), schema.version);
    return schema;
}

} // namespace Timeline
