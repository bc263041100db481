// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::WebPPicture: what encodes one picture.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace Kestra::FF {

/// One chunk "VP8 ", with one "ALPH" before it where parts are transparent, or one "VP8L". A view; the bytes are
/// borrowed.
struct WebPPicture {
    const std::uint8_t* bytes = nullptr; ///< of these chunks
    std::size_t size = 0;
    int width = 0;
    int height = 0;
    bool transparent = false; ///< in parts
    std::string fault;        ///< why it is none; empty where it is

    /// That of a file of one picture.
    static WebPPicture InFile(const std::uint8_t* bytes, std::size_t size);
    /// The chunks themselves.
    static WebPPicture InChunks(const std::uint8_t* bytes, std::size_t size);

    /// Decodes all of it. Empty where it is whole, else what is wrong. What other bits have become other pixels shows
    /// nowhere: there are no checksums.
    std::string FaultOfPixels() const;
};

} // namespace Kestra::FF
