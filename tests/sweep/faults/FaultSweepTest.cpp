// SPDX-License-Identifier: GPL-3.0-or-later
// Every call into the engine fails once, and from then on for ever, with an exception of the standard's and with none.
// So does every frame that a thread of chunks encodes.
#include "fakes/counting/CountedEngine.h"
#include "support/FileHelpers.h"
#include "sweep/Runs.h"
#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <gtest/gtest.h>
#include <map>
#include <mutex>
#include <set>
#include <thread>

using ExportCore::ExportOutcome;
using Kestra::Fakes::CallCounter;
using Kestra::Fakes::CountedEngine;
using Sweep::Holdings;
using Sweep::Reference;
using Sweep::Signals;
using Plan = CallCounter::Plan;

namespace {

constexpr const char* CHUNK_FRAME = "Chunk.Frame";

/// What a run is to be judged by.
struct Verdict {
    std::vector<std::string> calls;
    std::vector<std::string> thrown;
    std::string complaint; ///< empty when the run ended as it must
};

std::string joined(const Signals& emissions) {
    std::string text;
    for (const std::string& signal : emissions)
        text += (text.empty() ? "" : ", ") + signal;
    return text;
}

/// What the user reads of a fault: its own words, or that it was of no known kind.
bool tellsTheFault(const std::string& words, const Plan& plan) {
    return plan.odd ? !words.empty() : words.find("a fault in ") != std::string::npos;
}

class FaultSweep : public ::testing::TestWithParam<int> {
protected:
    const Reference& reference() const { return Sweep::references()[static_cast<std::size_t>(GetParam())]; }
    int passes() const { return reference().passes; }
    int count() const { return Sweep::countOr(reference().isVariant ? 12 : 40); }

    Verdict throughTranscoder(const Plan& plan);
    Verdict throughJob(const Plan& plan);
    /// A fault in a piece that was read ahead, and that nobody asked for, may go unnoticed.
    template <class OneRun>
    std::string judged(const OneRun& run, const Plan& plan, const CallCounter& counter) const {
        const std::string complaint = judge(run, plan, !counter.Thrown().empty());
        return !complaint.empty() && counter.FailedUnasked() ? judge(run, plan, false) : complaint;
    }
    std::string judge(const Sweep::TranscoderRun& run, const Plan& plan, bool thrown) const;
    std::string judge(const Sweep::JobRun& run, const Plan& plan, bool thrown) const;

    /// The faults to try: every call in four ways in the long form, a spread of them with every kind otherwise.
    std::vector<Plan> plans(const std::vector<std::string>& calls, int count) const;
    template <class Road>
    void sweep(const Road& run, int count);

