// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::WebPLayout: the numbers of animated WebP files.
#pragma once

#include <cstdint>

namespace Kestra::FF {

/// A file is a chunk "RIFF" whose content begins with "WEBP" and goes on in chunks: "VP8X" tells size and kind, "ANIM"
/// how often the whole is shown, an "ANMF" for each picture. A chunk is a name, the size of its content in 32 bits and
/// the content, which a zero makes even. Numbers are little-endian.
struct WebPLayout {
    static constexpr int NAME = 4;
    static constexpr int CHUNK_HEAD = 8;
    static constexpr int RIFF_HEAD = 12;
    static constexpr int VP8X_SIZE = 10;
    static constexpr int ANIM_SIZE = 6;
    static constexpr int ANMF_HEAD = 16; ///< of its content; what encodes the picture follows
    /// Where the content of VP8X begins, which its flags do, and that of ANIM.
    static constexpr int VP8X_PLACE = RIFF_HEAD + CHUNK_HEAD;
    static constexpr int ANIM_PLACE = VP8X_PLACE + VP8X_SIZE + CHUNK_HEAD;
    static constexpr int HEAD = ANIM_PLACE + ANIM_SIZE; ///< of the file

    static constexpr std::uint8_t ANIMATED = 0x02;    ///< of VP8X's flags
    static constexpr std::uint8_t TRANSPARENT = 0x10; ///< likewise
    /// Of ANMF's: the picture replaces what was there, its transparent parts too.
    static constexpr std::uint8_t REPLACING = 0x02;

    static constexpr int LONGEST_MILLISECONDS = 0xFFFFFF;
    static constexpr int MOST_PLAYS = 0xFFFF;
    static constexpr std::int64_t LARGEST_FILE = 0xFFFFFFFELL; ///< bytes

    static constexpr std::int64_t Even(std::int64_t size) { return size + size % 2; }

    WebPLayout() = delete;
};

} // namespace Kestra::FF
