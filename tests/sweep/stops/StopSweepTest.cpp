// SPDX-License-Identifier: GPL-3.0-or-later
// A run is stopped, or destroyed, at every point: a turn of the event loop, an event, a call into the engine, a signal,
// a frame on a thread of chunks.
#include "Kestra/Util/FunctorExecutionForwarder.h"
#include "fakes/counting/CountedEngine.h"
#include "support/FileHelpers.h"
#include "support/WaitUntil.h"
#include "sweep/Bus.h"
#include "sweep/Runs.h"
#include "sweep/SweepApplication.h"
#include <QTimer>
#include <algorithm>
#include <array>
#include <atomic>
#include <gtest/gtest.h>

using ExportCore::ExportOutcome;
using Kestra::Fakes::CallCounter;
using Kestra::Fakes::CountedEngine;
using Sweep::Holdings;
using Sweep::Reference;
using Sweep::Signals;
using Sweep::SweepApplication;

namespace {

enum class Clock { Turn, Event, Call, Signal, Chunk };
enum class Act { Stop, Destroy };

constexpr const char* CLOCKS[] = {"turn", "event", "call", "signal", "chunk"};

/// How often each clock has ticked.
using Ticks = std::array<std::atomic<int>, 5>;

/// Counts the clocks of a run, and does something when one of them has ticked so often.
class Alarm {
public:
    Alarm(Clock clock, int at, Ticks& ticks, std::function<void()> action)
        : clock(clock)
        , at(at)
        , ticks(ticks)
        , action(std::move(action)) {
        SweepApplication::instance().afterEvent = [this] { tick(Clock::Event); };
        // Turns are counted by turning, which keeps a core busy until it rings.
        if (clock == Clock::Turn)
            turn();
    }
    ~Alarm() { disarm(); }
    Alarm(const Alarm&) = delete;
    Alarm& operator=(const Alarm&) = delete;

    void tick(Clock which) {
        if (rings(which))
            action();
    }
    /// From any thread: the action comes from the event loop of this one.
    void tickElsewhere(Clock which) {
        if (rings(which))
            forwarder.Forward([this] { action(); });
    }
    void disarm() { SweepApplication::instance().afterEvent = nullptr; }

private:
    bool rings(Clock which) { return ticks[static_cast<std::size_t>(which)]++ == at && which == clock; }
    void turn() {
        QTimer::singleShot(0, &context, [this] {
            if (rings(Clock::Turn))
                action();
            else
                turn();
        });
    }

    const Clock clock;
    const int at;
    Ticks& ticks;
    const std::function<void()> action;
    QObject context;
    // Its own lock orders what the threads do, where a sanitizer does not see Qt's.
    Kestra::Util::FunctorExecutionForwarder forwarder;
};

constexpr int NEVER = -1;

class StopSweep : public ::testing::TestWithParam<int> {
protected:
    StopSweep() {
        const CountedEngine engine(std::make_shared<CallCounter>(), reference().chunks);
        Sweep::JobRun run(place.request(reference()));
        run.start();
        run.waitForEnd();
        whole = TestFiles::read(place.output);
    }
    const Reference& reference() const { return Sweep::references()[static_cast<std::size_t>(GetParam())]; }

    /// Those that stop it, of a variant what it has alone.
    std::vector<Clock> clocks() const;
    /// What is wrong with the end of the run; empty when nothing is.
    std::string transcoder(Act act, Clock clock, int at, Ticks& ticks);
    std::string job(Act act, Clock clock, int at, Ticks& ticks);

    template <class Road>
    void sweep(const Road& road, Act act, int count);
    int count() const { return Sweep::countOr(reference().isVariant ? 5 : 2); }

