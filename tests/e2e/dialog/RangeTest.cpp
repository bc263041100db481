// SPDX-License-Identifier: GPL-3.0-or-later
// The parts of a source that can be chosen.
#include "WindowFixture.h"
#include "dialog/Widgets/RangeStrip.h"
#include "support/MediaProbe.h"
#include <QDir>
#include <QFileDialog>
#include <QGroupBox>
#include <QMouseEvent>
#include <QRadioButton>

namespace TestDialog {
namespace {

class Range : public WindowTest {
protected:
    static std::string chapter(int startMs, int endMs, const std::string& title) {
        return "[CHAPTER]\nTIMEBASE=1/1000\nSTART=" + std::to_string(startMs) + "\nEND=" + std::to_string(endMs) +
               (title.empty() ? "" : "\ntitle=" + title) + '\n';
    }
    /// Two seconds of it.
    std::string makeChapters(const std::string& chapters) const {
        TestFiles::write(place / "tags", QByteArray::fromStdString(";FFMETADATA1\n" + chapters));
        TestMedia::runFfmpeg({"-i", clip, "-i", place / "tags", "-map", "0", "-map_metadata", "1", "-map_chapters", "1",
                              "-c", "copy", place / "chapters.mkv"});
        return place / "chapters.mkv";
    }
    QStringList offered(const char* box) const {
        QStringList texts;
        for (int i = 0; i < find<QComboBox>(box).count(); ++i)
            texts << find<QComboBox>(box).itemText(i);
        return texts;
    }
};

TEST_F(Range, OfMediaCanBeginAndEndWithTheirChapters) {
    const QString film = QString::fromStdString(
        makeChapters(chapter(0, 400, "One") + chapter(400, 1000, "Two") + chapter(1200, 2000, "")));
    show();
    open({QString::fromStdString(clip), film});
    EXPECT_EQ(offered("firstBox"),
              (QStringList{text("Start (0:00.000)"), text("One (0:02.000)"), text("Two (0:02.400)"),
                           text("Two (0:03.000)"), text("Chapter 3 (0:03.200)"), text("End (0:04.000)")}));
    EXPECT_EQ(offered("lastBox"), offered("firstBox"));
    pressButton('k', "markersButton");
    find<QComboBox>("firstBox").setFocus();
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    find<QComboBox>("lastBox").setFocus();
    key(Qt::Key_Up);
    key(Qt::Key_Up);
    EXPECT_EQ(find<QLabel>("lengthLabel").text(), text("0:00.600 long"));
    saveAs(place / "part.mp4");
    press('x');
    ASSERT_TRUE(waitForEnd());
    const auto numbers = TestMedia::probe(place / "part.mp4").numbers();
    ASSERT_EQ(numbers.size(), 15U);
    EXPECT_EQ(numbers.front(), 10);
}

TEST_F(Range, OfMediaWithoutChaptersHasNoMarkers) {
    show();
    openClip();
    EXPECT_FALSE(find<QAbstractButton>("markersButton").isEnabled());
    EXPECT_EQ(offered("firstBox"), (QStringList{text("Start (0:00.000)"), text("End (0:02.000)")}));
}

/// Numbers are written in another language until it goes.
class Locale {
public:
    explicit Locale(const char* name) { QLocale::setDefault(QLocale(text(name))); }
    ~Locale() { QLocale::setDefault(before); }
    Locale(const Locale&) = delete;
    Locale& operator=(const Locale&) = delete;

private:
    const QLocale before;
};

TEST_F(Range, IsWrittenWithTheCommaOfOnesOwnNumbers) {
    show();
    openClip();
    pressButton('a', "cutButton");
    find<QLineEdit>("inEdit").setText(text("0:00,4"));
    EXPECT_TRUE(find<QLabel>("lengthLabel").text().isEmpty()) << "English has no such numbers";
    const Locale german("de_DE");
    find<QLineEdit>("inEdit").setText(text("0:00,5"));
    EXPECT_EQ(find<QLabel>("lengthLabel").text(), text("0:01.500 long"));
    find<QGroupBox>("customGroup").setChecked(true);
    find<QComboBox>("frameRateBox").setEditText(text("12,5"));
    EXPECT_EQ(find<QLabel>("customProblem").text(), QString());
    EXPECT_EQ(find<QComboBox>("frameRateBox").currentText(), text("12,5")) << "it stays as it was written";
}

std::string timeOf(int frames) {
    return R"({"OTIO_SCHEMA":"RationalTime.1","rate":25,"value":)" + std::to_string(frames) + '}';
}

std::string rangeOf(int start, int frames) {
    return R"({"OTIO_SCHEMA":"TimeRange.1","start_time":)" + timeOf(start) + R"(,"duration":)" + timeOf(frames) + '}';
}

std::string clipOf(const std::string& media) {
    return R"({"OTIO_SCHEMA":"Clip.1","name":"c","source_range":)" + rangeOf(0, 50) +
           R"(,"media_reference":{"OTIO_SCHEMA":"ExternalReference.1","target_url":")" + media +
           R"(","available_range":)" + rangeOf(0, 50) + "}}";
}

std::string markerOf(const std::string& name, int at) {
    return R"({"OTIO_SCHEMA":"Marker.2","name":")" + name + R"(","color":"RED","marked_range":)" + rangeOf(at, 0) + '}';
}

std::string timelineOf(const std::string& markers, const std::string& clips) {
    return R"({"OTIO_SCHEMA":"Timeline.1","name":"cut","tracks":{"OTIO_SCHEMA":"Stack.1","children":[)"
           R"({"OTIO_SCHEMA":"Track.1","name":"v","kind":"Video","markers":[)" +
           markers + R"(],"children":[)" + clips + "]}]}}";
}

