// SPDX-License-Identifier: GPL-3.0-or-later
// Timeline::OtioItems: reads tracks and what stands in them.
#pragma once

#include "Timeline/Reader/OtioMedia.h"

namespace Timeline {

/// Used by one reading, whose context it borrows. What cannot be read is told and left out.
class OtioItems {
public:
    OtioItems(OtioContext& context, const OtioMedia& media);

    /// `node` is a Stack, or any item, which is then alone in one. Trimmed where the node is.
    std::shared_ptr<const Stack> readRoot(const OtioNode& node);

private:
    /// A composition's own range and speed, laid over what stands in it.
    struct Cut {
        std::optional<TimeRange> range;
        boost::rational<long long> speed = 1;

        bool isNone() const { return !range && speed == 1; }
    };

    std::shared_ptr<const Stack> readStack(const OtioNode& node);
    std::optional<Track> readTrackOrItem(const OtioNode& node);
    std::optional<Track> readTrack(const OtioNode& node);
    Track readChildren(const OtioNode& node, Track::Kind kind, std::vector<Marker> markers);
    std::optional<Track::Kind> trackKindOf(const OtioNode& node);
    std::optional<Item> readItem(const OtioNode& node, Track::Kind kind);
    std::optional<Item> readUnknown(const OtioNode& node);
    std::optional<Item> readGap(const OtioNode& node);
    std::optional<Item> readClip(const OtioNode& node, Track::Kind kind);
    /// That a stack has nothing for a track of the kind.
    void tellOfNone(const OtioNode& node, Track::Kind kind);
    std::optional<Item> readNested(const OtioNode& node, Track::Kind kind);
    std::optional<Transition> readTransition(const OtioNode& node);
    std::optional<TimeRange> rangeOfClip(const OtioNode& node, Clip& clip, Track::Kind kind);
    Cut readCut(const OtioNode& node);
    /// Tells where the cut goes beyond the stack's contents.
    Item cutOut(const OtioNode& node, std::shared_ptr<const Stack> stack, const Cut& cut, Track::Kind kind);

    OtioContext& context;
    const OtioMedia& media;
};

} // namespace Timeline
