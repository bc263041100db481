// SPDX-License-Identifier: GPL-3.0-or-later
// What the export's machinery says, in the languages of the window.
#include "dialog/Models/Sentence.h"
#include "WindowFixture.h"
#include "dialog/Models/SentenceForms.h"

namespace TestDialog {
namespace {

using Dialog::Sentence;

class Sentences : public ::testing::Test {
protected:
    static QString german(const char* english) {
        const Dialog::Translations translations(*qApp, QLocale(text("de_DE")));
        return Sentence::translated(text(english));
    }
};

TEST_F(Sentences, KeepNamesAndNumbers) {
    EXPECT_EQ(german("Cannot write \"/a: it is empty.mp4\": the folder \"/x\": Permission denied"),
              text("„/a: it is empty.mp4“ lässt sich nicht schreiben: der Ordner „/x“: Zugriff verweigert"));
    EXPECT_EQ(german("The file will take roughly 3 MB, but beside \"/film.mp4\" only 2 MB are free"),
              text("Die Datei wird etwa 3 MB belegen, aber neben „/film.mp4“ sind nur 2 MB frei"));
    EXPECT_EQ(german("The file will take about 3 MB, but beside \"/film.mp4\" only 2 MB are free"),
              text("Die Datei wird ungefähr 3 MB belegen, aber neben „/film.mp4“ sind nur 2 MB frei"));
}

TEST_F(Sentences, MayBeSeveral) {
    EXPECT_EQ(
        german("Cannot read \"a\": it is empty; Cannot read \"b\": No such file or directory; did you mean \"c\"?"),
        text("„a“ lässt sich nicht lesen: sie ist leer; „b“ lässt sich nicht lesen: Datei oder Ordner nicht gefunden; "
             "ist \"c\" gemeint?"));
    EXPECT_EQ(german("\"a.mov\": left out: 2 sound tracks (2, eng; 3), 1 chapter, tags"),
              text("„a.mov“: weggelassen: 2 Tonspuren (2, eng; 3), 1 Kapitel, Angaben"));
}

TEST_F(Sentences, NameWhatATimelineLacks) {
    EXPECT_EQ(
        german("Cannot export \"a.otio\": stack \"S\", track \"V, 1\", clip \"x\": the media \"b.mp4\" is not there "
               "(/tracks/1); track \"V\", clip \"y\": its media is not named (/tracks/2); and 3 more (validate "
               "tells them all)"),
        text("„a.otio“ lässt sich nicht exportieren: Stapel „S“, Spur „V, 1“, Clip „x“: die Mediendatei „b.mp4“ "
             "ist nicht da (/tracks/1); Spur „V“, Clip „y“: seine Mediendatei ist nicht genannt (/tracks/2); und "
             "3 mehr"));
    EXPECT_EQ(german("\"a.mov\" is damaged at 00:00:07.000: A picture could not be decoded: End of file"),
              text("„a.mov“ ist bei 00:00:07.000 beschädigt: Ein Bild ließ sich nicht dekodieren: Ende der Datei"));
    EXPECT_EQ(german("\"a.mov\" is damaged at 00:00:07.000: Sound is missing; silence stands in for it"),
              text("„a.mov“ ist bei 00:00:07.000 beschädigt: Ton fehlt; an seiner Stelle steht Stille"));
    EXPECT_EQ(german("\"a.mov\": its sound has a gap of 0.083 s at 0.041 s, filled with silence"),
              text("„a.mov“: sein Ton hat bei 0.041 s eine Lücke von 0.083 s, die mit Stille gefüllt ist"));
    EXPECT_EQ(german("Cannot read \"a\": it is not a media file, or its beginning is damaged"),
              text("„a“ lässt sich nicht lesen: das ist keine Mediendatei, oder ihr Anfang ist beschädigt"));
}

TEST_F(Sentences, TellWhatOfATimelineIsShownOtherwise) {
    EXPECT_EQ(german("\"a.otio\": stack, track \"V\", clip \"x\": the effect \"blur\" is not known and is left out"),
              text("„a.otio“: Stapel, Spur „V“, Clip „x“: der Effekt „blur“ ist nicht bekannt und wird weggelassen"));
    EXPECT_EQ(
        german("\"a.otio\": stack \"S\", track \"A\", stack \"N\": it has no sound, and its place in a sound track "
               "stays silent"),
        text("„a.otio“: Stapel „S“, Spur „A“, Stapel „N“: er hat keinen Ton, und sein Platz in einer Tonspur "
             "bleibt still"));
    EXPECT_EQ(german("\"a.otio\": track \"V\", clip \"x\": its media \"/b; c.mov\" lasts 2000 ms; the clip goes 400 ms "
                     "beyond it and holds the last picture for 400 ms; the transition before the clip goes 120 ms "
                     "before its beginning and holds the first picture for 120 ms"),
              text("„a.otio“: Spur „V“, Clip „x“: seine Mediendatei „/b; c.mov“ dauert 2000 ms; der Clip reicht 400 ms "
                   "darüber hinaus und hält 400 ms lang das letzte Bild; der Übergang vor dem Clip reicht 120 ms vor "
                   "ihren Anfang und hält 120 ms lang das erste Bild"));
    EXPECT_EQ(german("\"a.otio\": stack \"S\", track \"V\", transition: transitions of the type \"Wipe\" are made as "
                     "dissolves (/tracks/1)"),
              text("„a.otio“: Stapel „S“, Spur „V“, Übergang: Übergänge der Art „Wipe“ werden als Überblendungen "
                   "ausgeführt (/tracks/1)"));
    EXPECT_EQ(
        german("\"a.otio\": track \"V\", clip \"x\": its media lasts 480 ms; the clip goes 120 ms beyond it and is "
               "silent throughout"),
        text("„a.otio“: Spur „V“, Clip „x“: seine Mediendatei dauert 480 ms; der Clip reicht 120 ms darüber "
             "hinaus und ist durchweg still"));
}

TEST_F(Sentences, SayWhyAFirstPassIsWhole) {
    EXPECT_EQ(german("The first pass looks at whole pictures in place of halves: the film is shorter than 4 seconds"),
              text("Der erste Durchgang sieht sich ganze Bilder statt halber an: der Film ist kürzer als 4 Sekunden"));
    EXPECT_EQ(
        german("The first pass looks at whole pictures in place of halves: libx264 with its options takes no "
               "statistics of smaller ones"),
        text("Der erste Durchgang sieht sich ganze Bilder statt halber an: libx264 nimmt mit seinen Optionen keine "
             "Statistik kleinerer Bilder"));
}

TEST_F(Sentences, ThatNobodyKnowsStayAsTheyAre) {
    EXPECT_EQ(german("Something new has happened, size and all"), text("Something new has happened, size and all"));
    EXPECT_EQ(german("Cannot read \"a\": something new"), text("„a“ lässt sich nicht lesen: something new"));
    EXPECT_EQ(german(""), QString());
}

TEST_F(Sentences, InEnglishAreWhatWasSaid) {
    for (const char* const form : Dialog::SENTENCE_FORMS)
        EXPECT_EQ(Sentence::translated(text(form)),
                  text(form).replace(text("that do: %2"), text("that do: “%2”"))); // each of several
}

TEST_F(Sentences, NameNoOptionsOfTheCommandLine) {
    for (const char* const locale : {"en_US", "de_DE", "es_ES", "ja_JP", "zh_CN", "fr_FR"}) {
        const Dialog::Translations translations(*qApp, QLocale(text(locale)));
        for (const char* const form : Dialog::SENTENCE_FORMS) {
            const QString said = Sentence::translated(text(form));
            EXPECT_FALSE(said.contains(text("--")) || said.contains(text("validate"))) << said.toStdString();
        }
    }
}

TEST_F(Sentences, OfWhichTheLastOnesAreKnownSayThoseInOwnWords) {
    const Dialog::Translations translations(*qApp, QLocale(text("en_US")));
    EXPECT_EQ(Sentence::translated(text("something new; and another; and 3 more (validate tells them all)")),
              text("something new; and another; and 3 more"));
}

TEST_F(Sentences, CallPresetsByTheirTitles) {
    const auto titles = [](const QString& id) { return text("The ") + id; };
    EXPECT_EQ(Sentence::translated(text("Cannot write \"/preset \"a\".wav\": the preset \"one\" writes .mp4, not .wav; "
                                        "presets that do: two, three or four"),
                                   titles),
              text("Cannot write \"/preset \"a\".wav\": the preset \"The one\" writes .mp4, not .wav; presets that do: "
                   "“The two”, “The three”, “The four”"));
    EXPECT_TRUE(
        german("Nothing is left to export: the preset \"mp4-h264-480p\" has no sound").contains(text("bis 480p")));
}

class OwnWords : public WindowTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(OwnWords, SayWhatIsWrong) {
    TestFiles::write(place / "not.mp4", "This is no film.");
    show();
    open({QString::fromStdString(place / "not.mp4")});
    auto& message = find<QLabel>("messageLabel");
    const QString english = message.text();
    EXPECT_TRUE(english.startsWith(text("Cannot read"))) << english.toStdString();
    const Dialog::Translations translations(*qApp, QLocale(text(GetParam())));
    ASSERT_TRUE(waitUntil([&] { return message.text() != english; }));
    EXPECT_TRUE(message.text().contains(QString::fromStdString(place / "not.mp4"))) << message.text().toStdString();
    EXPECT_FALSE(message.text().contains(text("Invalid"))) << message.text().toStdString();
    window->open({QString::fromStdString(clip)});
    auto& output = find<QLineEdit>("outputEdit"); // its letter is another one, too
    output.setText(QString::fromStdString(place / "film.wav"));
    ASSERT_TRUE(waitUntil([&] { return find<QLabel>("problemLabel").text().contains(text(".wav")); }));
    const QString problem = find<QLabel>("problemLabel").text();
    EXPECT_TRUE(problem.contains(text(".wav"))) << problem.toStdString();
    EXPECT_FALSE(problem.contains(text("the preset"))) << problem.toStdString();
    output.setText(QString::fromStdString(place / "nowhere/film.mp4"));
    find<QPushButton>("exportButton").click();
    ASSERT_TRUE(waitForEnd());
    const QString reason = find<QLabel>("endReason").text();
    EXPECT_TRUE(reason.contains(QString::fromStdString(place / "nowhere/film.mp4"))) << reason.toStdString();
    for (const char* const word : {"Cannot", "folder", "No such file"})
        EXPECT_FALSE(reason.contains(text(word))) << reason.toStdString();
}

INSTANTIATE_TEST_SUITE_P(All, OwnWords, ::testing::Values("de_DE", "es_ES", "ja_JP", "zh_CN"));

} // namespace
} // namespace TestDialog
