// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Base/FolderInUse.h"
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <future>
#include <gtest/gtest.h>
#include <memory>
#include <thread>

using Kestra::FolderInUse;
using namespace std::chrono_literals;

namespace {

/// Counts what is removed, and on which thread.
struct Removals {
    std::function<void()> counted() {
        return [this] {
            thread = std::this_thread::get_id();
            ++count;
        };
    }
    std::atomic<int> count{0};
    std::thread::id thread;
};

} // namespace

TEST(FolderInUse, GoesAtOnceWhereNobodyUsesIt) {
    Removals removals;
    { const FolderInUse over("/scratch/run/log"); }
    FolderInUse::Remove("/scratch/run", removals.counted());
    EXPECT_EQ(removals.count, 1);
}

TEST(FolderInUse, GoesWithItsLastUseOnThatThread) {
    Removals removals;
    auto first = std::make_unique<FolderInUse>("/scratch/run/two_pass/log");
    auto last = std::make_unique<FolderInUse>("/scratch/run/other");
    FolderInUse::Remove("/scratch/run", removals.counted());
    first.reset();
    EXPECT_EQ(removals.count, 0);
    std::thread user([&last] { last.reset(); });
    const std::thread::id id = user.get_id();
    user.join();
    EXPECT_EQ(removals.count, 1);
    EXPECT_EQ(removals.thread, id);
}

TEST(FolderInUse, KeepsNoOtherFolder) {
    Removals removals;
    const FolderInUse use("/scratch/run/log");
    for (const char* folder : {"/scratch/ru", "/scratch/run/two_pass", "/scratch/run/log", "/scratch/other", "run"})
        FolderInUse::Remove(folder, removals.counted());
    EXPECT_EQ(removals.count, 5);
}

TEST(FolderInUse, BeginsOnlyWhenARemovalThatIsUnderWayIsOver) {
    std::promise<void> begun, go;
    std::atomic<bool> gone{false};
    std::thread remover([&] {
        FolderInUse::Remove("/scratch/run", [&] {
            begun.set_value();
            go.get_future().wait();
            gone = true;
        });
    });
    begun.get_future().wait();
    auto use = std::async(std::launch::async, [&gone] {
        const FolderInUse late("/scratch/run/log");
        return gone.load();
    });
    { const FolderInUse elsewhere("/scratch/other/log"); }
    EXPECT_EQ(use.wait_for(50ms), std::future_status::timeout);
    go.set_value();
    EXPECT_TRUE(use.get());
    remover.join();
}

TEST(FolderInUseDeathTest, GoesAsTheProcessExitsWhereAUseHangs) {
    const auto exit = [] {
        static const FolderInUse& hangs = *new FolderInUse("/scratch/run/log");
        static_cast<void>(hangs);
        FolderInUse::Remove("/scratch/run", [] { std::fputs("removed", stderr); });
        std::fputs("exits: ", stderr);
        std::exit(0);
    };
    EXPECT_EXIT(exit(), ::testing::ExitedWithCode(0), "exits: removed");
}
