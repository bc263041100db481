// SPDX-License-Identifier: GPL-3.0-or-later
// Several exports, and what is asked about them.
#include "EditorProject/EditorProject.h"
#include "QueueFixture.h"
#include "support/MediaProbe.h"
#include <QRadioButton>
#include <QSignalSpy>
#include <stdexcept>

namespace TestDialog {
namespace {

class Queue : public QueueFixture {};

TEST_F(Queue, ThatHasEndedIsNoLongerAskedAbout) {
    show();
    openClip();
    saveAs(output);
    press('x');
    ASSERT_TRUE(waitUntil([&] { return find<QPushButton>("stopButton").isVisible(); }));
    window->close();
    ASSERT_TRUE(waitForQuestion());
    ASSERT_TRUE(waitForEnd());
    ASSERT_TRUE(waitUntil([&] { return !question(); })) << "nothing runs that could be stopped";
    EXPECT_TRUE(window->isVisible()) << "how it ended is to be seen";
    window->close();
    EXPECT_FALSE(window->isVisible());
}

TEST_F(Queue, ThatWasNotStartedIsNotLostByClosing) {
    show();
    openClip();
    add(place / "a.mp4");
    add(place / "b.mp4");
    window->close();
    ASSERT_TRUE(waitForQuestion());
    EXPECT_EQ(question()->text(), text("2 exports were not started. Close without them?"));
    answer(QMessageBox::RejectRole);
    ASSERT_TRUE(waitUntil([&] { return !question(); }));
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(states(), (QStringList{text("Waiting"), text("Waiting")}));
    window->close();
    ASSERT_TRUE(waitForQuestion());
    const QSignalSpy ended(window.get(), &Dialog::ExportWindow::ended);
    answer(QMessageBox::AcceptRole);
    ASSERT_TRUE(waitUntil([&] { return !window->isVisible(); }));
    EXPECT_EQ(ended.count(), 1);
    EXPECT_EQ(names(), QStringList(text("clip.mov")));
}

TEST_F(Queue, ThatWaitsForTheOneThatRunsIsNotLostByClosingUnsaid) {
    show();
    startLong();
    window->close();
    ASSERT_TRUE(waitForQuestion());
    EXPECT_EQ(question()->text(), text("An export is running. Stop it and close? Nothing of it is kept."));
    answer(QMessageBox::RejectRole);
    ASSERT_TRUE(waitUntil([&] { return !question(); }));
    add(place / "b.mp4");
    window->close();
    ASSERT_TRUE(waitForQuestion());
    EXPECT_EQ(question()->text(),
              text("An export is running, and others wait. Stop it and close? Nothing of it is kept, "
                   "and the others are not made."));
    const QSignalSpy ended(window.get(), &Dialog::ExportWindow::ended);
    answer(QMessageBox::AcceptRole);
    ASSERT_TRUE(waitUntil([&] { return ended.count() > 0; }));
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(names(), QStringList(text("clip.mov")));
}

TEST_F(Queue, SaysWhenWhatWaitsBegins) {
    show();
    openMuch();
    add(place / "a.mp4");
    EXPECT_EQ(find<QLabel>("waitLabel").text(), text("It begins when the queue is started."));
    click("startButton");
    EXPECT_EQ(find<QLabel>("waitLabel").text(), text("It begins when the exports before it have ended."));
    ASSERT_TRUE(waitUntil([&] { return find<QPushButton>("stopButton").isVisible(); }));
    add(place / "b.mp4");
    select(1);
    EXPECT_EQ(find<QLabel>("waitLabel").text(), text("It begins when the exports before it have ended."));
    EXPECT_FALSE(find<QPushButton>("startButton").isVisible());
}

TEST_F(Queue, ThatWasNotStartedMakesWhatIsExportedAtOnceAndNothingElse) {
    show();
    openClip();
    add(place / "a.mp4");
    saveAs(place / "now.mp4");
    press('x');
    ASSERT_TRUE(waitUntil([&] { return jobs().rowCount() == 2 && state(1) == text("Done"); }));
    EXPECT_EQ(state(0), text("Waiting"));
    EXPECT_EQ(find<QLabel>("waitLabel").isVisible(), false);
    select(0);
    EXPECT_EQ(find<QLabel>("waitLabel").text(), text("It begins when the queue is started."));
    click("startButton");
    ASSERT_TRUE(waitUntil([&] { return state(0) == text("Done"); }));
}

TEST_F(Queue, GivesBackWhatWasOrderedToBeChanged) {
    show();
    openClip();
    choose(text("MP4"), text("720"));
    const QString preset = find<QLabel>("factsLabel").text();
    pressButton('a', "cutButton");
    find<QLineEdit>("inEdit").setText(text("0:00.4"));
    find<QLineEdit>("outEdit").setText(text("0:01.4"));
    add(place / "nowhere/a.mp4");
    click("startButton");
    ASSERT_TRUE(waitUntil([&] { return state(0) == text("Failed"); }));
    const std::string other = place / "other.mov";
    ASSERT_TRUE(QFile::copy(QString::fromStdString(clip), QString::fromStdString(other)));
    open({QString::fromStdString(other)});
    choose(text("WebM"), text("720"));
    find<QLineEdit>("outputEdit").setText(QString::fromStdString(place / "b.webm"));
    select(0);
    click("changeButton");
    ASSERT_TRUE(waitUntil([&] { return find<QLabel>("sourceName").text() == text("clip.mov"); }));
    ASSERT_TRUE(waitUntil([&] { return find<QRadioButton>("cutButton").isChecked(); }));
    EXPECT_EQ(find<QLabel>("factsLabel").text(), preset);
    EXPECT_EQ(find<QLineEdit>("inEdit").text(), text("0:00.4"));
    EXPECT_EQ(find<QLineEdit>("outEdit").text(), text("0:01.4"));
    EXPECT_EQ(find<QLineEdit>("outputEdit").text(), QString::fromStdString(place / "nowhere/a.mp4"));
    saveAs(place / "a.mp4");
    press('x');
    ASSERT_TRUE(waitUntil([&] { return jobs().rowCount() == 2 && state(1) == text("Done"); }));
    EXPECT_NEAR(TestMedia::probe(place / "a.mp4").duration, 1, 0.05);
}

TEST_F(Queue, ShowsWhatWasAddedWhicheverIsSelected) {
    show();
    startLong();
    auto& view = find<QTreeView>("jobView");
    for (int number = 0; number < 20; ++number)
        add(place / (std::to_string(number) + ".mp4"));
    const QModelIndex last = jobs().index(jobs().rowCount() - 1, 0);
    EXPECT_TRUE(view.viewport()->rect().contains(view.visualRect(last)));
    EXPECT_EQ(view.currentIndex().row(), 0) << "what runs is seen further on";
}

TEST_F(Queue, GoesOnAfterAFailure) {
    show();
    openClip();
    add(place / "nowhere/a.mp4");
    add(place / "b.mp4");
    click("startButton");
    ASSERT_TRUE(waitUntil([&] { return state(1) == text("Done"); }));
    EXPECT_EQ(state(0), text("Failed"));
    select(0);
    EXPECT_EQ(endTitle(), text("The file cannot be written"));
    select(1);
    EXPECT_EQ(endTitle(), text("b.mp4 is done"));
    EXPECT_EQ(names(), (QStringList{text("b.mp4"), text("clip.mov")}));
}

TEST_F(Queue, LosesWhatIsTakenOutOrRemoved) {
    show();
    openClip();
    add(place / "a.mp4");
    add(place / "b.mp4");
    select(0);
    click("cancelButton");
    EXPECT_EQ(jobs().rowCount(), 1);
    click("startButton");
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(endTitle(), text("b.mp4 is done"));
    click("removeButton");
    EXPECT_EQ(jobs().rowCount(), 0);
    EXPECT_FALSE(find<QWidget>("jobPane").isVisible());
    EXPECT_EQ(names(), (QStringList{text("b.mp4"), text("clip.mov")})) << "the file stays";
}

TEST_F(Queue, AsksBeforeTwoBecomeOneFile) {
    TestFiles::write(place / "link", "");
    QFile::remove(QString::fromStdString(place / "link"));
    ASSERT_TRUE(QFile::link(QString::fromStdString(place / ""), QString::fromStdString(place / "link")));
    show();
    openClip();
    add(place / "a.mp4");
    for (const std::string& same : {place / "a.mp4", place / ".//a.mp4", place / "link/a.mp4"}) {
        find<QLineEdit>("outputEdit").setText(QString::fromStdString(same));
        press('q');
        ASSERT_TRUE(waitForQuestion()) << same;
        EXPECT_EQ(question()->text(), text("Another export in the list is to become “a.mp4” as well."));
        answer(QMessageBox::RejectRole);
        ASSERT_TRUE(waitUntil([&] { return !question(); }));
    }
    EXPECT_EQ(jobs().rowCount(), 1);
    press('q');
    ASSERT_TRUE(waitForQuestion());
    answer(QMessageBox::AcceptRole);
    ASSERT_TRUE(waitUntil([&] { return jobs().rowCount() == 2; }));
    click("startButton");
    ASSERT_TRUE(waitUntil([&] { return states() == QStringList({text("Done"), text("Done")}); }));
}

TEST_F(Queue, SaysWhatIsThereAlreadyWhereTwoBecomeOneFile) {
    show();
    openClip();
    add(output);
    TestFiles::write(output, "old");
    press('q');
    ASSERT_TRUE(waitForQuestion());
    EXPECT_EQ(question()->text(),
              text("Another export in the list is to become “film.mp4” as well. “film.mp4”, which is "
                   "there already, is replaced, too."));
    answer(QMessageBox::RejectRole);
    ASSERT_TRUE(waitUntil([&] { return !question(); }));
    EXPECT_EQ(jobs().rowCount(), 1);
}

TEST_F(Queue, AsksBeforeItReplacesAFileInAnotherAttempt) {
    TestFiles::write(output, "old");
    show();
    openMuch();
    saveAs(output);
    press('x');
    ASSERT_TRUE(waitForQuestion());
    answer(QMessageBox::AcceptRole);
    ASSERT_TRUE(waitUntil([&] { return find<QPushButton>("stopButton").isVisible(); }));
    stopIt();
    TestFiles::write(output, "somebody's good work");
    click("retryButton");
    ASSERT_TRUE(waitForQuestion());
    EXPECT_TRUE(question()->text().contains(text("“film.mp4” is there already"))) << question()->text().toStdString();
    answer(QMessageBox::RejectRole);
    ASSERT_TRUE(waitUntil([&] { return !question(); }));
    EXPECT_EQ(states(), QStringList(text("Stopped")));
    EXPECT_EQ(TestFiles::read(output), "somebody's good work");
}

TEST_F(Queue, TriesAgainWhatWasStoppedOrHasFailed) {
    show();
    openClip();
    saveAs(place / "later/film.mp4");
    press('x');
    ASSERT_TRUE(waitForEnd());
    ASSERT_EQ(state(0), text("Failed"));
    QDir().mkdir(QString::fromStdString(place / "later"));
    saveAs(place / "another.mp4");
    click("retryButton");
    ASSERT_TRUE(waitUntil([&] { return jobs().rowCount() == 2 && state(1) == text("Done"); }));
    EXPECT_EQ(endTitle(), text("film.mp4 is done"));
    EXPECT_EQ(TestFiles::namesIn(place / "later"), QStringList(text("film.mp4")));
}

TEST_F(Queue, DoesNotEndForAFaultOfTheWindow) {
    show();
    startLong();
    auto* const project = window->findChild<EditorProject*>();
    ASSERT_NE(project, nullptr) << "of the source that is shown";
    for (QObject* const part : {static_cast<QObject*>(&find<QLabel>("sourceName")), static_cast<QObject*>(project)}) {
        QMetaObject::invokeMethod(
            part, [] { throw std::runtime_error("The list is out of order"); }, Qt::QueuedConnection);
        ASSERT_TRUE(waitForQuestion());
        EXPECT_EQ(question()->text(), text("The list is out of order"));
        EXPECT_EQ(state(0).contains(text("%")) || state(0) == text("Starting"), true) << state(0).toStdString();
        QTest::keyClick(question(), Qt::Key_Escape);
        ASSERT_TRUE(waitUntil([&] { return !question(); }));
    }
    QMetaObject::invokeMethod(
        qApp, [] { throw std::runtime_error("Whose is it?"); }, Qt::QueuedConnection);
    ASSERT_TRUE(waitForEnd()) << "what nobody knows the cause of ends it";
    EXPECT_TRUE(find<QLabel>("endReason").text().contains(text("Whose is it?")));
}

} // namespace
} // namespace TestDialog
