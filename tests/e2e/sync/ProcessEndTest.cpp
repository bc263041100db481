// SPDX-License-Identifier: GPL-3.0-or-later
// A process that ends while what an export has left comes out of the call that it hung in.
#include "Kestra/Core/CoreManager.h"
#include "ScriptedSources.h"
#include "WatchedJob.h"
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>
#include <thread>
#include <unistd.h>

using Kestra::Core::CoreManager;
using TestExport::Hang;
using TestSupport::waitUntil;
using namespace std::chrono_literals;

namespace {

enum Exit { CAME_OUT = 7, NEVER_CAME_OUT = 8, NEVER_HUNG = 9 };

std::ptrdiff_t threads() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/task"), std::filesystem::directory_iterator());
}

/// Registered before any library has made what it keeps: runs when all that is to be destroyed has been.
class LastOfAll {
public:
    LastOfAll() {
        std::atexit([] {
            if (!gate)
                return;
            gate->Open();
            const auto deadline = std::chrono::steady_clock::now() + 20s;
            while (threads() > threadsBefore && std::chrono::steady_clock::now() < deadline)
                std::this_thread::sleep_for(1ms);
            _exit(threads() > threadsBefore ? NEVER_CAME_OUT : CAME_OUT);
        });
    }

    static Kestra::Fakes::Gate* gate;
    static std::ptrdiff_t threadsBefore;
};

Kestra::Fakes::Gate* LastOfAll::gate = nullptr;
std::ptrdiff_t LastOfAll::threadsBefore = 0;
const LastOfAll LAST_OF_ALL;

class ProcessEnd : public ::testing::TestWithParam<Hang>, protected TestExport::WatchedJob {
protected:
    ProcessEnd() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

    /// Nothing of this process is taken down but by its end.
    [[noreturn]] void endWhileItHangs() {
        TestMedia::FlashBeep flashBeep;
        flashBeep.frames = 250;
        const std::string clip = place / "clip.mov";
        TestMedia::makeFlashBeep(clip, flashBeep);
        const auto calls = std::make_shared<TestExport::Calls>();
        LastOfAll::gate = new Kestra::Fakes::Gate;
        calls->script->At(GetParam().at, [] { LastOfAll::gate->Pass(); });
        CoreManager::Instance().SetSourceFactory(std::make_shared<TestExport::ScriptedSources>(clip, calls));
        std::thread([] {}).join(); // with the first one comes a sanitizer's own, which stays
        LastOfAll::threadsBefore = threads();
        start(clip, GetParam().preset, {1h, 1h, 1h});
        if (!waitUntil([] { return LastOfAll::gate->WaitUntilReached(0ms); }))
            _exit(NEVER_HUNG);
        job.reset();
        std::exit(EXIT_SUCCESS); // NOLINT(concurrency-mt-unsafe)
    }
};

TEST_P(ProcessEnd, ComesWhileWhatWasLeftIsStillAtWork) {
    EXPECT_EXIT(endWhileItHangs(), testing::ExitedWithCode(CAME_OUT), "");
}

INSTANTIATE_TEST_SUITE_P(In, ProcessEnd,
                         testing::Values(Hang{"open"}, Hang{"prepare picture "}, Hang{"picture 60"}, Hang{"sound 100"},
                                         Hang{"close picture "}, Hang{"sound 100", TestExport::SOUND_ALONE}),
                         TestExport::nameOf);

} // namespace
