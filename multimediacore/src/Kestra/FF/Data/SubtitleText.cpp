// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Data/SubtitleText.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <iterator>
#include <string_view>
#include <utility>

namespace Kestra::FF {

namespace {

constexpr std::string_view SUBRIP_TAGS[] = {"b", "i", "u", "s", "br", "font"};
constexpr std::string_view WEBVTT_TAGS[] = {"b", "i", "u", "c", "v", "lang", "ruby", "rt"};
constexpr std::string_view WITH_ATTRIBUTES = "font";
/// The decoder library takes nothing longer for a tag.
constexpr std::size_t LONGEST_TAG = 127;
/// U+2060, which nobody sees: behind a "<" of text it keeps a tag from being one.
constexpr std::string_view JOINER = "\xE2\x81\xA0";
constexpr std::string_view HARD_BLANK = "\xC2\xA0";

constexpr std::pair<std::string_view, std::string_view> NAMED[] = {
    {"apos", "'"},
    {"hellip", "\xE2\x80\xA6"},
    {"laquo", "\xC2\xAB"},
    {"ldquo", "\xE2\x80\x9C"},
    {"lsquo", "\xE2\x80\x98"},
    {"mdash", "\xE2\x80\x94"},
    {"ndash", "\xE2\x80\x93"},
    {"quot", "\""},
    {"raquo", "\xC2\xBB"},
    {"rdquo", "\xE2\x80\x9D"},
    {"rsquo", "\xE2\x80\x99"},
};

template <std::size_t N>
bool IsOneOf(const std::string_view (&names)[N], const std::string& name) {
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

bool IsBlank(char letter) {
    return letter == ' ' || letter == '\t';
}

/// The letters from there, in lower case.
std::string NameAt(const std::string& text, std::size_t at) {
    std::string name;
    for (; at < text.size() && std::isalpha(static_cast<unsigned char>(text[at])); ++at)
        name += static_cast<char>(std::tolower(static_cast<unsigned char>(text[at])));
    return name;
}

std::size_t BehindSlash(const std::string& text, std::size_t at) {
    return at + 1 < text.size() && text[at + 1] == '/' ? at + 2 : at + 1;
}

std::string Utf8Of(unsigned long character) {
    std::string bytes;
    const auto add = [&bytes](unsigned long value) { bytes += static_cast<char>(value); };
    if (character < 0x80) {
        add(character);
    } else if (character < 0x800) {
        add(0xC0 | character >> 6);
        add(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        add(0xE0 | character >> 12);
        add(0x80 | (character >> 6 & 0x3F));
        add(0x80 | (character & 0x3F));
    } else {
        add(0xF0 | character >> 18);
        add(0x80 | (character >> 12 & 0x3F));
        add(0x80 | (character >> 6 & 0x3F));
        add(0x80 | (character & 0x3F));
    }
    return bytes;
}

/// What the decoder reads as text, whatever it means elsewhere.
std::string WebVttOf(std::string_view text) {
    std::string escaped;
    for (const char letter : text)
        escaped += letter == '&' ? "&amp;" : letter == '<' ? "&lt;" : letter == '>' ? "&gt;" : std::string(1, letter);
    return escaped;
}

/// What stands between "&" and ";"; empty where it is nothing that is known here.
std::string CharacterOf(const std::string& reference) {
    const auto named = std::find_if(std::begin(NAMED), std::end(NAMED),
                                    [&reference](const auto& pair) { return pair.first == reference; });
    if (named != std::end(NAMED))
        return std::string(named->second);
    if (reference.size() < 2 || reference.front() != '#')
        return {};
    const bool isHex = reference[1] == 'x' || reference[1] == 'X';
    const char* const digits = reference.c_str() + (isHex ? 2 : 1);
    char* end = nullptr;
    const unsigned long character = std::strtoul(digits, &end, isHex ? 16 : 10);
    const bool isCharacter =
        character >= ' ' && character < 0x110000 && (character < 0xD800 || character > 0xDFFF) && character != 0xFFFE;
    if (!std::isxdigit(static_cast<unsigned char>(*digits)) || *end != '\0' || !isCharacter)
        return {};
    return WebVttOf(Utf8Of(character));
}

/// How the character at that place, which is text, stands in a file of that codec; `at` goes behind what it is made of.
std::string Letter(AVCodecID codec, const std::string& text, std::size_t& at) {
    const char letter = text[at++];
    const char next = letter == '\\' && at < text.size() ? text[at] : '\0';
    if (next == 'h')
        return ++at, std::string(HARD_BLANK);
    if (next == '}')
        return ++at, "}";
    // In front of a backslash it would begin an override.
    if (next == '{')
        return text.compare(at++, 2, "{\\") == 0 ? '{' + std::string(JOINER) : "{";
    if (codec == AV_CODEC_ID_WEBVTT)
        return WebVttOf({&letter, 1});
    if (codec == AV_CODEC_ID_SUBRIP && letter == '<' && IsSubRipTag(text, at - 1))
        return '<' + std::string(JOINER);
    return {letter};
}

} // namespace

bool IsSubRipTag(const std::string& text, std::size_t at) {
    const std::size_t begin = BehindSlash(text, at);
    const std::string name = NameAt(text, begin);
    const std::size_t close = text.find_first_of("<>", begin);
    if (close == std::string::npos || text[close] != '>' || close - begin > LONGEST_TAG || !IsOneOf(SUBRIP_TAGS, name))
        return false;
    const std::size_t behind = begin + name.size();
    if (name == WITH_ATTRIBUTES)
        return behind == close || IsBlank(text[behind]);
    return std::all_of(text.begin() + static_cast<std::ptrdiff_t>(behind),
                       text.begin() + static_cast<std::ptrdiff_t>(close),
                       [](char letter) { return IsBlank(letter) || letter == '/'; });
}

bool HasForeignWebVttTags(const std::string& text) {
    for (std::size_t at = text.find('<'); at != std::string::npos; at = text.find('<', at + 1)) {
        const std::size_t begin = BehindSlash(text, at);
        const bool isTime = begin < text.size() && std::isdigit(static_cast<unsigned char>(text[begin]));
        if (!isTime && !IsOneOf(WEBVTT_TAGS, NameAt(text, begin)))
            return true;
    }
    return false;
}

char ShieldSubRip(std::string& text) {
    char standIn = '\x01';
    while (standIn < ' ' && text.find(standIn) != std::string::npos)
        ++standIn;
    if (standIn == ' ') // no text at all
        return 0;
    bool isReplaced = false;
    for (std::size_t at = text.find('<'); at != std::string::npos; at = text.find('<', at + 1)) {
        if (!IsSubRipTag(text, at)) {
            text[at] = standIn;
            isReplaced = true;
        } else if (const std::size_t last = text.find('>', at) - 1; text[last] == '/') {
            text[last] = ' '; // the decoder knows a new line without it only
        }
    }
    return isReplaced ? standIn : '\0';
}

void UnshieldSubRip(std::string& event, char standIn) {
    if (standIn == 0)
        return;
    for (std::size_t at = event.find(standIn); at != std::string::npos; at = event.find(standIn, at + 1)) {
        event[at] = '<';
        if (event.compare(at + 1, JOINER.size(), JOINER) == 0)
            event.erase(at + 1, JOINER.size());
    }
}

std::string WithCharacters(const std::string& text) {
    std::string result;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t end = text[at] == '&' ? text.find(';', at) : std::string::npos;
        const std::string character =
            end == std::string::npos ? std::string() : CharacterOf(text.substr(at + 1, end - at - 1));
        result += character.empty() ? text.substr(at, 1) : character;
        at = character.empty() ? at + 1 : end + 1;
    }
    return result;
}

std::string TextFor(AVCodecID codec, const std::string& text) {
    std::string result;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t close = text.compare(at, 2, "{\\") == 0 ? text.find('}', at) : std::string::npos;
        if (close == std::string::npos) {
            result += Letter(codec, text, at);
        } else {
            result += text.substr(at, close + 1 - at);
            at = close + 1;
        }
    }
    return result;
}

} // namespace Kestra::FF
