#include "unit/project/EditorProjectFixture.h"

namespace Project::Tests {
namespace {

TEST_F(EditorProjectTest, AnEditRebuildsTheStreamsThatNobodyUses) {
    const auto paths = put({clip(100, 192000), clip(50, 96000)});
    const Render::Sequence cut = Render::Sequence::ofFiles(paths);
    project->show(cut);
    User user(project->composition());
    user.offer({});
    ASSERT_TRUE(until([&] { return user.ready(); }));
    const std::uint64_t version = project->composition()->version();
    Render::Sequence edited = cut;
    for (const std::size_t track : {0, 1})
        edited.document = Timeline::withoutItem(*edited.document, {track, 0});
    project->show(edited);
    EXPECT_FALSE(user.ready()) << "it would show what is no longer there";
    EXPECT_GT(project->composition()->version(), version);
    EXPECT_EQ(project->composition()->duration(), KTime(2000));
    ASSERT_TRUE(until([&] { return user.ready(); }));
    EXPECT_EQ(numbers(user.videoStream.impl, 25), range(200000, 50));
    EXPECT_EQ(runs(user.audioStream.impl, 44100).front().id, 2);
}

TEST_F(EditorProjectTest, AnEditLeavesAStreamAloneThatIsInUse) {
    openTwo();
    User user(project->composition());
    user.offer({});
    ASSERT_TRUE(until([&] { return user.ready(); }));
    user.take();
    const auto taken = user.videoStream.impl;
    openTwo();
    EXPECT_EQ(user.videoStream.impl, taken);
    EXPECT_TRUE(user.videoStream.available);
    EXPECT_FALSE(user.audioStream.available);
    ASSERT_TRUE(until([&] { return user.audioStream.available; }));
    EXPECT_EQ(runs(user.audioStream.impl, 44100).front(), (Stretch{1, 0, 0, 4 * 44100}))
        << "in step with the pictures still";
}

TEST_F(EditorProjectTest, MarkersOfTheTimelineAreObjectsOfTheModel) {
    struct Looker : private Message::View<Composition::Marker>, private Message::View<Composition::Range> {
        std::set<const Composition::Marker*> markers() { return Message::View<Composition::Marker>::enumerateAll(); }
        std::set<const Composition::Range*> ranges() { return Message::View<Composition::Range>::enumerateAll(); }
    } looker;
    const Kestra::Ticks second(Kestra::TIME_BASE);
    Render::Sequence cut = Render::Sequence::ofFiles(put({clip(100, 0)}));
    auto marked = std::make_shared<Timeline::Document>(*cut.document);
    marked->tracks = std::make_shared<Timeline::Stack>(
        "", cut.document->tracks->tracks(),
        std::vector<Timeline::Marker>{{"Titles", "RED", "", {second, Kestra::Ticks(0)}},
                                      {"Song", "", "", {second + second, second}}});
    cut.document = marked;
    project->show(cut);
    std::map<QString, KTime> found;
    for (const Composition::Marker* marker : looker.markers())
        found[marker->name] = marker->time;
    EXPECT_EQ(found, (std::map<QString, KTime>{{QStringLiteral("Song"), KTime(2000)},
                                               {QStringLiteral("Titles"), KTime(1000)}}));
    ASSERT_EQ(looker.ranges().size(), 1U);
    EXPECT_EQ((*looker.ranges().begin())->range, (Types::Range{KTime(2000), KTime(3000)}));
    EXPECT_EQ((*looker.ranges().begin())->name, QStringLiteral("Song"));
    openTwo();
    EXPECT_TRUE(looker.markers().empty());
    EXPECT_TRUE(looker.ranges().empty());
}

} // namespace
} // namespace Project::Tests
