// SPDX-License-Identifier: GPL-3.0-or-later
// What stands on standard error, whoever says it.
#include "Program.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include <QFileInfo>
#include <QJsonArray>
#include <QProcess>
#include <QRegularExpression>
#include <gtest/gtest.h>
#include <sys/stat.h>

using TestCli::Program;
using TestCli::Result;
using TestCli::run;

namespace {

class Messages : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        folder = new TestMedia::Folder;
        TestMedia::FlashBeep media;
        media.frames = 25;
        TestMedia::makeFlashBeep(*folder / "clip.mov", media);
    }
    static void TearDownTestSuite() { delete folder; }

    static void expectObjects(const Result& result) {
        const QStringList lines = result.errorLines();
        EXPECT_FALSE(lines.isEmpty());
        const QList<QJsonObject> objects = TestCli::jsonLines(result.errors);
        for (int i = 0; i < lines.size(); ++i)
            EXPECT_TRUE(objects[i].contains(QStringLiteral("type"))) << lines[i].toStdString();
    }
    static Result runBehind(const std::vector<std::string>& arguments, const QString& redirection) {
        Program program(arguments);
        program.setWrapper({QStringLiteral("sh"), QStringLiteral("-c"),
                            QStringLiteral("exec \"$@\" %1").arg(redirection), QStringLiteral("sh")});
        return program.run();
    }

    static TestMedia::Folder* folder;
    const std::string clip = *folder / "clip.mov";
    const TestMedia::Folder place;
};

TestMedia::Folder* Messages::folder = nullptr;

TEST_F(Messages, AreObjectsEvenWhereTheUsageIsWrong) {
    for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
             {"render", "--progress", "json"},
             {"render", clip, "--progress=json", "--nonsense"},
             {"render", clip, "-p", "mp4-h264-480p", "-o", place / "a.mp4", "--in", "soon", "--progress", "json"},
             {"rendr", "--progress", "json"}}) {
        const Result result = run(arguments);
        EXPECT_EQ(result.code, 2);
        EXPECT_EQ(result.errorLines().size(), 1) << result.errors.toStdString();
        expectObjects(result);
    }
}

TEST_F(Messages, OfEveryLibraryAreObjects) {
    for (const char* preset : {"mp4-h264-480p", "mp4-hevc-1080p", "webm-vp9-1080p", "mkv-ffv1-flac"}) {
        Program program({"render", clip, "-p", preset, "-o", place / preset, "--progress", "json", "-v"});
        program.setEnvironment("SVT_LOG", "");
        const Result result = program.run();
        EXPECT_GT(result.errorLines().size(), 5) << preset;
        expectObjects(result);
    }
}

TEST_F(Messages, OfAnEncoderThatTheEnvironmentMakesTalkAreObjects) {
    Program program({"render", clip, "-p", "mp4-av1-1080p-hdr", "-o", place / "film.mp4", "--progress", "json"});
    program.setEnvironment("SVT_LOG", "4");
    const Result result = program.run();
    EXPECT_EQ(result.code, 0) << result.errors.toStdString();
    expectObjects(result);
}

TEST_F(Messages, OfLibrariesAreNotHeardUnlessAskedFor) {
    for (const char* preset : {"mp4-h264-480p", "mp4-hevc-1080p", "webm-vp9-1080p", "mkv-ffv1-flac"}) {
        const Result result = run({"render", clip, "-p", preset, "-o", place / preset, "--progress", "none"});
        EXPECT_TRUE(result.errors.isEmpty()) << preset << ": " << result.errors.toStdString();
    }
}

TEST_F(Messages, HaveEnglishNumbersInEveryLocale) {
    const QString locales = QString::fromStdString(place / "");
    const QString name = QStringLiteral("de_DE.UTF-8");
    QProcess::execute(QStringLiteral("localedef"), {QStringLiteral("-i"), QStringLiteral("de_DE"), QStringLiteral("-f"),
                                                    QStringLiteral("UTF-8"), locales + name});
    if (!QFileInfo::exists(locales + name + QStringLiteral("/LC_NUMERIC")))
        GTEST_SKIP() << "no locale can be made here";
    Program program({"render", clip, "-p", "mp4-h264-480p", "-o", place / "film.mp4", "--progress", "bar"});
    program.setEnvironment("LOCPATH", place / "");
    program.setEnvironment("LC_ALL", name.toStdString());
    const Result result = program.run();
    EXPECT_TRUE(result.output.contains(QRegularExpression(QStringLiteral("made in \\d+\\.\\d s \\(\\d+\\.\\d\\dx\\)"))))
        << result.output.toStdString();
    EXPECT_FALSE(result.errors.contains(QRegularExpression(QStringLiteral("\\d,\\d")))) << result.errors.toStdString();
}

TEST_F(Messages, OfHelpThatCannotBeWrittenAreAFailure) {
    for (const char* redirection : {">/dev/full", ">&-"})
        for (const std::vector<std::string>& arguments :
             std::vector<std::vector<std::string>>{{"--help"}, {"render", "--help"}, {"--version"}, {"presets"}}) {
            const Result result = runBehind(arguments, QString::fromUtf8(redirection));
            EXPECT_EQ(result.code, 1) << redirection << ' ' << arguments.front();
            EXPECT_EQ(result.errorLines().size(), 1) << result.errors.toStdString();
        }
}

