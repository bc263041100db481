// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::WebPPart: a picture of an animation, or the part of it that is another one than before.
#pragma once

#include "Kestra/FF/WebP/WebPPicture.h"
#include <cstddef>
#include <cstdint>
#include <string>

namespace Kestra::FF {

/// The content of a chunk "ANMF". The part replaces what was at its place, its transparent pixels too. A view; the
/// bytes of its picture are borrowed.
struct WebPPart {
    int x = 0; ///< of its corner, even; as `y`
    int y = 0;
    WebPPicture picture;
    int milliseconds = 0;

    /// As it stands in a file, in which everything is `width` times `height`. What is wrong with it stands in the
    /// picture's fault, which says of what it is.
    static WebPPart Read(const std::uint8_t* bytes, std::size_t size, int width, int height);

    /// With the head of WebPLayout::ANMF_HEAD bytes, which PutHeadInto writes; the picture's bytes follow.
    std::size_t GetSize() const;
    void PutHeadInto(std::uint8_t* bytes) const;
};

} // namespace Kestra::FF
