// SPDX-License-Identifier: GPL-3.0-or-later
// Animated WebP files as libwebp's own decoder shows them. FFmpeg's libraries cannot read them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace TestMedia {

/// What a viewer shows, all pictures before it included.
struct ShownPicture {
    int start = 0; ///< milliseconds
    int end = 0;
    int width = 0;
    std::vector<std::uint8_t> rgba; ///< alpha is straight

    /// One of red, green, blue and alpha.
    int at(int x, int y, int component) const {
        return rgba[static_cast<std::size_t>(4) *
                        (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)) +
                    static_cast<std::size_t>(component)];
    }
};

struct AnimatedWebP {
    int width = 0;
    int height = 0;
    int plays = 0;            ///< 0: for ever
    bool transparent = false; ///< the head says that pictures may be, in parts
    std::string pixelFormat;  ///< what the first picture was encoded from: "yuv420p", "yuva420p" or "bgra"
    std::vector<ShownPicture> pictures;

    static bool is(const std::string& path);
    /// All of it. Throws std::runtime_error when the decoder does not take the file to its end.
    static AnimatedWebP read(const std::string& path);
};

} // namespace TestMedia
