// SPDX-License-Identifier: GPL-3.0-or-later
// What the window shows and remembers, without exports.
#include "EditorSettings/Settings.h"
#include "WindowFixture.h"
#include "dialog/Models/PresetList.h"
#include "dialog/Widgets/RangeStrip.h"
#include <QCheckBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QGroupBox>
#include <QMimeData>
#include <QProcess>
#include <QRadioButton>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QUrl>
#include <csignal>
#include <gmock/gmock.h>

namespace TestDialog {
namespace {

class Window : public WindowTest {
protected:
    QAbstractItemView& presets() const { return find<QAbstractItemView>("presetList"); }
    QString problem() const { return find<QLabel>("problemLabel").text(); }
    QString obstacleAt(int row) const {
        return presets().model()->index(row, 0).data(Dialog::PresetList::ROLE_OBSTACLE).toString();
    }
    bool canExport() const { return find<QPushButton>("exportButton").isEnabled(); }
    void drop(const QStringList& paths) const {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& path : paths)
            urls << QUrl::fromLocalFile(path);
        data.setUrls(urls);
        QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.get(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent event({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.get(), &event);
    }
    std::string soundOnly() const {
        TestMedia::FlashBeep media;
        media.frames = 0;
        media.samples = 48000;
        TestMedia::makeFlashBeep(place / "tone.wav", media);
        return place / "tone.wav";
    }
    std::string pictureOnly() const {
        TestMedia::FlashBeep media;
        media.frames = 10;
        media.sampleRate = 0;
        TestMedia::makeFlashBeep(place / "silent.mov", media);
        return place / "silent.mov";
    }
};

TEST_F(Window, OpensWithoutASourceAndSaysWhatToDo) {
    show();
    EXPECT_EQ(find<QLabel>("sourceName").text(), text("Nothing is open"));
    EXPECT_EQ(problem(), text("Open what is to be exported"));
    EXPECT_FALSE(canExport());
    EXPECT_FALSE(find<QWidget>("jobPane").isVisible());
    EXPECT_FALSE(find<QWidget>("messageFrame").isVisible());
}

TEST_F(Window, TellsWhatASourceIs) {
    show();
    openClip();
    EXPECT_EQ(find<QLabel>("sourceName").text(), text("clip.mov"));
    EXPECT_EQ(find<QLabel>("sourceFacts").text(), text("0:02.000 · 320 × 180 · 25 frames/s · 48 kHz"));
    EXPECT_EQ(problem(), QString());
    EXPECT_TRUE(canExport());
}

TEST_F(Window, TakesDroppedFilesOneAfterTheOther) {
    show();
    drop({QString::fromStdString(clip), QString::fromStdString(clip)});
    ASSERT_TRUE(waitUntil([&] { return canExport(); }));
    EXPECT_EQ(find<QLabel>("sourceName").text(), text("clip.mov and 1 more"));
    EXPECT_TRUE(find<QLabel>("sourceFacts").text().startsWith(text("0:04.000")));
}

TEST_F(Window, SaysWhyASourceIsRefused) {
    TestFiles::write(place / "not.mp4", "This is no film.");
    show();
    open({QString::fromStdString(place / "not.mp4")});
    EXPECT_TRUE(find<QWidget>("messageFrame").isVisible());
    EXPECT_TRUE(find<QLabel>("messageLabel").text().contains(text("not.mp4")));
    EXPECT_FALSE(find<QWidget>("blackButton").isVisible());
    EXPECT_FALSE(canExport());
    openClip();
    EXPECT_FALSE(find<QWidget>("messageFrame").isVisible());
    EXPECT_TRUE(canExport());
}

TEST_F(Window, NamesPlainlyWhateverAFileIsCalled) {
    const std::string odd = place / "<b>\n\xe2\x80\xae"
                                    "fdp.mov";
    TestFiles::write(odd, TestFiles::read(clip));
    show();
    open({QString::fromStdString(odd)});
    EXPECT_EQ(find<QLabel>("sourceName").text(), text("<b>\\n\\u{202e}fdp.mov"));
    EXPECT_EQ(find<QLabel>("sourceName").textFormat(), Qt::PlainText);
}

TEST_F(Window, FindsPresetsByTheirWords) {
    show();
    openClip();
    choose(text("MP4"), text("visual 720"));
    ASSERT_EQ(presets().model()->rowCount(), 1);
    EXPECT_EQ(presets().currentIndex().data(Dialog::PresetList::ROLE_ID).toString(), text("mp4-mpeg4-720p"));
    press('s');
    key(Qt::Key_A, Qt::ControlModifier);
    type(text("nothing like that"));
    EXPECT_EQ(presets().model()->rowCount(), 0);
    EXPECT_TRUE(find<QLabel>("nothingLabel").isVisible());
    EXPECT_TRUE(canExport()) << "a search changes no choice";
    const QString words = find<QLabel>("nothingLabel").text();
    EXPECT_TRUE(words.startsWith(text("No preset of this format has these words. “"))) << words.toStdString();
    EXPECT_TRUE(words.endsWith(text("” stays chosen."))) << words.toStdString();
    find<QLineEdit>("searchEdit").setText(text("1080"));
    EXPECT_GT(presets().model()->rowCount(), 0);
    EXPECT_EQ(find<QLabel>("nothingLabel").text(), words.mid(words.indexOf(text("“"))));
    EXPECT_TRUE(find<QLabel>("nothingLabel").isVisible()) << "what is chosen is not among them";
    find<QLineEdit>("searchEdit").clear();
    EXPECT_EQ(presets().currentIndex().data(Dialog::PresetList::ROLE_ID).toString(), text("mp4-mpeg4-720p"));
    EXPECT_FALSE(find<QLabel>("nothingLabel").isVisible());
}

TEST_F(Window, ShowsBesideAPresetWhyItIsOfNoUse) {
    show();
    openClip();
    choose(text("Audio"), text("mp3"));
    EXPECT_EQ(obstacleAt(0), QString());
    open({QString::fromStdString(pictureOnly())});
    EXPECT_EQ(obstacleAt(0), text("The source has no sound"));
    EXPECT_EQ(problem(), text("This preset is not possible: The source has no sound"));
    EXPECT_FALSE(canExport());
    EXPECT_TRUE(presets().model()->index(0, 0).data(Qt::AccessibleTextRole).toString().contains(text("not possible")));
    openClip();
    EXPECT_EQ(obstacleAt(0), QString());
    EXPECT_TRUE(canExport());
}

TEST_F(Window, KnowsWhatCustomSettingsMakePossible) {
    TestMedia::FlashBeep media;
    media.width = 160;
    media.height = 90;
    media.frames = 10;
    TestMedia::makeFlashBeep(place / "small.mov", media);
    show();
    open({QString::fromStdString(place / "small.mov")});
    choose(text("Editing"), text("dnxhr 1080"));
    EXPECT_TRUE(problem().startsWith(text("This preset is not possible: DNxHD takes no side below")))
        << problem().toStdString();
    find<QGroupBox>("customGroup").setChecked(true);
    find<QComboBox>("sizeBox").setEditText(text("1280x720"));
    EXPECT_EQ(problem(), QString());
    find<QGroupBox>("customGroup").setChecked(false);
    EXPECT_NE(problem(), QString());
    find<QCheckBox>("pictureCheck").setChecked(false);
    EXPECT_EQ(problem(), QString()) << "what is not made needs no size";
}

TEST_F(Window, RemembersWhichOfEqualPresetsWasChosen) {
    const QString folder = configuration.filePath(text("EditorExport"));
    QDir().mkpath(folder);
    const auto preset = [](const char* id) {
        return QByteArray(R"({"id":")") + id + R"(","container":{"id":"wav"},"audio":{"codec":"pcm_s16le"}})";
    };
    TestFiles::write(folder.toStdString() + "/presets.json",
                     R"({"version":1,"presets":[)" + preset("first") + ',' + preset("twin") + "]}");
    for (const char* const chosen : {"twin", "first"}) {
        show();
        openClip();
        choose(text("Own presets"), text(chosen));
        saveAs(place / (std::string(chosen) + ".wav"));
        press('q');
        ASSERT_TRUE(waitUntil([&] { return find<QWidget>("jobPane").isVisible(); }));
        window.reset();
        show();
        EXPECT_EQ(presets().currentIndex().data(Dialog::PresetList::ROLE_ID).toString(), text(chosen));
        window.reset();
    }
}

TEST_F(Window, ShowsPathsInTipsAsTheyAre) {
    const std::string odd = place / "Tom & <b>Jerry.mov";
    TestFiles::write(odd, TestFiles::read(clip));
    show();
    open({QString::fromStdString(odd), QString::fromStdString(clip)});
    const auto shown = [](const QString& tip) {
        EXPECT_TRUE(Qt::mightBeRichText(tip)) << tip.toStdString();
        return QTextDocumentFragment::fromHtml(tip).toPlainText();
    };
    EXPECT_EQ(shown(find<QLabel>("sourceName").toolTip()), QString::fromStdString(odd + '\n' + clip));
    saveAs(place / "Tom & <b>Jerry.mp4");
    press('q');
    ASSERT_TRUE(waitUntil([&] { return find<QWidget>("jobPane").isVisible(); }));
    const QAbstractItemModel& jobs = *find<QAbstractItemView>("jobView").model();
    EXPECT_EQ(shown(jobs.index(0, 0).data(Qt::ToolTipRole).toString()),
              QString::fromStdString(place / "Tom & <b>Jerry.mp4"));
}

TEST(Strip, GoesByFramesWhateverTheirRate) {
    Dialog::RangeStrip strip;
    for (const boost::rational<long long>& rate : {boost::rational<long long>(30000, 1001), {60}, {120}, {24}}) {
        strip.setTimeline(KTime(10'007), rate, {});
        strip.setRange({KTime(0), KTime(10'007)}, Dialog::RangeStrip::Grip::Anywhere);
        const auto at = [&rate](int frame) { return ExportCore::TimePoint::ofFrames(frame).at(rate); };
        for (int frame = 1; frame <= 50; ++frame) {
            QTest::keyClick(&strip, Qt::Key_Right);
            ASSERT_EQ(strip.range().start, at(frame)) << rate;
        }
        for (int frame = 49; frame >= 40; --frame) {
            QTest::keyClick(&strip, Qt::Key_Left);
            ASSERT_EQ(strip.range().start, at(frame)) << rate;
        }
        QTest::keyClick(&strip, Qt::Key_Down);
        QTest::keyClick(&strip, Qt::Key_Left);
        EXPECT_LT(strip.range().end, KTime(10'007));
        EXPECT_GE(strip.range().end, KTime(10'007 - 42)) << "the last frame's beginning is nearer than a frame";
        QTest::keyClick(&strip, Qt::Key_Down);
    }
}

TEST_F(Window, GivesTheFileTheExtensionOfThePreset) {
    show();
    openClip();
    choose(text("MP4"), text("h.264 480"));
    EXPECT_EQ(find<QLineEdit>("outputEdit").text(), QString::fromStdString(place / "clip.mp4"));
    choose(text("Web"), text("vp9 720"));
    EXPECT_EQ(find<QLineEdit>("outputEdit").text(), QString::fromStdString(place / "clip.webm"));
    saveAs(place / "my.film.webm");
    choose(text("MP4"), text("h.264 480"));
    EXPECT_EQ(find<QLineEdit>("outputEdit").text(), QString::fromStdString(place / "my.film.mp4"));
    choose(text("Editing"), text("prores 1080"));
    EXPECT_EQ(find<QLineEdit>("outputEdit").text(), QString::fromStdString(place / "my.film.mov"));
}

TEST_F(Window, NeverSuggestsToWriteOverTheSource) {
    show();
    openClip();
    choose(text("Editing"), text("prores 1080"));
    EXPECT_EQ(find<QLineEdit>("outputEdit").text(), QString::fromStdString(place / "clip (export).mov"));
}

TEST_F(Window, RefusesANameOfAnotherKindOfFile) {
    show();
    openClip();
    saveAs(place / "film.wav");
    EXPECT_FALSE(canExport());
    EXPECT_TRUE(problem().contains(text("not .wav"))) << problem().toStdString();
}

TEST_F(Window, EstimatesSizeAndTellsTheRoom) {
    show();
    openClip();
    auto& estimate = find<QLabel>("estimateLabel");
    ASSERT_TRUE(waitUntil([&] { return estimate.text().contains(text(" free")); }));
    EXPECT_TRUE(estimate.text().contains(text("kB")) || estimate.text().contains(text("MB")))
        << estimate.text().toStdString();
    saveAs(place / "nowhere/film.mp4");
    ASSERT_TRUE(waitUntil([&] { return estimate.text().contains(text("The folder is not there")); }));
    TestFiles::write(place / "old.mp4", "old");
    saveAs(place / "old.mp4");
    ASSERT_TRUE(waitUntil([&] { return estimate.text().contains(text("is there already")); }));
}

TEST_F(Window, ShowsThumbnailsOfTheSource) {
    show();
    openClip();
    auto& strip = find<Dialog::RangeStrip>("strip");
    const QImage empty = strip.grab().toImage();
    ASSERT_TRUE(waitUntil([&] {
        const QImage now = strip.grab().toImage();
        int changed = 0; // columns
        for (int x = 0; x < now.width(); x += 4)
            changed += now.pixel(x, now.height() / 2) != empty.pixel(x, now.height() / 2) ? 1 : 0;
        return changed > now.width() / 4 - 20;
    }));
}

TEST_F(Window, MovesTheEndsOfTheRangeByKeysAndMouse) {
    show();
    openClip();
    auto& strip = find<Dialog::RangeStrip>("strip");
    auto& in = find<QLineEdit>("inEdit");
    auto& out = find<QLineEdit>("outEdit");
    EXPECT_EQ(strip.focusPolicy(), Qt::StrongFocus);
    pressButton('a', "cutButton");
    strip.setFocus();
    key(Qt::Key_Right);
    key(Qt::Key_Right);
    EXPECT_EQ(in.text(), text("00:00:00.080"));
    key(Qt::Key_Down);
    key(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(out.text(), text("00:00:01.000"));
    key(Qt::Key_Home);
    EXPECT_EQ(out.text(), text("00:00:00.120")) << "a frame remains";
    key(Qt::Key_End);
    EXPECT_EQ(out.text(), QString());
    QTest::mousePress(&strip, Qt::LeftButton, {}, {strip.width() / 4, 10});
    EXPECT_TRUE(in.text().startsWith(text("00:00:00.5")) || in.text().startsWith(text("00:00:00.49")))
        << in.text().toStdString();
    in.setText(text("1:75"));
    EXPECT_FALSE(canExport());
    EXPECT_EQ(problem(), text("“1:75” is no time; write minutes and seconds as 1:30, or frames as 120f"));
    in.setText(text("1.5"));
    out.setText(text("1"));
    EXPECT_EQ(problem(), text("The in point must lie before the out point, and before the end"));
    pressButton('w', "wholeButton");
    EXPECT_TRUE(canExport());
}

TEST_F(Window, ChecksCustomSettingsWhileTheyAreTyped) {
    show();
    openClip();
    choose(text("MP4"), text("h.264 480"));
    find<QGroupBox>("customGroup").setChecked(true);
    auto& size = find<QComboBox>("sizeBox");
    size.setEditText(text("161x90"));
    EXPECT_FALSE(canExport());
    EXPECT_TRUE(find<QLabel>("customProblem").text().contains(text("odd")));
    size.setEditText(text("160 × 90"));
    EXPECT_TRUE(canExport()) << problem().toStdString();
    choose(text("MP4"), text("h.264 720"));
    EXPECT_EQ(size.currentText(), QString()) << "another preset has its own";
    choose(text("MP4"), text("h.264 480"));
    EXPECT_EQ(size.currentText(), text("160x90"));
    find<QPushButton>("resetButton").click();
    EXPECT_EQ(size.currentText(), QString());
}

TEST_F(Window, RemembersTagAndPresetOnceAnExportIsOrdered) {
    show();
    openClip();
    choose(text("Web"), text("vp9 720"));
    EXPECT_EQ(Settings::lastUsedPresetId(), "");
    saveAs(place / "film.webm");
    press('q');
    ASSERT_TRUE(waitUntil([&] { return find<QWidget>("jobPane").isVisible(); }));
    window.reset();
    EXPECT_EQ(Settings::lastUsedPresetGroup(), "web");
    EXPECT_EQ(Settings::lastUsedPresetId(), "webm-vp9-720p");
    show();
    EXPECT_EQ(find<QComboBox>("tagBox").currentText(), text("Web"));
    EXPECT_EQ(presets().currentIndex().data(Dialog::PresetList::ROLE_ID).toString(), text("webm-vp9-720p"));
}

TEST_F(Window, WorksWhereNothingCanBeRemembered) {
    TestFiles::write(place / "file", "");
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(place / "file"));
    show();
    openClip();
    saveAs(place / "film.mp4");
    press('q');
    ASSERT_TRUE(waitUntil([&] { return find<QWidget>("jobPane").isVisible(); }));
}

TEST_F(Window, TellsWhereUsersOwnPresetsCannotBeRead) {
    const QString folder = configuration.filePath(text("EditorExport"));
    QDir().mkpath(folder);
    TestFiles::write(folder.toStdString() + "/presets.json", "{");
    show();
    EXPECT_TRUE(find<QWidget>("messageFrame").isVisible());
    EXPECT_TRUE(find<QLabel>("messageLabel").text().contains(text("presets.json")));
    EXPECT_GT(presets().model()->rowCount(), 0);
}

class Languages : public Window, public ::testing::WithParamInterface<const char*> {};

TEST_P(Languages, AreThoseOfWindowPresetsAndTags) {
    show();
    openClip();
    const auto texts = [this] {
        QStringList all{window->windowTitle(), find<QPushButton>("exportButton").text(), problem(),
                        find<QLabel>("factsLabel").text(), find<QComboBox>("qualityBox").itemText(0)};
        // A name of initials is the same in many languages.
        auto& tags = find<QComboBox>("tagBox");
        return all << tags.itemText(tags.findData(text("small-files")))
                   << presets().model()->index(0, 0).data().toString();
    };
    find<QLineEdit>("outputEdit").clear();
    const QStringList english = texts();
    const Dialog::Translations translations(*qApp, QLocale(text(GetParam())));
    ASSERT_TRUE(waitUntil([&] { return find<QPushButton>("exportButton").text() != english[1]; }));
    TestSupport::turnEventLoop();
    const QStringList translated = texts();
    for (int i = 1; i < english.size(); ++i)
        EXPECT_NE(translated[i], english[i]);
    EXPECT_EQ(translated.size(), english.size());
}

INSTANTIATE_TEST_SUITE_P(All, Languages, ::testing::Values("de_DE", "es_ES", "ja_JP", "zh_CN"));

TEST_F(Window, HasNoTextThatALanguageLacks) {
    for (const char* language : {"de", "es", "ja", "zh"}) {
        const std::string file = std::string(EDITOR_EXPORT_TRANSLATIONS) + "/editor-export_" + language + ".ts";
        const QByteArray content = TestFiles::read(file);
        EXPECT_GT(content.count("<translation>"), 150) << file;
        EXPECT_FALSE(content.contains("type=\"unfinished\"")) << file;
    }
}

TEST_F(Window, WithoutADisplayIsNoneAndSaysSo) {
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(text("DISPLAY"));
    environment.remove(text("WAYLAND_DISPLAY"));
    environment.insert(text("QT_QPA_PLATFORM"), text("xcb"));
    program.setProcessEnvironment(environment);
    program.start(text(EDITOR_EXPORT_DIALOG_PROGRAM), {QString::fromStdString(clip)});
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 2);
    const QString errors = QString::fromUtf8(program.readAllStandardError());
    EXPECT_TRUE(errors.contains(text("no window can be shown"))) << errors.toStdString();
}

} // namespace
} // namespace TestDialog
