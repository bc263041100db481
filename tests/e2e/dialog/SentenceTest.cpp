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
}

TEST_F(Sentences, MayBeSeveral) {
    EXPECT_EQ(
        german("Cannot read \"a\": it is empty; Cannot read \"b\": No such file or directory; did you mean \"c\"?"),
        text("„a“ lässt sich nicht lesen: sie ist leer; „b“ lässt sich nicht lesen: Datei oder Ordner nicht gefunden; "
             "ist \"c\" gemeint?"));
    EXPECT_EQ(german("\"a.mov\": left out: 2 sound tracks (2, eng; 3), 1 chapter, tags"),
              text("„a.mov“: weggelassen: 2 Tonspuren (2, eng; 3), 1 Kapitel, Angaben"));
}

TEST_F(Sentences, ThatNobodyKnowsStayAsTheyAre) {
    EXPECT_EQ(german("Something new has happened, size and all"), text("Something new has happened, size and all"));
    EXPECT_EQ(german("Cannot read \"a\": something new"), text("„a“ lässt sich nicht lesen: something new"));
    EXPECT_EQ(german(""), QString());
}

TEST_F(Sentences, InEnglishAreWhatWasSaid) {
    for (const char* const form : Dialog::SENTENCE_FORMS)
        EXPECT_EQ(Sentence::translated(text(form)), text(form));
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
    openClip();
    saveAs(place / "film.wav");
    const QString problem = find<QLabel>("problemLabel").text();
    EXPECT_TRUE(problem.contains(text(".wav"))) << problem.toStdString();
    EXPECT_FALSE(problem.contains(text("preset"))) << problem.toStdString();
    saveAs(place / "nowhere/film.mp4");
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
