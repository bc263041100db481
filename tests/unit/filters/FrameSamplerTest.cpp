// SPDX-License-Identifier: GPL-3.0-or-later
// Frames of a grid out of a stream, held against a search for each frame alone.
#include "Kestra/Proc/Filters/FrameSampler.h"
#include "Kestra/Proc/Interrupted.h"
#include "Kestra/Proc/ProcException.h"
#include "fakes/kestra/FakeStreamVideo.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <stdexcept>
#include <vector>

namespace Kestra::Proc {
namespace {

using Fakes::FakeFrame;
using Fakes::FakeStreamVideo;
using Rate = boost::rational<long long>;
using Repeats = FrameSampler::Repeats;
using Source = boost::intrusive_ptr<FakeStreamVideo>;

FrameSampler::Plan plan(const Rate& rate, std::int64_t first, std::int64_t count, const TimeMap& map = {},
                        Repeats repeats = Repeats::EachOnItsOwn) {
    return {SamplingRule(FrameGrid(rate), SamplingRule::Pace::Any, map), repeats, FrameIndex(first), FrameIndex(count)};
}

Source fake(int frames, const Rate& rate = 25) {
    return new FakeStreamVideo(frames, rate);
}

/// The number that each period shows; checks that frames lie on the grid without gap.
std::vector<int> readAll(IStreamVideo& stream, const Rate& rate) {
    const FrameGrid grid(rate);
    std::vector<int> shown;
    while (const auto frame = stream.ReadVideo()) {
        const Ticks begin = grid.Begin(FrameIndex(static_cast<std::int64_t>(shown.size())));
        EXPECT_EQ(frame->GetTime(), begin.Value());
        const FrameIndex run = grid.Nearest(Ticks(frame->GetDuration()));
        EXPECT_EQ(grid.Begin(grid.Nearest(begin) + run) - begin, Ticks(frame->GetDuration()));
        shown.insert(shown.end(), static_cast<std::size_t>(run.Value()),
                     dynamic_cast<const FakeFrame&>(*frame).GetNumber());
    }
    return shown;
}

/// By looking at each frame alone: the source's last frame that begins not after the time shown.
std::vector<int> expected(int frames, const Rate& own, const FrameSampler::Plan& plan) {
    std::vector<int> shown;
    for (std::int64_t index = 0; index < plan.count->Value(); ++index) {
        const Ticks time = plan.rule.Shown(plan.first + FrameIndex(index));
        const std::int64_t number = FrameGrid(own).Covering(time).Value();
        shown.push_back(static_cast<int>(std::clamp<std::int64_t>(number, 0, frames - 1)));
    }
    return shown;
}

TEST(FrameSampler, ShowsWhatEachFrameAloneWouldShow) {
    for (const Rate& own : {Rate(24000, 1001), Rate(25), Rate(50), Rate(7, 3)})
        for (const Rate& rate : {Rate(24), Rate(25), Rate(30000, 1001)})
            for (const Rate& speed : {Rate(1), Rate(2), Rate(1, 3), Rate(133, 100), Rate(0)})
                for (const std::int64_t first : {0, 1, 31})
                    for (const Repeats repeats : {Repeats::EachOnItsOwn, Repeats::AsOne}) {
                        const TimeMap map{Ticks(TIME_BASE / 7), Ticks(TIME_BASE / 3), speed};
                        const auto wanted = plan(rate, first, 60, map, repeats);
                        FrameSampler sampler(fake(40, own), wanted);
                        EXPECT_EQ(readAll(sampler, rate), expected(40, own, wanted))
                            << own << " at " << rate << ", speed " << speed << " from " << first;
                    }
}

TEST(FrameSampler, ShowsBackwardsWhatEachFrameAloneWouldShow) {
    for (const Rate& own : {Rate(24000, 1001), Rate(25), Rate(50), Rate(7, 3)})
        for (const Rate& rate : {Rate(24), Rate(30000, 1001)})
            for (const Rate& speed : {Rate(-1), Rate(-2), Rate(-1, 3), Rate(-133, 100), Rate(-30)})
                for (const std::int64_t first : {0, 1, 31})
                    for (const std::int64_t there : {1, 5, 40})
                        for (const Repeats repeats : {Repeats::EachOnItsOwn, Repeats::AsOne}) {
                            const TimeMap map{Ticks(TIME_BASE / 7), Ticks(there * TIME_BASE / 3), speed};
                            const auto wanted = plan(rate, first, 120, map, repeats);
                            FrameSampler sampler(fake(100, own), wanted);
                            EXPECT_EQ(readAll(sampler, rate), expected(100, own, wanted))
                                << own << " at " << rate << ", speed " << speed << " from " << first << " at " << there;
                        }
}

/// Counts how often each of its frames is read, and how many are alive at a time.
class Counted final : public FakeStreamVideo {
public:
    using FakeStreamVideo::FakeStreamVideo;

