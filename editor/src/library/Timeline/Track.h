// SPDX-License-Identifier: GPL-3.0-or-later
// Timeline::Track: items one after the other.
#pragma once

#include "EditorTimelineExport.h"
#include "Timeline/Item.h"
#include <cstddef>

namespace Timeline {

/// Between two neighbours, or at an end of the track, where the other side is a gap. It takes no time of its own.
struct Transition {
    std::string name;
    std::string type;       ///< as the timeline has it, such as "SMPTE_Dissolve"
    std::size_t at = 0;     ///< the item behind it; the number of items at the track's end
    Kestra::Ticks before{}; ///< how much of the item before it lies in it; at most that item's duration
    Kestra::Ticks behind{}; ///< likewise of the item behind it
};

/// Never changes. Items lie from time 0 on without gap; the item at a time is found in logarithmic time.
class EDITORTIMELINE_EXPORT Track {
public:
    enum class Kind { Video, Audio };

    /// `transitions` by rising place.
    Track(Kind kind, std::string name, bool enabled, std::vector<Item> items, std::vector<Transition> transitions = {},
          std::vector<Marker> markers = {});

    Kind kind() const { return trackKind; }
    const std::string& name() const { return trackName; }
    bool isEnabled() const { return enabled; }
    const std::vector<Item>& items() const { return allItems; }
    const std::vector<Transition>& transitions() const { return allTransitions; }
    const std::vector<Marker>& markers() const { return allMarkers; }
    /// `index` up to the number of items, which is the track's end.
    Kestra::Ticks startOf(std::size_t index) const { return starts[index]; }
    Kestra::Ticks duration() const { return starts.back(); }
    /// The item in which `time` lies: the first one before the track, the number of items behind it.
    std::size_t itemAt(Kestra::Ticks time) const;

private:
    Kind trackKind;
    std::string trackName;
    bool enabled;
    std::vector<Item> allItems;
    std::vector<Transition> allTransitions;
    std::vector<Marker> allMarkers;
    std::vector<Kestra::Ticks> starts; ///< one more than items
};

} // namespace Timeline
