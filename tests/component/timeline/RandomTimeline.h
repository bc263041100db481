// Timelines by chance.
#pragma once

#include "KnownMedia.h"
#include "Timeline/Document.h"
#include <random>

namespace TimelineTests {

/// The same for the same seed.
class RandomTimeline {
public:
    RandomTimeline(const KnownMedia& media, unsigned seed);

    /// Times are mostly whole frames of that rate. At least one frame long.
    std::shared_ptr<const Timeline::Document> document(const Rate& rate);
    std::int64_t upTo(std::int64_t most) { return std::uniform_int_distribution<std::int64_t>(0, most)(engine); }

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
    std::mt19937 engine;
    Rate frameRate;
};

/// In words, to tell which one failed.
std::string describe(const Timeline::Document& document);

} // namespace TimelineTests
