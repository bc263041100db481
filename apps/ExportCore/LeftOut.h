// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::LeftOut: what of a medium does not come into an export.
#pragma once

#include "ExportCoreExport.h"
#include "Kestra/Proc/MediaContents.h"
#include <set>
#include <string>

namespace ExportCore {

/// A value: what of it comes.
struct EXPORTCORE_EXPORT LeftOut {
    std::set<int> keptTracks; ///< by their index
    bool chapters = false;    ///< they come, or nobody wants them; as what follows
    bool title = false;
    bool tags = false;
    std::set<std::string> lostTags; ///< keys, of tags that come
    bool lostTimecode = false;      ///< there is one, and it does not come

    /// Everything else, as a note: "left out: 1 sound track (2, eng), 2 subtitle tracks (3; 4), 5 chapters, tags, time
    /// code"; empty where that is nothing. Tracks have the container's numbers.
    std::string of(const Kestra::Proc::MediaContents& contents) const;
};

} // namespace ExportCore
