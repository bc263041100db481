// SPDX-License-Identifier: GPL-3.0-or-later
// Timeline::Item: what stands in a track, one after the other.
#pragma once

#include "Timeline/Marker.h"
#include "Timeline/MediaReference.h"
#include <boost/rational.hpp>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace Timeline {

class Stack;

/// Nothing: what lies below is seen.
struct Gap {};

/// Which part of its source an item shows. At the item's start the source stands at `start`.
struct Excerpt {
    Kestra::Ticks start{};
    /// Ticks of the source in each tick of the track: 2 is twice as fast, 0 a frozen frame, negative backwards.
    boost::rational<long long> speed = 1;
};

/// Of media. The excerpt's start counts from the media's first frame where `origin` is known, the media's own time code
/// of that frame: `excerpt.start - origin`. Where it is unknown the media tells.
struct Clip {
    MediaReference media;
    Excerpt excerpt;
    std::optional<Kestra::Ticks> origin{};
    /// That its times are told in: frames a second among pictures. For media that have no rate of their own.
    std::optional<boost::rational<long long>> rate{};
};

/// A stack of tracks in the place of a clip. The excerpt's start counts from the stack's start.
struct Nested {
    std::shared_ptr<const Stack> stack; ///< never null
    Excerpt excerpt;
};

/// A value.
struct Item {
    std::string name;
    Kestra::Ticks duration{}; ///< in the track; above 0
    bool enabled = true;      ///< otherwise as a gap
    std::variant<Gap, Clip, Nested> content;
    std::vector<Marker> markers{}; ///< counted from its start; what lies beyond its ends is not shown
    /// Of a clip, to its place in the file that it was read from (RFC 6901), for messages; otherwise empty.
    std::string pointer{};
};

} // namespace Timeline
