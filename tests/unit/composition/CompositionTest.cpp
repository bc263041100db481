// SPDX-License-Identifier: GPL-3.0-or-later
#include "Composition/View.h"
#include "support/Perishable.h"
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Log = std::vector<std::string>;
using Videos = Media::View<Media::Video>;
using Audios = Media::View<Media::Audio>;

class RecordingView : public Composition::View {
public:
    using CompositionView::compositionObserve, CompositionView::compositionForget, CompositionView::compositionChange,
        CompositionView::composition, MarkerView::markerObserve, RangeView::rangeObserve;
    const Media::Video* video() const { return Videos::media(); }
    void observeToo(const Media::Video* other) { Videos::mediaObserve(other); }
    const Media::Audio* audio() const { return Audios::media(); }
    Log log;
    std::function<void(const std::string&)> onHook; ///< may destroy the view

private:
    void videoChanged(const Composition::Object*) override { note(video() ? "video" : "no video"); }
    void audioChanged(const Composition::Object*) override { note(audio() ? "audio" : "no audio"); }
    void exportsChanged(const Composition::Object*) override { note("exports"); }
    void contentChanged(const Composition::Object*) override { note("content"); }
    void mediaAdded(const Media::Video*) override { note("video added"); }
    void mediaRemoved(const Media::Video*) override { note("video removed"); }
    void mediaAdded(const Media::Audio*) override { note("audio added"); }
    void mediaRemoved(const Media::Audio*) override { note("audio removed"); }
    void markerAdded(const Composition::Marker* marker) override { note(marker->name.toStdString()); }
    void rangeAdded(const Composition::Range* range) override { note(range->name.toStdString()); }
    void note(const std::string& hook) {
        log.push_back(hook);
        if (const auto action = onHook) // a copy: it may destroy the view
            action(hook);
    }
};

class CompositionView : public ::testing::Test {
protected:
    CompositionView() {
        composition.setVideo(&video).setAudio(&audio);
        owner.own(&composition);
    }

    Media::Video video;
    Media::Audio audio;
    Composition::Object composition;
    Message::View<Composition::Object> owner;
    RecordingView view;
};

TEST_F(CompositionView, ObservesTheCompositionsOwnDescriptions) {
    view.compositionObserve(&composition);
    EXPECT_EQ(view.composition(), &composition);
    EXPECT_EQ(view.video(), &video);
    EXPECT_EQ(view.audio(), &audio);
    EXPECT_THAT(view.log, ElementsAre("video added", "video", "audio added", "audio"));
}

TEST_F(CompositionView, DoesNotObserveDescriptionsOfExports) {
    Media::Video exportedVideo;
    Media::Audio exportedAudio;
    view.compositionObserve(&composition);
    view.log.clear();
    view.compositionChange(&composition)->add(&exportedVideo).add(&exportedAudio);
    EXPECT_TRUE(composition.contains(&exportedVideo));
    EXPECT_TRUE(composition.contains(&exportedAudio));
    EXPECT_EQ(view.video(), &video);
    EXPECT_EQ(view.audio(), &audio);
    EXPECT_THAT(view.log, ElementsAre("exports"));
}

TEST_F(CompositionView, LeavesADescriptionThatItHoldsAlreadyAsItIs) {
    Media::Video other;
    view.compositionObserve(&composition);
    view.observeToo(&other);
    view.log.clear();
    view.compositionChange(&composition)->setVideo(&other);
    EXPECT_EQ(view.video(), &other);
    EXPECT_THAT(view.log, ElementsAre("video removed", "video"));
}

TEST_F(CompositionView, FollowsToOtherDescriptions) {
    Media::Video otherVideo;
    view.compositionObserve(&composition);
    view.log.clear();
    owner.change(&composition)->setVideo(&otherVideo).setAudio(nullptr);
    EXPECT_EQ(view.video(), &otherVideo);
    EXPECT_EQ(view.audio(), nullptr);
    EXPECT_THAT(view.log, ElementsAre("video removed", "video added", "video", "audio removed", "no audio"));
}

TEST_F(CompositionView, LetsDescriptionsGoWithTheComposition) {
    view.compositionObserve(&composition);
    view.log.clear();
    owner.remove(&composition);
    EXPECT_EQ(view.composition(), nullptr);
    EXPECT_EQ(view.video(), nullptr);
    EXPECT_EQ(view.audio(), nullptr);
    EXPECT_THAT(view.log, ElementsAre("video removed", "no video", "audio removed", "no audio"));
}

TEST_F(CompositionView, TellsOfItsFourPartsInOrder) {
    Media::Video otherVideo;
    Media::Audio otherAudio;
    view.compositionObserve(&composition);
    view.log.clear();
    {
        auto chain = owner.change(&composition);
        chain->setDuration(KTime(10)).setVersion(2).add(&otherAudio).setAudio(&otherAudio).setVideo(&otherVideo);
    }
    EXPECT_THAT(view.log, ElementsAre("video removed", "video added", "video", "audio removed", "audio added", "audio",
                                      "exports", "content"));
}

TEST_F(CompositionView, MayBeDestroyedByEachHookOnTheWay) {
    Media::Video otherVideo;
    Media::Audio otherAudio;
    Log until;
    for (const char* last :
         {"video removed", "video added", "video", "audio removed", "audio added", "audio", "exports", "content"}) {
        until.push_back(last);
        Log called;
        TestSupport::Perishable<RecordingView> doomed;
        owner.change(&composition)->setVideo(&video).setAudio(&audio).remove(&otherVideo).setVersion(1);
        doomed->compositionObserve(&composition);
        doomed->onHook = [&](const std::string& hook) {
            called.push_back(hook);
            if (hook == last)
                doomed.perish();
        };
        owner.change(&composition)->setVideo(&otherVideo).setAudio(&otherAudio).add(&otherVideo).setVersion(2);
        EXPECT_EQ(doomed.get(), nullptr);
        EXPECT_EQ(called, until);
    }
}

