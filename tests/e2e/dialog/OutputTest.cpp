// SPDX-License-Identifier: GPL-3.0-or-later
// Where the file is to be put, and what stands there.
#include "WindowFixture.h"
#include "dialog/Models/OutputLook.h"
#include <QDir>
#include <QFileDialog>
#include <QGroupBox>
#include <QRadioButton>
#include <QSignalSpy>
#include <future>

namespace TestDialog {
namespace {

using Dialog::OutputLook;
using Dialog::OutputPlace;
using Dialog::OutputState;

class Output : public WindowTest {
protected:
    ~Output() override { answered.set_value(); }

    QString problem() const { return find<QLabel>("problemLabel").text(); }
    QString estimate() const { return find<QLabel>("estimateLabel").text(); }
    bool canExport() const { return find<QPushButton>("exportButton").isEnabled(); }
    /// The window's for an order, and the one for what is shown.
    QList<OutputLook*> looks() const { return window->findChildren<OutputLook*>(); }
    /// A folder that does not answer before the test ends.
    void hang() const {
        for (OutputLook* const look : looks())
            look->setWay([folder = folder](const OutputPlace& asked) {
                folder.wait();
                OutputState state;
                state.path = asked.path;
                return state;
            });
    }

private:
    std::promise<void> answered;
    const std::shared_future<void> folder{answered.get_future()};
};

TEST_F(Output, OfASourceThatHasChangedIsNotMadeUnseen) {
    show();
    openClip();
    pressButton('a', "cutButton");
    saveAs(place / "film.mp4");
    TestMedia::FlashBeep media;
    media.frames = 25;
    TestMedia::makeFlashBeep(clip, media);
    press('x');
    ASSERT_TRUE(waitForQuestion());
    EXPECT_EQ(question()->text(),
              text("“clip.mov” has changed since it was opened, and is opened anew. Look at it, and export again."));
    QTest::keyClick(question(), Qt::Key_Escape);
    ASSERT_TRUE(waitUntil([&] { return find<QLabel>("sourceFacts").text().startsWith(text("0:01")); }))
        << find<QLabel>("sourceFacts").text().toStdString();
    EXPECT_TRUE(find<QRadioButton>("wholeButton").isChecked()) << "a part of what was there before is none of this";
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList(text("clip.mov")));
    press('x');
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(endTitle(), text("film.mp4 is done"));
}

TEST_F(Output, InAFolderThatIsClosedIsToldAtOnce) {
    show();
    openClip();
    saveAs(place / "film.mp4");
    for (OutputLook* const look : looks())
        look->setWay([](const OutputPlace& asked) {
            OutputState state;
            state.path = asked.path;
            state.isReadOnly = true;
            return state;
        });
    press('q');
    ASSERT_TRUE(waitForQuestion());
    EXPECT_EQ(question()->text(), text("The folder of “film.mp4” takes no files. Save the export in another folder."));
    EXPECT_FALSE(find<QWidget>("jobPane").isVisible());
}

TEST_F(Output, InAFolderThatDoesNotAnswerHoldsNobodyUp) {
    show();
    openClip();
    saveAs(place / "film.mp4");
    ASSERT_EQ(looks().size(), 2);
    hang();
    press('x');
    ASSERT_TRUE(waitUntil([&] { return !canExport(); }));
    EXPECT_EQ(problem(), text("Looking what stands at the file's place…"));
    find<QLineEdit>("outputEdit").setText(QString::fromStdString(place / "other.mp4"));
    EXPECT_TRUE(canExport()) << "another place is another order";
    for (OutputLook* const look : looks())
        look->setLimit(std::chrono::milliseconds(1));
    press('x');
    ASSERT_TRUE(waitForQuestion());
    EXPECT_TRUE(question()->text().startsWith(text("The folder of “other.mp4” does not answer.")));
    EXPECT_TRUE(canExport());
    QTest::keyClick(question(), Qt::Key_Escape);
    ASSERT_TRUE(waitUntil([&] { return estimate().contains(text("The folder does not answer")); }));
    EXPECT_FALSE(find<QWidget>("jobPane").isVisible());
    find<QPushButton>("browseButton").click();
    const auto* const dialog = window->findChild<QFileDialog*>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_NE(dialog->directory(), QDir(QString::fromStdString(place / ""))) << "it would wait for that";
}

TEST_F(Output, IsNotLostByClosingWhileItsPlaceIsLookedAt) {
    show();
    openClip();
    saveAs(place / "film.mp4");
    hang();
    auto* const look = window->findChild<OutputLook*>(QString(), Qt::FindDirectChildrenOnly);
    ASSERT_NE(look, nullptr);
    press('x');
    ASSERT_TRUE(waitUntil([&] { return !canExport(); }));
    const QString asked = text("1 export was not started. Close without it?");
    ASSERT_FALSE(window->close());
    ASSERT_TRUE(waitForQuestion());
    EXPECT_EQ(question()->text(), asked);
    const QSignalSpy looked(look, &OutputLook::looked);
    look->setLimit(std::chrono::milliseconds(1));
    ASSERT_TRUE(waitUntil([&] { return looked.count() == 1; }));
    EXPECT_EQ(question()->text(), asked);
    EXPECT_EQ(window->findChildren<QMessageBox*>().size(), 1) << "one question at a time";
    answer(QMessageBox::RejectRole);
    ASSERT_TRUE(waitUntil([&] { return question() && question()->text() != asked; }));
    EXPECT_TRUE(question()->text().startsWith(text("The folder of “film.mp4” does not answer.")));
    QTest::keyClick(question(), Qt::Key_Escape);
    ASSERT_TRUE(waitUntil([&] { return !question() && canExport(); }));
}

TEST_F(Output, IsForgottenByClosingOnceThatWasSaid) {
    show();
    openClip();
    saveAs(place / "film.mp4");
    hang();
    press('x');
    ASSERT_TRUE(waitUntil([&] { return !canExport(); }));
    ASSERT_FALSE(window->close());
    ASSERT_TRUE(waitForQuestion());
    auto* const look = window->findChild<OutputLook*>(QString(), Qt::FindDirectChildrenOnly);
    const QSignalSpy looked(look, &OutputLook::looked), ended(window.get(), &Dialog::ExportWindow::ended);
    look->setLimit(std::chrono::milliseconds(1));
    ASSERT_TRUE(waitUntil([&] { return looked.count() == 1; }));
    answer(QMessageBox::AcceptRole);
    ASSERT_TRUE(waitUntil([&] { return ended.count() == 1; }));
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(question(), nullptr) << "what was found there concerns nobody any more";
}

TEST_F(Output, IsChosenFromWhereItIs) {
    show();
    openClip();
    ASSERT_TRUE(waitUntil([&] { return estimate().contains(text(" free")); }));
    find<QPushButton>("browseButton").click();
    const auto* const dialog = window->findChild<QFileDialog*>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->directory(), QDir(QString::fromStdString(place / "")));
    EXPECT_EQ(dialog->selectedFiles(), QStringList(find<QLineEdit>("outputEdit").text()));
}

