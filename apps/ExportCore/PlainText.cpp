// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/PlainText.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>

namespace ExportCore {
namespace {

/// One character and the bytes that it takes; 1 byte and `valid` false for what is no UTF-8.
struct Letter {
    std::uint32_t code = 0;
    std::size_t size = 1;
    bool valid = false;
};

std::size_t sizeOf(unsigned char first) {
    return first < 0x80                    ? 1
           : first >= 0xc2 && first < 0xe0 ? 2
           : (first & 0xf0) == 0xe0        ? 3
           : first >= 0xf0 && first < 0xf5 ? 4
                                           : 0;
}

Letter letterAt(const std::string& text, std::size_t at) {
    const auto byte = [&text](std::size_t place) { return static_cast<unsigned char>(text[place]); };
    const std::size_t size = sizeOf(byte(at));
    Letter letter{byte(at), 1, size == 1};
    if (size <= 1 || at + size > text.size())
        return letter;
    constexpr std::uint32_t masks[] = {0, 0, 0x1f, 0x0f, 0x07};
    std::uint32_t code = byte(at) & masks[size];
    for (std::size_t i = 1; i < size; ++i) {
        if ((byte(at + i) & 0xc0) != 0x80)
            return letter;
        code = code << 6 | (byte(at + i) & 0x3f);
    }
    constexpr std::uint32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
    if (code < least[size] || code > 0x10ffff || (code >= 0xd800 && code < 0xe000))
        return letter;
    return {code, size, true};
}

bool isHarmful(std::uint32_t code) {
    const auto within = [code](std::uint32_t first, std::uint32_t last) { return code >= first && code <= last; };
    return within(0, 0x1f) || within(0x7f, 0x9f) || code == 0x61c || within(0x200b, 0x200f) || within(0x2028, 0x202e) ||
           within(0x2060, 0x206f) || code == 0xfeff || within(0xfff9, 0xfffb) || within(0xe0000, 0xe007f);
}

std::string written(const Letter& letter) {
    char text[16];
    if (letter.valid && letter.code == '\n')
        return "\\n";
    if (letter.valid && letter.code == '\t')
        return "\\t";
    if (letter.valid && letter.code == '\r')
        return "\\r";
    const bool byte = !letter.valid || letter.code < 0x80;
    std::snprintf(text, sizeof text, byte ? "\\x%02x" : "\\u{%04x}", static_cast<unsigned>(letter.code));
    return text;
}

} // namespace

std::string PlainText::escaped(const std::string& text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const Letter letter = letterAt(text, at);
        if (letter.valid && !isHarmful(letter.code))
            result.append(text, at, letter.size);
        else
            result += written(letter);
        at += letter.size;
    }
    return result;
}

} // namespace ExportCore