    const Sweep::Place place;
};

std::string FaultSweep::judge(const Sweep::TranscoderRun& run, const Plan& plan, bool thrown) const {
    const Signals& emissions = run.emitted();
    const auto terminal =
        std::find_if(emissions.begin(), emissions.end(), [](const std::string& signal) { return signal != "started"; });
    const Signals end(terminal, emissions.end());
    if (!thrown)
        return !run.endedOutside() && end == Signals{"stopped"} && terminal - emissions.begin() == passes()
                   ? ""
                   : "without a fault: " + joined(emissions) + " (" + run.error() + ")";
    if (run.endedOutside() ? !end.empty() : end != Signals({"failed", "stopped"}))
        return std::string(run.endedOutside() ? "outside, and " : "") + "emitted " + joined(emissions);
    return tellsTheFault(run.error(), plan) ? "" : "the failure tells \"" + run.error() + '"';
}

Verdict FaultSweep::throughTranscoder(const Plan& plan) {
    const auto counter = std::make_shared<CallCounter>(plan);
    Verdict verdict;
    place.restore();
    {
        const CountedEngine engine(counter, reference().chunks);
        Sweep::TranscoderRun run(place.request(reference()));
        bool opened = false;
        try {
            run.start();
            opened = true;
            if (!run.waitForEnd())
                verdict.complaint = "never ended";
        } catch (const Kestra::Fakes::Fault&) {
        } catch (const Kestra::Fakes::OddFault&) {
        } catch (const std::exception& error) {
            verdict.complaint = std::string("opening told ") + error.what();
        }
        run.destroy();
        if (opened && verdict.complaint.empty())
            verdict.complaint = judged(run, plan, *counter);
        verdict.thrown = counter->Thrown();
    }
    verdict.calls = counter->Calls();
    return verdict;
}

std::string FaultSweep::judge(const Sweep::JobRun& run, const Plan& plan, bool thrown) const {
    const ExportOutcome& outcome = run.outcome();
    if (run.ends() != 1)
        return "ended " + std::to_string(run.ends()) + " times";
    if (!thrown)
        return outcome.status == ExportOutcome::Status::Done ? ""
                                                             : "without a fault: " + outcome.error.GetDescription();
    if (outcome.status != ExportOutcome::Status::Failed)
        return "the status is " + std::to_string(static_cast<int>(outcome.status));
    if (!tellsTheFault(outcome.error.GetDescription(), plan))
        return "the failure tells \"" + outcome.error.GetDescription() + '"';
    return place.complaint();
}

Verdict FaultSweep::throughJob(const Plan& plan) {
    const auto counter = std::make_shared<CallCounter>(plan);
    Verdict verdict;
    place.restore();
    {
        const CountedEngine engine(counter, reference().chunks);
        Sweep::JobRun run(place.request(reference()));
        run.start();
        if (!run.waitForEnd())
            verdict.complaint = "never ended";
        run.destroy();
        verdict.thrown = counter->Thrown();
        if (verdict.complaint.empty())
            verdict.complaint = judged(run, plan, *counter);
    }
    verdict.calls = counter->Calls();
    return verdict;
}

std::vector<Plan> FaultSweep::plans(const std::vector<std::string>& calls, int count) const {
    std::vector<Plan> result;
    const int total = static_cast<int>(calls.size());
    if (count >= total * 4) {
        for (int at = 0; at < total; ++at)
            for (const int way : {0, 1, 2, 3})
                result.push_back({at, (way & 1) != 0, (way & 2) != 0});
        return result;
    }
    int way = 0;
    const auto add = [&](int at, const std::string& kind) {
        result.push_back({at, (way & 1) != 0, (way & 2) != 0, kind});
        ++way;
    };
    const auto spread = [&](int points, int among, const std::string& kind) {
        for (int i = 0; i < points; ++i)
            add(static_cast<int>(static_cast<long long>(i) * among / points), kind);
    };
    std::set<std::string> kinds;
    for (int at = 0; at < total && !reference().isVariant; ++at)
        if (kinds.insert(calls[static_cast<std::size_t>(at)]).second)
            add(at, {});
    if (reference().chunks.workers > 0)
        spread(count / 2, static_cast<int>(std::count(calls.begin(), calls.end(), CHUNK_FRAME)), CHUNK_FRAME);
    spread(std::max(count - static_cast<int>(result.size()), 0), total, {});
    return result;
}

template <class Road>
void FaultSweep::sweep(const Road& run, int count) {
    const Verdict whole = run({});
    ASSERT_EQ(whole.complaint, "");
    ASSERT_GT(whole.calls.size(), 50U);
    const Holdings before = Holdings::now();
    std::map<std::string, int> complaints;
    int faults = 0;
    const std::vector<Plan> planned = plans(whole.calls, count);
    for (const Plan& plan : planned) {
        Verdict verdict = run(plan);
        faults += verdict.thrown.empty() ? 0 : 1;
        if (verdict.complaint.empty() && !Holdings::returnTo(before))
            verdict.complaint = "it leaves something behind";
        if (verdict.complaint.empty())
            continue;
        const std::string kind = verdict.thrown.empty() ? "nothing" : verdict.thrown.front();
        if (complaints[kind + ": " + verdict.complaint]++ < 3)
            ADD_FAILURE() << reference().name << ", call " << plan.at << ' ' << plan.kind
                          << (plan.forEver ? " for ever" : "") << (plan.odd ? ", odd" : "") << ", " << kind << ": "
                          << verdict.complaint << "\nbefore " << before << ", after " << Holdings::now();
    }
    RecordProperty("faults", faults);
    std::printf("%s: %zu calls, %d of %zu faults, %zu kinds of complaint\n", reference().name, whole.calls.size(),
                faults, planned.size(), complaints.size());
    EXPECT_GE(faults * 10, static_cast<int>(planned.size()) * 9) << "runs end before the calls that are to fail";
}

TEST_P(FaultSweep, AnyCallThatFailsEndsTheTranscodersRunAsPromised) {
    sweep([this](const Plan& plan) { return throughTranscoder(plan); }, count());
}

TEST_P(FaultSweep, AnyCallThatFailsFailsTheJobAndLeavesTheOldFile) {
    sweep([this](const Plan& plan) { return throughJob(plan); }, count());
}

ExportOutcome outcomeOf(int reference, const std::shared_ptr<CallCounter>& counter) {
    const Sweep::Place place;
    const Reference& chosen = Sweep::references()[static_cast<std::size_t>(reference)];
    const CountedEngine engine(counter, chosen.chunks);
    Sweep::JobRun run(place.request(chosen));
    run.start();
    EXPECT_TRUE(run.waitForEnd());
    return run.outcome();
}

/// Sweeps of variants that are none would prove nothing.
TEST(SweepReferences, EncodeSoundInChunksOnTwoThreads) {
    std::mutex mutex;
    std::condition_variable came;
    std::set<std::thread::id> threads;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    const auto counter = std::make_shared<CallCounter>();
    counter->OnCall([&](const std::string& kind) {
        if (kind != CHUNK_FRAME)
            return;
        std::unique_lock<std::mutex> lock(mutex);
        threads.insert(std::this_thread::get_id());
        came.notify_all();
        came.wait_until(lock, deadline, [&] { return threads.size() > 1; });
    });
    EXPECT_EQ(outcomeOf(3, counter).status, ExportOutcome::Status::Done);
    EXPECT_EQ(threads.size(), 2U);
    const auto calls = counter->Calls();
    EXPECT_GT(std::count(calls.begin(), calls.end(), CHUNK_FRAME), 40) << "more than one encoder takes";
}

TEST(SweepReferences, LookAtHalvesInAFirstPass) {
    const ExportOutcome outcome = outcomeOf(4, std::make_shared<CallCounter>());
    EXPECT_EQ(outcome.status, ExportOutcome::Status::Done);
    EXPECT_TRUE(outcome.notes.isEmpty()) << outcome.notes.join(QLatin1Char('\n')).toStdString();
}

INSTANTIATE_TEST_SUITE_P(References, FaultSweep, ::testing::Range(0, 6),
                         [](const auto& testCase) { return Sweep::shortNameOf(testCase.param); });

} // namespace