    boost::intrusive_ptr<IDataVideo> ReadVideo() override {
        const auto frame = FakeStreamVideo::ReadVideo();
        if (!frame)
            return {};
        ++reads[dynamic_cast<const FakeFrame&>(*frame).GetNumber()];
        const auto dead = [](const auto& other) { return other->GetRefCount() == 1; };
        alive.erase(std::remove_if(alive.begin(), alive.end(), dead), alive.end());
        alive.push_back(frame);
        most = std::max(most, alive.size());
        return frame;
    }

    std::map<int, int> reads;
    std::size_t most = 0;

private:
    std::vector<boost::intrusive_ptr<IDataVideo>> alive;
};

TEST(FrameSampler, HoldsBackwardsABoundedNumberOfFramesAndReadsEachAFewTimes) {
    // Of 32 MiB, and so light that time is what bounds them.
    for (const auto& [side, most] : {std::pair{4096U, 6U}, {64U, 54U}}) {
        const boost::intrusive_ptr<Counted> source(new Counted(400, 25, {side, side / 2, 0, 0}));
        const TimeMap map{Ticks(0), Ticks(FramesToTime(400, 25)), -1};
        FrameSampler sampler(source, plan(25, 0, 300, map));
        EXPECT_EQ(readAll(sampler, 25).back(), 100);
        EXPECT_LE(source->most, most);
        EXPECT_EQ(source->reads.begin()->first, 100) << "what is not shown is not read";
        for (const auto& [number, times] : source->reads)
            EXPECT_LE(times, 3) << number;
    }
}

TEST(FrameSampler, ReadsTheFirstFrameOnceForAllThatLiesBeforeIt) {
    const boost::intrusive_ptr<Counted> source(new Counted(100, 25));
    FrameSampler sampler(source, plan(25, 0, 300, {Ticks(0), Ticks(FramesToTime(10, 25)), -1}));
    EXPECT_EQ(readAll(sampler, 25).back(), 0);
    EXPECT_EQ(source->reads[0], 1);
}

TEST(FrameSampler, FindsBackwardsTheLastFrameOfASourceThatEndsEarlierThanItSays) {
    /// Says that it lasts for thrice its frames.
    class Boasting final : public FakeStreamVideo {
    public:
        using FakeStreamVideo::FakeStreamVideo;
        std::int64_t GetDuration() const override { return 3 * FakeStreamVideo::GetDuration(); }
    };
    const TimeMap map{Ticks(0), Ticks(FramesToTime(300, 25)), -1};
    const auto wanted = plan(25, 0, 300, map);
    FrameSampler sampler(new Boasting(100, 25), wanted);
    EXPECT_EQ(readAll(sampler, 25), expected(100, 25, wanted));
    FrameSampler none(fake(0), wanted);
    EXPECT_THROW(none.ReadVideo(), ProcException);
}

TEST(FrameSampler, BackwardsReadsTheSameAfterAResetAndFromWhereItIsMoved) {
    const TimeMap map{Ticks(0), Ticks(2 * TIME_BASE), Rate(-3, 2)};
    for (const Repeats repeats : {Repeats::EachOnItsOwn, Repeats::AsOne}) {
        FrameSampler sampler(fake(60, 30), plan(24, 2, 30, map, repeats));
        const auto whole = readAll(sampler, 24);
        sampler.Reset();
        EXPECT_EQ(readAll(sampler, 24), whole);
        for (const int place : {25, 3, 0, 29}) {
            sampler.Seek(FramesToTime(place, 24) + 1, SeekMode::Exact);
            const auto frame = sampler.ReadVideo();
            EXPECT_EQ(frame->GetTime(), FramesToTime(place, 24));
            EXPECT_EQ(dynamic_cast<const FakeFrame&>(*frame).GetNumber(), whole[static_cast<std::size_t>(place)]);
        }
        sampler.Interrupt();
        sampler.Seek(0, SeekMode::Exact);
        EXPECT_THROW(sampler.ReadVideo(), Interrupted);
    }
}

TEST(FrameSampler, NeedsANumberOfFramesToRunBackwards) {
    const SamplingRule rule(FrameGrid(25), SamplingRule::Pace::Any, {Ticks(0), Ticks(TIME_BASE), -1});
    EXPECT_THROW(FrameSampler(fake(50), {rule}), std::invalid_argument);
}

TEST(FrameSampler, GivesWhatIsRepeatedOnceWithItsWholeLength) {
    FrameSampler sampler(fake(3, 10), plan(30, 2, 11, {}, Repeats::AsOne));
    std::vector<std::int64_t> lengths;
    while (const auto frame = sampler.ReadVideo())
        lengths.push_back(frame->GetDuration() / (TIME_BASE / 30));
    EXPECT_EQ(lengths, (std::vector<std::int64_t>{1, 3, 3, 4})) << "the last one again, to the end of what was ordered";
}

TEST(FrameSampler, ReadsNoFrameBeforeItIsNeeded) {
    const Source source = fake(10);
    FrameSampler sampler(source, plan(25, 0, 10));
    for (int read = 0; read < 3; ++read)
        sampler.ReadVideo();
    EXPECT_EQ(source->GetPosition(), FramesToTime(3, 25));
}

TEST(FrameSampler, LeavesASourceThatBeginsWithItsFirstFrameWhereItIs) {
    const Source source = fake(10);
    source->SetSeekable(false);
    FrameSampler sampler(source, plan(50, 0, 20));
    EXPECT_EQ(readAll(sampler, 50).size(), 20U);
    sampler.Reset();
    EXPECT_EQ(readAll(sampler, 50).size(), 20U);
}

TEST(FrameSampler, FindsTheLastFrameWhereTheSourceEndsBeforeTheFirstThatIsShown) {
    for (const bool known : {true, false}) {
        const Source source = fake(100);
        source->SetDurationKnown(known);
        FrameSampler sampler(source, plan(25, 200, 3));
        EXPECT_EQ(readAll(sampler, 25), (std::vector<int>{99, 99, 99})) << known;
        EXPECT_EQ(source->GetScript()->GetLog()->Count("ReadVideo 0"), known ? 0U : 1U) << "read only as far as needed";
    }
}

TEST(FrameSampler, OfASourceThatEndsEarlierThanItSaysSeeksToItsLastFrame) {
    /// Says that it lasts for twice its frames.
    class Boasting final : public FakeStreamVideo {
    public:
        using FakeStreamVideo::FakeStreamVideo;
        std::int64_t GetDuration() const override { return 2 * FakeStreamVideo::GetDuration(); }
    };
    FrameSampler sampler(new Boasting(50), {SamplingRule(FrameGrid(25))});
    sampler.Seek(FramesToTime(98, 25), SeekMode::Exact);
    const auto frame = sampler.ReadVideo();
    ASSERT_TRUE(frame) << "its stream would end too early";
    EXPECT_EQ(dynamic_cast<const FakeFrame&>(*frame).GetNumber(), 49);
    EXPECT_TRUE(sampler.ReadVideo());
    EXPECT_FALSE(sampler.ReadVideo());
}

TEST(FrameSampler, FailsWhereFramesAreOrderedOfASourceThatHasNone) {
    FrameSampler ordered(fake(0), plan(25, 0, 5));
    EXPECT_THROW(ordered.ReadVideo(), ProcException);
    FrameSampler open(fake(0), {SamplingRule(FrameGrid(25))});
    EXPECT_FALSE(open.ReadVideo());
}

TEST(FrameSampler, ReadsTheSameAfterAResetAndFromWhereItIsMoved) {
    const auto wanted = plan(24, 7, 50, {}, Repeats::AsOne);
    FrameSampler sampler(fake(60, 30), wanted);
    const auto whole = readAll(sampler, 24);
    sampler.Reset();
    EXPECT_EQ(readAll(sampler, 24), whole);
    for (const int place : {40, 3, 0, 49}) {
        sampler.Seek(FramesToTime(place, 24) + 1, SeekMode::Exact);
        EXPECT_EQ(sampler.GetPosition(), FramesToTime(place, 24));
        const auto frame = sampler.ReadVideo();
        EXPECT_EQ(frame->GetTime(), FramesToTime(place, 24));
        EXPECT_EQ(dynamic_cast<const FakeFrame&>(*frame).GetNumber(), whole[static_cast<std::size_t>(place)]);
    }
    sampler.Seek(sampler.GetDuration(), SeekMode::Exact);
    EXPECT_FALSE(sampler.ReadVideo());
}

TEST(FrameSampler, IsMovedBackToItsStart) {
    FrameSampler sampler(fake(10), plan(25, 0, 10));
    for (int read = 0; read < 5; ++read)
        sampler.ReadVideo();
    sampler.Seek(0, SeekMode::Exact);
    EXPECT_EQ(readAll(sampler, 25), (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(FrameSampler, CanBeReadAfterAnInterruptionAndAReset) {
    FrameSampler sampler(fake(20), plan(25, 5, 10));
    sampler.ReadVideo();
    sampler.Interrupt();
    EXPECT_THROW(sampler.ReadVideo(), Interrupted);
    sampler.Reset();
    EXPECT_EQ(readAll(sampler, 25), (std::vector<int>{5, 6, 7, 8, 9, 10, 11, 12, 13, 14}));
}

} // namespace
} // namespace Kestra::Proc
