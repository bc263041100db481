// SPDX-License-Identifier: GPL-3.0-or-later
// The libraries that the codecs are in.
#pragma once

#include "KestraExport.h"
#include <string>
#include <vector>

namespace Kestra::Proc {

struct LibraryVersion {
    std::string name;    ///< "libavcodec"
    std::string version; ///< as the library itself tells it, else that of its file
};

/// Those of FFmpeg, then the encoders' behind it as far as they are known. Loads them: see LoadEngine().
KESTRA_EXPORT std::vector<LibraryVersion> GetLibraryVersions();

} // namespace Kestra::Proc
