// SPDX-License-Identifier: GPL-3.0-or-later
// What a timeline that was read keeps, whatever it was read from.
#pragma once

#include "Kestra/Base/Quantity.h"
#include "Timeline/Reader/ITimelineReader.h"
#include "fuzz/Fuzz.h"

namespace Fuzz {

/// Where it is `measured`, media that do not tell their length have one.
inline Timeline::ReadingOptions readingOptions(bool lenient, bool measured) {
    Timeline::ReadingOptions options;
    options.lenient = lenient;
    if (measured)
        options.lengthOf = [](const Timeline::MediaReference&, Timeline::Track::Kind) { return Kestra::Ticks(1000); };
    return options;
}

inline void requireOrder(const Timeline::Stack& stack);

inline void requireOrder(const Timeline::Track& track) {
    for (std::size_t index = 0; index < track.items().size(); ++index) {
        const Timeline::Item& item = track.items()[index];
        require(item.duration > Kestra::Ticks(0), "an item lasts for a time");
        require(track.itemAt(track.startOf(index)) == index, "an item is found at its start");
        if (const auto* nested = std::get_if<Timeline::Nested>(&item.content))
            requireOrder(*nested->stack);
    }
    for (const Timeline::Transition& transition : track.transitions()) {
        const std::size_t at = transition.at;
        require(transition.before + transition.behind > Kestra::Ticks(0), "a transition lasts for a time");
        require(transition.before <= (at > 0 ? track.items()[at - 1].duration : Kestra::Ticks(0)),
                "a transition lies on the item before it");
        require(transition.behind <= (at < track.items().size() ? track.items()[at].duration : Kestra::Ticks(0)),
                "a transition lies on the item behind it");
    }
}

inline void requireOrder(const Timeline::Stack& stack) {
    for (const Timeline::Track& track : stack.tracks()) {
        require(track.duration() <= stack.duration(), "a stack is as long as its longest track");
        requireOrder(track);
    }
}

inline void requireOrder(const Timeline::Reading& reading) {
    using Timeline::Finding;
    require(reading.document || reading.has(Finding::Kind::Error), "a timeline is refused with an error");
    for (const Finding& finding : reading.findings)
        require(!finding.text.empty(), "a finding says what it is");
    if (!reading.document)
        return;
    require(reading.document->duration() > Kestra::Ticks(0), "a timeline lasts for a time");
    requireOrder(*reading.document->tracks);
}

} // namespace Fuzz
