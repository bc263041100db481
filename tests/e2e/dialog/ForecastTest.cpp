// SPDX-License-Identifier: GPL-3.0-or-later
// How long an export takes, told before it is made.
#include "WindowFixture.h"
#include "dialog/Models/PeoplesText.h"
#include <QProgressBar>
#include <QSignalSpy>

namespace TestDialog {
namespace {

class Forecast : public WindowTest {
protected:
    void tryAtOnce() const { forecast().setPause(std::chrono::milliseconds(0)); }
    QString estimate() const { return find<QLabel>("estimateLabel").text(); }
    bool isGuessed() const { return estimate().contains(text("at a rough guess")); }
    QStringList names() const { return TestFiles::namesIn(place / ""); }

    const std::string output = place / "film.mp4";
};

TEST_F(Forecast, IsARoughGuessOnceTheExportWasTried) {
    TestFiles::write(output, "old");
    show();
    openClip();
    saveAs(output);
    EXPECT_FALSE(estimate().contains(text("takes"))) << estimate().toStdString();
    tryAtOnce();
    ASSERT_TRUE(waitUntil([&] { return isGuessed(); }));
    EXPECT_TRUE(estimate().contains(text("takes a few seconds"))) << estimate().toStdString();
    EXPECT_EQ(names(), (QStringList{text("clip.mov"), text("film.mp4")}));
    EXPECT_EQ(TestFiles::read(output), "old");
    EXPECT_FALSE(find<QWidget>("jobPane").isVisible());
}

TEST_F(Forecast, TellsTheSizeOfWhatWasTried) {
    show();
    openClip();
    choose(text("Matroska"), text("ffv1"));
    const std::string film = place / "film.mkv";
    saveAs(film);
    ASSERT_TRUE(estimate().startsWith(text("Very roughly "))) << estimate().toStdString();
    tryAtOnce();
    ASSERT_TRUE(waitUntil([&] { return estimate().startsWith(text("About ")); })) << "all of it was tried";
    const QString told = estimate().section(text(" · "), 0, 0);
    press('x');
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(told, text("About ") + Dialog::PeoplesText::size(TestFiles::read(film).size()));
    saveAs(place / "other.mkv");
    EXPECT_EQ(told, estimate().section(text(" · "), 0, 0)) << "the same at another place";
    pressButton('a', "cutButton");
    find<QLineEdit>("outEdit").setText(text("1"));
    EXPECT_TRUE(estimate().startsWith(text("Very roughly "))) << "another part";
}

TEST_F(Forecast, OfASourceThatHasChangedIsOfWhatItIsNow) {
    show();
    openClip();
    choose(text("Matroska"), text("ffv1"));
    saveAs(place / "film.mkv");
    tryAtOnce();
    ASSERT_TRUE(waitUntil([&] { return estimate().startsWith(text("About ")); }));
    const QString before = estimate().section(text(" · "), 0, 0);
    TestMedia::FlashBeep media;
    media.frames = 10;
    TestMedia::makeFlashBeep(clip, media);
    const QSignalSpy ended(&forecast(), &Dialog::TimeForecast::trialEnded);
    open({QString::fromStdString(clip)});
    ASSERT_TRUE(waitUntil([&] { return ended.count() == 1; }));
    EXPECT_TRUE(estimate().startsWith(text("About "))) << estimate().toStdString();
    EXPECT_NE(estimate().section(text(" · "), 0, 0), before);
}

TEST_F(Forecast, OfWhatWasMadeIsNoGuess) {
    show();
    openClip();
    saveAs(output);
    press('x');
    ASSERT_TRUE(waitForEnd());
    const QSignalSpy began(&forecast(), &Dialog::TimeForecast::trialBegan);
    tryAtOnce();
    ASSERT_TRUE(waitUntil([&] { return estimate().contains(text("takes a few seconds")); }));
    EXPECT_FALSE(isGuessed());
    TestSupport::turnEventLoop();
    EXPECT_EQ(began.count(), 0);
}

TEST_F(Forecast, WaitsUntilNobodyChangesAnythingAndTriesOnce) {
    show();
    openClip();
    saveAs(output);
    const QSignalSpy began(&forecast(), &Dialog::TimeForecast::trialBegan);
    const QSignalSpy ended(&forecast(), &Dialog::TimeForecast::trialEnded);
    find<QComboBox>("qualityBox").setFocus();
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    TestSupport::turnEventLoop();
    EXPECT_EQ(began.count(), 0);
    tryAtOnce();
    ASSERT_TRUE(waitUntil([&] { return isGuessed(); }));
    pressButton('a', "cutButton");
    find<QLineEdit>("inEdit").setText(text("0.5"));
    TestSupport::turnEventLoop();
    EXPECT_TRUE(isGuessed()) << "a part of it takes a part of the time";
    EXPECT_EQ(began.count(), 1);
    find<QComboBox>("qualityBox").setFocus();
    key(Qt::Key_Up);
    EXPECT_FALSE(isGuessed()) << "of another quality nothing is known";
    ASSERT_TRUE(waitUntil([&] { return isGuessed(); }));
    EXPECT_EQ(began.count(), 2);
    EXPECT_EQ(ended.count(), 2);
}

TEST_F(Forecast, GivesWayToAnExport) {
    show();
    openMuch();
    saveAs(output);
    const QSignalSpy ended(&forecast(), &Dialog::TimeForecast::trialEnded);
    tryAtOnce();
    ASSERT_TRUE(waitUntil([&] { return names().size() == 2; })) << "a hidden file beside the clip";
    const QString trial = names().front() == text("clip.mov") ? names().back() : names().front();
    press('x');
    ASSERT_TRUE(waitUntil([&] { return find<QProgressBar>("progressBar").value() >= 1 && names().size() == 2; }));
    EXPECT_FALSE(names().contains(trial));
    EXPECT_EQ(ended.count(), 0);
    find<QPushButton>("stopButton").click();
    ASSERT_TRUE(waitForQuestion());
    answer(QMessageBox::AcceptRole);
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(names(), QStringList(text("clip.mov")));
}

TEST_F(Forecast, LeavesNothingWhenTheWindowGoes) {
    show();
    openMuch();
    saveAs(output);
    tryAtOnce();
    ASSERT_TRUE(waitUntil([&] { return names().size() == 2; }));
    window.reset();
    EXPECT_EQ(names(), QStringList(text("clip.mov")));
}

TEST_F(Forecast, OfWhatCannotBeTriedIsNoneAndNoTrouble) {
    show();
    openClip();
    saveAs(place / "nowhere/film.mp4");
    const QSignalSpy began(&forecast(), &Dialog::TimeForecast::trialBegan);
    const QSignalSpy ended(&forecast(), &Dialog::TimeForecast::trialEnded);
    tryAtOnce();
    ASSERT_TRUE(waitUntil([&] { return ended.count() == 1; }));
    EXPECT_FALSE(estimate().contains(text("takes"))) << estimate().toStdString();
    EXPECT_EQ(question(), nullptr);
    pressButton('a', "cutButton");
    pressButton('w', "wholeButton");
    TestSupport::turnEventLoop();
    EXPECT_EQ(began.count(), 1) << "it would be no other a second time";
}

} // namespace
} // namespace TestDialog
