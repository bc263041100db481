// SPDX-License-Identifier: GPL-3.0-or-later
// What the structure of a media file says of where the file should end.
#pragma once

#include "Kestra/Base/ioPath.h"
#include <atomic>
#include <cstdint>
#include <string>

namespace Kestra::FF {

struct ContainerEnd {
    std::int64_t missing = 0; ///< bytes that are announced and not there; 0 where none are, or none can tell
    /// Pictures or audio lie there, not only an index or a description.
    bool ofMedia = false;
    /// The container marks its end, and this one has no such mark.
    bool unmarked = false;
    /// It ends within one of its packets, which are all of one size.
    bool withinPacket = false;
};

/// Reads some bytes of the file. `format` is libavformat's name of the container. WAV, RF64, W64, AIFF, CAF, AU, AVI,
/// MP4, Matroska and Ogg can tell; raw streams, program streams and FLV cannot, transport streams only whether the last
/// packet is whole. A file that cannot be read, and a search that is interrupted, say nothing.
ContainerEnd FindContainerEnd(const ioPath& path, const std::string& format, const std::atomic<bool>& interrupted);

} // namespace Kestra::FF
