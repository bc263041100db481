// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Conf::BlendFormats: the pixel formats in which pictures are laid over each other.
#pragma once

#include "Kestra/Conf/PixelFormat.h"
#include <vector>

namespace Kestra::Conf {

/// Two planar formats that differ in alpha alone, which is straight.
struct BlendFormats {
    PixelFormat opaque;
    PixelFormat alpha;
};

/// The pair nearest to `wanted` that holds its bits and its chroma: "yuv420p" and "yuva420p" for "nv12". Pairs of
/// formats that are of full range by name ("yuvj420p") are so, too; of their alpha format a tag has to tell.
/// Throws Exception, by name, for formats without pixels in memory: those of devices, Unknown and Other.
KESTRA_EXPORT BlendFormats BlendFormatsFor(PixelFormat wanted);
/// The pair in which what loses most of them loses least: "yuv444p" and "yuva444p" for "yuv420p" and "rgba". Of such
/// pairs the one for the first of them, or else the cheapest in its range. At least one; otherwise as the above.
KESTRA_EXPORT BlendFormats BlendFormatsForAll(const std::vector<PixelFormat>& wanted);

} // namespace Kestra::Conf
