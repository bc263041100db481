// SPDX-License-Identifier: GPL-3.0-or-later
// Project::TimelineMarks: the markers of a timeline as objects of the model.
#pragma once

#include "Composition/MarkerView.h"
#include "Composition/RangeView.h"
#include "Timeline/Document.h"
#include <list>

namespace Project {

/// Owns a Composition::Marker for each marker that the document has and shows, those in nested stacks too, and a
/// Composition::Range for each that lasts for some time. One thread.
class TimelineMarks final : private Composition::MarkerView, private Composition::RangeView {
public:
    TimelineMarks() = default;
    ~TimelineMarks() override;

    /// In place of those before.
    void show(const Timeline::Document& document);

private:
    void own(const Timeline::Marker& mark);
    void removeAll();

    std::list<Composition::Marker> ownMarkers;
    std::list<Composition::Range> ownRanges;
};

} // namespace Project
