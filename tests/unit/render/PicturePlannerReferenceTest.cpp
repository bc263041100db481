// SPDX-License-Identifier: GPL-3.0-or-later
// Random timelines, each of whose frames is also looked for alone.
#include "PlannerFixture.h"
#include <gtest/gtest.h>
#include <random>

namespace Render::Tests {
namespace {

using Kestra::TimeMap;

/// What stands in a frame, found without any of the planner's shortcuts: each frame on its own, each item looked at.
class Reference {
public:
    std::string seen(const Stack& stack, const TimeMap& map, std::int64_t frame) {
        middle = GRID.Middle(FrameIndex(frame));
        held = 0;
        return look(stack, map).first;
    }
    int timesHeld() const { return held; }

private:
    using Found = std::pair<std::string, bool>; ///< and whether it hides what lies below

    static Ticks onGrid(Ticks time) { return GRID.Begin(GRID.Nearest(time)); }

    Found look(const Stack& stack, const TimeMap& map) {
        std::string text;
        for (std::size_t i = stack.tracks().size(); i-- > 0;) {
            const auto [lower, full] = look(stack.tracks()[i], map);
            if (!lower.empty())
                text = text.empty() ? lower : lower + ' ' + text;
            if (full)
                return {text, true};
        }
        return {text, false};
    }

    /// Beyond its ends its first or last frame stays.
    Found lookInto(const Stack& stack, const TimeMap& map) {
        const Ticks begin = onGrid(map.FromSource(Ticks(0))), end = onGrid(map.FromSource(stack.duration()));
        const Ticks now = middle;
        if (stack.duration() > Ticks(0) && moment() < begin)
            middle = GRID.Middle(GRID.Nearest(begin));
        else if (stack.duration() > Ticks(0) && moment() >= end)
            middle = GRID.Middle(GRID.Nearest(end) - FrameIndex(1));
        const bool was = isHeld;
        isHeld = isHeld || middle != now;
        held += middle == now ? 0 : 1;
        const Found found = look(stack, map);
        middle = now;
        isHeld = was;
        return found;
    }

    Found look(const Track& track, const TimeMap& map) {
        if (track.kind() != Track::Kind::Video || !track.isEnabled())
            return {};
        std::vector<Ticks> edges{onGrid(map.FromSource(Ticks(0)))};
        Ticks time;
        for (const Item& item : track.items())
            edges.push_back(onGrid(map.FromSource(time += item.duration)));
        const auto length = [&map](Ticks span) { return map.FromSource(span) - map.FromSource(Ticks(0)); };
        std::size_t standing = 0;
        while (standing < track.items().size() && !(edges[standing] <= moment() && moment() < edges[standing + 1]))
            ++standing;
        if (standing == track.items().size())
            return {};
        for (const Timeline::Transition& one : track.transitions()) {
            const Ticks begin = edges[one.at] - length(one.before), end = edges[one.at] + length(one.behind);
            // Of items shorter than a frame not every one is seen, and with it its dissolve is not.
            const bool beside = one.at == standing || one.at == standing + 1;
            if (moment() < begin || moment() >= end || !beside)
                continue;
            const Found from = one.at > 0 ? lookAt(track, one.at - 1, edges, map) : Found();
            const Found to = one.at < track.items().size() ? lookAt(track, one.at, edges, map) : Found();
            if (from.first.empty() && to.first.empty())
                return {};
            std::ostringstream text;
            text << '(' << from.first << " > " << to.first << " at "
                 << static_cast<double>((middle - begin).Value()) / static_cast<double>((end - begin).Value()) << ')';
            return {text.str(), from.second && to.second};
        }
        return lookAt(track, standing, edges, map);
    }

    Found lookAt(const Track& track, std::size_t index, const std::vector<Ticks>& edges, const TimeMap& map) {
        const Item& item = track.items()[index];
        Ticks lasting = item.duration;
        for (const Timeline::Transition& one : track.transitions())
            lasting += one.at == index + 1 ? one.behind : Ticks(0);
        return look(item, edges[index], map, edges[index] + map.FromSource(lasting) - map.FromSource(Ticks(0)));
    }

