// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Filters/FiltersSpecial/FrameStretch.h"

#include "Kestra/Base/Time.h"
#include "Kestra/Proc/Interrupted.h"
#include "Kestra/Proc/ProcException.h"
#include "fakes/branding/RecordingVideo.h"
#include "support/HookSlot.h"
#include <boost/exception/get_error_info.hpp>
#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace {

using namespace Kestra;
using Fakes::CallLog;
using Fakes::RecordingVideo;
using Proc::FrameStretch;
using Proc::SeekMode;

constexpr std::int64_t LENGTH = 5 * TIME_BASE;

/// Tells when it is moved, before it moves.
class WatchedVideo final : public Fakes::FakeStreamVideo {
public:
    using FakeStreamVideo::FakeStreamVideo;

    void Seek(std::int64_t time, SeekMode mode) override {
        onMove();
        FakeStreamVideo::Seek(time, mode);
    }
    void Reset() override {
        onMove();
        FakeStreamVideo::Reset();
    }

    std::function<void()> onMove = [] {};
};

class Stretch : public ::testing::Test {
protected:
    CallLog::Calls calls() const { return source->GetLog().Get(); }
    /// Reads a frame and checks its place.
    void expectFrame(std::int64_t time, std::int64_t duration) {
        const auto frame = stretch->ReadVideo();
        ASSERT_TRUE(frame);
        EXPECT_EQ(frame->GetTime(), time);
        EXPECT_EQ(frame->GetDuration(), duration);
    }

    boost::intrusive_ptr<RecordingVideo> source = new RecordingVideo(3);
    boost::intrusive_ptr<Proc::IStreamVideo> stretch = Proc::CreateFrameStretch(source, LENGTH);
};

TEST_F(Stretch, HasTheBasesThatTheEngineExpects) {
    static_assert(std::is_base_of_v<Proc::IStreamVideo, FrameStretch>);
    static_assert(std::is_base_of_v<RefCountImpl, FrameStretch>);
    const boost::intrusive_ptr<Proc::IStream> stream = stretch;
    EXPECT_EQ(static_cast<IRefCountable*>(stream.get()), static_cast<IRefCountable*>(stretch.get()));
}

TEST_F(Stretch, KeepsTheBinaryOrderOfItsInterfaces) {
    using Proc::IStream;
    using Proc::IStreamVideo;
    EXPECT_EQ(hookSlot(&IRefCountable::AddRef), 1U);
    EXPECT_EQ(hookSlot(&IRefCountable::GetRefCount), 2U);
    EXPECT_EQ(hookSlot(&IRefCountable::Release), 3U);
    const std::size_t first = hookSlot(&IStream::Initialize);
    const std::size_t following[] = {
        hookSlot(&IStream::GetSettings),  hookSlot(&IStream::GetDuration),    hookSlot(&IStream::GetPosition),
        hookSlot(&IStream::ReadData),     hookSlot(&IStream::Seek),           hookSlot(&IStream::Interrupt),
        hookSlot(&IStream::IsSeekable),   hookSlot(&IStream::GetFormatCodec), hookSlot(&IStream::Describe),
        hookSlot(&IStream::PreferFormat), hookSlot(&IStream::Prepare),        hookSlot(&IStream::Reset)};
    for (std::size_t place = 0; place < std::size(following); ++place)
        EXPECT_EQ(following[place], first + 1 + place);
    EXPECT_EQ(hookSlot(&IStreamVideo::GetVideoFormat), hookSlot(&IStreamVideo::ReadVideo) + 1);
}

TEST_F(Stretch, BeginsAtZeroAndLastsAsLongAsItWasTold) {
    EXPECT_EQ(stretch->GetPosition(), 0);
    EXPECT_EQ(stretch->GetDuration(), LENGTH);
    EXPECT_EQ(calls(), CallLog::Calls()) << "the source is not asked";
}

