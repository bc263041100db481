// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProcessorFixture.h"
#include <algorithm>
#include <random>

namespace Kestra::Proc {
namespace {

using Events = CallLog::Calls;

/// One run that is stopped, released, failed or left alone at a moment that `seed` chooses.
void RunOnce(unsigned seed) {
    std::mt19937 random(seed);
    const auto upTo = [&random](int highest) { return std::uniform_int_distribution<int>(0, highest)(random); };

    const auto log = std::make_shared<CallLog>();
    const auto encoderScript = std::make_shared<Script>(log);
    const auto muxerScript = std::make_shared<Script>(log);
    PacketPlan plan;
    plan.count = upTo(20);
    boost::intrusive_ptr<FakeMuxer> muxer(new FakeMuxer(muxerScript));
    EventRecorder events;
    boost::intrusive_ptr<IStreamProcessor> processor;
    {
        boost::intrusive_ptr<IStream> first(new FakeEncoder(plan, encoderScript));
        boost::intrusive_ptr<IStream> second(new FakeEncoder(plan, std::make_shared<Script>(log)));
        processor = CreateStreamProcessor({first, second}, upTo(3) == 0 ? nullptr : muxer);
    }
    processor->SetEventsReceiver(&events);
    if (upTo(4) == 0) {
        encoderScript->ThrowAt("ReadRaw " + std::to_string(upTo(20)),
                               std::make_exception_ptr(std::runtime_error("planned")));
    }
    processor->Initialize();
    processor->Start();
    const std::string moment = "ReadRaw " + std::to_string(upTo(plan.count));
    const int action = upTo(3);
    if (action > 0) {
        log->WaitFor(
            [&](const Events& calls) {
                return std::find(calls.begin(), calls.end(), moment) != calls.end() || calls.size() > 30;
            },
            std::chrono::milliseconds(1));
    }
    if (action == 1 || action == 2) {
        processor->Stop();
    }
    if (action == 2) {
        processor->Discard();
    }
    if (action != 3) {
        ASSERT_TRUE(events.WaitForEnd()) << "seed " << seed;
    }
    processor.reset();

    const Events main = events.GetMainEvents();
    EXPECT_LE(std::count(main.begin(), main.end(), "onStarted"), 1) << "seed " << seed;
    const auto ends =
        std::count(main.begin(), main.end(), "onError") + std::count(main.begin(), main.end(), "onFinished");
    EXPECT_EQ(ends, action != 3 ? 1 : ends) << "seed " << seed;
    EXPECT_LE(ends, 1) << "seed " << seed;
    EXPECT_EQ(log->Count("~FakeEncoder"), 2u) << "seed " << seed;
    // An output is closed exactly once: completed or given up.
    if (log->Contains("AddStream 0")) {
        EXPECT_EQ(log->Count("Finish") + log->Count("Abort"), 1u) << "seed " << seed;
    }
}

TEST(ProcessorStress, AThousandRunsEndAsTheyShould) {
    for (unsigned seed = 0; seed < 1000; ++seed) {
        RunOnce(seed);
        if (testing::Test::HasFailure()) {
            return;
        }
    }
}

} // namespace
} // namespace Kestra::Proc