TEST_F(Output, IsLookedAtAgainOnceAnExportHasEnded) {
    show();
    openClip();
    saveAs(place / "film.mp4");
    ASSERT_TRUE(waitUntil([&] { return estimate().contains(text(" free")); }));
    EXPECT_FALSE(estimate().contains(text("is there already")));
    press('x');
    ASSERT_TRUE(waitForEnd());
    ASSERT_TRUE(waitUntil([&] { return estimate().contains(text("is there already")); }));
}

TEST_F(Output, IsNoneOfTheInputs) {
    const std::string link = place / "link.mov";
    ASSERT_TRUE(QFile::link(QString::fromStdString(clip), QString::fromStdString(link)));
    show();
    openClip();
    choose(text("Editing"), text("prores 1080"));
    saveAs(clip);
    EXPECT_EQ(problem(), text("The file is what is exported; save it under another name"));
    EXPECT_FALSE(canExport());
    saveAs(place / "../" + QFileInfo(QString::fromStdString(place / "")).dir().dirName().toStdString() + "/clip.mov");
    EXPECT_FALSE(canExport());
    saveAs(link);
    ASSERT_TRUE(waitUntil([&] { return estimate().contains(text("This is one of the inputs")); }));
    press('x');
    ASSERT_TRUE(waitForQuestion());
    EXPECT_EQ(question()->text(),
              text("“link.mov” is one of the inputs, and stays. Save the export under another name."));
    EXPECT_FALSE(find<QWidget>("jobPane").isVisible());
}

