// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps pictures of the window's main states, for people to look at; they are tested for what no eye is needed for.
#include "WindowFixture.h"
#include "dialog/Widgets/RangeStrip.h"
#include <QDir>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QToolButton>
#include <QTreeView>

namespace TestDialog {
namespace {

QPalette darkPalette() {
    QPalette palette(QColor(49, 54, 59));
    palette.setColor(QPalette::Base, QColor(35, 38, 41));
    palette.setColor(QPalette::AlternateBase, QColor(49, 54, 59));
    palette.setColor(QPalette::Highlight, QColor(61, 174, 233));
    palette.setColor(QPalette::HighlightedText, Qt::black);
    palette.setColor(QPalette::Link, QColor(29, 153, 243));
    palette.setColor(QPalette::PlaceholderText, QColor(160, 165, 170));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(125, 130, 135));
    return palette;
}

class Pictures : public WindowTest, public ::testing::WithParamInterface<const char*> {
protected:
    Pictures() {
        if (std::string(GetParam()) == "dark")
            QApplication::setPalette(darkPalette());
    }
    ~Pictures() override { QApplication::setPalette(QPalette()); }

    /// The platform's own screen is smaller than anybody's.
    void showLarge() {
        show();
        window->resize(1180, 820);
    }
    void keep(const char* state) const {
        TestSupport::turnEventLoop();
        const QString folder = text(DIALOG_PICTURES);
        QDir().mkpath(folder);
        const QPixmap picture = window->grab();
        const int scale = qRound(picture.devicePixelRatio() * 100);
        EXPECT_TRUE(picture.save(text("%1/%2-%3-%4.png")
                                     .arg(folder, QString::fromLatin1(state), QString::fromLatin1(GetParam()))
                                     .arg(scale)));
        expectNothingClipped();
    }
    void openFilm() {
        TestMedia::runFfmpeg({"-f", "lavfi", "-i",
                              "gradients=s=640x360:r=25:d=12:x0=0:y0=0:x1=640:y1=360:n=4:seed=7:speed=0.05", "-f",
                              "lavfi", "-i", "sine=f=440:r=48000:d=12", "-c:v", "libx264", "-preset", "ultrafast", "-g",
                              "25", "-c:a", "aac", place / "Harbour.mov"});
        QStringList files;
        for (int i = 0; i < 20; ++i)
            files << QString::fromStdString(place / "Harbour.mov");
        open(files);
        waitForThumbnails();
    }
    void waitForThumbnails() {
        auto& strip = find<Dialog::RangeStrip>("strip");
        ASSERT_TRUE(waitUntil([&] {
            const QImage now = strip.grab().toImage();
            const QRgb bare = strip.palette().color(QPalette::Mid).rgb();
            return now.pixel(now.width() / 20, now.height() / 3) != bare &&
                   now.pixel(now.width() - now.width() / 20, now.height() / 3) != bare;
        }));
    }
};

TEST_P(Pictures, OfTheMainStates) {
    showLarge();
    keep("empty");
    openFilm();
    choose(text("MP4"), text("h.264 1080"));
    find<QLineEdit>("searchEdit").clear();
    ASSERT_TRUE(waitUntil([&] { return find<QLabel>("estimateLabel").text().contains(text(" free")); }));
    keep("ready");
    pressButton('a', "cutButton");
    find<QLineEdit>("inEdit").setText(text("0:30"));
    find<QLineEdit>("outEdit").setText(text("3:10.5"));
    find<QGroupBox>("customGroup").setChecked(true);
    find<QComboBox>("sizeBox").setEditText(text("321x180"));
    find<QComboBox>("controlBox").setCurrentIndex(2);
    keep("custom");
    find<QComboBox>("sizeBox").setEditText(QString());
    saveAs(place / "Harbour at dawn.mp4");
    press('x');
    ASSERT_TRUE(waitUntil([&] { return find<QWidget>("jobPane").isVisible(); }));
    saveAs(place / "Harbour, second cut.mp4");
    press('q');
    ASSERT_TRUE(waitUntil([&] { return !find<Dialog::PictureLabel>("preview").isEmpty(); }));
    ASSERT_TRUE(waitUntil([&] { return find<QLabel>("progressLabel").text().contains(text("left")); }));
    // The next one is being prepared meanwhile, as nobody's temporary folder.
    find<QGroupBox>("customGroup").setChecked(false);
    find<QLineEdit>("outputEdit").setText(text("/home/jo/Videos/Harbour, third cut.mp4"));
    find<QLineEdit>("outputEdit").setFocus();
    keep("running");
    auto& jobs = find<QTreeView>("jobView");
    jobs.setCurrentIndex(jobs.model()->index(1, 0));
    keep("waiting");
    jobs.setCurrentIndex(jobs.model()->index(0, 0));
    find<QPushButton>("stopButton").click();
    ASSERT_TRUE(waitForQuestion());
    answer(QMessageBox::AcceptRole);
    ASSERT_TRUE(waitForEnd());
}

TEST_P(Pictures, OfBothEnds) {
    showLarge();
    openClip();
    saveAs(place / "Film.mp4");
    press('x');
    ASSERT_TRUE(waitForEnd());
    keep("done");
    saveAs(place / "nowhere/Film.mp4");
    press('x');
    ASSERT_TRUE(
        waitUntil([&] { return endTitle() != text("Film.mp4 is done") && find<QWidget>("endPage").isVisible(); }));
    find<QToolButton>("detailsButton").setChecked(true);
    keep("failed");
    choose(text("Audio"), text("mp3"));
    find<QLineEdit>("searchEdit").clear();
    TestMedia::FlashBeep media;
    media.frames = 10;
    media.sampleRate = 0;
    TestMedia::makeFlashBeep(place / "silent.mov", media);
    open({QString::fromStdString(place / "silent.mov")});
    keep("impossible");
}

INSTANTIATE_TEST_SUITE_P(Palettes, Pictures, ::testing::Values("light", "dark"),
                         [](const auto& palette) { return std::string(palette.param); });

} // namespace
} // namespace TestDialog
