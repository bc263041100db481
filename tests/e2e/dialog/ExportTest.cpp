// SPDX-License-Identifier: GPL-3.0-or-later
// Whole exports from the window, by the keyboard.
#include "WindowFixture.h"
#include "support/MediaProbe.h"
#include <QCheckBox>
#include <QClipboard>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSet>
#include <QSignalSpy>
#include <QToolButton>
#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <string>
#include <sys/resource.h>

namespace TestDialog {
namespace {

#ifdef EDITOREXPORT_SANITIZED
constexpr bool SANITIZED = true;
#else
constexpr bool SANITIZED = false;
#endif

class WindowExport : public WindowTest {
protected:
    const std::string output = place / "film.mp4";
};

/// As a disk that is full after so many bytes.
class LittleRoom {
public:
    explicit LittleRoom(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &before);
        rlimit little = before;
        little.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &little);
        std::signal(SIGXFSZ, SIG_IGN);
    }
    ~LittleRoom() { setrlimit(RLIMIT_FSIZE, &before); }
    LittleRoom(const LittleRoom&) = delete;
    LittleRoom& operator=(const LittleRoom&) = delete;

private:
    rlimit before = {};
};

TEST_F(WindowExport, IsMadeByTheKeyboardAlone) {
    show();
    openClip();
    choose(text("Two passes"), text("mpeg-4 720p"));
    choose(text("MP4"), text("h.264 480"));
    press('y');
    EXPECT_EQ(QApplication::focusWidget(), &find<QComboBox>("qualityBox"));
    key(Qt::Key_End);
    const QString quality = find<QComboBox>("qualityBox").currentText();
    EXPECT_NE(quality, text("As the preset says"));
    saveAs(output);
    press('x');
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(endTitle(), text("film.mp4 is done"));
    EXPECT_TRUE(find<QLabel>("endReason").text().contains(text("H.264, 320 × 180, 50 frames")))
        << find<QLabel>("endReason").text().toStdString();
    const TestMedia::ProbedMedia film = TestMedia::probe(output);
    ASSERT_TRUE(film.video && film.audio);
    EXPECT_EQ(film.video->codec, "h264");
    EXPECT_EQ(film.video->frames.size(), 50U);
    EXPECT_EQ(TestFiles::namesIn(place / ""), (QStringList{text("clip.mov"), text("film.mp4")}));
}

TEST_F(WindowExport, TellsItsProgressInTheWindowAndInItsTitle) {
    show();
    openMuch();
    saveAs(output);
    EXPECT_EQ(window->windowTitle(), text("Export"));
    press('x');
    auto& bar = find<QProgressBar>("progressBar");
    ASSERT_TRUE(waitUntil([&] { return bar.isVisible() && bar.maximum() == 100 && bar.value() >= 1; }));
    EXPECT_EQ(window->windowTitle(), text("%1 % – film.mp4 – Export").arg(bar.value()));
    const QString progress = find<QLabel>("progressLabel").text();
    EXPECT_TRUE(progress.startsWith(text("%1 %").arg(bar.value()))) << progress.toStdString();
    EXPECT_TRUE(progress.contains(text("× real time"))) << progress.toStdString();
    ASSERT_TRUE(waitUntil([&] { return find<QLabel>("progressLabel").text().contains(text("left")); }));
    ASSERT_TRUE(waitUntil([&] { return !find<Dialog::PictureLabel>("preview").isEmpty(); }));
}

TEST_F(WindowExport, ShowsTheFramesThatItIsAt) {
    show();
    openMuch();
    saveAs(output);
    press('x');
    auto& preview = find<Dialog::PictureLabel>("preview");
    ASSERT_TRUE(waitUntil([&] { return !preview.isEmpty(); }));
    // Each is of one grey, which tells its number: from one corner to the other, for they are as wide as the label.
    QSet<int> shown;
    QString wrong;
    ASSERT_TRUE(waitUntil([&] {
        const QImage image = preview.grab().toImage();
        const QColor middle = image.pixelColor(image.rect().center());
        const QColor corner = image.pixelColor(image.width() - 5, image.height() - 5);
        const double luma = 16 + middle.red() * 219 / 255.0;
        const bool isFrame = TestMedia::numberOfLuma(luma) >= 0 || luma > 225;
        if (!isFrame || std::abs(middle.red() - middle.blue()) > 4 || std::abs(middle.red() - corner.red()) > 4)
            wrong = middle.name() + corner.name();
        shown << middle.red();
        return shown.size() >= 3 || !wrong.isEmpty();
    }));
    EXPECT_EQ(wrong, QString());
    find<QPushButton>("stopButton").click();
    ASSERT_TRUE(waitForQuestion());
    answer(QMessageBox::AcceptRole);
    ASSERT_TRUE(waitForEnd());
}

