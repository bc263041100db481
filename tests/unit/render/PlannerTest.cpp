// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/PicturePlanner.h"
#include "Render/SoundPlanner.h"
#include <cctype>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <sstream>

namespace Render::Tests {
namespace {

using Kestra::FrameGrid;
using Kestra::FrameIndex;
using Kestra::SampleGrid;
using Kestra::SampleIndex;
using Kestra::Ticks;
using Kestra::TimeMap;
using Timeline::Item;
using Timeline::Stack;
using Timeline::Track;
using Speed = boost::rational<long long>;

constexpr std::int64_t FRAME = Kestra::TIME_BASE / 25;
const FrameGrid GRID(25);

Item gap(std::int64_t frames) {
    Item item;
    item.duration = Ticks(frames * FRAME);
    return item;
}

Item clip(const std::string& name, std::int64_t frames, std::int64_t start = 0, const Speed& speed = 1) {
    Item item = gap(frames);
    item.name = name;
    item.content = Timeline::Clip{
        {name, Timeline::MediaFile{Kestra::ioPath("/" + name)}}, {Ticks(start * FRAME), speed}, Ticks(0)};
    return item;
}

Item nested(std::vector<Track> tracks, std::int64_t frames, std::int64_t start = 0, const Speed& speed = 1) {
    Item item = gap(frames);
    item.content = Timeline::Nested{std::make_shared<Stack>("", std::move(tracks)), {Ticks(start * FRAME), speed}};
    return item;
}

Track pictures(std::vector<Item> items, std::vector<Timeline::Transition> transitions = {}, bool enabled = true) {
    return Track(Track::Kind::Video, "", enabled, std::move(items), std::move(transitions));
}

Track sound(std::vector<Item> items, std::vector<Timeline::Transition> transitions = {}) {
    return Track(Track::Kind::Audio, "", true, std::move(items), std::move(transitions));
}

Timeline::Transition dissolve(std::size_t at, std::int64_t before, std::int64_t behind) {
    return {"", "SMPTE_Dissolve", at, Ticks(before * FRAME), Ticks(behind * FRAME)};
}

std::shared_ptr<const Timeline::Document> document(std::vector<Track> tracks) {
    auto made = std::make_shared<Timeline::Document>();
    made->tracks = std::make_shared<Stack>("", std::move(tracks));
    return made;
}

/// Names in capitals hide what lies below them.
bool hidesAll(const Timeline::Clip& clip) {
    return std::isupper(static_cast<unsigned char>(clip.media.name.front())) != 0;
}

PicturePlanner planner(std::vector<Track> tracks) {
    return PicturePlanner(document(std::move(tracks)), GRID, hidesAll);
}

/// In words: layers from the lowest one on, each as name@frame of its source; a fade as (from > to at its part).
std::string words(const Parts& parts, Ticks middle);

std::string words(const Part& part, Ticks middle) {
    std::ostringstream text;
    if (!part.fade) {
        text << *part.material.name << '@'
             << static_cast<double>(part.material.map.ToSource(middle).Value()) / static_cast<double>(FRAME) - 0.5;
        return text.str();
    }
    if (part.fade->still)
        middle = GRID.Middle(GRID.Covering(*part.fade->still));
    const double done = static_cast<double>((middle - part.fade->begin).Value()) /
                        static_cast<double>((part.fade->end - part.fade->begin).Value());
    text << '(' << words(part.from, middle) << " > " << words(part.to, middle) << " at " << done << ')';
    return text.str();
}

std::string words(const Parts& parts, Ticks middle) {
    std::string text;
    for (const Part& part : parts)
        text += (text.empty() ? "" : " ") + words(part, middle);
    return text;
}

std::string seen(const PicturePlanner& planner, std::int64_t frame) {
    return words(planner.sceneAt(FrameIndex(frame)).parts, GRID.Middle(FrameIndex(frame)));
}

TEST(PicturePlanner, ShowsItemsOneAfterTheOther) {
    const auto plan = planner({pictures({clip("A", 10, 100), gap(5), clip("B", 10)})});
    EXPECT_EQ(seen(plan, 0), "A@100");
    EXPECT_EQ(seen(plan, 9), "A@109");
    EXPECT_EQ(seen(plan, 10), "");
    EXPECT_EQ(seen(plan, 15), "B@0");
    EXPECT_EQ(seen(plan, 24), "B@9");
    EXPECT_EQ(seen(plan, 25), "");
    EXPECT_EQ(plan.endOf(plan.sceneAt(FrameIndex(3))), FrameIndex(10));
    EXPECT_EQ(plan.endOf(plan.sceneAt(FrameIndex(10))), FrameIndex(15));
    EXPECT_EQ(plan.endOf(plan.sceneAt(FrameIndex(25))), FrameIndex(INT64_MAX));
}

TEST(PicturePlanner, LooksThroughWhatHidesNothing) {
    const auto plan =
        planner({pictures({clip("A", 30)}), pictures({gap(5), clip("b", 5), clip("C", 5), clip("d", 5)})});
    EXPECT_EQ(seen(plan, 4), "A@4");
    EXPECT_EQ(seen(plan, 5), "A@5 b@0");
    EXPECT_EQ(seen(plan, 10), "C@0") << "what is hidden is not shown";
    EXPECT_EQ(seen(plan, 15), "A@15 d@0");
    EXPECT_EQ(plan.endOf(plan.sceneAt(FrameIndex(10))), FrameIndex(15));
}

TEST(PicturePlanner, LeavesOutWhatIsDisabledOrMissing) {
    Item off = clip("B", 5);
    off.enabled = false;
    Item missing = clip("C", 5);
    std::get<Timeline::Clip>(missing.content).media.target = Timeline::MissingMedia{"x", "is not there"};
    const auto plan = planner({pictures({clip("A", 20)}), pictures({off, missing}),
                               pictures({clip("D", 20)}, {}, false), sound({clip("S", 20)})});
    for (const int frame : {0, 5, 12})
        EXPECT_EQ(seen(plan, frame), "A@" + std::to_string(frame));
}

TEST(PicturePlanner, DissolvesWithMaterialBeyondTheCut) {
    const auto plan = planner({pictures({clip("A", 10, 50), clip("B", 10, 70)}, {dissolve(1, 2, 2)})});
    EXPECT_EQ(seen(plan, 7), "A@57");
    EXPECT_EQ(seen(plan, 8), "(A@58 > B@68 at 0.125)");
    EXPECT_EQ(seen(plan, 11), "(A@61 > B@71 at 0.875)");
    EXPECT_EQ(seen(plan, 12), "B@72");
    EXPECT_EQ(plan.endOf(plan.sceneAt(FrameIndex(0))), FrameIndex(8));
    EXPECT_EQ(plan.endOf(plan.sceneAt(FrameIndex(8))), FrameIndex(10)) << "the cut itself ends a scene, too";
    const Scene scene = plan.sceneAt(FrameIndex(9));
    EXPECT_TRUE(scene.isFull);
    EXPECT_EQ(plan.endOf(scene.parts.front().from.front().material), FrameIndex(12));
}

TEST(PicturePlanner, DissolvesIntoNothingAndOverOthers) {
    const auto plan = planner(
        {pictures({clip("A", 30)}), pictures({gap(10), clip("B", 10)}, {dissolve(1, 1, 1), dissolve(2, 2, 0)})});
    EXPECT_EQ(seen(plan, 9), "A@9 ( > B@-1 at 0.25)");
    EXPECT_EQ(seen(plan, 11), "B@1");
    EXPECT_EQ(seen(plan, 19), "A@19 (B@9 >  at 0.75)");
}

TEST(PicturePlanner, OpensStacksInTheTimeOfTheirPlace) {
    const auto plan = planner({pictures(
        {gap(5), nested({pictures({clip("A", 10), clip("B", 10)}), pictures({gap(12), clip("c", 4)})}, 10, 6)})});
    EXPECT_EQ(seen(plan, 5), "A@6");
    EXPECT_EQ(seen(plan, 9), "B@0");
    EXPECT_EQ(seen(plan, 11), "B@2 c@0");
    EXPECT_EQ(seen(plan, 14), "B@5 c@3");
    EXPECT_EQ(seen(plan, 15), "");
    EXPECT_EQ(plan.endOf(plan.sceneAt(FrameIndex(11)).parts.front().material), FrameIndex(15))
        << "a stack ends with its place";
}

TEST(PicturePlanner, PlaysStacksFasterBackwardsAndFrozen) {
    const std::vector<Track> inner{pictures({clip("A", 10, 100), clip("B", 10, 200)})};
    const auto fast = planner({pictures({nested(inner, 10, 0, 2)})});
    EXPECT_EQ(seen(fast, 1), "A@102.5"); // the middle of two frames
    EXPECT_EQ(seen(fast, 5), "B@200.5");
    EXPECT_EQ(fast.endOf(fast.sceneAt(FrameIndex(0))), FrameIndex(5));
    const auto backwards = planner({pictures({nested(inner, 20, 20, -1)})});
    EXPECT_EQ(seen(backwards, 0), "B@209");
    EXPECT_EQ(seen(backwards, 9), "B@200");
    EXPECT_EQ(seen(backwards, 10), "A@109");
    EXPECT_EQ(seen(backwards, 19), "A@100");
    EXPECT_EQ(backwards.endOf(backwards.sceneAt(FrameIndex(0))), FrameIndex(10));
    const auto frozen = planner({pictures({nested(inner, 20, 12, 0)})});
    EXPECT_EQ(seen(frozen, 0), "B@201.5");
    EXPECT_EQ(seen(frozen, 19), "B@201.5");
    EXPECT_EQ(frozen.endOf(frozen.sceneAt(FrameIndex(0))), FrameIndex(20));
}

TEST(PicturePlanner, DissolvesBackwardsInAStackThatRunsBackwards) {
    const std::vector<Track> inner{pictures({clip("A", 10), clip("B", 10)}, {dissolve(1, 1, 3)})};
    const auto plan = planner({pictures({nested(inner, 20, 20, -1)})});
    EXPECT_EQ(seen(plan, 6), "B@3");
    EXPECT_EQ(seen(plan, 7), "(B@2 > A@12 at 0.125)");
    EXPECT_EQ(seen(plan, 10), "(B@-1 > A@9 at 0.875)");
    EXPECT_EQ(seen(plan, 11), "A@8");
}

TEST(PicturePlanner, BlendsWhatAFrozenStackShowsInADissolve) {
    const std::vector<Track> inner{pictures({clip("A", 10), clip("B", 10)}, {dissolve(1, 1, 3)})};
    for (const auto& [moment, shown] : std::map<std::int64_t, std::string>{
             {8, "A@7.5"}, {9, "(A@8.5 > B@-1.5 at 0.125)"}, {12, "(A@11.5 > B@1.5 at 0.875)"}, {13, "B@2.5"}}) {
        const auto plan = planner({pictures({nested(inner, 20, moment, 0)})});
        EXPECT_EQ(seen(plan, 0), shown) << moment;
        EXPECT_EQ(seen(plan, 19), shown) << moment;
        EXPECT_EQ(plan.endOf(plan.sceneAt(FrameIndex(0))), FrameIndex(20));
    }
}

TEST(PicturePlanner, HoldsTheFirstAndLastPicturesOfStacksInDissolves) {
    const auto stack = [](std::int64_t frames, std::int64_t start, const Speed& speed = 1) {
        return nested({pictures({clip("A", 5, 100), clip("B", 5, 200)})}, frames, start, speed);
    };
    const auto plan = planner({pictures({stack(10, 0), stack(10, 0)}, {dissolve(1, 2, 2)})});
    EXPECT_EQ(seen(plan, 8), "(B@203 > A@100 at 0.125)");
    EXPECT_EQ(seen(plan, 9), "(B@204 > A@100 at 0.375)");
    EXPECT_EQ(seen(plan, 10), "(B@204 > A@100 at 0.625)");
    EXPECT_EQ(seen(plan, 11), "(B@204 > A@101 at 0.875)");
    EXPECT_TRUE(plan.sceneAt(FrameIndex(10)).isFull) << "nothing below shines through";
    const auto entered = planner({pictures({clip("C", 10), stack(9, 1)}, {dissolve(1, 3, 0)})});
    EXPECT_EQ(seen(entered, 7), "(C@7 > A@100 at 0.166667)");
    EXPECT_EQ(seen(entered, 9), "(C@9 > A@100 at 0.833333)") << "its first frame, which moves from here on";
    EXPECT_EQ(entered.endOf(entered.sceneAt(FrameIndex(7))), FrameIndex(9));
    EXPECT_EQ(seen(entered, 10), "A@101");
    const auto backwards = planner({pictures({stack(10, 10, -1), clip("C", 10)}, {dissolve(1, 0, 2)})});
    EXPECT_EQ(seen(backwards, 9), "A@100");
    EXPECT_EQ(seen(backwards, 11), "(A@100 > C@1 at 0.75)");
    const std::vector<Track> fading{pictures({clip("A", 10)}, {dissolve(1, 4, 0)})};
    const auto faded = planner({pictures({nested(fading, 6, 0, 2)})});
    EXPECT_EQ(seen(faded, 4), "(A@8.5 >  at 0.75)");
    EXPECT_EQ(seen(faded, 5), "(A@8.5 >  at 0.75)") << "the very picture that was last";
    const auto fast = planner({pictures({stack(5, 0, 2), clip("C", 10)}, {dissolve(1, 0, 2)})});
    EXPECT_EQ(seen(fast, 4), "B@202.5") << "which began on a whole frame";
    EXPECT_EQ(seen(fast, 6), "(B@202.5 > C@1 at 0.75)") << "the same";
}

TEST(PicturePlanner, HoldsStacksBeyondTheirContents) {
    const std::vector<Track> inner{pictures({clip("A", 4, 100)}), pictures({gap(1), clip("b", 2)}),
                                   sound({clip("S", 9)})};
    const auto plan = planner({pictures({nested(inner, 8, -2)})});
    EXPECT_EQ(seen(plan, 0), "A@100");
    EXPECT_EQ(seen(plan, 1), "A@100");
    EXPECT_EQ(seen(plan, 3), "A@101 b@0");
    EXPECT_EQ(seen(plan, 5), "A@103");
    EXPECT_EQ(seen(plan, 6), "") << "its sound goes on";
    EXPECT_EQ(seen(plan, 8), "");
    const std::vector<Track> alone{pictures({clip("A", 4, 100)})};
    EXPECT_EQ(seen(planner({pictures({nested(alone, 8)})}), 7), "A@103");
    EXPECT_EQ(seen(planner({pictures({nested(alone, 8, 50, 0)})}), 3), "A@103.5") << "frozen behind its end";
    EXPECT_EQ(seen(planner({pictures({nested({}, 8), clip("C", 2)})}), 3), "") << "nothing to hold";
}

TEST(PicturePlanner, KeepsDeepSpeedsWithinReach) {
    Item item = nested({pictures({clip("A", 1000, 0, {100'000, 99'999})})}, 1000, 0, {99'991, 100'000});
    for (int depth = 0; depth < 12; ++depth)
        item = nested({pictures({item})}, 1000, 0, {99'991, 100'000});
    const auto plan = planner({pictures({item})});
    EXPECT_EQ(seen(plan, 500).substr(0, 4), "A@49");
}

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

TEST(PicturePlanner, FindsItsWayAmongTenThousandItems) {
    std::vector<Item> items;
    for (int i = 0; i < 10'000; ++i)
        items.push_back(clip("A", 2, i));
    const auto plan = planner({pictures(items)});
    for (int i = 0; i < 10'000; ++i) {
        const Scene scene = plan.sceneAt(FrameIndex(2 * i));
        ASSERT_EQ(plan.endOf(scene), FrameIndex(2 * i + 2));
        ASSERT_EQ(scene.parts.front().material.map.here, Ticks(2 * i * FRAME));
        ASSERT_EQ(scene.parts.front().material.map.there, Ticks(i * FRAME));
    }
}

const SampleGrid SAMPLES(48000);

Window whole(const std::shared_ptr<const Timeline::Document>& shown, bool withPictures) {
    return Window(Ticks(0), shown->duration(), withPictures ? std::optional(GRID) : std::nullopt);
}

/// Names that sound, each with the sample at which it begins.
std::string heard(const SoundPlanner& planner, std::int64_t sample) {
    std::string text;
    visitMaterials(planner.sceneAt(SampleIndex(sample)).parts, [&](const Material& material) {
        text += (text.empty() ? "" : " ") + *material.name + '@' +
                std::to_string(planner.sampleAt(material.map.here).Value());
    });
    return text;
}

TEST(SoundPlanner, MovesSoundWithThePictureThatBeginsWithIt) {
    // 3.4 frames: the second picture begins on frame 3.
    Item first = clip("A", 1), alone = clip("s", 1);
    first.duration = Ticks(FRAME * 34 / 10);
    alone.duration = Ticks(FRAME * 17 / 10);
    const auto made =
        document({pictures({first, clip("B", 5)}), sound({first, clip("B", 5)}), sound({alone, clip("t", 5)})});
    const SoundPlanner plan(made, whole(made, true), SAMPLES);
    EXPECT_EQ(heard(plan, 3 * 1920 - 1), "A@0 t@3264");
    EXPECT_EQ(heard(plan, 3 * 1920), "B@5760 t@3264");
    EXPECT_EQ(plan.endOf(plan.sceneAt(SampleIndex(0))), SampleIndex(3264)) << "what has no picture begins exactly";
    const SoundPlanner exact(made, whole(made, false), SAMPLES);
    EXPECT_EQ(heard(exact, 6527), "A@0 t@3264");
    EXPECT_EQ(heard(exact, 6528), "B@6528 t@3264");
}

TEST(SoundPlanner, CountsFromTheStartOfTheWindow) {
    const auto made = document({sound({clip("A", 10), clip("B", 10)})});
    const SoundPlanner plan(made, Window(Ticks(4 * FRAME), made->duration(), std::nullopt), SAMPLES);
    EXPECT_EQ(heard(plan, 0), "A@-7680");
    EXPECT_EQ(plan.endOf(plan.sceneAt(SampleIndex(0))), SampleIndex(6 * 1920));
    EXPECT_EQ(heard(plan, 6 * 1920), "B@11520");
}

TEST(SoundPlanner, HearsStacksOnce) {
    const std::vector<Track> both{pictures({clip("P", 10)}), sound({clip("S", 10)})};
    const auto among = document({pictures({gap(5), nested(both, 10)})});
    EXPECT_EQ(heard(SoundPlanner(among, whole(among, true), SAMPLES), 5 * 1920), "S@9600");
    EXPECT_EQ(heard(SoundPlanner(among, whole(among, true), SAMPLES), 5 * 1920 - 1), "");
    const auto linked = document({pictures({gap(5), nested(both, 10)}), sound({gap(5), nested(both, 10)})});
    EXPECT_EQ(heard(SoundPlanner(linked, whole(linked, true), SAMPLES), 5 * 1920), "S@9600");
    const auto later = document({pictures({gap(5), nested(both, 10)}), sound({gap(6), nested(both, 10)})});
    const SoundPlanner late(later, whole(later, true), SAMPLES);
    EXPECT_EQ(heard(late, 6 * 1920 - 1), "") << "the sound track says when";
    EXPECT_EQ(heard(late, 7 * 1920), "S@11520");
}

TEST(SoundPlanner, HearsStacksThatAreNotLinked) {
    const std::vector<Track> scene{pictures({clip("P", 10)}), sound({clip("S", 10)})};
    const std::vector<Track> music{sound({clip("M", 10)})};
    const auto heardOf = [](std::vector<Track> tracks) {
        const auto made = document(std::move(tracks));
        return heard(SoundPlanner(made, whole(made, true), SAMPLES), 7 * 1920);
    };
    EXPECT_EQ(heardOf({pictures({nested(scene, 10)}), sound({nested(music, 10)})}), "S@0 M@0") << "another's sound";
    Item named = nested(scene, 10);
    named.name = "copy";
    EXPECT_EQ(heardOf({pictures({nested(scene, 10)}), sound({named})}), "S@0 S@0") << "another of its kind";
    EXPECT_EQ(heardOf({pictures({gap(5), nested(scene, 10)}), sound({nested(scene, 5)})}), "S@9600")
        << "over before it begins";
}

TEST(SoundPlanner, HearsNothingOfALinkedStackThatIsSwitchedOff) {
    const std::vector<Track> scene{pictures({clip("P", 10)}), sound({clip("S", 10)})};
    Item off = nested(scene, 10);
    off.enabled = false;
    const auto silenced = document({pictures({nested(scene, 10)}), sound({off})});
    EXPECT_EQ(heard(SoundPlanner(silenced, whole(silenced, true), SAMPLES), 1920), "");
    const Track muted(Track::Kind::Audio, "", false, {nested(scene, 10)});
    const auto without = document({pictures({nested(scene, 10)}), muted});
    EXPECT_EQ(heard(SoundPlanner(without, whole(without, true), SAMPLES), 1920), "");
}

TEST(SoundPlanner, FadesAcrossTheCutToTheSample) {
    const auto made = document({sound({clip("A", 10), clip("B", 10)}, {dissolve(1, 2, 2)})});
    const SoundPlanner plan(made, whole(made, false), SAMPLES);
    const Scene before = plan.sceneAt(SampleIndex(8 * 1920 - 1));
    EXPECT_FALSE(before.parts.front().fade);
    EXPECT_EQ(plan.endOf(before), SampleIndex(8 * 1920));
    const Scene fade = plan.sceneAt(SampleIndex(8 * 1920));
    ASSERT_TRUE(fade.parts.front().fade);
    EXPECT_EQ(fade.parts.front().fade->begin, Ticks(8 * FRAME));
    EXPECT_EQ(fade.parts.front().fade->end, Ticks(12 * FRAME));
    EXPECT_EQ(plan.endOf(fade.parts.front().from.front().material), SampleIndex(12 * 1920));
    EXPECT_FALSE(plan.sceneAt(SampleIndex(12 * 1920)).parts.front().fade);
}

} // namespace
} // namespace Render::Tests
