// SPDX-License-Identifier: GPL-3.0-or-later
// Reading ahead: order, bounds, errors, interruption.
#include "Kestra/Base/Time.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "Kestra/Proc/Interrupted.h"
#include "Kestra/Proc/ProcException.h"
#include "fakes/kestra/FakeStreamAudio.h"
#include "fakes/kestra/FakeStreamVideo.h"
#include <gtest/gtest.h>
#include <pthread.h>
#include <thread>

namespace Kestra {
namespace {

using Fakes::FakeFrame;
using Fakes::FakeStreamAudio;
using Fakes::FakeStreamVideo;
using Proc::SeekMode;

Proc::IFilterFactory& filters() {
    return Core::CoreManager::Instance().GetFilterFactory();
}

int numberOf(const boost::intrusive_ptr<Proc::IDataVideo>& picture) {
    return picture ? dynamic_cast<const FakeFrame&>(*picture).GetNumber() : -1;
}

TEST(ReadAhead, GivesEveryPictureInOrder) {
    const auto stream =
        filters().CreateReadAhead(boost::intrusive_ptr<Proc::IStreamVideo>(new FakeStreamVideo(200)), 4);
    for (int number = 0; number < 200; ++number) {
        EXPECT_EQ(stream->GetPosition(), FramesToTime(number, 25));
        ASSERT_EQ(numberOf(stream->ReadVideo()), number);
    }
    EXPECT_FALSE(stream->ReadVideo());
    EXPECT_FALSE(stream->ReadVideo());
}

TEST(ReadAhead, GivesEveryBlockOfSound) {
    const auto stream =
        filters().CreateReadAhead(boost::intrusive_ptr<Proc::IStreamAudio>(new FakeStreamAudio(100000)), 4);
    std::int64_t samples = 0;
    while (const auto block = stream->ReadAudio()) {
        ASSERT_EQ(block->GetTime(), SamplesToTime(samples, 48000));
        samples += block->GetSampleCount();
    }
    EXPECT_EQ(samples, 100000);
}

TEST(ReadAhead, ReadsNoFurtherThanItHasRoomFor) {
    boost::intrusive_ptr<FakeStreamVideo> source = new FakeStreamVideo(100);
    const auto last = source->GetScript()->BlockAt("ReadVideo 2");
    const auto beyond = source->GetScript()->BlockAt("ReadVideo 4");
    const auto stream = filters().CreateReadAhead(boost::intrusive_ptr<Proc::IStreamVideo>(source), 2);
    EXPECT_EQ(numberOf(stream->ReadVideo()), 0);
    EXPECT_TRUE(last->WaitUntilReached());
    last->Open();
    // Pictures 1 and 2, then at most 2 and 3, fill the queue: the fourth is begun only when two have been taken.
    EXPECT_EQ(numberOf(stream->ReadVideo()), 1);
    EXPECT_FALSE(beyond->WaitUntilReached(std::chrono::milliseconds(50)));
    EXPECT_EQ(numberOf(stream->ReadVideo()), 2);
    EXPECT_TRUE(beyond->WaitUntilReached());
    beyond->Open();
    for (int number = 3; number < 100; ++number)
        ASSERT_EQ(numberOf(stream->ReadVideo()), number);
}

TEST(ReadAhead, ReadsOnAThreadThatIsNamedForItsTrack) {
    std::string pictures, sound;
    const auto note = [](std::string& name) {
        return [&name] {
            char own[32] = {};
            pthread_getname_np(pthread_self(), own, sizeof own);
            name = own;
        };
    };
    boost::intrusive_ptr<FakeStreamVideo> video = new FakeStreamVideo(1);
    boost::intrusive_ptr<FakeStreamAudio> audio = new FakeStreamAudio(1);
    video->GetScript()->At("ReadVideo 0", note(pictures));
    audio->GetScript()->At("ReadAudio 0", note(sound));
    EXPECT_TRUE(filters().CreateReadAhead(boost::intrusive_ptr<Proc::IStreamVideo>(video), 2)->ReadVideo());
    EXPECT_TRUE(filters().CreateReadAhead(boost::intrusive_ptr<Proc::IStreamAudio>(audio), 2)->ReadAudio());
    EXPECT_EQ(pictures, "kestra-read-vid");
    EXPECT_EQ(sound, "kestra-read-aud");
}

TEST(ReadAhead, ThrowsWhatTheSourceThrewInItsPlace) {
    boost::intrusive_ptr<FakeStreamVideo> source = new FakeStreamVideo(10);
    source->GetScript()->ThrowAt("ReadVideo 3", std::make_exception_ptr(Proc::ProcException("the disk is gone")));
    const auto stream = filters().CreateReadAhead(boost::intrusive_ptr<Proc::IStreamVideo>(source), 8);
    for (int number = 0; number < 3; ++number)
        EXPECT_EQ(numberOf(stream->ReadVideo()), number);
    EXPECT_THROW(stream->ReadVideo(), Proc::ProcException);
    EXPECT_THROW(stream->ReadVideo(), Proc::ProcException);
}

TEST(ReadAhead, IsWokenByAnInterruptWhileItWaits) {
    boost::intrusive_ptr<FakeStreamVideo> source = new FakeStreamVideo(10);
    const auto gate = source->GetScript()->BlockAt("ReadVideo 2");
    const auto stream = filters().CreateReadAhead(boost::intrusive_ptr<Proc::IStreamVideo>(source), 2);
    EXPECT_EQ(numberOf(stream->ReadVideo()), 0);
    EXPECT_EQ(numberOf(stream->ReadVideo()), 1);
    std::thread other([&] {
        EXPECT_TRUE(gate->WaitUntilReached());
        stream->Interrupt();
    });
    EXPECT_THROW(stream->ReadVideo(), Proc::Interrupted);
    other.join();
    EXPECT_THROW(stream->ReadVideo(), Proc::Interrupted);
    stream->Reset();
    EXPECT_EQ(numberOf(stream->ReadVideo()), 0);
}

TEST(ReadAhead, PassesOnThatItsSourceWasInterrupted) {
    boost::intrusive_ptr<FakeStreamVideo> source = new FakeStreamVideo(10);
    const auto stream = filters().CreateReadAhead(boost::intrusive_ptr<Proc::IStreamVideo>(source), 1);
    EXPECT_EQ(numberOf(stream->ReadVideo()), 0);
    source->Interrupt();
    const auto readAll = [&] {
        while (stream->ReadVideo()) {
        }
    };
    EXPECT_THROW(readAll(), Proc::Interrupted);
}

TEST(ReadAhead, GoesOnWhereASeekPutsIt) {
    const auto stream =
        filters().CreateReadAhead(boost::intrusive_ptr<Proc::IStreamVideo>(new FakeStreamVideo(100)), 5);
    EXPECT_EQ(numberOf(stream->ReadVideo()), 0);
    stream->Seek(FramesToTime(60, 25), SeekMode::Exact);
    EXPECT_EQ(stream->GetPosition(), FramesToTime(60, 25));
    EXPECT_EQ(numberOf(stream->ReadVideo()), 60);
    EXPECT_EQ(numberOf(stream->ReadVideo()), 61);
    stream->Seek(0, SeekMode::Exact);
    EXPECT_EQ(numberOf(stream->ReadVideo()), 0);
}

TEST(ReadAhead, CanBeReleasedAtAnyMoment) {
    for (int reads = 0; reads < 6; ++reads) {
        const auto stream =
            filters().CreateReadAhead(boost::intrusive_ptr<Proc::IStreamVideo>(new FakeStreamVideo(50)), 2);
        for (int number = 0; number < reads; ++number)
            EXPECT_EQ(numberOf(stream->ReadVideo()), number);
    }
}

/// A stream whose third picture is read from something that is gone for good.
struct HungSource {
    HungSource() {
        source->GetScript()->At("ReadVideo 2", [gate = gate] { gate->Pass(); });
        stream = filters().CreateReadAhead(boost::intrusive_ptr<Proc::IStreamVideo>(source), 2);
        EXPECT_EQ(numberOf(stream->ReadVideo()), 0);
        EXPECT_TRUE(gate->WaitUntilReached());
    }
    ~HungSource() { gate->Open(); }

