// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Base/LeavableThread.h"
#include "fakes/kestra/Gate.h"
#include <functional>
#include <gtest/gtest.h>
#include <new>
#include <pthread.h>
#include <stdexcept>
#include <thread>
#include <utility>

namespace Kestra {
namespace {

using Fakes::Gate;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds LONG{60};

std::string ThisThreadsName() {
    char name[32] = {};
    pthread_getname_np(pthread_self(), name, sizeof name);
    return name;
}

void Fail() {
    throw std::runtime_error("no");
}

/// Notes that it has gone.
struct Held {
    explicit Held(bool& gone)
        : gone(gone) {}
    ~Held() { gone = true; }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    bool& gone;
};

/// Finds no memory for a copy once that is short.
struct ThrowsWhenCopied {
    explicit ThrowsWhenCopied(const bool& memoryIsShort)
        : memoryIsShort(memoryIsShort) {}
    ThrowsWhenCopied(const ThrowsWhenCopied& other)
        : memoryIsShort(other.memoryIsShort) {
        if (memoryIsShort)
            throw std::bad_alloc();
    }
    ThrowsWhenCopied& operator=(const ThrowsWhenCopied&) = delete;
    const bool& memoryIsShort;
};

TEST(LeavableThread, BearsItsNameCutToWhatTheSystemTakes) {
    for (const auto& [name, seen] :
         {std::pair("a-short-name", "a-short-name"), {"a-name-that-is-long", "a-name-that-is-"}}) {
        std::string own;
        LeavableThread thread;
        thread.Start(name, [&own] { own = ThisThreadsName(); });
        EXPECT_TRUE(thread.JoinOrLeave(Clock::now() + LONG));
        EXPECT_EQ(own, seen);
    }
}

TEST(LeavableThread, KeepsTheExceptionThatLeftItsBody) {
    LeavableThread thread;
    EXPECT_FALSE(thread.GetFailure());
    thread.Start("fails", &Fail);
    EXPECT_TRUE(thread.JoinOrLeave(Clock::now() + LONG));
    ASSERT_TRUE(thread.GetFailure());
    EXPECT_THROW(std::rethrow_exception(thread.GetFailure()), std::runtime_error);
    thread.Start("fails no more", [] {});
    EXPECT_TRUE(thread.JoinOrLeave(Clock::now() + LONG));
    EXPECT_FALSE(thread.GetFailure());
}

TEST(LeavableThread, TellsItsEndWhatLeftTheBodyWhenTheBodyIsGone) {
    for (const bool fails : {true, false}) {
        bool bodyGone = false;
        bool goneBeforeEnd = false;
        std::exception_ptr told;
        LeavableThread thread;
        thread.Start(
            "tells",
            [fails, held = std::make_shared<Held>(bodyGone)] {
                if (fails)
                    Fail();
            },
            [&](std::exception_ptr failure) {
                goneBeforeEnd = bodyGone;
                told = std::move(failure);
            });
        EXPECT_TRUE(thread.JoinOrLeave(Clock::now() + LONG));
        EXPECT_TRUE(goneBeforeEnd);
        EXPECT_EQ(told != nullptr, fails);
        EXPECT_FALSE(thread.GetFailure()) << "it has been told";
    }
}

TEST(LeavableThread, IsLeftAtTheDeadlineAndGoesOnByItself) {
    const auto gate = std::make_shared<Gate>();
    const auto behind = std::make_shared<Gate>();
    LeavableThread thread;
    thread.Start("hangs", [gate, behind] {
        gate->Pass();
        behind->Pass();
    });
    ASSERT_TRUE(gate->WaitUntilReached());
    EXPECT_FALSE(thread.JoinOrLeave(Clock::now()));
    EXPECT_FALSE(thread.IsRunning());
    gate->Open();
    EXPECT_TRUE(behind->WaitUntilReached());
    behind->Open();
}

TEST(LeavableThread, CallsOnAThreadOfThatNameAndThrowsWhatTheCallThrew) {
    std::string name;
    EXPECT_TRUE(LeavableThread::Call(
        "a-call", [&name] { name = ThisThreadsName(); }, LONG));
    EXPECT_EQ(name, "a-call");
    EXPECT_THROW(LeavableThread::Call("a-call", &Fail, LONG), std::runtime_error);
}

TEST(LeavableThread, CallsOnThisThreadWhereThereIsNoMemoryForAnother) {
    bool memoryIsShort = false;
    std::thread::id caller;
    std::function<void()> body = [&caller, copied = ThrowsWhenCopied(memoryIsShort)] {
        caller = std::this_thread::get_id();
    };
    memoryIsShort = true;
    EXPECT_TRUE(LeavableThread::Call("a-call", std::move(body), LONG));
    EXPECT_EQ(caller, std::this_thread::get_id());
}

TEST(LeavableThread, CallsForNoLongerThanItHasPatience) {
    const auto gate = std::make_shared<Gate>();
    EXPECT_FALSE(LeavableThread::Call(
        "hangs", [gate] { gate->Pass(); }, std::chrono::milliseconds(1)));
    gate->Open();
}

} // namespace
} // namespace Kestra