TEST_F(Stretch, HoldsItsSourceUntilItsLastRelease) {
    EXPECT_EQ(source->GetRefCount(), 2);
    boost::intrusive_ptr<Proc::IStreamVideo> second = stretch;
    EXPECT_EQ(stretch->GetRefCount(), 2);
    stretch.reset();
    EXPECT_EQ(source->GetRefCount(), 2);
    second.reset();
    EXPECT_EQ(source->GetRefCount(), 1);
}

TEST_F(Stretch, IsOneFrameOverTheWholeDuration) {
    expectFrame(0, LENGTH);
    EXPECT_EQ(stretch->GetPosition(), LENGTH);
    EXPECT_FALSE(stretch->ReadVideo());
    EXPECT_FALSE(stretch->ReadVideo());
    EXPECT_EQ(calls(), CallLog::Calls{"ReadVideo"}) << "at the end the source is left alone";
}

TEST_F(Stretch, GivesTheNextFrameOfTheSource) {
    source->FakeStreamVideo::ReadVideo();
    const auto frame = stretch->ReadVideo();
    EXPECT_EQ(dynamic_cast<const Fakes::FakeFrame&>(*frame).GetNumber(), 1);
}

TEST_F(Stretch, MayLastForOneTick) {
    stretch = Proc::CreateFrameStretch(source, 1);
    expectFrame(0, 1);
    EXPECT_FALSE(stretch->ReadVideo());
}

TEST_F(Stretch, GenericReadIsTheFrameRead) {
    const auto data = stretch->ReadData();
    ASSERT_TRUE(data);
    EXPECT_EQ(data->GetDuration(), LENGTH);
    EXPECT_EQ(calls(), CallLog::Calls{"ReadVideo"});
    EXPECT_FALSE(stretch->ReadData());
}

TEST_F(Stretch, CoversWhatIsLeftAfterASeek) {
    stretch->Seek(LENGTH / 5, SeekMode::Exact);
    EXPECT_EQ(stretch->GetPosition(), LENGTH / 5);
    expectFrame(LENGTH / 5, LENGTH - LENGTH / 5);
    EXPECT_FALSE(stretch->ReadVideo());
}

TEST_F(Stretch, RewindsItsSourceWhateverTheTimeIs) {
    stretch->Seek(LENGTH / 2, SeekMode::Keyframe);
    stretch->Seek(3, SeekMode::Exact);
    EXPECT_EQ(calls(), (CallLog::Calls{"Seek 0 1", "Seek 0 0"}));
}

TEST_F(Stretch, MovesBeforeItsSource) {
    const boost::intrusive_ptr<WatchedVideo> watched(new WatchedVideo(3));
    stretch = Proc::CreateFrameStretch(watched, LENGTH);
    std::int64_t position = -1;
    watched->onMove = [&] { position = stretch->GetPosition(); };
    stretch->Seek(LENGTH / 2, SeekMode::Exact);
    EXPECT_EQ(position, LENGTH / 2);
    stretch->Reset();
    EXPECT_EQ(position, 0);
}

TEST_F(Stretch, StandsWhereItWasToldThoughItsSourceFailsToMove) {
    const boost::intrusive_ptr<WatchedVideo> watched(new WatchedVideo(3));
    stretch = Proc::CreateFrameStretch(watched, LENGTH);
    watched->onMove = [] { throw std::runtime_error("stuck"); };
    EXPECT_THROW(stretch->Seek(LENGTH, SeekMode::Exact), std::runtime_error);
    EXPECT_EQ(stretch->GetPosition(), LENGTH);
    EXPECT_THROW(stretch->Reset(), std::runtime_error);
    EXPECT_EQ(stretch->GetPosition(), 0);
}

TEST_F(Stretch, SeekBelowZeroIsItsStart) {
    expectFrame(0, LENGTH);
    stretch->Seek(-7, SeekMode::Exact);
    EXPECT_EQ(stretch->GetPosition(), 0);
    expectFrame(0, LENGTH);
}

