// SPDX-License-Identifier: GPL-3.0-or-later
#include "component/runner/RunnerFixture.h"
#include "unit/short-memory/ShortMemory.h"
#include <atomic>
#include <new>

using TestSupport::ShortMemory;

namespace {

class RunnerWithoutMemory : public Runner {
protected:
    /// The event, told by an engine's thread that finds no memory.
    FakeProcessor::Event withoutMemory(const FakeProcessor::Event& event) {
        return [this, event](Kestra::Proc::IProcessingEvents& events) {
            const ShortMemory shortage;
            try {
                event(events);
            } catch (const std::bad_alloc&) {
                ++lost;
            }
            refusals += shortage.refusals();
        };
    }

    std::atomic<int> lost{0};
    std::atomic<int> refusals{0};
};

TEST_F(RunnerWithoutMemory, TellsThatTheRunFailed) {
    runner->start();
    const auto error = std::make_exception_ptr(std::bad_alloc());
    play({FakeProcessor::Started(), withoutMemory(FakeProcessor::Progress(1, 1, 100, 1, 1)),
          withoutMemory(FakeProcessor::Error(error))});
    EXPECT_EQ(lost, 1) << "progress does not take the failure's place";
    EXPECT_GT(refusals, 1);
    EXPECT_EQ(emissions, (Signals{"started", "processingFailed " + textOf(error)}));
}

TEST_F(RunnerWithoutMemory, TellsThatTheRunEnded) {
    runner->start();
    play({withoutMemory(FakeProcessor::Finished())});
    EXPECT_EQ(lost, 0);
    EXPECT_GT(refusals, 0);
    EXPECT_EQ(emissions, Signals{"stopped"});
}

TEST_F(RunnerWithoutMemory, TellsTheEndOfEachPass) {
    make(1);
    runner->start();
    play({withoutMemory(FakeProcessor::Finished())});
    EXPECT_EQ(emissions, Signals{}) << "the first of two";
    play({withoutMemory(FakeProcessor::Finished())});
    EXPECT_EQ(emissions, Signals{"stopped"});
    EXPECT_EQ(lost, 0);
}

} // namespace
