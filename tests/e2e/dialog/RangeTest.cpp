// The parts of a source that can be chosen.
#include "WindowFixture.h"
#include "support/MediaProbe.h"

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

} // namespace
} // namespace TestDialog
