// SPDX-License-Identifier: GPL-3.0-or-later
// What the export's machinery says, in the languages of the window.
#include "dialog/Models/Sentence.h"
#include "WindowFixture.h"
#include "dialog/Models/NoteForms.h"
#include "dialog/Models/SentenceForms.h"

namespace TestDialog {
namespace {

using Dialog::Sentence;

std::vector<const char*> allForms() {
    std::vector<const char*> all(std::begin(Dialog::SENTENCE_FORMS), std::end(Dialog::SENTENCE_FORMS));
    all.insert(all.end(), std::begin(Dialog::NOTE_FORMS), std::end(Dialog::NOTE_FORMS));
    return all;
}

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

TEST_F(Sentences, TellWhatTheFirstInputDecides) {
    EXPECT_EQ(german("\"/a; b.mov\" is scaled down to the size of the first pictures, 640x360; --set size=1920x1080 "
                     "chooses another"),
              text("„/a; b.mov“ wird auf die Größe der ersten Bilder verkleinert, 640x360; eine andere lässt sich in "
                   "den eigenen Einstellungen wählen, etwa 1920x1080"));
    EXPECT_EQ(german("\"a.mov\" and 2 more are scaled down to the size of the first pictures, 640x360; --set size=WxH "
                     "chooses another"),
              text("„a.mov“ und 2 weitere werden auf die Größe der ersten Bilder verkleinert, 640x360; eine andere "
                   "lässt sich in den eigenen Einstellungen wählen"));
    EXPECT_EQ(german("\"a.mov\" is shown at the rate of the first pictures, 25 instead of 29.97 frames a second; --set "
                     "frame-rate=29.97 chooses another"),
              text("„a.mov“ wird mit der Bildrate der ersten Bilder gezeigt, mit 25 statt 29.97 Bildern je Sekunde; "
                   "eine andere lässt sich in den eigenen Einstellungen wählen, etwa 29.97"));
    EXPECT_EQ(german("\"a.mov\" is mixed down to the channels of the first sound, stereo; --set channels=5.1 chooses "
                     "others"),
              text("„a.mov“ wird auf die Kanäle des ersten Tons heruntergemischt, Stereo; andere lassen sich in den "
                   "eigenen Einstellungen wählen, etwa 5.1"));
}

TEST_F(Sentences, TellWhatBecameOfPictures) {
    EXPECT_EQ(german("\"a.mov\": variable frame rate, shown at 29.97 frames a second, which leaves out 2 of its 63 "
                     "pictures"),
              text("„a.mov“: veränderliche Bildrate, mit 29.97 Bildern je Sekunde gezeigt, wobei 2 seiner 63 Bilder "
                   "wegfallen"));
    EXPECT_EQ(german("\"a.mov\": pictures of yuva444p10le are encoded as yuv420p: 10 bits became 8, colour of 4:4:4 "
                     "became 4:2:0, transparency was left out, over black"),
              text("„a.mov“: Bilder in yuva444p10le werden als yuv420p encodiert: aus 10 Bits wurden 8, aus Farbe in "
                   "4:4:4 wurde 4:2:0, die Transparenz entfällt, über Schwarz"));
    EXPECT_EQ(german("\"a.mov\": interlaced (top field first), deinterlaced"),
              text("„a.mov“: Zeilensprung (oberes Halbbild zuerst), in Vollbilder umgewandelt"));
    EXPECT_EQ(german("\"a.mov\": does not fully tell its colour, taken for BT.601; colours converted from BT.601 to "
                     "BT.709"),
              text("„a.mov“: gibt seine Farbe nicht ganz an, als BT.601 behandelt; Farben von BT.601 nach BT.709 "
                   "umgewandelt"));
    EXPECT_EQ(german("\"a.mov\": high dynamic range (PQ, up to 1000 cd/m2), tone-mapped to BT.709 (mobius curve)"),
              text("„a.mov“: hoher Dynamikumfang (PQ, bis 1000 cd/m²), durch Tone-Mapping auf BT.709 gebracht "
                   "(Mobius-Kurve)"));
    EXPECT_EQ(
        german("\"a.mov\": its pictures change to 320x180 on the way; they are fitted like those of 640x360 with "
               "which it begins"),
        text("„a.mov“: seine Bilder wechseln unterwegs zu 320x180; sie werden eingepasst wie die von 640x360, mit "
             "denen es beginnt"));
    EXPECT_EQ(german("\"f_%04d.png\": of its 25 pictures 2 are missing, \"f_0003.png\" to begin with; black stands in "
                     "each one's place"),
              text("„f_%04d.png“: von seinen 25 Bildern fehlen 2, zuerst „f_0003.png“; an der Stelle eines jeden steht "
                   "Schwarz"));
}

TEST_F(Sentences, TellWhatBecameOfSound) {
    EXPECT_EQ(german("\"a.mov\": sound of 5.1 (track 2) is encoded as stereo"),
              text("„a.mov“: Ton (5.1 (Spur 2)) wird als Stereo encodiert"));
    EXPECT_EQ(german("\"a.wav\": 3 channels that do not say where they are heard are encoded as stereo"),
              text("„a.wav“: 3 Kanäle, die nicht sagen, wo sie zu hören sind, werden als Stereo encodiert"));
    EXPECT_EQ(german("\"a.wav\": the 24 bits of each sample became 16"),
              text("„a.wav“: aus den 24 Bits jedes Abtastwerts wurden 16"));
    EXPECT_EQ(german("The mix goes 4.1 dB beyond full scale, and its peaks are turned down"),
              text("Die Mischung geht 4.1 dB über Vollaussteuerung hinaus, und ihre Spitzen werden leiser gemacht"));
    EXPECT_EQ(german("\"a.mov\": its edit list changes the speed of its sound, or holds it; that is not followed, and "
                     "parts may be missing or come twice"),
              text("„a.mov“: seine Schnittliste ändert die Geschwindigkeit (Ton) oder hält sie an; dem wird nicht "
                   "gefolgt, und Teile können fehlen oder doppelt kommen"));
}

TEST_F(Sentences, TellWhatOfAMediumIsLeftOutOrDamaged) {
    EXPECT_EQ(german("\"a.mov\": left out: 1 sound track (2, eng), 3 chapters"),
              text("„a.mov“: weggelassen: 1 Tonspur (2, eng), 3 Kapitel"));
    EXPECT_EQ(german("\"a.mkv\": left out: 9 sound tracks, 12 tags, time code"),
              text("„a.mkv“: weggelassen: 9 Tonspuren, 12 Angaben, Timecode"));
    EXPECT_EQ(german("\"a.mkv\": 3 of the subtitles of track 2 cannot be read and are left out"),
              text("„a.mkv“: Untertitel der Spur 2, die sich nicht lesen lassen und wegfallen: 3"));
    EXPECT_EQ(german("The subtitles' language, eng, is left out: the file has no place for it"),
              text("Die Sprache der Untertitel, eng, wird weggelassen: Die Datei hat keinen Platz dafür"));
    EXPECT_EQ(german("Sound track 2's title, \"a, b\", is left out: the file has no place for it"),
              text("Der Titel der Tonspur 2, „a, b“, wird weggelassen: Die Datei hat keinen Platz dafür"));
    EXPECT_EQ(
        german("\"a.ts\" is damaged at 00:00:07.000: Timestamps jump by 3 s; what follows was joined on without a "
               "gap"),
        text("„a.ts“ ist bei 00:00:07.000 beschädigt: Die Zeitstempel springen um 3 s; was folgt, wurde ohne "
             "Lücke angefügt"));
    EXPECT_EQ(german("\"a.ts\" is damaged at 00:00:07.000: The file ends at 7 s, and 400 bytes that it announces are "
                     "missing: it is incomplete; what comes before can be exported with --out 00:00:07.000"),
              text("„a.ts“ ist bei 00:00:07.000 beschädigt: Die Datei endet bei 7 s, und 400 Bytes, die sie ankündigt, "
                   "fehlen: Sie ist unvollständig; was davor liegt, lässt sich mit dem Out-Punkt 00:00:07.000 "
                   "exportieren"));
    EXPECT_EQ(german("Cannot read \"a\": it holds neither picture nor sound that can be decoded (no frame of the h264 "
                     "track can be decoded, no frame of the aac track can be decoded)"),
              text("„a“ lässt sich nicht lesen: sie enthält weder Bild noch Ton, die sich decodieren lassen (kein Bild "
                   "oder Stück der Spur h264 lässt sich decodieren, kein Bild oder Stück der Spur aac lässt sich "
                   "decodieren)"));
}

TEST_F(Sentences, TellWhatOfATimelineIsLeftOutOrHeld) {
    EXPECT_EQ(
        german("\"a.otio\": stack \"S\", track \"V\", stack \"N\": it goes beyond what there is of its contents "
               "and holds the first picture for 80 ms at its start and holds the last picture for 40 ms at its end"),
        text("„a.otio“: Stapel „S“, Spur „V“, Stapel „N“: er reicht über seinen Inhalt hinaus und hält 80 ms lang "
             "das erste Bild an seinem Anfang und hält 40 ms lang das letzte Bild an seinem Ende"));
    EXPECT_EQ(
        german("\"a.otio\": stack \"S\", track \"V\", transition: the stack \"N\" before it has too little beyond "
               "the cut: for 40 ms nothing is heard of it (/tracks/1)"),
        text("„a.otio“: Stapel „S“, Spur „V“, Übergang: der Stapel „N“ davor hat zu wenig hinter dem Schnitt: 40 "
             "ms lang ist nichts von ihm zu hören (/tracks/1)"));
    EXPECT_EQ(german("\"a.otio\": stack \"S\", track \"V\": \"Odd.1\" is not known; there is a gap in its place"),
              text("„a.otio“: Stapel „S“, Spur „V“: „Odd.1“ ist nicht bekannt; an seiner Stelle ist eine Lücke"));
    EXPECT_EQ(
        german("Cannot export \"a.otio\": stack \"S\", track \"V\", clip \"x\": the media \"b.mp4\" is not there, "
               "nor below the folder for media"),
        text("„a.otio“ lässt sich nicht exportieren: Stapel „S“, Spur „V“, Clip „x“: die Mediendatei „b.mp4“ ist "
             "nicht da, auch nicht unter dem Ordner für Medien"));
}

TEST_F(Sentences, TellWhyATimelineIsRefused) {
    EXPECT_EQ(german("Cannot export \"a.otio\": it is no JSON: Invalid value. (line 3, column 5)"),
              text("„a.otio“ lässt sich nicht exportieren: das ist kein JSON: Invalid value. (Zeile 3, Spalte 5)"));
    EXPECT_EQ(german("Cannot export \"a.otio\": stack \"S\", track \"V\", clip \"x\": nothing tells how long it lasts; "
                     "stack \"S\", track \"V\": the rate of a time is no number (/tracks/1)"),
              text("„a.otio“ lässt sich nicht exportieren: Stapel „S“, Spur „V“, Clip „x“: nichts sagt, wie lange er "
                   "dauert; Stapel „S“, Spur „V“: eine Zeit ist keine Zahl (Rate) (/tracks/1)"));
    EXPECT_EQ(german("Cannot export \"a.otioz\": its entry \"media/b.mov\" claims to hold 900 MiB in 70 bytes, which "
                     "media never do"),
              text("„a.otioz“ lässt sich nicht exportieren: sein Eintrag „media/b.mov“ will 900 MiB in 70 Bytes "
                   "enthalten, was Medien nie tun"));
}

TEST_F(Sentences, ThatNobodyKnowsStayAsTheyAre) {
    EXPECT_EQ(german("Something new has happened, size and all"), text("Something new has happened, size and all"));
    EXPECT_EQ(german("Cannot read \"a\": something new"), text("„a“ lässt sich nicht lesen: something new"));
    EXPECT_EQ(german(""), QString());
}

TEST_F(Sentences, InEnglishAreWhatWasSaid) {
    for (const char* const form : allForms())
        EXPECT_EQ(Sentence::translated(text(form)),
                  text(form).replace(text("that do: %2"), text("that do: “%2”"))); // each of several
}

TEST_F(Sentences, NameNoOptionsOfTheCommandLine) {
    for (const char* const locale : {"en_US", "de_DE", "es_ES", "ja_JP", "zh_CN", "fr_FR"}) {
        const Dialog::Translations translations(*qApp, QLocale(text(locale)));
        for (const char* const form : allForms()) {
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

TEST_P(OwnWords, SayWhatIsNoted) {
    const std::string larger = place / "larger.mov";
    TestMedia::FlashBeep media;
    media.frames = 13;
    media.width = 480;
    media.height = 360;
    TestMedia::makeFlashBeep(larger, media);
    const Dialog::Translations translations(*qApp, QLocale(text(GetParam())));
    show();
    window->open({QString::fromStdString(clip), QString::fromStdString(larger)});
    auto& output = find<QLineEdit>("outputEdit");
    output.setText(QString::fromStdString(place / "film.mp4"));
    ASSERT_TRUE(waitUntil([&] { return find<QPushButton>("exportButton").isEnabled(); }));
    find<QPushButton>("exportButton").click();
    ASSERT_TRUE(waitForEnd());
    const QString reason = find<QLabel>("endReason").text();
    EXPECT_TRUE(reason.contains(QString::fromStdString(larger))) << reason.toStdString();
    for (const char* const word : {" is ", "scaled", "first", "--set"})
        EXPECT_FALSE(reason.contains(text(word))) << reason.toStdString();
}

INSTANTIATE_TEST_SUITE_P(All, OwnWords, ::testing::Values("de_DE", "es_ES", "ja_JP", "zh_CN"));

} // namespace
} // namespace TestDialog
