// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/Watchdog.h"
#include "support/WaitUntil.h"
#include <QElapsedTimer>
#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace std::chrono_literals;
using ExportCore::Watchdog;
using TestSupport::waitUntil;

namespace {

// For the spies.
[[maybe_unused]] const int waitType = qRegisterMetaType<Watchdog::Wait>("ExportCore::Watchdog::Wait");

TEST(Watchdog, BarksWhenNothingStarts) {
    Watchdog dog({50ms, 1h, 1h});
    QSignalSpy stalled(&dog, &Watchdog::stalled);
    dog.expect(Watchdog::Wait::Start);
    ASSERT_TRUE(waitUntil([&] { return !stalled.isEmpty(); }));
    EXPECT_EQ(stalled[0][0].value<Watchdog::Wait>(), Watchdog::Wait::Start);
}

TEST(Watchdog, DoesNotBarkBeforeItsTime) {
    Watchdog dog({200ms, 1h, 1h});
    QSignalSpy stalled(&dog, &Watchdog::stalled);
    QElapsedTimer clock;
    clock.start();
    dog.expect(Watchdog::Wait::Start);
    ASSERT_TRUE(waitUntil([&] { return !stalled.isEmpty(); }));
    EXPECT_GE(clock.elapsed(), 180);
}

TEST(Watchdog, SignsOfLifeKeepItQuiet) {
    Watchdog dog({1h, 200ms, 1h});
    QSignalSpy stalled(&dog, &Watchdog::stalled);
    QTimer life;
    int signs = 0;
    QObject::connect(&life, &QTimer::timeout, [&] {
        ++signs;
        dog.expect(Watchdog::Wait::Progress);
    });
    dog.expect(Watchdog::Wait::Progress);
    life.start(20);
    ASSERT_TRUE(waitUntil([&] { return signs >= 30; }));
    EXPECT_TRUE(stalled.isEmpty());
    life.stop();
    EXPECT_TRUE(waitUntil([&] { return !stalled.isEmpty(); }));
}

TEST(Watchdog, AStopHasTimeLeftForItsEnd) {
    const Watchdog dog({1h, 1h, 10s});
    // Leaving what hangs takes up to two seconds.
    EXPECT_LE(dog.limitOf(Watchdog::Wait::Stop), 8s);
    EXPECT_LE(dog.limitOf(Watchdog::Wait::Interruption), 8s);
}

TEST(Watchdog, AnotherWaitTakesThePlaceOfTheFirst) {
    Watchdog dog({50ms, 50ms, 100ms});
    QSignalSpy stalled(&dog, &Watchdog::stalled);
    dog.expect(Watchdog::Wait::Start);
    dog.expect(Watchdog::Wait::Stop);
    ASSERT_TRUE(waitUntil([&] { return !stalled.isEmpty(); }));
    EXPECT_EQ(stalled[0][0].value<Watchdog::Wait>(), Watchdog::Wait::Stop);
    TestSupport::turnEventLoop();
    EXPECT_EQ(stalled.size(), 1);
}

TEST(Watchdog, GivesAnInterruptionHalfOfAStopsTime) {
    Watchdog dog({1h, 1h, 100ms});
    QSignalSpy stalled(&dog, &Watchdog::stalled);
    dog.expect(Watchdog::Wait::Interruption);
    ASSERT_TRUE(waitUntil([&] { return !stalled.isEmpty(); }));
    EXPECT_EQ(stalled[0][0].value<Watchdog::Wait>(), Watchdog::Wait::Interruption);
    EXPECT_EQ(dog.limitOf(Watchdog::Wait::Interruption), 50ms);
}

TEST(Watchdog, BarksOnce) {
    Watchdog dog({10ms, 10ms, 10ms});
    QSignalSpy stalled(&dog, &Watchdog::stalled);
    dog.expect(Watchdog::Wait::Start);
    ASSERT_TRUE(waitUntil([&] { return !stalled.isEmpty(); }));
    QElapsedTimer clock;
    clock.start();
    ASSERT_TRUE(waitUntil([&] { return clock.elapsed() > 100; }));
    EXPECT_EQ(stalled.size(), 1);
}

TEST(Watchdog, DisarmedItIsQuiet) {
    Watchdog dog({20ms, 20ms, 20ms});
    QSignalSpy stalled(&dog, &Watchdog::stalled);
    dog.expect(Watchdog::Wait::Start);
    dog.disarm();
    QElapsedTimer clock;
    clock.start();
    ASSERT_TRUE(waitUntil([&] { return clock.elapsed() > 100; }));
    EXPECT_TRUE(stalled.isEmpty());
}

} // namespace
