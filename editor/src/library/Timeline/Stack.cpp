// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Stack.h"

#include <algorithm>

namespace Timeline {

Stack::Stack(std::string name, std::vector<Track> tracks, std::vector<Marker> markers)
    : stackName(std::move(name))
    , allTracks(std::move(tracks))
    , allMarkers(std::move(markers)) {
    for (const Track& track : allTracks)
        longest = std::max(longest, track.duration());
}

} // namespace Timeline