TEST_F(Stretch, SeekBeyondItsEndIsItsEnd) {
    stretch->Seek(LENGTH + 1, SeekMode::Exact);
    EXPECT_EQ(stretch->GetPosition(), LENGTH);
    EXPECT_FALSE(stretch->ReadVideo());
    EXPECT_EQ(calls(), CallLog::Calls{"Seek 0 0"});
}

TEST_F(Stretch, SeekAtItsEndsKeepsThem) {
    stretch->Seek(LENGTH, SeekMode::Exact);
    EXPECT_EQ(stretch->GetPosition(), LENGTH);
    stretch->Seek(0, SeekMode::Exact);
    EXPECT_EQ(stretch->GetPosition(), 0);
    stretch->Seek(INT64_MIN, SeekMode::Exact);
    EXPECT_EQ(stretch->GetPosition(), 0);
    stretch->Seek(INT64_MAX, SeekMode::Exact);
    EXPECT_EQ(stretch->GetPosition(), LENGTH);
}

TEST_F(Stretch, ResetAfterTheEndMakesItReadableFromZero) {
    expectFrame(0, LENGTH);
    stretch->Reset();
    EXPECT_EQ(stretch->GetPosition(), 0);
    EXPECT_EQ(calls(), (CallLog::Calls{"ReadVideo", "Reset"}));
    expectFrame(0, LENGTH);
}

TEST_F(Stretch, EndsAfterOneReadOfASourceWithoutFrames) {
    source = new RecordingVideo(0);
    stretch = Proc::CreateFrameStretch(source, LENGTH);
    EXPECT_FALSE(stretch->ReadVideo());
    EXPECT_EQ(stretch->GetPosition(), LENGTH);
    EXPECT_FALSE(stretch->ReadVideo());
    EXPECT_EQ(calls(), CallLog::Calls{"ReadVideo"});
}

TEST_F(Stretch, PassesAnErrorOfItsSourceOnAndStaysWhereItIs) {
    source->ThrowNext(std::make_exception_ptr(std::runtime_error("unreadable")));
    EXPECT_THROW(stretch->ReadVideo(), std::runtime_error);
    EXPECT_EQ(stretch->GetPosition(), 0);
    expectFrame(0, LENGTH);
}

TEST_F(Stretch, HasNotEndedWhereItsSourceIsInterrupted) {
    stretch->Interrupt();
    EXPECT_THROW(stretch->ReadVideo(), Proc::Interrupted);
    EXPECT_EQ(stretch->GetPosition(), 0);
    stretch->Reset();
    expectFrame(0, LENGTH);
}

TEST_F(Stretch, HasTheVideoFormatOfItsSource) {
    boost::intrusive_ptr<Conf::IFormatCodecVideo> format;
    stretch->GetVideoFormat(format);
    ASSERT_TRUE(format);
    EXPECT_EQ(format->GetFrameInfo(), (Conf::FrameInfo{64, 36, 16, 9}));
    EXPECT_EQ(format->GetFrameRate(), boost::rational<long long>(25));
    EXPECT_EQ(calls(), CallLog::Calls{"GetVideoFormat"});
}

TEST_F(Stretch, AnswersTheFormatQueryItselfFromTheVideoFormat) {
    boost::intrusive_ptr<Conf::IFormatCodec> format;
    stretch->GetFormatCodec(format);
    const auto* video = dynamic_cast<const Conf::IFormatCodecVideo*>(format.get());
    ASSERT_TRUE(video);
    EXPECT_EQ(video->GetFrameInfo().width, 64U);
    EXPECT_EQ(calls(), CallLog::Calls{"GetVideoFormat"}) << "not the source's own answer";
}

