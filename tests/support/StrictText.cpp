// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/StrictText.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <stdexcept>

namespace TestSupport {
namespace {

/// The code point at the place, which moves behind it; below 0, and one byte further, for what is no UTF-8.
std::int64_t take(const std::string& text, std::size_t& at) {
    const auto byte = [&](std::size_t place) { return static_cast<unsigned char>(text[place]); };
    const unsigned first = byte(at++);
    const std::size_t more = first < 0x80 ? 0 : first >= 0xf0 ? 3 : first >= 0xe0 ? 2 : 1;
    if (more == 0)
        return first;
    std::int64_t code = first & (0x3fU >> more);
    bool whole = first >= 0xc2 && first <= 0xf4 && at + more <= text.size();
    for (std::size_t i = 0; whole && i < more; ++i) {
        whole = (byte(at + i) & 0xc0) == 0x80;
        code = code << 6 | (byte(at + i) & 0x3f);
    }
    const std::int64_t least[] = {0, 0x80, 0x800, 0x10000};
    if (!whole || code < least[more] || code > 0x10ffff)
        return -1;
    at += more;
    return code;
}

bool isSurrogate(std::int64_t code) {
    return code >= 0xd800 && code < 0xe000;
}

} // namespace

bool isUtf8(const std::string& text) {
    for (std::size_t at = 0; at < text.size();)
        if (const std::int64_t code = take(text, at); code < 0 || isSurrogate(code))
            return false;
    return true;
}

std::string shown(const std::string& text) {
    std::string result;
    for (const char letter : text.substr(0, 80)) {
        char escape[8];
        std::snprintf(escape, sizeof escape, "\\x%02x", static_cast<unsigned char>(letter));
        result += letter >= ' ' && letter <= '~' ? std::string(1, letter) : escape;
    }
    return text.size() > 80 ? result + "... (" + std::to_string(text.size()) + " bytes)" : result;
}

bool hasControls(const std::string& text) {
    for (std::size_t at = 0; at < text.size();)
        if (const std::int64_t code = take(text, at); code >= 0 && (code < 0x20 || (code >= 0x7f && code < 0xa0)))
            return true;
    return false;
}

std::string jsonString(const std::string& text) {
    std::string result = "\"";
    for (std::size_t at = 0, begin = 0; at < text.size(); begin = at) {
        const std::int64_t code = take(text, at);
        char escape[8];
        std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(code & 0xffff));
        if (code < 0)
            throw std::logic_error("JSON cannot hold " + shown(text));
        if (code < 0x20 || code == '"' || code == '\\' || isSurrogate(code))
            result += escape;
        else
            result.append(text, begin, at - begin);
    }
    return result + '"';
}

} // namespace TestSupport
