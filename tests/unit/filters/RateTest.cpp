// SPDX-License-Identifier: GPL-3.0-or-later
// Filters that need no pixels: rate, durations, concatenation.
#include "Kestra/Base/Time.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "Kestra/Proc/ProcException.h"
#include "fakes/kestra/FakeStreamVideo.h"
#include <boost/exception/get_error_info.hpp>
#include <gtest/gtest.h>
#include <stdexcept>

namespace Kestra {
namespace {

using Fakes::FakeFrame;
using Fakes::FakeStreamVideo;
using Proc::SeekMode;
using Rate = boost::rational<long long>;
using Video = boost::intrusive_ptr<Proc::IStreamVideo>;

Proc::IFilterFactory& filters() {
    return Core::CoreManager::Instance().GetFilterFactory();
}

Video makeRate(const Video& source, const Rate& rate) {
    Proc::SettingsFilterFrameRate settings;
    settings.SetFrameRate(rate);
    return filters().CreateFrameRate(source, settings);
}

struct Shown {
    int number;
    std::int64_t time;
    std::int64_t end;
};

std::vector<Shown> readAll(Proc::IStreamVideo& stream) {
    std::vector<Shown> result;
    while (const auto picture = stream.ReadVideo())
        result.push_back({dynamic_cast<const FakeFrame&>(*picture).GetNumber(), picture->GetTime(),
                          picture->GetTime() + picture->GetDuration()});
    return result;
}

std::vector<int> numbers(const std::vector<Shown>& shown) {
    std::vector<int> result;
    for (const Shown& one : shown)
        result.push_back(one.number);
    return result;
}

Video fake(int frames, const Rate& rate = 25) {
    return new FakeStreamVideo(frames, rate);
}

TEST(FrameRate, ShowsWhatTheSourceShowsAtTheMiddleOfEachPeriod) {
    const auto stream = makeRate(fake(6, 30), 20);
    const auto shown = readAll(*stream);
    // Middles at 0.025, 0.075, 0.125 and 0.175 s; the source's frames last a thirtieth.
    EXPECT_EQ(numbers(shown), (std::vector<int>{0, 2, 3, 5}));
}

TEST(FrameRate, RepeatsPicturesAtAHigherRate) {
    EXPECT_EQ(numbers(readAll(*makeRate(fake(3, 25), 50))), (std::vector<int>{0, 0, 1, 1, 2, 2}));
}

TEST(FrameRate, GivesAsManyFramesAsTheRoundedProductOfDurationAndRate) {
    for (const Rate& from : {Rate(24000, 1001), Rate(25), Rate(30), Rate(60000, 1001)})
        for (const Rate& to : {Rate(24), Rate(25), Rate(30000, 1001), Rate(60)}) {
            const auto stream = makeRate(fake(137, from), to);
            const auto shown = readAll(*stream);
            const std::int64_t count = TimeToFrames(FramesToTime(137, from), to);
            ASSERT_EQ(static_cast<std::int64_t>(shown.size()), count) << from << " to " << to;
            for (std::int64_t index = 0; index < count; ++index) {
                EXPECT_EQ(shown[index].time, FramesToTime(index, to));
                EXPECT_EQ(shown[index].end, FramesToTime(index + 1, to));
            }
            EXPECT_EQ(stream->GetDuration(), FramesToTime(count, to));
        }
}

TEST(FrameRate, SeeksToTheFrameThatCoversTheTime) {
    const auto stream = makeRate(fake(100, 30), 20);
    const auto shown = readAll(*stream);
    for (const int index : {40, 3, 0, 65, 66}) {
        stream->Seek(shown[index].time, SeekMode::Exact);
        EXPECT_EQ(stream->GetPosition(), shown[index].time);
        EXPECT_EQ(stream->ReadVideo()->GetTime(), shown[index].time);
        stream->Seek(shown[index].end - 1, SeekMode::Exact);
        const auto picture = stream->ReadVideo();
        EXPECT_EQ(picture->GetTime(), shown[index].time);
        EXPECT_EQ(dynamic_cast<const FakeFrame&>(*picture).GetNumber(), shown[index].number);
    }
    stream->Seek(stream->GetDuration(), SeekMode::Exact);
    EXPECT_FALSE(stream->ReadVideo());
}

TEST(FrameRate, TellsItsRate) {
    boost::intrusive_ptr<Conf::IFormatCodecVideo> format;
    makeRate(fake(5), Rate(30000, 1001))->GetVideoFormat(format);
    EXPECT_EQ(format->GetFrameRate(), Rate(30000, 1001));
}

TEST(FrameRate, EndsWithASourceWhoseDurationIsUnknown) {
    boost::intrusive_ptr<FakeStreamVideo> source = new FakeStreamVideo(10, 25);
    source->SetDurationKnown(false);
    const auto stream = makeRate(source, 50);
    EXPECT_EQ(stream->GetDuration(), TIME_UNKNOWN);
    EXPECT_EQ(readAll(*stream).size(), 20U);
}

TEST(FrameRate, StartsOverAfterAReset) {
    const auto stream = makeRate(fake(10, 25), 50);
    readAll(*stream);
    stream->Reset();
    EXPECT_EQ(readAll(*stream).size(), 20U);
}

TEST(FrameRate, RefusesARateThatIsNotPositive) {
    EXPECT_THROW(makeRate(fake(1), -25), std::invalid_argument);
    EXPECT_THROW(makeRate(nullptr, 25), std::invalid_argument);
}

TEST(FrameRate, OfTheOriginalMarkPassesEveryPicture) {
    const auto stream = makeRate(fake(7, 30), Proc::SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE);
    EXPECT_EQ(numbers(readAll(*stream)), (std::vector<int>{0, 1, 2, 3, 4, 5, 6}));
}

TEST(FrameDurations, ReachToTheNextPictureAndTheEnd) {
    const auto stream = filters().CreateFrameRate(fake(5, 10));
    std::int64_t end = 0;
    for (const Shown& one : readAll(*stream)) {
        EXPECT_EQ(one.time, end);
        end = one.end;
    }
    EXPECT_EQ(end, TIME_BASE / 2);
}

TEST(Concatenation, PlaysItsStreamsOneAfterTheOther) {
    const auto stream = filters().CreateConcatenation();
    stream->Append(fake(3, 25));
    stream->Append(fake(2, 50));
    EXPECT_EQ(stream->GetDuration(), FramesToTime(4, 25));
    const auto shown = readAll(*stream);
    EXPECT_EQ(numbers(shown), (std::vector<int>{0, 1, 2, 0, 1}));
    EXPECT_EQ(shown[3].time, FramesToTime(3, 25));
    EXPECT_EQ(shown[4].end, FramesToTime(4, 25));
    for (std::size_t index = 1; index < shown.size(); ++index)
        EXPECT_EQ(shown[index].time, shown[index - 1].end);
}

TEST(Concatenation, SeeksIntoTheRightStreamAndOnFromThere) {
    const auto stream = filters().CreateConcatenation();
    stream->Append(fake(10, 25));
    stream->Append(fake(10, 25));
    readAll(*stream);
    stream->Seek(FramesToTime(12, 25) + 5, SeekMode::Exact);
    EXPECT_EQ(numbers(readAll(*stream)), (std::vector<int>{2, 3, 4, 5, 6, 7, 8, 9}));
    stream->Seek(FramesToTime(8, 25), SeekMode::Exact);
    EXPECT_EQ(numbers(readAll(*stream)), (std::vector<int>{8, 9, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(Concatenation, HasTheFormatOfItsFirstStream) {
    const auto stream = filters().CreateConcatenation();
    stream->Append(new FakeStreamVideo(1, 25, {100, 50, 2, 1}));
    stream->Append(new FakeStreamVideo(1, 30, {64, 36, 16, 9}));
    boost::intrusive_ptr<Conf::IFormatCodecVideo> format;
    stream->GetVideoFormat(format);
    EXPECT_EQ(format->GetFrameInfo(), (Conf::FrameInfo{100, 50, 2, 1}));
    EXPECT_EQ(format->GetFrameRate(), Rate(25));
}

TEST(Concatenation, RefusesWhatHasNoPlaceInIt) {
    const auto stream = filters().CreateConcatenation();
    EXPECT_THROW(stream->Append(nullptr), std::invalid_argument);
    boost::intrusive_ptr<FakeStreamVideo> endless = new FakeStreamVideo(1, 25);
    endless->SetDurationKnown(false);
    EXPECT_THROW(stream->Append(endless), std::invalid_argument);
    stream->Append(fake(1));
    stream->ReadVideo();
    EXPECT_THROW(stream->Append(fake(1)), Proc::FilterException);
}

TEST(Filters, HaveNoSettingsAfterTheyAreMade) {
    const auto stream = makeRate(fake(1), 25);
    EXPECT_THROW(stream->Initialize({}), Proc::FilterException);
    try {
        stream->GetSettings();
        FAIL();
    } catch (const Proc::FilterException& exception) {
        const std::string* text = boost::get_error_info<TagDescription>(exception);
        ASSERT_TRUE(text);
        EXPECT_EQ(*text, "Method not implemented");
        EXPECT_TRUE(boost::get_error_info<TagCallStack>(exception));
    }
}

} // namespace
} // namespace Kestra