TEST_F(CompositionView, TellsNoFurtherPartsOfACompositionThatAHookDestroyed) {
    Log until;
    for (const char* last : {"video added", "video", "audio added", "audio", "exports", "content"}) {
        until.push_back(last);
        Log called;
        Media::Video exported;
        TestSupport::Perishable<Composition::Object> doomed;
        doomed->setVideo(&video).setAudio(&audio).add(&exported).setVersion(7);
        RecordingView observing;
        observing.onHook = [&](const std::string& hook) {
            called.push_back(hook);
            if (hook == last)
                doomed.perish();
        };
        observing.compositionObserve(doomed.get());
        EXPECT_EQ(doomed.get(), nullptr);
        EXPECT_EQ(called, until);
    }
}

TEST_F(CompositionView, TellsOfEachPartAlone) {
    Media::Video exportedVideo;
    Media::Audio exportedAudio;
    view.compositionObserve(&composition);
    const auto hooksAfter = [&](auto set) {
        view.log.clear();
        set(*owner.change(&composition));
        return view.log;
    };
    using Object = Composition::Object;
    EXPECT_THAT(hooksAfter([&](Object& o) { o.add(&exportedVideo); }), ElementsAre("exports"));
    EXPECT_THAT(hooksAfter([&](Object& o) { o.add(&exportedAudio); }), ElementsAre("exports"));
    EXPECT_THAT(hooksAfter([](Object& o) { o.setDuration(KTime(10)); }), ElementsAre("content"));
    EXPECT_THAT(hooksAfter([](Object& o) { o.setVersion(2); }), ElementsAre("content"));
    EXPECT_THAT(hooksAfter([](Object& o) { o.setVideo(nullptr); }), ElementsAre("video removed", "no video"));
    EXPECT_THAT(hooksAfter([](Object& o) { o.setAudio(nullptr); }), ElementsAre("audio removed", "no audio"));
    EXPECT_THAT(hooksAfter([](Object&) {}), IsEmpty());
}

TEST_F(CompositionView, DoesNotForgetADescriptionTwice) {
    Message::View<Media::Video> media;
    media.own(&video);
    view.compositionObserve(&composition);
    media.remove(&video);
    view.log.clear();
    owner.change(&composition)->setVideo(nullptr);
    EXPECT_THAT(view.log, ElementsAre("no video"));
}

TEST_F(CompositionView, SeesChangesOfTheDescriptions) {
    class Counting : public RecordingView {
    public:
        int changes = 0;

    private:
        using Audios::mediaChanged;
        using Videos::mediaChanged;
        void mediaChanged(const Media::Video*, const Media::Video*) override { ++changes; }
    } counting;
    Message::View<Media::Video> media;
    media.own(&video);
    counting.compositionObserve(&composition);
    media.change(&video)->width = 1920;
    EXPECT_EQ(counting.changes, 1);
}

TEST_F(CompositionView, MayOutliveDescriptionsAndComposition) {
    auto mortal = std::make_unique<Composition::Object>();
    auto mortalVideo = std::make_unique<Media::Video>();
    auto mortalAudio = std::make_unique<Media::Audio>();
    mortal->setVideo(mortalVideo.get()).setAudio(mortalAudio.get());
    auto survivor = std::make_unique<RecordingView>();
    survivor->compositionObserve(mortal.get());
    mortalVideo.reset();
    mortalAudio.reset();
    mortal.reset();
    survivor.reset();
    SUCCEED();
}

TEST_F(CompositionView, MayForgetACompositionWhoseDescriptionsAreGone) {
    auto mortal = std::make_unique<Media::Video>();
    owner.change(&composition)->setVideo(mortal.get());
    view.compositionObserve(&composition);
    mortal.reset();
    view.compositionForget(&composition);
    EXPECT_EQ(view.video(), nullptr);
}

TEST_F(CompositionView, HoldsMarkersAndRanges) {
    Composition::Marker marker;
    marker.name = QStringLiteral("cut");
    Composition::Range range;
    range.name = QStringLiteral("chapter");
    view.markerObserve(&marker);
    view.rangeObserve(&range);
    EXPECT_THAT(view.log, ElementsAre("cut", "chapter"));
}

TEST(CompositionObject, HoldsEachExportDescriptionOnce) {
    Media::Video one;
    Media::Video two;
    Composition::Object composition;
    composition.add(&one).add(&two).add(&one).add(static_cast<Media::Video*>(nullptr));
    EXPECT_EQ(composition.exportedVideos().size(), 2u);
    composition.remove(&one).remove(&one);
    EXPECT_FALSE(composition.contains(&one));
    EXPECT_THAT(composition.exportedVideos(), ElementsAre(&two));
    EXPECT_THAT(composition.exportedAudios(), IsEmpty());
    EXPECT_FALSE(composition.contains(static_cast<Media::Audio*>(nullptr)));
}

TEST(CompositionObject, IsEmptyByDefault) {
    const Composition::Object composition;
    EXPECT_EQ(composition.video(), nullptr);
    EXPECT_EQ(composition.audio(), nullptr);
    EXPECT_EQ(composition.duration(), KTime());
    EXPECT_EQ(composition.version(), 0u);
}

TEST(MediaDescription, ComparesByValue) {
    Media::Video video;
    Media::Video same(video);
    EXPECT_EQ(video, same);
    same.exported = true;
    EXPECT_NE(video, same);
    Media::Audio audio;
    Media::Audio other(audio);
    EXPECT_EQ(audio, other);
    other.sampleRate = 48000;
    EXPECT_NE(audio, other);
}

} // namespace
