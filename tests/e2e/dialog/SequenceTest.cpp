// SPDX-License-Identifier: GPL-3.0-or-later
// A file of each picture, ordered in the window.
#include "WindowFixture.h"
#include "support/FileHelpers.h"

namespace TestDialog {
namespace {

class WindowSequence : public WindowTest {
protected:
    QString output() const { return find<QLineEdit>("outputEdit").text(); }
    static QString path(const std::string& name) { return QString::fromStdString(name); }
    void openClipForPng() {
        show();
        openClip();
        choose(text("Pictures"), text("png pictures"));
    }
};

TEST_F(WindowSequence, IsPutIntoAFolderWhoseOldPicturesAreAskedFor) {
    openClipForPng();
    EXPECT_EQ(output(), path(place / "clip")) << "a folder has no extension";
    press('x');
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(endTitle(), text("clip is done"));
    EXPECT_EQ(TestFiles::namesIn(place / "clip").size(), 50);
    TestFiles::write(place / "clip/frame_00000.png", "old");
    press('x');
    ASSERT_TRUE(waitForQuestion());
    EXPECT_TRUE(question()->text().contains(text("frame_00000.png"))) << question()->text().toStdString();
    QTest::keyClick(question(), Qt::Key_Escape);
    ASSERT_TRUE(waitUntil([&] { return !question(); }));
    EXPECT_EQ(TestFiles::read(place / "clip/frame_00000.png"), "old");
    press('x');
    ASSERT_TRUE(waitForQuestion());
    answer(QMessageBox::AcceptRole);
    const auto isReplaced = [&] {
        const QStringList names = TestFiles::namesIn(place / "clip");
        return names.size() == 50 && names.filter(text("frame_")).size() == 50 &&
               TestFiles::read(place / "clip/frame_00000.png") != "old";
    };
    EXPECT_TRUE(waitUntil(isReplaced)) << TestFiles::namesIn(place / "clip").size();
}

TEST_F(WindowSequence, HasNamesThatFollowThePreset) {
    openClipForPng();
    saveAs(place / "shots/a_%03d.png");
    choose(text("Pictures"), text("jpeg pictures"));
    EXPECT_EQ(output(), path(place / "shots/a_%03d.jpg"));
    saveAs(place / "shots");
    choose(text("MP4"), text("h.264 480"));
    EXPECT_EQ(output(), path(place / "shots.mp4"));
    choose(text("Pictures"), text("jpeg pictures"));
    EXPECT_EQ(output(), path(place / "shots"));
    saveAs(place / "one.png");
    EXPECT_FALSE(find<QPushButton>("exportButton").isEnabled());
    EXPECT_TRUE(find<QLabel>("problemLabel").text().contains(text("one_%05d.jpg")))
        << find<QLabel>("problemLabel").text().toStdString();
}

} // namespace
} // namespace TestDialog
