// SPDX-License-Identifier: GPL-3.0-or-later
#include "Composition/TrackViews.h"
#include "Timeline/DocumentEdit.h"
#include "unit/project/EditorProjectFixture.h"
#include <algorithm>

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

TEST_F(EditorProjectTest, AnEditMayLeaveNothing) {
    Render::Sequence cut = Render::Sequence::ofFiles(put({clip(100, 192000)}));
    project->show(cut);
    User user(project->composition());
    user.offer({});
    ASSERT_TRUE(until([&] { return user.ready(); }));
    const Render::Sequence before = cut;
    for (const std::size_t track : {0, 1})
        cut.document = Timeline::withoutItem(*cut.document, {track, 0});
    const std::uint64_t version = project->composition()->version();
    project->show(cut);
    EXPECT_GT(project->composition()->version(), version);
    EXPECT_EQ(project->composition()->duration(), KTime(0));
    EXPECT_EQ(project->video().width, 1920U);
    EXPECT_FALSE(user.ready()) << "it would show what is no longer there";
    ASSERT_TRUE(until([&] { return project->streamError() != nullptr; }));
    try {
        std::rethrow_exception(project->streamError());
    } catch (const Kestra::Proc::ProcException& error) {
        EXPECT_STREQ(error.what(), "There is nothing to export: the composition is empty");
    }
    EXPECT_THROW(project->expectedLengths({}, &project->video(), nullptr), Kestra::Proc::ProcException);
    project->show(before);
    EXPECT_EQ(project->composition()->duration(), KTime(4000));
    EXPECT_NE(project->video().width, 1920U);
}

/// Sees the clips of the model, and how often one changed, came or went.
class ClipLooker : private Message::View<Composition::Clip> {
public:
    ClipLooker() { observeAll(); }
    /// Of the lowest track, in their order.
    std::vector<const Composition::Clip*> clips() {
        std::vector<const Composition::Clip*> all;
        for (const Composition::Clip* clip : enumerateAll())
            if (clip->track->place == 0)
                all.push_back(clip);
        std::sort(all.begin(), all.end(), [](auto* a, auto* b) { return a->range.start < b->range.start; });
        return all;
    }
    int came = 0, altered = 0, went = 0;

private:
    void added(const Composition::Clip*) override { ++came; }
    void changed(const Composition::Clip*, const Composition::Clip*) override { ++altered; }
    void removed(const Composition::Clip*) override { ++went; }
};

class TrackLooker : private Message::View<Composition::Track> {
public:
    std::set<const Composition::Track*> tracks() { return enumerateAll(); }
};

TEST_F(EditorProjectTest, TracksAndClipsOfTheTimelineAreObjectsOfTheModel) {
    const auto paths = put({clip(100, 192000), clip(50, 0)});
    project->show(Render::Sequence::ofFiles(paths));
    TrackLooker looker;
    const auto tracks = looker.tracks();
    ASSERT_EQ(tracks.size(), 2U);
    for (const Composition::Track* track : tracks) {
        EXPECT_EQ(track->composition, project->composition());
        EXPECT_EQ(track->kind,
                  track->place == 0 ? Composition::Track::Kind::Pictures : Composition::Track::Kind::Sound);
    }
    ClipLooker clips;
    EXPECT_EQ(clips.came, 3) << "a gap is none";
    ASSERT_EQ(clips.clips().size(), 2U);
    const Composition::Clip& second = *clips.clips()[1];
    EXPECT_EQ(second.medium, QString::fromStdString(paths[1].ToUtf8()));
    EXPECT_EQ(second.range, (Types::Range{KTime(4000), KTime(6000)}));
    EXPECT_EQ(second.start, KTime(0));
    project.reset();
    EXPECT_EQ(clips.went, 3);
    EXPECT_TRUE(looker.tracks().empty());
}

TEST_F(EditorProjectTest, ClipsOfTheModelFollowAnEdit) {
    Render::Sequence cut = Render::Sequence::ofFiles(put({clip(100, 0), clip(50, 0), clip(25, 0)}));
    project->show(cut);
    ClipLooker clips;
    const auto before = clips.clips();
    ASSERT_EQ(before.size(), 3U);
    const auto edit = [&](const std::shared_ptr<const Timeline::Document>& document) {
        const std::uint64_t version = project->composition()->version();
        clips.came = clips.altered = clips.went = 0;
        cut.document = document;
        project->show(cut);
        EXPECT_GT(project->composition()->version(), version);
        return clips.clips();
    };
    Timeline::Item trimmed = cut.document->tracks->tracks()[0].items()[0];
    trimmed.duration = Kestra::Ticks(Kestra::TIME_BASE);
    std::get<Timeline::Clip>(trimmed.content).excerpt.start = Kestra::Ticks(2 * Kestra::TIME_BASE);
    EXPECT_EQ(edit(Timeline::withItem(*cut.document, {0, 0}, trimmed)), before) << "the same objects";
    EXPECT_EQ(clips.altered, 3) << "one is shorter, two have moved";
    EXPECT_EQ(before[0]->start, KTime(2000));
    EXPECT_EQ(before[2]->range, (Types::Range{KTime(3000), KTime(4000)}));
    const auto left = edit(Timeline::withoutItem(*cut.document, {0, 1}));
    EXPECT_EQ(left, (std::vector<const Composition::Clip*>{before[0], before[2]}));
    EXPECT_EQ(clips.went, 1);
    EXPECT_EQ(clips.altered, 1);
    edit(cut.document);
    EXPECT_EQ(clips.came + clips.altered + clips.went, 0) << "nothing is different";
}

TEST_F(EditorProjectTest, AnEditThatCannotBeDescribedChangesNothing) {
    Render::Sequence cut = Render::Sequence::ofFiles(put({clip(100, 0)}));
    project->show(cut);
    const std::uint64_t version = project->composition()->version();
    Timeline::Item other = cut.document->tracks->tracks()[0].items()[0];
    other.duration = Kestra::Ticks(Kestra::TIME_BASE);
    std::get<Timeline::Clip>(other.content).media.target = Timeline::MediaFile{Kestra::ioPath("/nowhere/b.mov")};
    cut.document = Timeline::withItem(*cut.document, {0, 0}, other);
    EXPECT_THROW(project->show(cut), std::exception);
    EXPECT_EQ(project->composition()->version(), version);
    EXPECT_EQ(project->duration(), KTime(4000));
    EXPECT_EQ(ClipLooker().clips().at(0)->range, (Types::Range{KTime(0), KTime(4000)}));
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
