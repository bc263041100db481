// SPDX-License-Identifier: GPL-3.0-or-later
// Timeline::Stack: tracks above each other.
#pragma once

#include "Timeline/Track.h"

namespace Timeline {

/// Never changes. The lowest track comes first; all begin at time 0.
class EDITORTIMELINE_EXPORT Stack {
public:
    Stack(std::string name, std::vector<Track> tracks, std::vector<Marker> markers = {});

    const std::string& name() const { return stackName; }
    const std::vector<Track>& tracks() const { return allTracks; }
    const std::vector<Marker>& markers() const { return allMarkers; }
    /// That of the longest track.
    Kestra::Ticks duration() const { return longest; }

private:
    std::string stackName;
    std::vector<Track> allTracks;
    std::vector<Marker> allMarkers;
    Kestra::Ticks longest;
};

} // namespace Timeline
