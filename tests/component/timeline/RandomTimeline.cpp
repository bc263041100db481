// SPDX-License-Identifier: GPL-3.0-or-later
#include "RandomTimeline.h"

#include "Kestra/Base/Time.h"
#include <utility>

namespace TimelineTests {

using Kestra::Ticks;
using namespace Timeline;

namespace {

const Rate CLIP_SPEEDS[] = {1, 1, 1, 1, {1, 2}, 2, {3, 4}, 0, -1};
const Rate STACK_SPEEDS[] = {1, 1, 1, {1, 2}, 2, 0, -1};

} // namespace

RandomTimeline::RandomTimeline(const KnownMedia& media, Choices choices)
    : media(media)
    , choices(std::move(choices)) {}

std::int64_t RandomTimeline::upTo(std::int64_t most) {
    return next < choices.size() ? choices[next++] % (most + 1) : 0;
}

std::shared_ptr<const Document> RandomTimeline::document(const Rate& rate) {
    frameRate = rate;
    auto made = std::make_shared<Document>();
    made->tracks = std::make_shared<Stack>("", tracks(2));
    if (made->duration() >= frames(1))
        return made;
    Item gap;
    gap.duration = frames(1);
    const std::vector<Track> least{Track(Track::Kind::Video, "", true, {gap})};
    made->tracks = std::make_shared<Stack>("", least);
    return made;
}

Ticks RandomTimeline::frames(std::int64_t count) const {
    return Ticks(Kestra::FramesToTime(count, frameRate));
}

Ticks RandomTimeline::time(std::int64_t most) {
    const Ticks whole = frames(upTo(most));
    return upTo(6) < 6 ? whole : whole + Ticks(upTo(frames(1).Value()));
}

std::vector<Track> RandomTimeline::tracks(int depth) {
    std::vector<Track> all;
    for (std::int64_t left = 1 + upTo(2); left > 0; --left)
        all.push_back(pictureTrack(depth));
    const std::vector<Item> beside = all.front().items();
    for (std::int64_t left = upTo(2); left > 0; --left)
        all.push_back(soundTrack(beside, depth));
    return all;
}

Track RandomTimeline::pictureTrack(int depth) {
    std::vector<Item> items;
    for (std::int64_t left = upTo(4); left > 0; --left)
        items.push_back(item(depth, false));
    auto between = transitions(items);
    return Track(Track::Kind::Video, "", upTo(11) < 11, std::move(items), std::move(between));
}

/// Cut like the pictures beside it, or in its own way.
Track RandomTimeline::soundTrack(const std::vector<Item>& beside, int depth) {
    std::vector<Item> items;
    if (upTo(1) > 0) {
        for (const Item& picture : beside) {
            Item linked = picture;
            if (std::holds_alternative<Clip>(picture.content))
                linked.content = clip(true);
            items.push_back(linked);
        }
    } else {
        for (std::int64_t left = upTo(4); left > 0; --left)
            items.push_back(item(depth, true));
    }
    auto between = transitions(items);
    return Track(Track::Kind::Audio, "", upTo(11) < 11, std::move(items), std::move(between));
}

std::vector<Transition> RandomTimeline::transitions(const std::vector<Item>& items) {
    std::vector<Transition> all;
    Ticks taken;
    for (std::size_t at = 0; at <= items.size(); ++at) {
        const Ticks before = at > 0 ? items[at - 1].duration - taken : Ticks(0);
        const Ticks behind = at < items.size() ? items[at].duration : Ticks(0);
        taken = Ticks(0);
        if (upTo(2) < 2)
            continue;
        Transition one{"", "SMPTE_Dissolve", at, std::min(time(5), before),
                       std::min(time(5), Ticks(behind.Value() / 2))};
        if (one.before + one.behind < frames(1))
            continue;
        taken = one.behind;
        all.push_back(one);
    }
    return all;
}

Item RandomTimeline::item(int depth, bool sound) {
    Item made;
    made.duration = time(11) + frames(1);
    made.enabled = upTo(11) < 11;
    const std::int64_t kind = upTo(11);
    if (kind > 9 && depth > 0)
        made.content = nested(depth);
    else if (kind > 1)
        made.content = clip(sound);
    return made;
}

Clip RandomTimeline::clip(bool sound) {
    Clip made;
    const auto known = sound ? media.sounds().size() : media.pictures().size();
    const auto index = static_cast<std::size_t>(upTo(static_cast<std::int64_t>(known) - 1));
    const std::string& path = sound ? media.sounds()[index].path : media.pictures()[index].path;
    made.media = {"", MediaFile{Kestra::ioPath(path)}, {}};
    if (upTo(14) == 14)
        made.media.target = MissingMedia{"gone", "is not there"};
    // Also before the media begin, and behind their end.
    const auto place =
        sound ? time(70) - frames(4)
              : Ticks(Kestra::FramesToTime(upTo(media.pictures()[index].frames + 4) - 2, media.pictures()[index].rate));
    const auto origin = frames(90'000);
    made.excerpt = {place, CLIP_SPEEDS[upTo(std::size(CLIP_SPEEDS) - 1)]};
    if (upTo(1) > 0) {
        made.origin = origin;
        made.excerpt.start += origin;
    }
    return made;
}

Nested RandomTimeline::nested(int depth) {
    const Rate speed = STACK_SPEEDS[upTo(std::size(STACK_SPEEDS) - 1)];
    auto inner = std::make_shared<Stack>("", tracks(depth - 1));
    return {inner, {speed < 0 ? inner->duration() + frames(upTo(2)) : time(6), speed}};
}

} // namespace TimelineTests
