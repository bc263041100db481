// SPDX-License-Identifier: GPL-3.0-or-later
// What the desktop is told, over a message bus of the test's own.
#include "FakeDesktop.h"
#include "PrivateBus.h"
#include "WindowFixture.h"
#include "dialog/Models/DesktopSession.h"

namespace TestDialog {
namespace {

std::unique_ptr<PrivateBus> bus;

/// Before anything in the process asks for a bus.
class BusEnvironment : public ::testing::Environment {
public:
    void SetUp() override {
        if (PrivateBus::isInstalled())
            bus = std::make_unique<PrivateBus>();
    }
    void TearDown() override { bus.reset(); }
};

[[maybe_unused]] const ::testing::Environment* const ENVIRONMENT =
    ::testing::AddGlobalTestEnvironment(new BusEnvironment);

template <class Base>
class OnTheBus : public Base {
protected:
    void SetUp() override {
        if (!bus)
            GTEST_SKIP() << "dbus-daemon is not installed (scripts/setup test)";
        ASSERT_FALSE(bus->address().isEmpty()) << "dbus-daemon does not start";
    }
    void offerServices() {
        services = std::make_unique<FakeDesktop>(bus->address());
        ASSERT_TRUE(services->isComplete());
    }

    std::unique_ptr<FakeDesktop> services;
    FakeOpener opener;
};

class Desktop : public OnTheBus<::testing::Test> {
protected:
    Dialog::DesktopSession session;
};

TEST_F(Desktop, ShowsANoticeWhoseTextIsNoMarkup) {
    offerServices();
    session.notify(text("<b>film</b>"), text("Bits & pieces <b>"));
    const auto& notices = services->notifications.notices;
    ASSERT_TRUE(waitUntil([&] { return !notices.empty(); }));
    EXPECT_EQ(notices.front().program, text("editor-export-dialog"));
    EXPECT_EQ(notices.front().icon, text("editor-export"));
    EXPECT_EQ(notices.front().title, text("<b>film</b>"));
    EXPECT_EQ(notices.front().text, text("Bits &amp; pieces &lt;b&gt;"));
    EXPECT_EQ(notices.front().hints.value(text("desktop-entry")).toString(), text("editor-export-dialog"));
    EXPECT_EQ(notices.size(), 1U);
}

TEST_F(Desktop, IsKeptAwakeAsLongAsThatIsWished) {
    offerServices();
    const FakeLogin& login = services->login;
    session.keepAwake(true, text("A film"));
    session.keepAwake(true, text("Another film"));
    ASSERT_TRUE(waitUntil([&] { return !login.inhibitions.empty(); }));
    EXPECT_EQ(login.inhibitions.front().what, text("sleep:idle"));
    EXPECT_EQ(login.inhibitions.front().why, text("A film"));
    EXPECT_EQ(login.inhibitions.front().mode, text("block"));
    TestSupport::turnEventLoop(50);
    EXPECT_TRUE(login.isHeld());
    session.keepAwake(false, {});
    ASSERT_TRUE(waitUntil([&] { return !login.isHeld(); }));
    EXPECT_EQ(login.inhibitions.size(), 1U) << "one is enough";
}

TEST_F(Desktop, IsNotKeptAwakeByAnAnswerThatComesTooLate) {
    offerServices();
    session.keepAwake(true, text("A film"));
    session.keepAwake(false, {});
    ASSERT_TRUE(waitUntil([&] { return !services->login.inhibitions.empty(); }));
    ASSERT_TRUE(waitUntil([&] { return !services->login.isHeld(); }));
}

TEST_F(Desktop, ShowsAFileAmongTheOthers) {
    offerServices();
    session.showInFolder(text("/films/a film #1.mp4"));
    ASSERT_TRUE(waitUntil([&] { return !services->fileManager.shown.isEmpty(); }));
    EXPECT_EQ(services->fileManager.shown, QStringList(text("file:///films/a%20film%20%231.mp4")));
    TestSupport::turnEventLoop(50);
    EXPECT_EQ(opener.opened, QStringList());
}

TEST_F(Desktop, WithoutServicesIsToldNothingAndFoldersAreOpened) {
    session.notify(text("film"), text("done"));
    session.keepAwake(true, text("A film"));
    session.showInFolder(text("/films/film.mp4"));
    ASSERT_TRUE(waitUntil([&] { return !opener.opened.isEmpty(); }));
    EXPECT_EQ(opener.opened, QStringList(text("/films")));
    // Who comes later is asked when it is wished again.
    offerServices();
    ASSERT_TRUE(waitUntil([&] {
        session.keepAwake(true, text("A film"));
        return !services->login.inhibitions.empty();
    }));
    EXPECT_TRUE(services->notifications.notices.empty());
}

using DesktopOfTheWindow = OnTheBus<WindowTest>;

TEST_F(DesktopOfTheWindow, HearsOfAnExportThatEndsInTheBackground) {
    offerServices();
    show();
    openClip();
    saveAs(place / "film.mp4");
    press('x');
    QApplication::setActiveWindow(nullptr);
    ASSERT_TRUE(waitForEnd());
    const auto& notices = services->notifications.notices;
    ASSERT_TRUE(waitUntil([&] { return !notices.empty(); }));
    EXPECT_EQ(notices.front().title, text("film.mp4 is done"));
    EXPECT_TRUE(notices.front().text.contains(text("H.264"))) << notices.front().text.toStdString();
    find<QPushButton>("folderButton").click();
    ASSERT_TRUE(waitUntil([&] { return !services->fileManager.shown.isEmpty(); }));
    EXPECT_TRUE(services->fileManager.shown.front().endsWith(text("/film.mp4")));
    find<QWidget>("endPage").findChild<QPushButton*>(text("openButton"))->click();
    EXPECT_EQ(opener.opened, QStringList(QString::fromStdString(place / "film.mp4")));
}

TEST_F(DesktopOfTheWindow, IsKeptAwakeHoweverTheExportBegins) {
    offerServices();
    show();
    openMuch();
    saveAs(place / "film.mp4");
    press('q');
    ASSERT_TRUE(waitUntil([&] { return find<QPushButton>("startButton").isVisible(); }));
    TestSupport::turnEventLoop(50);
    EXPECT_FALSE(services->login.isHeld()) << "it only waits";
    for (const char* const button : {"startButton", "retryButton"}) {
        find<QPushButton>(button).click();
        ASSERT_TRUE(waitUntil([&] { return services->login.isHeld(); })) << button;
        ASSERT_TRUE(waitUntil([&] { return find<QPushButton>("stopButton").isVisible(); }));
        find<QPushButton>("stopButton").click();
        ASSERT_TRUE(waitForQuestion());
        answer(QMessageBox::AcceptRole);
        ASSERT_TRUE(waitForEnd());
        ASSERT_TRUE(waitUntil([&] { return !services->login.isHeld(); })) << button;
    }
}

TEST_F(DesktopOfTheWindow, IsKeptAwakeUntilTheExportEnds) {
    offerServices();
    show();
    openMuch();
    saveAs(place / "film.mp4");
    press('x');
    ASSERT_TRUE(waitUntil([&] { return find<QPushButton>("stopButton").isVisible(); }));
    ASSERT_TRUE(waitUntil([&] { return services->login.isHeld(); }));
    find<QPushButton>("stopButton").click();
    ASSERT_TRUE(waitForQuestion());
    answer(QMessageBox::AcceptRole);
    ASSERT_TRUE(waitForEnd());
    ASSERT_TRUE(waitUntil([&] { return !services->login.isHeld(); }));
    TestSupport::turnEventLoop(50);
    EXPECT_TRUE(services->notifications.notices.empty()) << "who stops it knows";
}

} // namespace
} // namespace TestDialog
