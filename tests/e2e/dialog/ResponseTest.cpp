// SPDX-License-Identifier: GPL-3.0-or-later
// The window while something hangs: it answers all the same.
#include "EditorSettings/Settings.h"
#include "WindowFixture.h"
#include "fakes/kestra/FakeEngineParts.h"
#include "support/LoopWatch.h"
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QThread>
#include <atomic>
#include <memory>
#include <sys/syscall.h>
#include <unistd.h>

namespace TestDialog {
namespace {

using Kestra::Fakes::FakeEngineParts;
using Kestra::Fakes::Gate;
using TestSupport::LoopWatch;
using namespace std::chrono_literals;

/// In front of all that is brought to the disk; null while nothing is to hang. Shared: a thread may come out when the
/// test is over.
std::shared_ptr<Gate> disk;
std::atomic<bool> syncedByTheLoop{false};

int sync(long call, int file) {
    if (const auto busy = std::atomic_load(&disk)) {
        if (QCoreApplication::instance() && QThread::currentThread() == QCoreApplication::instance()->thread())
            syncedByTheLoop = true; // not held up, or the test would hang
        else
            busy->Pass();
    }
    return static_cast<int>(syscall(call, file));
}

} // namespace
} // namespace TestDialog

// Stand in front of the system's for every library of this program.
#pragma GCC visibility push(default)
extern "C" int fsync(int file) {
    return TestDialog::sync(SYS_fsync, file);
}
extern "C" int fdatasync(int file) {
    return TestDialog::sync(SYS_fdatasync, file);
}
#pragma GCC visibility pop

namespace TestDialog {
namespace {

class BusyDisk : public WindowTest {
protected:
    BusyDisk() {
        syncedByTheLoop = false;
        std::atomic_store(&disk, gate);
    }
    ~BusyDisk() override { release(); }

    void release() {
        gate->Open();
        std::atomic_store(&disk, std::shared_ptr<Gate>());
    }
    void order(const char* name) {
        saveAs(place / name);
        press('q');
    }
    bool isBusy() const { return gate->WaitUntilReached(0ms) || syncedByTheLoop; }
    int jobs() const { return find<QAbstractItemView>("jobView").model()->rowCount(); }

    const std::shared_ptr<Gate> gate = std::make_shared<Gate>();
};

TEST_F(BusyDisk, KeepsNoOrderWaiting) {
    show();
    openClip();
    choose(text("Web"), text("vp9 720"));
    order("film.webm");
    ASSERT_TRUE(waitUntil([&] { return jobs() == 1 && isBusy(); }));
    ASSERT_FALSE(syncedByTheLoop);
    choose(text("Web"), text("vp9 1080"));
    order("second.webm");
    ASSERT_TRUE(waitUntil([&] { return jobs() == 2; })) << "though the first choice is not on the disk yet";
    EXPECT_FALSE(syncedByTheLoop);
    release();
    EXPECT_TRUE(waitUntil([] { return Settings::lastUsedPresetId() == "webm-vp9-1080p"; })) << "the last one counts";
    EXPECT_EQ(Settings::lastUsedPresetGroup(), "web");
}

TEST_F(BusyDisk, IsLeftByAWindowThatGoes) {
    show();
    openClip();
    choose(text("Web"), text("vp9 720"));
    order("film.webm");
    ASSERT_TRUE(waitUntil([&] { return isBusy(); }));
    QElapsedTimer clock;
    clock.start();
    window.reset();
    EXPECT_LT(clock.elapsed(), 8000) << "two seconds for what hangs";
    ASSERT_FALSE(syncedByTheLoop);
    // What was left comes out while the configuration is still the test's.
    release();
    EXPECT_TRUE(waitUntil([] { return Settings::lastUsedPresetId() == "webm-vp9-720p"; }));
}

/// An encoder whose opening nothing interrupts.
class HungEngine : public WindowTest {
protected:
    HungEngine() {
        for (const auto& script : {engine.encoders, engine.muxing})
            script->At("Prepare", [gate = gate] { gate->Pass(); });
    }
    ~HungEngine() override {
        gate->Open();
        window.reset();
    }

    void startAndHang() {
        show();
        openClip();
        saveAs(place / "film.mp4");
        press('x');
        ASSERT_TRUE(waitUntil([&] { return gate->WaitUntilReached(0ms); }));
        ASSERT_TRUE(waitUntil([&] { return find<QPushButton>("stopButton").isVisible(); }));
    }
    /// It is left after two seconds; who waited for it on the loop's thread would be away as long.
    static void expectToHaveTurned(const LoopWatch& loop) {
        EXPECT_LT(loop.longestAway(), 1s) << loop.longestAway().count() << " ms";
        EXPECT_GE(loop.turns(), 24);
    }

    const std::shared_ptr<Gate> gate = std::make_shared<Gate>();
    const FakeEngineParts engine;
};

TEST_F(HungEngine, KeepsTheWindowAliveWhileItIsStopped) {
    startAndHang();
    find<QPushButton>("stopButton").click();
    ASSERT_TRUE(waitForQuestion());
    const LoopWatch loop;
    answer(QMessageBox::AcceptRole);
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(endTitle(), text("Stopped"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // the job itself
    expectToHaveTurned(loop);
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList(text("clip.mov")));
}

TEST_F(HungEngine, DoesNotKeepAWindowInSightThatIsToClose) {
    startAndHang();
    window->close();
    ASSERT_TRUE(waitForQuestion());
    const LoopWatch loop;
    const QSignalSpy ended(window.get(), &Dialog::ExportWindow::ended);
    answer(QMessageBox::AcceptRole);
    ASSERT_TRUE(waitUntil([&] { return !window->isVisible(); }));
    EXPECT_EQ(ended.count(), 0) << "what hangs is not left yet";
    EXPECT_EQ(question(), nullptr);
    ASSERT_TRUE(waitUntil([&] { return ended.count() > 0; }));
    window.reset(); // which waits for nobody any more
    expectToHaveTurned(loop);
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList(text("clip.mov")));
}

TEST_F(HungEngine, IsLeftByAWindowThatGoes) {
    startAndHang();
    QElapsedTimer clock;
    clock.start();
    window.reset();
    EXPECT_LT(clock.elapsed(), 8000) << "two seconds for what hangs";
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList(text("clip.mov")));
}

} // namespace
} // namespace TestDialog
