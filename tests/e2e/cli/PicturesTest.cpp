// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures that are files of their own, as people order them.
#include "Program.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include "support/MediaProbe.h"
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/stat.h>

using TestCli::Program;
using TestCli::Result;
using TestCli::run;

namespace {

class Pictures : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        folder = new TestMedia::Folder;
        TestMedia::FlashBeep media;
        media.frames = 10;
        TestMedia::makeFlashBeep(*folder / "clip.mov", media);
        media.width = 1280;
        media.height = 720;
        media.frames = 500;
        TestMedia::makeFlashBeep(*folder / "long.mov", media);
    }
    static void TearDownTestSuite() { delete folder; }

    QString all(const std::string& where) const { return TestFiles::namesIn(where).join(QLatin1Char(' ')); }
    void makeFrames() const { ASSERT_EQ(mkdir(frames.c_str(), 0755), 0); }

    static TestMedia::Folder* folder;
    const std::string clip = *folder / "clip.mov";
    const TestMedia::Folder place;
    const std::string frames = place / "frames";
};

TestMedia::Folder* Pictures::folder = nullptr;

TEST_F(Pictures, GoIntoAFolderOrGetTheNamesThatWereWished) {
    const Result one = run({clip, frames + "/", "-p", "png-sequence", "--progress", "none"});
    EXPECT_EQ(one.code, 0) << one.errors.toStdString();
    EXPECT_TRUE(one.output.contains(QStringLiteral("png 320x180, 10 frames, frame_00000.png to frame_00009.png")))
        << one.output.toStdString();
    EXPECT_TRUE(one.errors.contains(QStringLiteral("left out: 1 sound track (1)"))) << one.errors.toStdString();
    const Result two = run({clip, frames + "/shot_%03d.jpg", "--progress", "none"});
    EXPECT_EQ(two.code, 0) << two.errors.toStdString();
    EXPECT_TRUE(two.errors.contains(QStringLiteral("The preset is jpeg-sequence, the default for .jpg")));
    EXPECT_EQ(TestFiles::namesIn(frames).size(), 20);
    EXPECT_EQ(TestMedia::probe(frames + "/shot_009.jpg").video->pixelFormat, "yuvj420p");
    const Result three = run({"render", clip, clip, "-p", "jpeg-sequence", frames}); // a folder is no input
    EXPECT_EQ(three.code, 0) << three.errors.toStdString();
    EXPECT_EQ(TestFiles::namesIn(frames).filter(QStringLiteral("frame_000")).size(), 30);
}

TEST_F(Pictures, AreRefusedWhereOneFileIsMeantOrTheyAreThereAlready) {
    const Result file = run({clip, place / "out.png"});
    EXPECT_EQ(file.code, 2);
    EXPECT_TRUE(file.errors.contains(QStringLiteral("out_%05d.png"))) << file.errors.toStdString();
    makeFrames();
    TestFiles::write(frames + "/frame_00003.png", "old");
    const Result there = run({clip, "-p", "png-sequence", "-o", frames});
    EXPECT_EQ(there.code, 2);
    EXPECT_TRUE(there.errors.contains(QStringLiteral("frame_00003.png"))) << there.errors.toStdString();
    EXPECT_EQ(TestFiles::read(frames + "/frame_00003.png"), "old");
    EXPECT_EQ(TestFiles::namesIn(place / "").size(), 1);
}

TEST_F(Pictures, AreListedInTheResultAndInTheReport) {
    const Result result = run({clip, frames, "-p", "png-sequence", "--json", "--report", place / "report.json"});
    ASSERT_EQ(result.code, 0) << result.errors.toStdString();
    const QJsonObject report = QJsonDocument::fromJson(TestFiles::read(place / "report.json")).object();
    const QString member = QStringLiteral("pictures");
    for (const QJsonObject& told : {TestCli::jsonLines(result.output).at(0).value(member).toObject(),
                                    report.value(QStringLiteral("file")).toObject().value(member).toObject()}) {
        EXPECT_EQ(told.value(QStringLiteral("first")).toString().toStdString(), frames + "/frame_00000.png");
        EXPECT_EQ(told.value(QStringLiteral("last")).toString().toStdString(), frames + "/frame_00009.png");
        EXPECT_EQ(told.value(QStringLiteral("count")).toInt(), 10);
    }
}

TEST_F(Pictures, OfEachInputHaveAFolderOfTheirOwn) {
    makeFrames();
    const Result result = run({"render", clip, "--each", "-p", "png-sequence", "-o", frames, "--progress", "none"});
    EXPECT_EQ(result.code, 0) << result.errors.toStdString();
    EXPECT_EQ(all(frames).toStdString(), "clip");
    EXPECT_EQ(TestFiles::namesIn(frames + "/clip").size(), 10);
}

