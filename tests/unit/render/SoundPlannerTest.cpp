// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/SoundPlanner.h"
#include "PlannerFixture.h"
#include <gtest/gtest.h>

namespace Render::Tests {
namespace {

using Kestra::SampleGrid;
using Kestra::SampleIndex;

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
