// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::MediaLimits: what a media file may claim of itself.
#pragma once

#include <cstdint>

namespace Kestra::Proc {

/// A small file can claim to hold much. What it claims is held against these before memory is taken for it, and a file
/// that claims more is refused.
struct MediaLimits {
    /// Of one decoded picture. That is room for 200 million 4:2:0 samples or for 16K video.
    std::int64_t pictureBytes = std::int64_t{512} << 20;
    /// Of all kinds together, attachments included.
    int tracks = 500;
};

} // namespace Kestra::Proc
