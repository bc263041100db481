// SPDX-License-Identifier: GPL-3.0-or-later
// Export::StreamOwner as an export meets it on the bus.
#include "Export/StreamOwner.h"
#include "Composition/CompositionView.h"
#include "Kestra/Proc/ProcException.h"
#include "Kestra/Proc/ProcessingError.h"
#include "fakes/editor/ExportUser.h"
#include "fakes/kestra/FakeStreamAudio.h"
#include "fakes/kestra/FakeStreamVideo.h"
#include "support/WaitUntil.h"
#include <gtest/gtest.h>

namespace {

using EditorFakes::ExportUser;
using Kestra::Proc::IStreamAudio;
using Kestra::Proc::IStreamVideo;
using Kestra::Proc::ProcessingError;
using Kestra::Proc::ProcException;
using Kestra::Proc::TranscodingError;
using Events = std::vector<std::string>;

const Types::Range SECOND{KTime(0), KTime(1000)};
const Types::Range NEXT{KTime(1000), KTime(2000)};

class Model : private Composition::CompositionView {
public:
    Model() {
        composition.setVideo(&video).setAudio(&audio).setDuration(KTime(5000));
        compositionOwn(&composition);
    }
    ~Model() override { compositionRemove(&composition); }

    Media::Video video;
    Media::Audio audio;
    Composition::Object composition;
};

class StreamOwnerTest : public ::testing::Test {
protected:
    StreamOwnerTest() {
        QObject::connect(owner.get(), &Export::StreamOwner::streamFailed, [this](const std::exception_ptr& error) {
            failures.push_back(ProcessingError::MakeProcessingErrorFromException(error).GetDescription());
        });
    }
    boost::intrusive_ptr<IStreamVideo> makePictures(const Stream::VideoObject& stream) {
        shown.push_back(stream.range);
        return pictures();
    }

    Model model;
    std::vector<Types::Range> shown; ///< of the pictures that were asked for
    Events failures;
    std::function<boost::intrusive_ptr<IStreamVideo>()> pictures = [] {
        return new Kestra::Fakes::FakeStreamVideo(25);
    };
    std::unique_ptr<Export::StreamOwner> owner = std::make_unique<Export::StreamOwner>(
        model.composition, [this](const Stream::VideoObject& stream) { return makePictures(stream); },
        [](const Stream::AudioObject&) { return new Kestra::Fakes::FakeStreamAudio(48'000); });
};

TEST_F(StreamOwnerTest, HasStreamsMadeInALaterTurnAndTellsLastThatTheyAreAvailable) {
    ExportUser user(&model.composition);
    user.offer(NEXT);
    EXPECT_TRUE(user.isAdopted());
    EXPECT_TRUE(shown.empty()) << "not inside the offer";
    ASSERT_TRUE(TestSupport::waitUntil([&] { return user.ready(); }));
    EXPECT_EQ(user.events, (Events{"impl", "available"}));
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown.front(), NEXT);
    EXPECT_TRUE(user.videoStream.impl && user.audioStream.impl);
    EXPECT_EQ(user.videoStream.version, 1U);
}

TEST_F(StreamOwnerTest, LeavesStreamsOfOthersAlone) {
    Model other;
    ExportUser user(&other.composition);
    user.offer(SECOND);
    TestSupport::turnEventLoop();
    EXPECT_FALSE(user.isAdopted());
    EXPECT_TRUE(shown.empty());
}

TEST_F(StreamOwnerTest, HasAStreamMadeOnceMoreThatIsChangedBeforeItIsTaken) {
    ExportUser user(&model.composition);
    user.offer(SECOND);
    ASSERT_TRUE(TestSupport::waitUntil([&] { return user.ready(); }));
    user.changeRange(NEXT);
    EXPECT_FALSE(user.videoStream.available || user.videoStream.impl);
    ASSERT_TRUE(TestSupport::waitUntil([&] { return user.ready(); }));
    EXPECT_EQ(shown, (std::vector<Types::Range>{SECOND, NEXT}));
    user.take();
    user.changeRange(SECOND);
    TestSupport::turnEventLoop();
    EXPECT_EQ(shown.size(), 2U) << "whoever took it reads it";
    EXPECT_TRUE(user.ready());
}

TEST_F(StreamOwnerTest, TellsWhyAStreamCannotBeMade) {
    ExportUser user(&model.composition);
    pictures = []() -> boost::intrusive_ptr<IStreamVideo> {
        throw ProcException(TranscodingError::SourceUnreadable, "the reel is gone");
    };
    user.offer(SECOND);
    ASSERT_TRUE(TestSupport::waitUntil([&] { return !failures.empty() && user.audioStream.available; }));
    pictures = [] { return nullptr; };
    user.changeRange(NEXT);
    ASSERT_TRUE(TestSupport::waitUntil([&] { return failures.size() == 2; }));
    EXPECT_EQ(failures, (Events{"the reel is gone", "The model made no stream for an export"}));
    EXPECT_FALSE(user.videoStream.available || user.videoStream.impl);
}

TEST_F(StreamOwnerTest, LetsGoOfStreamsWhoseDescriptionIsWithdrawn) {
    Message::View<Stream::VideoObject> pictures;
    Message::View<Stream::AudioObject> sound;
    {
        ExportUser user(&model.composition);
        user.offer(SECOND);
        ASSERT_TRUE(TestSupport::waitUntil([&] { return user.ready(); }));
        EXPECT_EQ(pictures.enumerateAll().size(), 1U);
        EXPECT_EQ(sound.enumerateAll().size(), 1U);
    }
    EXPECT_TRUE(pictures.enumerateAll().empty());
    EXPECT_TRUE(sound.enumerateAll().empty());
}

TEST_F(StreamOwnerTest, MakesNothingForAStreamThatIsGoneByItsTurn) {
    {
        ExportUser user(&model.composition);
        user.offer(SECOND);
    }
    TestSupport::turnEventLoop();
    EXPECT_TRUE(shown.empty());
}

TEST_F(StreamOwnerTest, MayBeDestroyedByWhoHearsOfAStream) {
    ExportUser user(&model.composition);
    user.onImpl = [this] { owner.reset(); };
    user.offer(SECOND);
    ASSERT_TRUE(TestSupport::waitUntil([this] { return !owner; }));
    TestSupport::turnEventLoop();
    EXPECT_EQ(user.events, Events{"impl"});
    EXPECT_FALSE(user.videoStream.available);
}

} // namespace