    /// Whether only the test holds the source any more.
    bool isLetGo() const {
        for (int turn = 0; turn < 20'000 && source->GetRefCount() > 1; ++turn)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        return source->GetRefCount() == 1;
    }

    std::shared_ptr<Fakes::Gate> gate = std::make_shared<Fakes::Gate>();
    boost::intrusive_ptr<FakeStreamVideo> source = new FakeStreamVideo(10);
    boost::intrusive_ptr<Proc::IStreamVideo> stream;
};

TEST(ReadAhead, IsReleasedWhileItsSourceHangsAndTheSourceIsLetGoLater) {
    HungSource hung;
    hung.stream.reset();
    EXPECT_GT(hung.source->GetRefCount(), 1) << "the thread that hangs holds what it is in";
    hung.gate->Open();
    EXPECT_TRUE(hung.isLetGo());
}

TEST(ReadAhead, RefusesAResetWhileItsSourceHangs) {
    HungSource hung;
    EXPECT_THROW(hung.stream->Reset(), Proc::ProcException);
    EXPECT_THROW(hung.stream->ReadVideo(), Proc::Interrupted);
    EXPECT_THROW(hung.stream->Seek(0, SeekMode::Exact), Proc::ProcException);
}

TEST(ReadAhead, IsInterruptedWhileASeekWaitsForAReadThatHangs) {
    HungSource hung;
    std::thread other([&] { hung.stream->Interrupt(); });
    EXPECT_THROW(hung.stream->Seek(FramesToTime(5, 25), SeekMode::Exact), Proc::ProcException);
    other.join();
    EXPECT_THROW(hung.stream->ReadVideo(), Proc::Interrupted);
}

TEST(ReadAhead, TellsFormatAndDurationWhileItReads) {
    const auto stream = filters().CreateReadAhead(boost::intrusive_ptr<Proc::IStreamVideo>(new FakeStreamVideo(50)), 2);
    stream->ReadVideo();
    boost::intrusive_ptr<Conf::IFormatCodecVideo> format;
    stream->GetVideoFormat(format);
    EXPECT_EQ(format->GetFrameInfo().width, 64U);
    EXPECT_EQ(stream->GetDuration(), FramesToTime(50, 25));
}

} // namespace
} // namespace Kestra
