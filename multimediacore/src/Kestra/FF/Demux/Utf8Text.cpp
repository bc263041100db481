// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/Utf8Text.h"

#include <array>
#include <cstdint>

extern "C" {
#include <libavutil/avstring.h>
}

namespace Kestra::FF {

namespace {

constexpr unsigned REPLACEMENT = 0xFFFD;
constexpr unsigned FIRST_OF_WINDOWS = 0x80;
/// What Windows-1252 has from 0x80 on, where Latin-1 has control characters.
constexpr std::array<std::uint16_t, 32> WINDOWS{
    0x20AC, REPLACEMENT, 0x201A,      0x0192, 0x201E,      0x2026,      0x2020, 0x2021,      0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152,      REPLACEMENT, 0x017D, REPLACEMENT, REPLACEMENT, 0x2018, 0x2019,      0x201C, 0x201D, 0x2022,
    0x2013, 0x2014,      0x02DC,      0x2122, 0x0161,      0x203A,      0x0153, REPLACEMENT, 0x017E, 0x0178};

/// Up to U+FFFF.
void Append(std::string& text, unsigned character) {
    const auto add = [&text](unsigned byte) { text.push_back(static_cast<char>(byte)); };
    if (character < 0x80)
        return add(character);
    if (character < 0x800) {
        add(0xC0 | character >> 6);
    } else {
        add(0xE0 | character >> 12);
        add(0x80 | (character >> 6 & 0x3F));
    }
    add(0x80 | (character & 0x3F));
}

} // namespace

bool IsUtf8(const std::string& text) {
    const auto* at = reinterpret_cast<const std::uint8_t*>(text.data());
    const std::uint8_t* const end = at + text.size();
    std::int32_t character = 0;
    while (at < end)
        if (av_utf8_decode(&character, &at, end, AV_UTF8_FLAG_ACCEPT_NON_CHARACTERS) < 0)
            return false;
    return true;
}

std::string Utf8Of(const std::string& text) {
    if (IsUtf8(text))
        return text;
    std::string repaired;
    for (const char letter : text) {
        const auto code = static_cast<std::uint8_t>(letter);
        const bool windows = code >= FIRST_OF_WINDOWS && code < FIRST_OF_WINDOWS + WINDOWS.size();
        Append(repaired, windows ? WINDOWS[code - FIRST_OF_WINDOWS] : code);
    }
    return repaired;
}

} // namespace Kestra::FF