TEST_F(Pictures, OfAQueueAreNotMadeAgain) {
    TestFiles::write(place / "jobs.json",
                     "{\"queue\": 1, \"jobs\": [{\"inputs\": [\"" + QByteArray::fromStdString(clip) +
                         "\"], \"output\": \"frames/a_%03d.png\"}, {\"inputs\": [\"" + QByteArray::fromStdString(clip) +
                         "\"], \"output\": \"more\", \"preset\": \"jpeg-sequence\"}]}");
    makeFrames();
    EXPECT_EQ(run({"queue", place / "jobs.json", "-q"}).code, 0);
    const Result again = run({"queue", place / "jobs.json"});
    EXPECT_EQ(again.code, 0) << again.errors.toStdString();
    EXPECT_TRUE(again.output.contains(QStringLiteral("2 "))) << again.output.toStdString();
    TestFiles::write(frames + "/a_004.png", "changed");
    EXPECT_EQ(run({"queue", place / "jobs.json", "-q"}).code, 1) << "it would have to be replaced";
    EXPECT_EQ(TestFiles::read(frames + "/a_004.png"), "changed");
}

TEST_F(Pictures, AFullDiskIsNamedAndCostsNothing) {
    makeFrames();
    for (const std::string& output : {frames, place / "new"}) {
        TestFiles::write(frames + "/frame_00000.png", "old");
        for (const qint64 room : {qint64(0), qint64(100)}) {
            Program program({"render", clip, "-p", "png-sequence", "-o", output, "--overwrite", "--progress", "none"});
            // ThreadSanitizer writes a file of its own there before the program begins.
            program.setEnvironment("TEST_TMPDIR", "/nowhere");
            program.setWrapper({QStringLiteral("prlimit"), QStringLiteral("--fsize=%1").arg(room)});
            const Result result = program.run();
            EXPECT_EQ(result.code, 1) << result.errors.toStdString();
            EXPECT_TRUE(result.errors.contains(QString::fromStdString('"' + output + "/frame_00000.png\"")))
                << result.errors.toStdString();
            EXPECT_EQ(TestFiles::read(frames + "/frame_00000.png"), "old");
            EXPECT_EQ(all(frames).toStdString(), "frame_00000.png");
            EXPECT_EQ(all(place / "").toStdString(), "frames");
        }
    }
}

TEST_F(Pictures, AFullFileSystemIsNamed) {
    const std::string mountPoint = place / "small";
    const QString script =
        QStringLiteral("mkdir -p '%1' && mount -t tmpfs -o size=64k none '%1' || exit 77; shift; \"$@\"; code=$?; "
                       "test -z \"$(ls -A '%1')\" || exit 88; exit $code")
            .arg(QString::fromStdString(mountPoint));
    Program program(
        {"render", *folder / "long.mov", "-p", "png-sequence", "-o", mountPoint + "/frames", "--progress", "none"});
    program.setWrapper({QStringLiteral("unshare"), QStringLiteral("-m"), QStringLiteral("sh"), QStringLiteral("-c"),
                        script, QStringLiteral("sh"), QStringLiteral("-")});
    const Result result = program.run();
    if (result.code == 77 || result.errors.contains(QStringLiteral("unshare")))
        GTEST_SKIP() << "no right to mount: " << result.errors.toStdString();
    EXPECT_EQ(result.code, 1) << result.errors.toStdString();
    EXPECT_TRUE(result.errors.contains(QStringLiteral("disk full"))) << result.errors.toStdString();
}

TEST_F(Pictures, ASignalLeavesNothingAndWhatAKilledRunLeftGoesWithTheNext) {
    makeFrames();
    TestFiles::write(frames + "/notes.txt", "mine");
    for (const int number : {SIGTERM, SIGKILL}) {
        Program program({"render", *folder / "long.mov", "-p", "png-sequence", "-o", frames, "--progress", "json"});
        program.start();
        ASSERT_TRUE(program.waitForError(QStringLiteral("progress")));
        program.signal(number);
        program.finish();
        EXPECT_EQ(TestFiles::namesIn(frames).size(), number == SIGKILL ? 2 : 1);
    }
    const Result result = run({"render", clip, "-p", "png-sequence", "-o", frames + "/a_%d.png"});
    EXPECT_EQ(result.code, 0) << result.errors.toStdString();
    EXPECT_EQ(all(frames).toStdString(),
              "a_0.png a_1.png a_2.png a_3.png a_4.png a_5.png a_6.png a_7.png a_8.png a_9.png notes.txt");
}

} // namespace