TEST_F(Stretch, HandsOnWhatConcernsItsSourceAlone) {
    stretch->Interrupt();
    source->SetDescription("a still");
    EXPECT_EQ(stretch->Describe(), "a still");
    const auto format = Conf::IFormatCodecVideo::Create();
    format->InitByFrameAspect(320, 180, 16, 9);
    stretch->PreferFormat(*format);
    stretch->Prepare();
    EXPECT_EQ(calls(), (CallLog::Calls{"Interrupt", "Describe", "PreferFormat 320", "Prepare"}));
}

TEST_F(Stretch, IsSeekableWhateverItsSourceIs) {
    source->SetSeekable(false);
    EXPECT_TRUE(stretch->IsSeekable());
    EXPECT_EQ(calls(), CallLog::Calls());
}

/// What an exception carries of the place where it was thrown.
struct Origin {
    std::string function;
    std::string file;
    int line = 0;
};

Origin originOf(const boost::exception& exception) {
    const auto* function = boost::get_error_info<boost::throw_function>(exception);
    const auto* file = boost::get_error_info<boost::throw_file>(exception);
    const auto* line = boost::get_error_info<boost::throw_line>(exception);
    return {function ? *function : "", file ? *file : "", line ? *line : 0};
}

template <class Call>
void expectNotImplemented(const Call& call, const char* function, int line) {
    try {
        call();
        FAIL() << "nothing was thrown";
    } catch (const Proc::FilterException& exception) {
        const auto* description = boost::get_error_info<TagDescription>(exception);
        ASSERT_TRUE(description);
        EXPECT_EQ(*description, "Method not implemented");
        const auto* stack = boost::get_error_info<TagCallStack>(exception);
        ASSERT_TRUE(stack);
        EXPECT_FALSE(stack->Text().empty());
        EXPECT_FALSE(boost::get_error_info<TagErrorCode>(exception)) << "two records and no more";
        const Origin origin = originOf(exception);
        EXPECT_NE(origin.function.find(function), std::string::npos) << origin.function;
        EXPECT_NE(origin.file.find("FiltersSpecial/FrameStretch"), std::string::npos) << origin.file;
        EXPECT_EQ(origin.line, line);
    }
}

TEST_F(Stretch, HasNoSettings) {
    expectNotImplemented([this] { stretch->Initialize(Core::Property()); }, "FrameStretch::Initialize(", 53);
    expectNotImplemented([this] { stretch->GetSettings(); }, "FrameStretch::GetSettings(", 58);
    EXPECT_EQ(calls(), CallLog::Calls());
}

TEST_F(Stretch, WhatItThrowsIsCaughtAsAnyOfItsKinds) {
    EXPECT_THROW(stretch->GetSettings(), Proc::ProcException);
    EXPECT_THROW(stretch->GetSettings(), Exception);
    EXPECT_THROW(stretch->GetSettings(), std::exception);
    EXPECT_THROW(stretch->GetSettings(), boost::exception);
}

void expectRefused(const boost::intrusive_ptr<Proc::IStreamVideo>& source, std::int64_t duration) {
    try {
        Proc::CreateFrameStretch(source, duration);
        FAIL() << "nothing was thrown";
    } catch (const std::invalid_argument& exception) {
        EXPECT_STREQ(exception.what(), "Kestra::Proc::FrameStretch::FrameStretch");
        const auto* located = dynamic_cast<const boost::exception*>(&exception);
        ASSERT_TRUE(located);
        const Origin origin = originOf(*located);
        EXPECT_NE(origin.function.find("FrameStretch::FrameStretch("), std::string::npos) << origin.function;
        EXPECT_NE(origin.file.find("FiltersSpecial/FrameStretch"), std::string::npos) << origin.file;
        EXPECT_EQ(origin.line, 21);
    }
}

TEST_F(Stretch, RefusesToBeMadeOfNothing) {
    expectRefused(nullptr, LENGTH);
    expectRefused(source, 0);
    expectRefused(source, -1);
    expectRefused(source, INT64_MIN);
    EXPECT_EQ(source->GetRefCount(), 2) << "a refused one holds no source";
}

} // namespace