TEST_F(WindowExport, IsStoppedOnlyByAnAnswer) {
    show();
    openMuch();
    saveAs(output);
    press('x');
    ASSERT_TRUE(waitUntil([&] { return find<QPushButton>("stopButton").isVisible(); }));
    key(Qt::Key_Escape);
    ASSERT_TRUE(waitForQuestion());
    EXPECT_TRUE(question()->text().contains(text("film.mp4")));
    QTest::keyClick(question(), Qt::Key_Escape);
    ASSERT_TRUE(waitUntil([&] { return !question(); }));
    EXPECT_TRUE(find<QPushButton>("stopButton").isVisible()) << "Escape is no answer";
    QTest::keyClick(&find<QPushButton>("stopButton"), Qt::Key_Space);
    ASSERT_TRUE(waitForQuestion());
    answer(QMessageBox::AcceptRole);
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(endTitle(), text("Stopped"));
    EXPECT_EQ(window->windowTitle(), text("Export"));
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList(text("clip.mov")));
}

TEST_F(WindowExport, CanBeMadeAgainAfterAStop) {
    show();
    openMuch();
    saveAs(output);
    press('x');
    ASSERT_TRUE(waitUntil([&] { return find<QPushButton>("stopButton").isVisible(); }));
    window->findChild<QPushButton*>(text("stopButton"))->click();
    ASSERT_TRUE(waitForQuestion());
    answer(QMessageBox::AcceptRole);
    ASSERT_TRUE(waitForEnd());
    openClip();
    press('x');
    ASSERT_TRUE(waitUntil([&] { return endTitle() == text("film.mp4 is done"); }));
    EXPECT_EQ(TestMedia::probe(output).video->frames.size(), 50U);
}

TEST_F(WindowExport, ThatFailsSaysWhyAndWhatToDo) {
    show();
    openClip();
    saveAs(output);
    const LittleRoom room(2000);
    press('x');
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(endTitle(), text("The disk is full"));
    EXPECT_TRUE(find<QLabel>("endReason").text().contains(QString::fromStdString(output)))
        << find<QLabel>("endReason").text().toStdString();
    EXPECT_TRUE(find<QLabel>("endAdvice").text().startsWith(text("Make room on the disk")));
    EXPECT_FALSE(find<QWidget>("endPage").findChild<QPushButton*>(text("openButton"))->isVisible());
    EXPECT_FALSE(find<QPushButton>("folderButton").isVisible());
    auto& details = find<QPlainTextEdit>("detailsEdit");
    EXPECT_FALSE(details.isVisible());
    QTest::keyClick(&find<QToolButton>("detailsButton"), Qt::Key_Space);
    EXPECT_TRUE(details.isVisible());
    QTest::keyClick(&find<QPushButton>("copyButton"), Qt::Key_Space);
    const QString report = QApplication::clipboard()->text();
    EXPECT_EQ(report, details.toPlainText());
    EXPECT_TRUE(report.contains(text("Error: 6 (disk full)"))) << report.toStdString();
    EXPECT_TRUE(report.contains(text("Source: ") + QString::fromStdString(clip))) << report.toStdString();
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList(text("clip.mov")));
}

TEST_F(WindowExport, ReplacesAFileOnlyWhenThatWasSaid) {
    TestFiles::write(output, "old");
    show();
    openClip();
    saveAs(output);
    press('x');
    ASSERT_TRUE(waitForQuestion());
    QTest::keyClick(question(), Qt::Key_Return); // the usual answer keeps it
    ASSERT_TRUE(waitUntil([&] { return !question(); }));
    EXPECT_EQ(TestFiles::read(output), "old");
    EXPECT_FALSE(find<QWidget>("jobPane").isVisible());
    press('x');
    ASSERT_TRUE(waitForQuestion());
    answer(QMessageBox::AcceptRole);
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(TestMedia::probe(output).video->frames.size(), 50U);
}

