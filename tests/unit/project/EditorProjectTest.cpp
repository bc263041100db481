// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/SoundTracks.h"
#include "unit/project/EditorProjectFixture.h"

namespace Project::Tests {
namespace {

TEST_F(EditorProjectTest, TheCompositionHasBothDescriptionsOnceSomethingIsOpen) {
    EXPECT_EQ(project->composition()->video(), nullptr);
    EXPECT_EQ(project->composition()->audio(), nullptr);
    project->open(put({clip(0, 48000)}));
    ASSERT_NE(project->composition()->video(), nullptr);
    ASSERT_NE(project->composition()->audio(), nullptr);
    EXPECT_EQ(project->composition()->video(), &project->video());
    EXPECT_EQ(project->composition()->video()->width, 1920U);
    EXPECT_EQ(project->composition()->duration(), KTime(1000));
    EXPECT_EQ(project->exactDuration(), Kestra::TIME_BASE);
}

TEST_F(EditorProjectTest, AFailedOpenChangesNothing) {
    openTwo();
    EXPECT_THROW(project->open({Kestra::ioPath("1"), Kestra::ioPath("missing")}), Kestra::Proc::ProcException);
    EXPECT_EQ(project->sourcePaths().size(), 2U);
    EXPECT_EQ(project->duration(), KTime(6000));
}

TEST_F(EditorProjectTest, ItTellsItsFilesOnceTheirDamageAndTheirNotes) {
    auto paths = put({clip(100, 0), clip(50, 0)});
    paths.push_back(paths.front());
    project->open(paths);
    EXPECT_EQ(project->duration(), KTime(10000));
    EXPECT_EQ(project->sourcePaths().size(), 2U);
    EXPECT_EQ(project->takeDamageReports().size(), 2U);
    const auto notes = project->takeNotes();
    ASSERT_EQ(notes.size(), 2U);
    EXPECT_NE(notes.front().path.ToUtf8(), notes.back().path.ToUtf8());
    EXPECT_EQ(notes.front().what, "invented");
}

TEST_F(EditorProjectTest, ItTellsOnceWhatEachOpeningOfAFileTells) {
    Contents contents = clip(25, 48000);
    contents.furtherSounds = {{48000}, {48000}};
    const auto paths = put({contents});
    project->show(Render::SoundTracks::all(Render::Sequence::ofFiles(paths), paths));
    EXPECT_EQ(project->sourcePaths().size(), 1U);
    EXPECT_EQ(project->takeDamageReports().size(), 1U);
    EXPECT_EQ(project->takeNotes().size(), 1U);
}

TEST_F(EditorProjectTest, TheCompositionsOwnerAnswers) {
    openTwo();
    const std::uint64_t version = project->composition()->version();
    User user(project->composition());
    EXPECT_TRUE(project->composition()->contains(&user.exportedVideo));
    EXPECT_TRUE(project->composition()->contains(&user.exportedAudio));
    EXPECT_EQ(project->composition()->version(), version) << "exports are no content";
    Message::View<Composition::Object> other;
    EXPECT_EQ(other.enumerateAll().count(project->composition()), 1U);
}

TEST_F(EditorProjectTest, TheFastTrackIsSuppressedOnRequest) {
    Message::View<FastTrack::Object> other;
    ASSERT_EQ(other.enumerateAll().size(), 1U);
    const FastTrack::Object* fastTrack = *other.enumerateAll().begin();
    {
        const FastTrack::Suppressor suppressor;
        EXPECT_TRUE(fastTrack->isSuppressed());
    }
    EXPECT_FALSE(fastTrack->isSuppressed());
}

TEST_F(EditorProjectTest, AnOfferedStreamIsBuiltLaterAndAvailableComesLast) {
    openTwo();
    User user(project->composition());
    user.offer({});
    EXPECT_TRUE(user.isAdopted());
    EXPECT_FALSE(user.videoStream.impl) << "not inside the offer";
    ASSERT_TRUE(until([&] { return user.ready(); }));
    EXPECT_EQ(user.events, (std::vector<std::string>{"impl", "available"}));
    EXPECT_EQ(numbers(user.videoStream.impl, 25).size(), 150U);
    EXPECT_EQ(total(runs(user.audioStream.impl, 44100)), 6 * 44100);
    EXPECT_EQ(user.videoStream.version, 1U);
}

TEST_F(EditorProjectTest, PictureAndSoundOfOneExportBeginOnTheSameFrame) {
    openTwo();
    User user(project->composition());
    user.offer(milliseconds(1013, 5000));
    ASSERT_TRUE(until([&] { return user.ready(); }));
    EXPECT_EQ(numbers(user.videoStream.impl, 25).front(), 100025);
    EXPECT_EQ(runs(user.audioStream.impl, 44100).front(), (Stretch{1, 0, 44100, 132300}));
    const StreamLengths lengths =
        project->expectedLengths(milliseconds(1013, 5000), &user.exportedVideo, &user.exportedAudio);
    EXPECT_EQ(lengths.start, Kestra::TIME_BASE);
    EXPECT_EQ(lengths.videoFrames, 100);
    EXPECT_EQ(lengths.audioSamples, 4 * 44100);
    EXPECT_EQ(lengths.videoDuration, user.videoStream.impl->GetDuration());
    EXPECT_EQ(lengths.audioDuration, user.audioStream.impl->GetDuration());
}

TEST_F(EditorProjectTest, SoundAloneBeginsOnTheMillisecond) {
    openTwo();
    User user(project->composition());
    user.offer(milliseconds(1013, 5000), false, true);
    ASSERT_TRUE(until([&] { return user.audioStream.available; }));
    EXPECT_EQ(runs(user.audioStream.impl, 44100).front().first, 44673);
    EXPECT_EQ(project->expectedLengths(milliseconds(1013, 5000), nullptr, &user.exportedAudio).audioDuration,
              user.audioStream.impl->GetDuration());
}

TEST_F(EditorProjectTest, TwoExportsAtATimeDoNotMixTheirRates) {
    openTwo();
    User first(project->composition());
    User second(project->composition());
    second.exportedVideo.frameRateNumerator = 3;
    first.offer(milliseconds(1013, 5000));
    second.offer(milliseconds(1013, 5000));
    ASSERT_TRUE(until([&] { return first.ready() && second.ready(); }));
    EXPECT_EQ(runs(first.audioStream.impl, 44100).front().first, 44100);
    EXPECT_EQ(numbers(second.videoStream.impl, 3).size(), 12U);
    EXPECT_EQ(runs(second.audioStream.impl, 44100).front().first, 44100);
    EXPECT_EQ(second.videoStream.impl->GetDuration(), 4 * Kestra::TIME_BASE);
}

TEST_F(EditorProjectTest, EachOfTwoProjectsBuildsItsOwnStreamsOnly) {
    const auto paths = put({clip(100, 192000), clip(50, 96000)});
    EditorProject second;
    project->open({paths[0]});
    second.open({paths[1]});
    User ofFirst(project->composition()), ofSecond(second.composition());
    ofSecond.offer({});
    ofFirst.offer({});
    ASSERT_TRUE(until([&] { return ofFirst.ready() && ofSecond.ready(); }));
    EXPECT_EQ(numbers(ofFirst.videoStream.impl, 25), range(100000, 100));
    EXPECT_EQ(numbers(ofSecond.videoStream.impl, 25), range(200000, 50));
    EXPECT_EQ(runs(ofFirst.audioStream.impl, 44100).front().id, 1);
    EXPECT_EQ(runs(ofSecond.audioStream.impl, 44100).front().id, 2);
    EXPECT_EQ(ofFirst.events, (std::vector<std::string>{"impl", "available"}));
    EXPECT_EQ(ofSecond.events, (std::vector<std::string>{"impl", "available"}));
}

TEST_F(EditorProjectTest, AStreamOfAnothersCompositionIsLeftAlone) {
    openTwo();
    OtherModel other;
    User user(&other.composition), own(project->composition());
    user.offer({});
    EXPECT_FALSE(user.isAdopted());
    own.offer({});
    ASSERT_TRUE(until([&] { return own.ready(); }));
    EXPECT_FALSE(user.videoStream.impl);
    EXPECT_FALSE(user.audioStream.impl);
}

TEST_F(EditorProjectTest, AStreamOfTheCompositionsOwnDescriptionIsBuilt) {
    openTwo();
    struct Preview : private Stream::VideoView {
        void offer(const Media::Video* source) { streamAdd(&stream)->source = source; }
        Stream::VideoObject stream;
    } preview;
    preview.offer(project->composition()->video());
    EXPECT_TRUE(until([&] { return preview.stream.available; }));
}

TEST_F(EditorProjectTest, AStreamThatIsTurnedToAnothersDescriptionFails) {
    openTwo();
    std::exception_ptr reported;
    QObject::connect(project.get(), &EditorProject::streamFailed, [&](std::exception_ptr error) { reported = error; });
    User user(project->composition());
    user.offer({});
    ASSERT_TRUE(until([&] { return user.ready(); }));
    const Media::Video foreign = user.exportedVideo;
    user.changeSource(&foreign);
    EXPECT_TRUE(until([&] { return reported != nullptr; }));
    EXPECT_FALSE(user.ready());
}

TEST_F(EditorProjectTest, ProjectsShareOneFastTrackAndHandItOn) {
    auto second = std::make_unique<EditorProject>();
    EditorProject third;
    ASSERT_EQ(ownedFastTracks().size(), 1U);
    const FastTrack::Object* const first = *ownedFastTracks().begin();
    second.reset();
    EXPECT_EQ(ownedFastTracks(), std::set<const FastTrack::Object*>{first});
    project.reset();
    ASSERT_EQ(ownedFastTracks().size(), 1U);
    EXPECT_NE(*ownedFastTracks().begin(), first);
    const FastTrack::Suppressor suppressor;
    EXPECT_TRUE((*ownedFastTracks().begin())->isSuppressed());
}

TEST_F(EditorProjectTest, AnEditorsOwnFastTrackIsTheOnlyOne) {
    EditorProject second;
    {
        const OtherModel later;
        EXPECT_EQ(ownedFastTracks(), std::set<const FastTrack::Object*>{&later.fastTrack});
        const EditorProject third;
        EXPECT_EQ(ownedFastTracks().size(), 1U);
        const FastTrack::Suppressor suppressor;
        EXPECT_TRUE(later.fastTrack.isSuppressed());
    }
    EXPECT_EQ(ownedFastTracks().size(), 1U) << "somebody takes over";
}

TEST_F(EditorProjectTest, TakingAStreamIsGranted) {
    openTwo();
    User user(project->composition());
    user.offer({});
    ASSERT_TRUE(until([&] { return user.ready(); }));
    user.take();
    EXPECT_TRUE(user.videoStream.using_);
    EXPECT_TRUE(user.videoStream.impl);
    EXPECT_TRUE(user.videoStream.available);
}

TEST_F(EditorProjectTest, AStreamWhoseRangeChangesIsBuiltAnew) {
    openTwo();
    User user(project->composition());
    user.offer({});
    ASSERT_TRUE(until([&] { return user.ready(); }));
    user.changeRange(milliseconds(0, 1000));
    EXPECT_FALSE(user.videoStream.available);
    ASSERT_TRUE(until([&] { return user.ready(); }));
    EXPECT_EQ(numbers(user.videoStream.impl, 25).size(), 25U);
}

TEST_F(EditorProjectTest, WhatCannotBeBuiltIsReported) {
    openTwo();
    std::exception_ptr reported;
    QObject::connect(project.get(), &EditorProject::streamFailed, [&](std::exception_ptr error) { reported = error; });
    User user(project->composition());
    user.offer(milliseconds(7000, 8000));
    ASSERT_TRUE(until([&] { return reported != nullptr; }));
    EXPECT_FALSE(user.ready());
    EXPECT_EQ(project->streamError() != nullptr, true);
    EXPECT_THROW(std::rethrow_exception(reported), Kestra::Proc::ProcException);
    EXPECT_THROW(project->expectedLengths(milliseconds(7000, 8000), &user.exportedVideo, nullptr),
                 Kestra::Proc::ProcException);
}

TEST_F(EditorProjectTest, AStreamOfferedBeforeAnythingIsOpenFails) {
    std::exception_ptr reported;
    QObject::connect(project.get(), &EditorProject::streamFailed, [&](std::exception_ptr error) { reported = error; });
    User user(project->composition());
    user.offer({});
    EXPECT_TRUE(until([&] { return reported != nullptr; }));
}

TEST_F(EditorProjectTest, AWithdrawnStreamIsNotBuilt) {
    openTwo();
    User user(project->composition());
    user.offer({});
    user.withdraw();
    EXPECT_FALSE(user.isAdopted());
    ASSERT_TRUE(until([&] { return user.audioStream.available; }));
    EXPECT_FALSE(user.videoStream.impl);
}

TEST_F(EditorProjectTest, TheUserMayGoWhileItsStreamsAreBeingBuilt) {
    openTwo();
    {
        User user(project->composition());
        user.offer({});
    }
    User next(project->composition());
    next.offer({});
    EXPECT_TRUE(until([&] { return next.ready(); }));
    EXPECT_EQ(project->composition()->exportedVideos().size(), 1U);
}

TEST_F(EditorProjectTest, TheProjectMayGoWhileItBuilds) {
    openTwo();
    User user(project->composition());
    user.offer({});
    project.reset();
    EXPECT_FALSE(user.seesComposition()) << "its removal is announced";
    QCoreApplication::processEvents();
    EXPECT_FALSE(user.videoStream.impl);
}

TEST_F(EditorProjectTest, AReceiverMayDestroyTheProject) {
    openTwo();
    User user(project->composition());
    user.onImpl = [&] { project.reset(); };
    user.offer({});
    EXPECT_TRUE(until([&] { return project == nullptr; }));
    QCoreApplication::processEvents();
    EXPECT_FALSE(user.ready());
    EXPECT_EQ(numbers(user.videoStream.impl, 25).size(), 150U) << "the engine stream outlives the project";
}

} // namespace
} // namespace Project::Tests
