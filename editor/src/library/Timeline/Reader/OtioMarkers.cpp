// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Reader/OtioMarkers.h"

#include "Timeline/Reader/OtioSchema.h"
#include "Timeline/Reader/OtioTime.h"

namespace Timeline {
namespace {

/// The first version calls it otherwise.
OtioNode rangeOf(const OtioNode& marker) {
    return marker[marker.has("range") && !marker.has("marked_range") ? "range" : "marked_range"];
}

} // namespace

std::vector<Marker> readMarkers(OtioContext& context, const OtioNode& node, Kestra::Ticks start) {
    std::vector<Marker> markers;
    const OtioNode list = node["markers"];
    for (std::size_t index = 0; list.isArray() && index < list.size(); ++index) {
        const OtioNode marker = list.at(index);
        const OtioContext::Within within(context, "marker", marker.text("name"));
        if (kindOf(marker) != OtioKind::Marker) {
            context.warn(marker, "it is no marker and is left out");
            continue;
        }
        checkVersion(context, marker);
        const OtioContext::Spared spared(context, "the marker is left out");
        if (auto range = readRange(context, rangeOf(marker))) {
            range->start -= start;
            markers.push_back({context.nameOf(marker), marker.text("color"), marker.text("comment"), *range});
        }
    }
    return markers;
}

} // namespace Timeline