TEST_F(Range, OfATimelineCanBeginAndEndWithItsMarkers) {
    TestFiles::write(place / "cut.otio", QByteArray::fromStdString(timelineOf(
                                             markerOf("Here", 10) + ',' + markerOf("There", 35), clipOf(clip))));
    show();
    open({QString::fromStdString(place / "cut.otio")});
    EXPECT_EQ(offered("firstBox"), (QStringList{text("Start (0:00.000)"), text("Here (0:00.400)"),
                                                text("There (0:01.400)"), text("End (0:02.000)")}));
    pressButton('k', "markersButton");
    find<QComboBox>("lastBox").setFocus();
    key(Qt::Key_Home);
    EXPECT_EQ(find<QLabel>("problemLabel").text(), text("The first marker must come before the ending one"));
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    find<QComboBox>("firstBox").setFocus();
    key(Qt::Key_Down);
    saveAs(place / "part.mp4");
    press('x');
    ASSERT_TRUE(waitForEnd());
    const auto numbers = TestMedia::probe(place / "part.mp4").numbers();
    ASSERT_EQ(numbers.size(), 25U);
    EXPECT_EQ(numbers.front(), 10);
}

TEST_F(Range, IsAPartAsSoonAsAnEndIsMoved) {
    show();
    auto& strip = find<Dialog::RangeStrip>("strip");
    EXPECT_EQ(strip.focusPolicy(), Qt::NoFocus) << "there is nothing to move";
    openClip();
    const auto drag = [&strip](int x) {
        QMouseEvent event(QEvent::MouseMove, QPointF(x, 10), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&strip, &event);
    };
    const int middle = strip.width() / 2;
    QTest::mousePress(&strip, Qt::LeftButton, {}, {middle, 10});
    drag(middle + 10);
    QTest::mouseRelease(&strip, Qt::LeftButton, {}, {middle + 10, 10});
    EXPECT_TRUE(find<QRadioButton>("wholeButton").isChecked()) << "no end was grabbed";
    const QPoint end(strip.width() - 3, 10);
    QTest::mousePress(&strip, Qt::LeftButton, {}, end);
    drag(end.x() - 1);
    EXPECT_TRUE(find<QRadioButton>("wholeButton").isChecked()) << "that is no more than an unsteady hand";
    drag(middle - 2); // the press was as far from the end
    QTest::mouseRelease(&strip, Qt::LeftButton, {}, {middle, 10});
    EXPECT_TRUE(find<QRadioButton>("cutButton").isChecked());
    EXPECT_EQ(find<QLineEdit>("inEdit").text(), QString());
    EXPECT_EQ(find<QLineEdit>("outEdit").text(), text("00:00:01.000")) << "a frame ends there";
    pressButton('w', "wholeButton");
    strip.setFocus();
    key(Qt::Key_Up);
    EXPECT_TRUE(find<QRadioButton>("wholeButton").isChecked());
    key(Qt::Key_Right);
    EXPECT_TRUE(find<QRadioButton>("cutButton").isChecked());
    EXPECT_EQ(find<QLineEdit>("inEdit").text(), text("00:00:00.040"));
}

TEST_F(Range, OfMediaThatHaveMovedIsFoundInAnotherFolder) {
    ASSERT_TRUE(QDir(QString::fromStdString(place / "")).mkdir(text("moved")));
    const std::string cut = timelineOf({}, clipOf(place / "a.mov"));
    TestFiles::write(place / "cut.otio", QByteArray::fromStdString(cut));
    ASSERT_TRUE(QFile::rename(QString::fromStdString(clip), QString::fromStdString(place / "moved/a.mov")));
    show();
    open({QString::fromStdString(place / "cut.otio")});
    auto& button = find<QPushButton>("mediaButton");
    ASSERT_TRUE(button.isVisible());
    button.click();
    auto* const dialog = window->findChild<QFileDialog*>();
    ASSERT_NE(dialog, nullptr);
    Q_EMIT dialog->fileSelected(QString::fromStdString(place / "moved"));
    dialog->close();
    ASSERT_TRUE(waitUntil([&] { return find<QLabel>("sourceFacts").text().startsWith(text("0:02")); }));
    EXPECT_FALSE(button.isVisible());
    saveAs(place / "all.mp4");
    press('x');
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(endTitle(), text("all.mp4 is done"));
    EXPECT_EQ(TestMedia::probe(place / "all.mp4").video->frames.size(), 50U);
}

TEST_F(Range, WithMissingMediaIsBlackWhereThatIsWished) {
    TestFiles::write(place / "cut.otio",
                     QByteArray::fromStdString(timelineOf({}, clipOf(clip) + ',' + clipOf(place / "gone.mov"))));
    show();
    open({QString::fromStdString(place / "cut.otio")});
    const QString message = find<QLabel>("messageLabel").text();
    EXPECT_TRUE(message.contains(text("gone.mov"))) << message.toStdString();
    EXPECT_FALSE(message.contains(text("--"))) << message.toStdString();
    ASSERT_TRUE(find<QPushButton>("blackButton").isVisible());
    find<QPushButton>("blackButton").click();
    ASSERT_TRUE(waitUntil([&] { return find<QPushButton>("exportButton").isEnabled(); }));
    EXPECT_FALSE(find<QPushButton>("blackButton").isVisible());
    EXPECT_TRUE(find<QLabel>("messageLabel").text().contains(text("black")));
    saveAs(place / "all.mp4");
    press('x');
    ASSERT_TRUE(waitForEnd());
    EXPECT_TRUE(find<QLabel>("endReason").text().contains(text("Warning: ")))
        << find<QLabel>("endReason").text().toStdString();
    EXPECT_EQ(TestMedia::probe(place / "all.mp4").video->frames.size(), 100U);
}

} // namespace
} // namespace TestDialog