TEST_F(WindowExport, WaitsForTheOneBeforeIt) {
    show();
    openClip();
    saveAs(place / "first.mp4");
    press('q');
    ASSERT_TRUE(waitUntil([&] { return find<QWidget>("jobPane").isVisible(); }));
    saveAs(place / "second.mp4");
    press('q');
    auto& jobs = find<QAbstractItemView>("jobView");
    ASSERT_TRUE(waitUntil([&] { return jobs.model()->rowCount() == 2; }));
    EXPECT_EQ(jobs.model()->index(0, 2).data().toString(), text("Waiting"));
    QTest::keyClick(&find<QPushButton>("startButton"), Qt::Key_Space);
    const auto state = [&](int row) { return jobs.model()->index(row, 2).data().toString(); };
    ASSERT_TRUE(waitUntil([&] { return state(0) == text("Done"); }));
    EXPECT_NE(state(1), text("Done"));
    ASSERT_TRUE(waitUntil([&] { return state(1) == text("Done"); }));
    EXPECT_EQ(TestFiles::namesIn(place / ""), (QStringList{text("clip.mov"), text("first.mp4"), text("second.mp4")}));
}

TEST_F(WindowExport, IsNotEndedByClosingUnlessThatWasSaid) {
    show();
    openMuch();
    saveAs(output);
    press('x');
    ASSERT_TRUE(waitUntil([&] { return find<QPushButton>("stopButton").isVisible(); }));
    window->close();
    EXPECT_TRUE(window->isVisible());
    ASSERT_TRUE(waitForQuestion());
    QTest::keyClick(question(), Qt::Key_Escape);
    ASSERT_TRUE(waitUntil([&] { return !question(); }));
    EXPECT_TRUE(find<QPushButton>("stopButton").isVisible());
    window->close();
    ASSERT_TRUE(waitForQuestion());
    const QSignalSpy ended(window.get(), &Dialog::ExportWindow::ended);
    answer(QMessageBox::AcceptRole);
    ASSERT_TRUE(waitUntil([&] { return ended.count() > 0; }));
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList(text("clip.mov")));
}

TEST_F(WindowExport, IsEndedWithoutAQuestionFromOutside) {
    show();
    openMuch();
    saveAs(output);
    press('q');
    ASSERT_TRUE(waitUntil([&] { return find<QWidget>("jobPane").isVisible(); }));
    saveAs(place / "next.mp4");
    press('x');
    ASSERT_TRUE(waitUntil([&] { return TestFiles::namesIn(place / "").size() == 2; }));
    window->close();
    ASSERT_TRUE(waitForQuestion());
    const QSignalSpy ended(window.get(), &Dialog::ExportWindow::ended);
    window->end();
    ASSERT_TRUE(waitUntil([&] { return ended.count() > 0; }));
    EXPECT_EQ(ended.count(), 1);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(question(), nullptr) << "what was asked is asked no more";
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList(text("clip.mov")));
}

TEST_F(WindowExport, OfAPartHasThatPart) {
    show();
    openClip();
    pressButton('a', "cutButton");
    press('i');
    type(text("0.4"));
    press('p');
    type(text("40f"));
    EXPECT_EQ(find<QLabel>("lengthLabel").text(), text("0:01.200 long"));
    saveAs(output);
    press('x');
    ASSERT_TRUE(waitForEnd());
    const auto numbers = TestMedia::probe(output).numbers();
    ASSERT_EQ(numbers.size(), 30U);
    EXPECT_EQ(numbers.front(), 10);
}

TEST_F(WindowExport, WithCustomSettingsHasThem) {
    show();
    openClip();
    choose(text("MP4"), text("h.264 480"));
    press('u');
    find<QGroupBox>("customGroup").setFocus();
    if (!find<QGroupBox>("customGroup").isChecked())
        key(Qt::Key_Space);
    ASSERT_TRUE(find<QGroupBox>("customGroup").isChecked());
    press('z');
    type(text("160x90"));
    press('r');
    type(text("12.5"));
    auto& channels = find<QComboBox>("channelsBox");
    channels.setCurrentIndex(channels.findText(text("Mono")));
    saveAs(output);
    press('x');
    ASSERT_TRUE(waitForEnd());
    ASSERT_EQ(endTitle(), text("film.mp4 is done"));
    const TestMedia::ProbedMedia film = TestMedia::probe(output);
    EXPECT_EQ(film.video->width, 160);
    EXPECT_EQ(film.video->height, 90);
    EXPECT_EQ(film.video->frames.size(), 25U);
    EXPECT_EQ(film.audio->channels, 1);
    find<QPushButton>("resetButton").click();
    saveAs(place / "reset.mp4");
    press('x');
    ASSERT_TRUE(waitUntil([&] { return endTitle() == text("reset.mp4 is done"); }));
    EXPECT_EQ(TestMedia::probe(place / "reset.mp4").video->width, 320);
}