    const Sweep::OwnFastTrack fastTrack;
    const Sweep::Place place;
    QByteArray whole; ///< the file of a run that nobody stopped
};

std::string joined(const Signals& emissions) {
    std::string text;
    for (const std::string& signal : emissions)
        text += (text.empty() ? "" : ", ") + signal;
    return text;
}

/// The engine calls of a run tick its alarm.
std::shared_ptr<CallCounter> tickingCounter(Alarm& alarm) {
    auto counter = std::make_shared<CallCounter>();
    counter->OnCall([&alarm](const std::string& kind) {
        alarm.tickElsewhere(Clock::Call);
        if (kind == "Chunk.Frame")
            alarm.tickElsewhere(Clock::Chunk);
    });
    return counter;
}

std::vector<Clock> StopSweep::clocks() const {
    const bool hasChunks = reference().chunks.workers > 0;
    if (reference().isVariant && !Sweep::isLongForm())
        return {hasChunks ? Clock::Chunk : Clock::Call};
    std::vector<Clock> all = {Clock::Turn, Clock::Event, Clock::Call, Clock::Signal};
    if (hasChunks)
        all.push_back(Clock::Chunk);
    return all;
}

std::string StopSweep::transcoder(Act act, Clock clock, int at, Ticks& ticks) {
    place.restore();
    Sweep::TranscoderRun run(place.request(reference()));
    Signals atDestruction;
    bool destroyed = false;
    Alarm alarm(clock, at, ticks, [&] {
        if (act == Act::Stop)
            return run.stop();
        atDestruction = run.emitted();
        destroyed = true;
        run.destroy();
    });
    run.onSignal = [&alarm](const std::string&) { alarm.tick(Clock::Signal); };
    const auto counter = tickingCounter(alarm);
    const CountedEngine engine(counter, reference().chunks);
    // From the event loop, so that whatever is sent on the way is inside an event.
    QTimer::singleShot(0, [&] {
        if (!destroyed)
            run.start();
    });
    const bool inTime = TestSupport::waitUntil([&] { return destroyed || run.ended(); }, 300'000);
    TestSupport::turnEventLoop();
    alarm.disarm();
    counter->OnCall(nullptr);
    run.destroy();
    if (!inTime)
        return "never ended";
    if (run.endedOutside())
        return "ended outside: " + run.error();
    const Signals& emissions = run.emitted();
    if (destroyed)
        return emissions == atDestruction ? "" : "destroyed, it emitted " + joined(emissions);
    const auto stops = std::count(emissions.begin(), emissions.end(), "stopped");
    const auto failures = std::count(emissions.begin(), emissions.end(), "failed");
    return stops == 1 && failures == 0 ? "" : "emitted " + joined(emissions) + " (" + run.error() + ")";
}

std::string StopSweep::job(Act act, Clock clock, int at, Ticks& ticks) {
    place.restore();
    Sweep::JobRun run(place.request(reference()));
    bool destroyed = false;
    Alarm alarm(clock, at, ticks, [&] {
        if (act == Act::Stop)
            return run.stop();
        destroyed = true;
        run.destroy();
    });
    run.onSignal = [&alarm](const std::string&) { alarm.tick(Clock::Signal); };
    const auto counter = tickingCounter(alarm);
    const CountedEngine engine(counter, reference().chunks);
    // From the event loop, so that whatever is sent on the way is inside an event.
    QTimer::singleShot(0, [&] {
        if (!destroyed)
            run.start();
    });
    const bool inTime = TestSupport::waitUntil([&] { return destroyed || run.ends() > 0; }, 300'000);
    TestSupport::turnEventLoop();
    alarm.disarm();
    counter->OnCall(nullptr);
    run.destroy();
    if (!inTime)
        return "never ended";
    if (run.ends() > 1 || (!destroyed && run.ends() != 1))
        return "ended " + std::to_string(run.ends()) + " times";
    const ExportOutcome& outcome = run.outcome();
    const bool made = run.ends() == 1 && outcome.status == ExportOutcome::Status::Done;
    if (run.ends() == 1 && !made && outcome.status != ExportOutcome::Status::Stopped)
        return "failed: " + outcome.error.GetDescription();
    // A stop that comes too late finds the file at its place, and so does a destruction.
    if ((made || destroyed) && TestFiles::read(place.output).size() > 3)
        return TestFiles::read(place.output).size() == whole.size() ? "" : "half a file stands at the place";
    return made ? "done without a file" : place.complaint();
}

template <class Road>
void StopSweep::sweep(const Road& road, Act act, int count) {
    // Turns are counted in a run of their own: each is an event more.
    Ticks turning{}, totals{};
    ASSERT_EQ(road(act, Clock::Turn, NEVER, turning), "");
    ASSERT_EQ(road(act, Clock::Event, NEVER, totals), "");
    totals[static_cast<std::size_t>(Clock::Turn)] = turning[static_cast<std::size_t>(Clock::Turn)].load();
    const Holdings before = Holdings::now();
    const int subscriptions = Sweep::subscriptions();
    int acts = 0, complaints = 0;
    const auto play = [&](Clock clock, int at) {
        Ticks ticks{};
        std::string complaint = road(act, clock, at, ticks);
        if (complaint.empty() && !Holdings::returnTo(before))
            complaint = "it leaves something behind";
        if (complaint.empty() && Sweep::subscriptions() != subscriptions)
            complaint = "it leaves subscriptions behind";
        if (complaint.empty() && fastTrack.isSuppressed())
            complaint = "it leaves the fast track suppressed";
        if (!complaint.empty() && ++complaints <= 10)
            ADD_FAILURE() << reference().name << ", " << CLOCKS[static_cast<int>(clock)] << ' ' << at << ": "
                          << complaint << "\nbefore " << before << ", after " << Holdings::now();
        return ticks[static_cast<std::size_t>(clock)] > at;
    };
    for (const Clock clock : clocks()) {
        const int total = totals[static_cast<std::size_t>(clock)];
        ASSERT_GT(total, 0) << CLOCKS[static_cast<int>(clock)];
        const int points = std::min(count, total);
        for (int i = 0; i < points; ++i, ++acts) {
            // A quicker run may end before the point: an earlier one takes its place.
            auto at = static_cast<int>(static_cast<long long>(i) * total / points);
            bool reached = play(clock, at);
            for (; !reached && at > 0; reached = play(clock, at))
                at /= 2;
            EXPECT_TRUE(reached) << CLOCKS[static_cast<int>(clock)];
        }
    }
    std::printf("%s: %d points\n", reference().name, acts);
}

TEST_P(StopSweep, StoppedAnywhereTheTranscoderTellsOneStopAndNoFailure) {
    sweep([this](auto&&... of) { return transcoder(of...); }, Act::Stop, count());
}

TEST_P(StopSweep, DestroyedAnywhereTheTranscoderIsSilentAndLeavesNothing) {
    sweep([this](auto&&... of) { return transcoder(of...); }, Act::Destroy, count());
}

TEST_P(StopSweep, StoppedAnywhereTheJobEndsOnceWithTheOldFileOrTheNewOne) {
    sweep([this](auto&&... of) { return job(of...); }, Act::Stop, count());
}

TEST_P(StopSweep, DestroyedAnywhereTheJobLeavesTheOldFileOrTheNewOne) {
    sweep([this](auto&&... of) { return job(of...); }, Act::Destroy, count());
}

INSTANTIATE_TEST_SUITE_P(References, StopSweep, ::testing::Range(0, 6),
                         [](const auto& testCase) { return Sweep::shortNameOf(testCase.param); });

} // namespace
