// SPDX-License-Identifier: GPL-3.0-or-later
// Project::TimelineTracks: the tracks and clips of a timeline as objects of the model.
#pragma once

#include "Composition/TrackViews.h"
#include "Timeline/Document.h"
#include <memory>
#include <vector>

namespace Project {

/// Owns a Composition::Track for each of the document's own tracks, and a Composition::Clip for each item of them but
/// for gaps. One thread.
class TimelineTracks final : private Message::View<Composition::Track>, private Message::View<Composition::Clip> {
public:
    /// `composition` is borrowed for what the tracks tell.
    explicit TimelineTracks(const Composition::Object* composition)
        : composition(composition) {}
    ~TimelineTracks() override;

    /// In place of the document before. What both have stays the same object: of each track the clips before the first
    /// that differs and behind the last, which may move; those between them change, come and go in their order.
    void show(const Timeline::Document& document);

private:
    using TrackView = Message::View<Composition::Track>;
    using ClipView = Message::View<Composition::Clip>;
    using Clips = std::vector<std::unique_ptr<Composition::Clip>>;
    struct Own {
        Composition::Track track;
        Clips clips;
    };

    void show(Own& own, const Timeline::Track& track);
    void changeBetween(Clips& clips, const std::vector<Composition::Clip>& wanted);
    void change(Composition::Clip* clip, const Composition::Clip& wanted);
    void remove(Clips& clips);
    void removeFrom(std::size_t track);

    const Composition::Object* const composition;
    std::vector<std::unique_ptr<Own>> tracks;
};

} // namespace Project
