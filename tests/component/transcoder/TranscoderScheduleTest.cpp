// SPDX-License-Identifier: GPL-3.0-or-later
// When an attempt is made: the deferral, and what the stream views' own hooks still get.
#include "component/transcoder/TranscoderFixture.h"

namespace {

/// Tells the order of the deferred start's event and of the hooks of the stream views.
class ListeningTranscoder : public Export::Transcoder {
public:
    explicit ListeningTranscoder(std::vector<std::string>& sink)
        : Transcoder(nullptr)
        , told(sink) {}

protected:
    void sourceChanged(const Stream::VideoObject*) override { tell("video source"); }
    void sourceChanged(const Stream::AudioObject*) override { tell("audio source"); }
    void isAvailable(const Stream::VideoObject*, bool available) override {
        tell(available ? "video available" : "video gone");
    }
    void isAvailable(const Stream::AudioObject*, bool available) override {
        tell(available ? "audio available" : "audio gone");
    }
    void isUsing(const Stream::VideoObject*, bool) override { tell("video taken"); }
    void isUsing(const Stream::AudioObject*, bool) override { tell("audio taken"); }

private:
    /// An attempt that is scheduled has posted its event by now.
    void tell(const std::string& what) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::User);
        told.push_back(what);
    }

    std::vector<std::string>& told;
};

/// Adds "attempt's event" for each event of the deferred start.
class EventEar : public QObject {
public:
    explicit EventEar(std::vector<std::string>& sink)
        : told(sink) {
        QCoreApplication::instance()->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == 1000)
            told.emplace_back("attempt's event");
        return false;
    }

private:
    std::vector<std::string>& told;
};

} // namespace

class Deferral : public TranscoderTest {
protected:
    Deferral() {
        // Streams that are never marked as taken show every attempt.
        model.videoStreams.refuseChanges(true);
        model.audioStreams.refuseChanges(true);
    }
};

TEST_F(Deferral, TakesTwoTurnsOfTheEventLoop) {
    initialize();
    model.buildStreams(videoStream, audioStream);
    EXPECT_EQ(logged(), std::vector<std::string>());
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(logged(), std::vector<std::string>()) << "the first turn starts a timer";
    EXPECT_TRUE(TestSupport::waitUntil([this] { return countLogged(259) == 1; }));
}

TEST_F(Deferral, OfManyChangesPostsOneEvent) {
    initialize();
    TestSupport::turnEventLoop();
    std::vector<std::string> told;
    const EventEar ear(told);
    model.buildStreams(videoStream, audioStream);
    for (std::uint64_t version = 1; version <= 10; ++version)
        model.audioStreams.setVersion(version);
    TestSupport::turnEventLoop();
    EXPECT_EQ(told, std::vector<std::string>{"attempt's event"});
    EXPECT_EQ(countLogged(259), 1U);
}

TEST_F(Deferral, BeginsAnewAfterEachAttempt) {
    initialize();
    makeReady();
    for (std::uint64_t version = 1; version <= 3; ++version) {
        model.videoStreams.setVersion(version);
        TestSupport::turnEventLoop();
        EXPECT_EQ(countLogged(259), 1U + version);
    }
}

TEST_F(Deferral, FollowsAChangeOfEitherStream) {
    initialize();
    makeReady();
    model.audioStreams.setVersion(1);
    TestSupport::turnEventLoop();
    EXPECT_EQ(countLogged(259), 2U);
    model.videoStreams.setVersion(1);
    TestSupport::turnEventLoop();
    EXPECT_EQ(countLogged(259), 3U);
}

TEST_F(Deferral, FollowsNothingButStreams) {
    initialize();
    makeReady();
    model.setCompositionVideo(nullptr);
    TestSupport::turnEventLoop();
    EXPECT_EQ(countLogged(259), 1U);
}

TEST_F(TranscoderTest, SchedulesAheadOfTheHooksOfBothStreamViews) {
    std::vector<std::string> told;
    transcoder = std::make_unique<ListeningTranscoder>(told);
    const EventEar ear(told);
    initialize();
    EXPECT_EQ(told, (std::vector<std::string>{"attempt's event", "video source", "audio source"}))
        << "both streams came within one turn";
    TestSupport::turnEventLoop();
    told.clear();
    model.videoStreams.setAvailable(true);
    TestSupport::turnEventLoop();
    model.audioStreams.setAvailable(true);
    EXPECT_EQ(told,
              (std::vector<std::string>{"attempt's event", "video available", "attempt's event", "audio available"}));
}

TEST_F(TranscoderTest, TakesPicturesThenSoundAfterItsFirstLine) {
    std::vector<std::string> told;
    transcoder = std::make_unique<ListeningTranscoder>(told);
    log.onLine = [&](const TestSupport::LogLine& line) { told.push_back(line.text); };
    initialize();
    model.videoStreams.setAvailable(true);
    model.videoStreams.setImpl(videoStream);
    model.audioStreams.setImpl(audioStream);
    model.audioStreams.setAvailable(true);
    told.clear();
    TestSupport::turnEventLoop();
    log.onLine = nullptr;
    EXPECT_EQ(told,
              (std::vector<std::string>{"EXPORT: Trying to start", "video taken", "audio taken", "EXPORT: Started"}));
}