TEST_F(WindowExport, HasTheEndingThatIsChosen) {
    show();
    openClip();
    choose(text("MP4"), text("h.264 480"));
    press('n');
    auto& endings = find<QComboBox>("brandingBox");
    ASSERT_EQ(QApplication::focusWidget(), &endings);
    key(Qt::Key_End);
    EXPECT_EQ(endings.currentText(), text("Demo"));
    saveAs(output);
    press('x');
    ASSERT_TRUE(waitForEnd());
    ASSERT_EQ(endTitle(), text("film.mp4 is done"));
    EXPECT_EQ(TestMedia::probe(output).video->frames.size(), 175U) << "five seconds more";
}

TEST_F(WindowExport, SaysWhatBecameOfItBeyondTheOrder) {
    TestMedia::FlashBeep media;
    media.frames = 0;
    media.samples = 48000;
    TestMedia::makeFlashBeep(place / "tone.wav", media);
    show();
    open({QString::fromStdString(place / "tone.wav")});
    choose(text("MP4"), text("h.264 480"));
    saveAs(output);
    press('x');
    ASSERT_TRUE(waitForEnd());
    ASSERT_EQ(endTitle(), text("film.mp4 is done"));
    const QString reason = find<QLabel>("endReason").text();
    EXPECT_TRUE(reason.contains(text("what is shown is black"))) << reason.toStdString();
    EXPECT_FALSE(reason.contains(text("it is what was ordered"))) << reason.toStdString();
    EXPECT_EQ(find<QPlainTextEdit>("detailsEdit").toPlainText().count(text("what is shown is black")), 1);
    openClip();
    saveAs(place / "second.mp4");
    press('x');
    ASSERT_TRUE(waitUntil([&] { return endTitle() == text("second.mp4 is done"); }));
    EXPECT_TRUE(find<QLabel>("endReason").text().contains(text("it is what was ordered")));
}

TEST_F(WindowExport, HasPictureAndSoundAsTheyAreWanted) {
    show();
    openClip();
    choose(text("MP4"), text("h.264 480"));
    press('h');
    ASSERT_TRUE(waitUntil([&] { return !find<QCheckBox>("pictureCheck").isChecked(); }));
    saveAs(place / "sound.m4a");
    press('x');
    ASSERT_TRUE(waitForEnd());
    ASSERT_EQ(endTitle(), text("sound.m4a is done")) << find<QLabel>("endReason").text().toStdString();
    const TestMedia::ProbedMedia sound = TestMedia::probe(place / "sound.m4a");
    EXPECT_FALSE(sound.video);
    EXPECT_TRUE(sound.audio);
    press('d');
    ASSERT_TRUE(waitUntil([&] { return !find<QCheckBox>("soundCheck").isChecked(); }));
    EXPECT_FALSE(find<QPushButton>("exportButton").isEnabled());
    press('h');
    ASSERT_TRUE(waitUntil([&] { return find<QCheckBox>("pictureCheck").isChecked(); }));
    EXPECT_EQ(find<QLineEdit>("outputEdit").text(), QString::fromStdString(place / "sound.mp4"));
    press('x');
    ASSERT_TRUE(waitUntil([&] { return endTitle() == text("sound.mp4 is done"); }));
    const TestMedia::ProbedMedia picture = TestMedia::probe(place / "sound.mp4");
    EXPECT_TRUE(picture.video);
    EXPECT_FALSE(picture.audio);
}

/// What the event loop computes, and how long it is away, between two of its turns.
class LongestTurn : public QObject {
public:
    LongestTurn() { startTimer(0); }
    double computed() const { return longest; }

protected:
    void timerEvent(QTimerEvent*) override {
        timespec now = {};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
        const double milliseconds = static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
        if (last > 0)
            longest = std::max(longest, milliseconds - last);
        last = milliseconds;
    }

private:
    double last = 0;
    double longest = 0;
};

TEST_F(WindowExport, KeepsTheWindowAlive) {
    show();
    TestSupport::turnEventLoop();
    const LongestTurn turns;
    openMuch();
    saveAs(output);
    forecast().setPause(std::chrono::milliseconds(0));
    // The trial's hidden file.
    ASSERT_TRUE(waitUntil([&] { return TestFiles::namesIn(place / "").size() == 2; }));
    press('x');
    ASSERT_TRUE(waitUntil([&] { return !find<Dialog::PictureLabel>("preview").isEmpty(); }));
    find<QPushButton>("stopButton").click();
    ASSERT_TRUE(waitForQuestion());
    answer(QMessageBox::AcceptRole);
    ASSERT_TRUE(waitForEnd());
    RecordProperty("milliseconds", std::to_string(turns.computed()));
    // Under a sanitizer everything takes some times as long.
    EXPECT_LT(turns.computed(), SANITIZED ? 1000 : 50) << "milliseconds";
}

} // namespace
} // namespace TestDialog
