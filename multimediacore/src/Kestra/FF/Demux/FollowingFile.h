// SPDX-License-Identifier: GPL-3.0-or-later
// Files that were put behind each other in one, of kinds that hold only one by their nature.
#pragma once

#include "Kestra/Base/ioPath.h"
#include <atomic>
#include <cstdint>
#include <string>

namespace Kestra::FF {

/// The place in the file where a second one of the same kind begins; 0 where none does, or where nothing tells.
/// `format` is libavformat's name of the container. FLAC is searched through; WAV, AIFF, AU, W64, CAF, TTA,
/// WavPack, ASF, MP4, Matroska, FLV and MXF tell where they or their parts end. A file that cannot be read, and a
/// search that is interrupted, say nothing.
std::int64_t FindFollowingFile(const ioPath& path, const std::string& format, const std::atomic<bool>& interrupted);

} // namespace Kestra::FF