    Found look(const Item& item, Ticks begin, const TimeMap& map, Ticks until) {
        if (!item.enabled)
            return {};
        if (const auto* inner = std::get_if<Timeline::Nested>(&item.content))
            return lookInto(*inner->stack, {begin, inner->excerpt.start, map.speed * inner->excerpt.speed});
        const auto* const shown = std::get_if<Timeline::Clip>(&item.content);
        if (!shown)
            return {};
        const TimeMap own{begin, shown->excerpt.start, map.speed * shown->excerpt.speed};
        std::ostringstream text;
        text << item.name << '@'
             << static_cast<double>(own.ToSource(stopped(until)).Value()) / static_cast<double>(FRAME) - 0.5;
        return {text.str(), hidesAll(*shown)};
    }

    Ticks moment() const { return middle - Ticks(1); }
    /// What is held is no later picture than what the timeline takes of the clip.
    Ticks stopped(Ticks until) const {
        return isHeld ? std::min(middle, until - Ticks(Kestra::TICKS_PER_MILLISECOND)) : middle;
    }

    Ticks middle;
    int held = 0;
    bool isHeld = false;
};

/// Random tracks; times are rarely on frames.
class Dice {
public:
    explicit Dice(unsigned seed)
        : engine(seed) {}

    std::int64_t upTo(std::int64_t most) { return std::uniform_int_distribution<std::int64_t>(0, most)(engine); }
    Ticks duration() { return Ticks(1 + upTo(upTo(3) == 0 ? 2 * FRAME : 20 * FRAME)); }

    std::vector<Track> tracks(int depth) {
        std::vector<Track> all;
        for (std::int64_t left = 1 + upTo(2); left > 0; --left)
            all.push_back(track(depth));
        return all;
    }

private:
    Track track(int depth) {
        std::vector<Item> items;
        for (std::int64_t left = upTo(8); left > 0; --left)
            items.push_back(item(depth));
        std::vector<Timeline::Transition> transitions;
        Ticks taken;
        for (std::size_t at = 0; at <= items.size(); ++at) {
            const Ticks before = at > 0 ? items[at - 1].duration - taken : Ticks(0);
            const Ticks behind = at < items.size() ? items[at].duration : Ticks(0);
            taken = Ticks(0);
            if (upTo(2) > 0 || before + behind < Ticks(2))
                continue;
            Timeline::Transition one = dissolve(at, 0, 0);
            one.before = Ticks(upTo(before.Value()));
            one.behind = Ticks(upTo(behind.Value() / 2));
            if (one.before + one.behind == Ticks(0))
                continue;
            taken = one.behind;
            transitions.push_back(one);
        }
        return pictures(std::move(items), std::move(transitions), upTo(9) > 0);
    }

    Item item(int depth) {
        static const Speed speeds[] = {1, 1, 1, 2, {1, 2}, {24, 25}};
        Item made = gap(1);
        const std::int64_t kind = upTo(9);
        if (kind < 2 && depth > 0)
            made = nested(tracks(depth - 1), 1, 0, speeds[upTo(5)]);
        else if (kind < 8)
            made = clip(std::string(1, static_cast<char>((upTo(1) ? 'A' : 'a') + upTo(25))), 1, upTo(500),
                        upTo(6) ? speeds[upTo(5)] : Speed(-1));
        made.duration = duration();
        made.enabled = upTo(9) > 0;
        return made;
    }

    std::mt19937 engine;
};

TEST(PicturePlanner, FindsWhatEveryFrameAloneShows) {
    int blended = 0, layered = 0, held = 0;
    for (unsigned seed = 0; seed < 400; ++seed) {
        Dice dice(seed);
        const auto made = document(dice.tracks(2));
        const PicturePlanner plan(made, GRID, hidesAll);
        Reference reference;
        const std::int64_t frames = made->duration().Value() / FRAME + 3;
        for (std::int64_t frame = 0; frame < frames;) {
            const Scene scene = plan.sceneAt(FrameIndex(frame));
            const std::int64_t end = std::min(plan.endOf(scene).Value(), frames);
            ASSERT_GT(end, frame) << "seed " << seed;
            blended += !scene.parts.empty() && scene.parts.front().fade ? 1 : 0;
            layered += scene.parts.size() > 1 ? 1 : 0;
            for (; frame < end; ++frame) {
                ASSERT_EQ(words(scene.parts, GRID.Middle(FrameIndex(frame))), reference.seen(*made->tracks, {}, frame))
                    << "seed " << seed << ", frame " << frame;
                held += reference.timesHeld();
            }
        }
    }
    EXPECT_GT(held, 500);
    EXPECT_GT(blended, 500);
    EXPECT_GT(layered, 500);
}

} // namespace
} // namespace Render::Tests
