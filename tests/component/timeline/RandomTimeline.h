// SPDX-License-Identifier: GPL-3.0-or-later
// Timelines by chance.
#pragma once

#include "KnownMedia.h"
#include "Timeline/Document.h"
#include <cstdint>
#include <vector>

namespace TimelineTests {

/// Whole numbers, each of which decides one thing. Fewer and smaller ones make a simpler timeline.
using Choices = std::vector<std::uint32_t>;

/// The same for the same choices; where they come to their end, all others are 0.
class RandomTimeline {
public:
    RandomTimeline(const KnownMedia& media, Choices choices);

    /// Times are mostly whole frames of that rate. At least one frame long.
    std::shared_ptr<const Timeline::Document> document(const Rate& rate);
    /// 0 is the simplest.
    std::int64_t upTo(std::int64_t most);

private:
    std::vector<Timeline::Track> tracks(int depth);
    Timeline::Track pictureTrack(int depth);
    Timeline::Track soundTrack(const std::vector<Timeline::Item>& beside, int depth);
    std::vector<Timeline::Transition> transitions(const std::vector<Timeline::Item>& items);
    Timeline::Item item(int depth, bool sound);
    Timeline::Clip clip(bool sound);
    Timeline::Nested nested(int depth);
    Kestra::Ticks frames(std::int64_t count) const;
    Kestra::Ticks time(std::int64_t most);

    const KnownMedia& media;
    const Choices choices;
    std::size_t next = 0;
    Rate frameRate;
};

} // namespace TimelineTests
