// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Reader/OtioText.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <memory>
#include <rapidjson/error/en.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace Timeline {
namespace {

constexpr std::uintmax_t LONGEST = 1024ULL * 1024 * 1024;
/// Nesting of JSON; stacks in stacks take four of it each. What parses and prints values may go so deep.
constexpr int DEEPEST = 1000;

void tell(OtioContext& context, const std::string& text) {
    context.error(OtioNode(rapidjson::Value()), text);
}

std::optional<std::string> readFile(OtioContext& context, const std::string& path) {
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (!std::filesystem::is_regular_file(status)) {
        const auto type = status.type();
        const bool isThere = type != std::filesystem::file_type::not_found && type != std::filesystem::file_type::none;
        tell(context, isThere                                         ? "it is no plain file"
                      : type == std::filesystem::file_type::not_found ? "it is not there"
                                                                      : error.message());
        return std::nullopt;
    }
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error || size > LONGEST) {
        tell(context, error ? error.message() : "it is longer than a timeline should be (1 GiB)");
        return std::nullopt;
    }
    std::string text(static_cast<std::size_t>(size), '\0');
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    file.read(text.data(), static_cast<std::streamsize>(size));
    if (file.gcount() == static_cast<std::streamsize>(size))
        return text;
    tell(context, errno != 0 ? std::generic_category().message(errno) : "it became shorter while it was read");
    return std::nullopt;
}

int depthOf(const std::string& json) {
    int depth = 0, deepest = 0;
    bool inText = false;
    for (std::size_t index = 0; index < json.size(); ++index) {
        const char letter = json[index];
        if (inText) {
            index += letter == '\\' ? 1 : 0;
            inText = letter != '"';
        } else if (letter == '"') {
            inText = true;
        } else if (letter == '{' || letter == '[') {
            deepest = std::max(deepest, ++depth);
        } else if (letter == '}' || letter == ']') {
            --depth;
        }
    }
    return deepest;
}

std::string placeOf(const std::string& text, std::size_t offset) {
    const std::string before = text.substr(0, offset);
    const auto line = 1 + std::count(before.begin(), before.end(), '\n');
    const std::size_t start = before.rfind('\n');
    const std::size_t column = start == std::string::npos ? offset + 1 : offset - start;
    return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

/// Where a value stands, from the innermost step on.
struct Place {
    const Place* outer;
    std::string_view member; ///< empty of data for an element
    std::size_t index;
};

std::string pointerOf(const Place* place) {
    if (!place)
        return {};
    return pointerOf(place->outer) + '/' +
           (place->member.data() ? OtioNode::escaped(std::string(place->member)) : std::to_string(place->index));
}

/// In one go, however many there are.
void dropMembers(rapidjson::Value& object, const std::vector<bool>& dropped) {
    auto kept = object.MemberBegin();
    auto member = object.MemberBegin();
    for (const bool isDropped : dropped) {
        if (!isDropped) {
            kept->name.Swap(member->name);
            kept->value.Swap(member->value);
            ++kept;
        }
        ++member;
    }
    object.EraseMember(kept, object.MemberEnd());
}

/// Of members of one name the last one stays, as for most who read JSON.
void dropDoubles(OtioContext& context, rapidjson::Value& object, const Place* place) {
    std::vector<std::pair<std::string_view, rapidjson::SizeType>> names;
    names.reserve(object.MemberCount());
    for (const auto& member : object.GetObject())
        names.emplace_back(std::string_view(member.name.GetString(), member.name.GetStringLength()), names.size());
    std::sort(names.begin(), names.end());
    std::vector<bool> dropped(names.size());
    bool hasDoubles = false;
    for (std::size_t next = 1; next < names.size(); ++next) {
        const auto& [name, index] = names[next - 1];
        if (name != names[next].first)
            continue;
        dropped[index] = hasDoubles = true;
        if (next < 2 || names[next - 2].first != name)
            context.warn(OtioNode(object, pointerOf(place)),
                         '"' + std::string(name) + "\" stands in it more than once; the last one counts");
    }
    if (hasDoubles)
        dropMembers(object, dropped);
}

/// The parser lets the second half of a surrogate pair pass where it stands alone.
void requireLetters(OtioContext& context, const rapidjson::Value& text, const Place* place) {
    const std::string_view bytes(text.GetString(), text.GetStringLength());
    for (std::size_t at = bytes.find('\xed'); at != std::string_view::npos; at = bytes.find('\xed', at + 1))
        if (at + 1 < bytes.size() && static_cast<unsigned char>(bytes[at + 1]) >= 0xa0)
            return context.error(OtioNode(text, pointerOf(place)),
                                 "half of a surrogate pair stands in it, which is no letter");
}

void settle(OtioContext& context, rapidjson::Value& value, const Place* place = nullptr) {
    if (value.IsString())
        requireLetters(context, value, place);
    if (value.IsArray())
        for (rapidjson::SizeType index = 0; index < value.Size(); ++index) {
            const Place inside{place, {}, index};
            settle(context, value[index], &inside);
        }
    if (!value.IsObject())
        return;
    dropDoubles(context, value, place);
    for (auto& member : value.GetObject()) {
        const Place inside{place, {member.name.GetString(), member.name.GetStringLength()}, 0};
        settle(context, member.value, &inside);
    }
}

} // namespace

std::unique_ptr<const rapidjson::Document> parseFile(OtioContext& context, const std::string& path) {
    const auto text = readFile(context, path);
    if (!text)
        return nullptr;
    if (depthOf(*text) > DEEPEST) {
        tell(context, "it nests deeper than a timeline should (" + std::to_string(DEEPEST) + ')');
        return nullptr;
    }
    constexpr unsigned FLAGS =
        rapidjson::kParseNanAndInfFlag | rapidjson::kParseFullPrecisionFlag | rapidjson::kParseValidateEncodingFlag;
    auto document = std::make_unique<rapidjson::Document>();
    document->Parse<FLAGS>(text->data(), text->size());
    if (!document->HasParseError()) {
        settle(context, *document);
        return document;
    }
    tell(context, "it is no JSON: " + std::string(rapidjson::GetParseError_En(document->GetParseError())) + " (" +
                      placeOf(*text, document->GetErrorOffset()) + ')');
    return nullptr;
}

std::string jsonOf(const rapidjson::Value& value) {
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer, rapidjson::UTF8<>, rapidjson::UTF8<>, rapidjson::CrtAllocator,
                      rapidjson::kWriteNanAndInfFlag>
        writer(buffer);
    value.Accept(writer);
    return std::string(buffer.GetString(), buffer.GetSize());
}

} // namespace Timeline