TEST_F(Messages, TellEveryNameOnOneLineAndAsItIs) {
    const std::string name = place / "a  b\tc\nd\xC2\x85"
                                     "e\xE2\x80\xAE"
                                     "f.mov";
    const QString told = QStringLiteral("a  b\\tc\\nd\\u{0085}e\\u{202e}f.mov");
    const Result missing = run({"render", name, "-p", "mp4-h264-480p", "-o", place / "film.mp4"});
    const QByteArray whole = TestFiles::read(clip);
    TestFiles::write(name, whole.left(whole.size() / 2));
    const Result broken = run({"render", name, "-p", "mp4-h264-480p", "-o", place / "film.mp4"});
    const Result info = run({"info", name});
    for (const Result& result : {missing, broken, info}) {
        EXPECT_EQ(result.code, 2);
        EXPECT_EQ(result.errorLines().size(), 1) << result.errors.toStdString();
        EXPECT_TRUE(result.errors.contains(told)) << result.errors.toStdString();
    }
    TestFiles::write(name, whole);
    const QString listed = run({"info", "--json", name}).output;
    EXPECT_TRUE(listed.contains(QStringLiteral("\\u0085e\\u202ef.mov"))) << listed.toStdString();
    EXPECT_FALSE(listed.contains(QChar(0x85)) || listed.contains(QChar(0x202E)));
    EXPECT_TRUE(TestCli::jsonLines(listed).at(0).size() > 0);
    const Result done = run({"render", name, "-p", "mp4-h264-480p", "-o", name + ".mp4", "--progress", "none"});
    EXPECT_EQ(done.code, 0) << done.errors.toStdString();
    EXPECT_EQ(done.output.count(QLatin1Char('\n')), 1);
    EXPECT_TRUE(done.output.contains(told)) << done.output.toStdString();
}

TEST_F(Messages, NameOnceWhatIsLeftOut) {
    TestFiles::write(place / "words.srt", "1\n00:00:00,000 --> 00:00:01,000\nWords\n");
    TestFiles::write(place / "tags", ";FFMETADATA1\ntitle=A film\n[CHAPTER]\nTIMEBASE=1/10\nSTART=0\nEND=5\ntitle=One\n"
                                     "[CHAPTER]\nTIMEBASE=1/10\nSTART=5\nEND=10\ntitle=Two\n");
    const std::string film = place / "film.mkv";
    TestMedia::runFfmpeg({"-i",
                          clip,
                          "-i",
                          place / "words.srt",
                          "-i",
                          place / "tags",
                          "-map",
                          "0:v",
                          "-map",
                          "0:a",
                          "-map",
                          "0:a",
                          "-map",
                          "1",
                          "-map_metadata",
                          "2",
                          "-metadata:s:a:1",
                          "language=eng",
                          "-c:s",
                          "subrip",
                          film});
    const QString note = QStringLiteral("editor-export: note: \"%1\": left out: 1 sound track (2, eng)\n")
                             .arg(QString::fromStdString(film));
    const Result result =
        run({"render", film, film, "-p", "mp4-h264-480p", "-o", place / "a.mp4", "--progress", "none"});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.errors.toStdString(), note.toStdString());
    const Result plain = run({"render", clip, "-p", "mp4-h264-480p", "-o", place / "b.mp4", "--progress", "none"});
    EXPECT_TRUE(plain.errors.isEmpty()) << plain.errors.toStdString();
}

TEST_F(Messages, HaveTheFileThatTheyAreAboutBesideThem) {
    const std::string odd = place / "two  blanks\tand \"quotes\".mov";
    const QString oddName = QString::fromStdString(odd);
    const auto last = [&](const std::string& input, const std::string& output) {
        const Result result = run({"render", input, "-p", "mp4-h264-480p", "-o", output, "--progress", "json"});
        return TestCli::jsonLines(result.errors).last();
    };
    EXPECT_EQ(last(odd, place / "a.mp4")[QStringLiteral("path")].toString(), oddName) << "an input that is missing";
    TestFiles::write(odd, "no media");
    EXPECT_EQ(last(odd, place / "a.mp4")[QStringLiteral("path")].toString(), oddName) << "an input that is none";
    const std::string nowhere = place / "none/a.mp4";
    EXPECT_EQ(last(clip, nowhere)[QStringLiteral("path")].toString(), QString::fromStdString(nowhere));
    EXPECT_FALSE(last(clip, place / "b.mp4").contains(QStringLiteral("path")));
    TestMedia::runFfmpeg({"-i", clip, "-i", clip, "-map", "0", "-map", "1:a", "-c", "copy", "-f", "mov", odd});
    const QJsonObject note = last(odd, place / "c.mp4")[QStringLiteral("notes")].toArray().at(0).toObject();
    EXPECT_TRUE(note[QStringLiteral("message")].toString().contains(QStringLiteral("left out")));
    EXPECT_EQ(note[QStringLiteral("path")].toString(), oddName);
}

TEST_F(Messages, OfInfoHaveTheFileThatTheyAreAboutBesideThem) {
    const std::string odd = place / "two  blanks\tand \"quotes\".mov";
    TestFiles::write(odd, "no media");
    for (const std::string& bad : {odd, std::string(place / "none.mp4")}) {
        const Result result = run({"info", clip, bad, "--json"});
        EXPECT_EQ(result.code, 2);
        EXPECT_TRUE(result.output.isEmpty()) << result.output.toStdString();
        const auto lines = TestCli::jsonLines(result.errors);
        ASSERT_EQ(lines.size(), 1) << result.errors.toStdString();
        EXPECT_EQ(lines[0][QStringLiteral("type")].toString(), QStringLiteral("refused"));
        EXPECT_EQ(lines[0][QStringLiteral("path")].toString(), QString::fromStdString(bad));
    }
}

} // namespace