TEST_F(Output, IsWrittenWithItsFolder) {
    show();
    openClip();
    saveAs("film.mp4");
    EXPECT_EQ(problem(), text("Write the file with its whole folder, or choose it with “Save as”"));
    saveAs("~/film.mp4");
    EXPECT_EQ(find<QLineEdit>("outputEdit").text(), QDir::homePath() + text("/film.mp4"));
    EXPECT_TRUE(canExport()) << problem().toStdString();
}

TEST_F(Output, IsNoFolder) {
    const QString folder = QString::fromStdString(place / "films");
    ASSERT_TRUE(QDir().mkdir(folder));
    show();
    openClip();
    for (const QString& written : {folder, folder + QLatin1Char('/')}) {
        saveAs(written.toStdString());
        ASSERT_TRUE(waitUntil([&] { return estimate().contains(text("This is a folder")); }));
        EXPECT_FALSE(estimate().contains(text("is there already")));
        press('x');
        ASSERT_TRUE(waitForQuestion());
        EXPECT_EQ(question()->text(), text("“films” is a folder. Write the name of a file in it."));
        QTest::keyClick(question(), Qt::Key_Escape);
        ASSERT_TRUE(waitUntil([&] { return !question(); }));
    }
    EXPECT_FALSE(find<QWidget>("jobPane").isVisible());
    EXPECT_EQ(find<QLineEdit>("outputEdit").text(), folder + QLatin1Char('/')) << "no file beside it is made of it";
}

TEST_F(Output, HasItsExtensionWhereNoneWasWritten) {
    show();
    openClip();
    choose(text("MP4"), text("h.264 480"));
    const auto& output = find<QLineEdit>("outputEdit");
    saveAs(place / "film.cut 2 ");
    EXPECT_EQ(output.text(), QString::fromStdString(place / "film.cut 2 ")) << "somebody may write on";
    key(Qt::Key_Tab);
    EXPECT_EQ(output.text(), QString::fromStdString(place / "film.cut 2.mp4"));
    saveAs(place / "film");
    press('x');
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(endTitle(), text("film.mp4 is done"));
    saveAs(place / "film.mkv");
    key(Qt::Key_Tab);
    EXPECT_EQ(output.text(), QString::fromStdString(place / "film.mkv"));
    EXPECT_FALSE(canExport()) << "what was meant nobody knows";
}

TEST_F(Output, OfAnotherKindNamesPresetsByTheirTitles) {
    show();
    openClip();
    choose(text("MP4"), text("h.264 480"));
    saveAs(place / "film.wav");
    EXPECT_FALSE(problem().contains(text("mp4-h264"))) << problem().toStdString();
    EXPECT_TRUE(problem().contains(text("MP4 (H.264 and AAC), up to 480p"))) << problem().toStdString();
}

TEST_F(Output, OfAnotherKindIsNotLookedUpOnADisk) {
    show();
    openClip();
    choose(text("MP4"), text("h.264 480"));
    qputenv("EDITOR_EXPORT_PRESETS", QByteArray::fromStdString(place / "gone.json"));
    saveAs(place / "film.wav");
    qunsetenv("EDITOR_EXPORT_PRESETS");
    EXPECT_TRUE(problem().contains(text("presets that do: "))) << problem().toStdString();
}

TEST_F(Output, IsTypedWithoutLookingOnADiskForWhatTheSettingsWouldFit) {
    show();
    openClip();
    choose(text("MP4"), text("h.264 480"));
    find<QGroupBox>("customGroup").setChecked(true);
    find<QComboBox>("sizeBox").setEditText(text("1920x1080"));
    const QString refusal = find<QLabel>("customProblem").text();
    EXPECT_TRUE(refusal.contains(text("takes up to"))) << refusal.toStdString();
    qputenv("EDITOR_EXPORT_PRESETS", QByteArray::fromStdString(place / "gone.json"));
    saveAs(place / "other.mp4");
    qunsetenv("EDITOR_EXPORT_PRESETS");
    EXPECT_EQ(find<QLabel>("customProblem").text(), refusal);
}

} // namespace
} // namespace TestDialog
