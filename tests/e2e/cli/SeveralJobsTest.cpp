// SPDX-License-Identifier: GPL-3.0-or-later
// Several exports of one command line: "--each" and "queue".
#include "TimelineFixture.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

using TestCli::Program;
using TestCli::Result;
using TestCli::run;

namespace {

QString name(const char* text) {
    return QString::fromUtf8(text);
}

class SeveralJobs : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        folder = new TestMedia::Folder;
        TestMedia::FlashBeep media;
        media.frames = 10;
        media.samples = 48'000 / 25 * 10;
        for (const char* clip : {"one.mov", "two.mov", "three.mov"})
            TestMedia::makeFlashBeep(*folder / clip, media);
    }
    static void TearDownTestSuite() { delete folder; }

    static QJsonObject job(const std::string& input, const std::string& output) {
        return {{name("inputs"), QJsonArray{QString::fromStdString(input)}},
                {name("output"), QString::fromStdString(output)},
                {name("preset"), name("mp4-h264-480p")}};
    }
    QJsonObject job(const char* clip) const { return job(*folder / clip, place / (std::string(clip) + ".mp4")); }
    void writeQueue(const QJsonArray& jobs) const {
        TestFiles::write(queue, QJsonDocument(QJsonObject{{name("queue"), 1}, {name("jobs"), jobs}}).toJson());
    }
    bool stands(const char* file) const { return QFileInfo::exists(QString::fromStdString(place / file)); }
    QDateTime changed(const char* file) const { return QFileInfo(QString::fromStdString(place / file)).lastModified(); }

    static TestMedia::Folder* folder;
    const TestMedia::Folder place;
    const std::string queue = place / "jobs.json";
};

TestMedia::Folder* SeveralJobs::folder = nullptr;

TEST_F(SeveralJobs, OfAQueueAreRunOneAfterTheOtherAndTheOneWithAnErrorIsNamed) {
    writeQueue({job("one.mov"), job("two.mov"), job(*folder / "missing.mov", place / "no.mp4"), job("three.mov")});
    const Result result = run({"queue", queue});
    EXPECT_EQ(result.code, 1);
    for (const char* file : {"one.mov.mp4", "two.mov.mp4", "three.mov.mp4"})
        EXPECT_TRUE(stands(file)) << file;
    EXPECT_TRUE(
        result.errors.contains(name("job 3 of 4, \"") + QString::fromStdString(place / "no.mp4") + name("\": failed")))
        << result.errors.toStdString();
    EXPECT_TRUE(result.output.endsWith(name("4 jobs: 3 done, 1 failed (number 3)\n"))) << result.output.toStdString();
}

TEST_F(SeveralJobs, OfAQueueThatAreDoneAreNotDoneAgain) {
    writeQueue({job("one.mov"), job("two.mov")});
    ASSERT_EQ(run({"queue", queue}).code, 0);
    const QDateTime first = changed("one.mov.mp4");
    QFile::remove(QString::fromStdString(place / "two.mov.mp4"));
    writeQueue({job("three.mov"), job("one.mov"), job("two.mov")});
    const Result result = run({"queue", queue});
    EXPECT_EQ(result.code, 0) << result.errors.toStdString();
    EXPECT_EQ(changed("one.mov.mp4"), first);
    EXPECT_TRUE(stands("two.mov.mp4")) << "it had gone";
    EXPECT_TRUE(result.output.endsWith(name("3 jobs: 2 done, 1 done before\n"))) << result.output.toStdString();
}

TEST_F(SeveralJobs, OfAQueueThatWereChangedAreNotTakenForDone) {
    writeQueue({job("one.mov")});
    ASSERT_EQ(run({"queue", queue}).code, 0);
    TestFiles::write(place / "one.mov.mp4", "another");
    EXPECT_EQ(run({"queue", queue}).code, 1) << "another file is not replaced without a word";
    EXPECT_EQ(TestFiles::read(place / "one.mov.mp4"), "another");
    QJsonObject again = job("one.mov");
    again.insert(name("overwrite"), true);
    writeQueue({again});
    EXPECT_EQ(run({"queue", queue}).code, 0);
}

TEST_F(SeveralJobs, OfAQueueTakeTheOptionsOfRender) {
    QJsonObject first = job("one.mov");
    first.insert(name("set"), QJsonArray{name("bitrate=300k"), name("size=64x64")});
    first.insert(name("out"), name("5f"));
    first.insert(name("report"), QString::fromStdString(place / "report.json"));
    QJsonObject wrong = job("two.mov");
    wrong.insert(name("prest"), name("x"));
    QJsonObject alsoWrong = job("three.mov");
    alsoWrong.insert(name("in"), name("soon"));
    writeQueue({first, wrong, alsoWrong});
    const Result result = run({"queue", queue});
    EXPECT_EQ(result.code, 1);
    EXPECT_TRUE(result.errors.contains(name("\"prest\": a job has no such member; did you mean preset")))
        << result.errors.toStdString();
    EXPECT_TRUE(result.errors.contains(name("\"soon\" is no time"))) << result.errors.toStdString();
    const QJsonObject report = QJsonDocument::fromJson(TestFiles::read(place / "report.json")).object();
    const QJsonObject picture =
        report.value(name("file")).toObject().value(name("streams")).toArray().first().toObject();
    EXPECT_EQ(picture.value(name("packets")).toInt(), 5);
    EXPECT_EQ(picture.value(name("width")).toInt(), 64);
}

TEST_F(SeveralJobs, OfAQueueCountNamesFromWhereItStands) {
    QFile::copy(QString::fromStdString(*folder / "one.mov"), QString::fromStdString(place / "-odd name.mov"));
    writeQueue({job("-odd name.mov", "film.mp4")});
    const Result result = run({"queue", queue});
    EXPECT_EQ(result.code, 0) << result.errors.toStdString();
    EXPECT_TRUE(stands("film.mp4"));
}

TEST_F(SeveralJobs, OfAQueueAreObjectsInJson) {
    writeQueue({job("one.mov"), job(*folder / "missing.mov", place / "no.mp4")});
    const Result result = run({"queue", queue, "--progress", "json"});
    QStringList statuses;
    for (const QJsonObject& object : TestCli::jsonLines(result.errors)) {
        EXPECT_FALSE(object.isEmpty()) << result.errors.toStdString();
        if (object.value(name("type")).toString() == name("job"))
            statuses << object.value(name("status")).toString();
    }
    EXPECT_EQ(statuses, QStringList({name("begun"), name("begun"), name("failed")}));
    EXPECT_EQ(TestCli::jsonLines(result.output).size(), 1) << "the file that was made";
}

TEST_F(SeveralJobs, OfAQueueThatIsNoneAreRefusedWithTheReason) {
    const std::pair<const char*, const char*> bad[] = {
        {"", "illegal value"},
        {"{\n\"queue\": 1,\n\"jobs\" []}", "line 3"},
        {"[]", "\"queue\" is not 1"},
        {R"({"queue": 2, "jobs": [{}]})", "\"queue\" is not 1"},
        {R"({"queue": 1})", "\"jobs\" is no list of jobs"},
        {R"({"queue": 1, "jobs": [], "more": 1})", "\"more\" is no member"},
        {R"({"queue": 1, "jobs": "all"})", "\"jobs\" is no list of jobs"}};
    for (const auto& [text, reason] : bad) {
        TestFiles::write(queue, text);
        const Result result = run({"queue", queue});
        EXPECT_EQ(result.code, 2) << text;
        EXPECT_TRUE(result.errors.contains(name(reason))) << result.errors.toStdString();
    }
    EXPECT_EQ(run({"queue", place / "nothing.json"}).code, 2);
    EXPECT_EQ(run({"queue", place / ""}).code, 2);
}

TEST_F(SeveralJobs, OfAQueueThatHaveNoFormAreNamed) {
    writeQueue(
        {QJsonValue(3), QJsonObject{}, QJsonObject{{name("inputs"), QJsonArray{QJsonObject{}}}}, job("one.mov")});
    const Result result = run({"queue", queue});
    EXPECT_EQ(result.code, 1);
    for (const char* reason : {"an object is expected", "\"inputs\" names no file", "a text or a number is expected"})
        EXPECT_TRUE(result.errors.contains(name(reason))) << reason << result.errors.toStdString();
    EXPECT_TRUE(stands("one.mov.mp4"));
}

TEST_F(SeveralJobs, OfAQueueAreOneProcessAtATime) {
    writeQueue({job("one.mov")});
    QFile held(QString::fromStdString(queue));
    ASSERT_TRUE(held.open(QIODevice::ReadOnly));
    ASSERT_EQ(::flock(held.handle(), LOCK_EX), 0);
    const Result result = run({"queue", queue});
    EXPECT_EQ(result.code, 2);
    EXPECT_TRUE(result.errors.contains(name("another process is running it"))) << result.errors.toStdString();
}

TEST_F(SeveralJobs, OfAQueueWhoseStateIsBrokenAreRefusedWithAWayOut) {
    writeQueue({job("one.mov")});
    TestFiles::write(queue + ".state", "{");
    const Result result = run({"queue", queue});
    EXPECT_EQ(result.code, 2);
    EXPECT_TRUE(result.errors.contains(name("without that file all jobs are begun anew")))
        << result.errors.toStdString();
}

TEST_F(SeveralJobs, OfEachInputGoIntoAFolder) {
    const Result result =
        run({"render", *folder / "one.mov", *folder / "two.mov", "--each", "-p", "m4a-aac", "-o", place / ""});
    EXPECT_EQ(result.code, 0) << result.errors.toStdString();
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList({name("one.m4a"), name("two.m4a")}));
}

TEST_F(SeveralJobs, OfEachInputGoOnBehindOneThatFails) {
    const Result result =
        run({"render", *folder / "missing.mov", *folder / "two.mov", "--each", "-p", "mp3", "-o", place / ""});
    EXPECT_EQ(result.code, 1);
    EXPECT_TRUE(stands("two.mp3"));
    EXPECT_EQ(run({"render", *folder / "missing.mov", "--each", "-p", "mp3", "-o", place / ""}).code, 2)
        << "nothing was begun";
}

TEST_F(SeveralJobs, OfEachInputNeedAFolderAPresetAndNamesOfTheirOwn) {
    const std::string clip = *folder / "one.mov";
    const auto refusal = [&](const std::vector<std::string>& arguments) {
        const Result result = run(arguments);
        EXPECT_EQ(result.code, 2);
        return result.errors.toStdString();
    };
    EXPECT_NE(refusal({"render", clip, "--each", "-p", "mp3", "-o", place / "no"}).find("make it first"),
              std::string::npos);
    EXPECT_NE(refusal({"render", clip, "--each", "-p", "mp3", "-o", clip}).find("that is none"), std::string::npos);
    EXPECT_NE(refusal({"render", clip, "--each", "-o", place / ""}).find("Name a preset"), std::string::npos);
    EXPECT_NE(refusal({"render", clip, clip, "--each", "-p", "mp3", "-o", place / ""}).find("would both become"),
              std::string::npos);
    EXPECT_NE(refusal({"render", clip, place / "", "--each", "-p", "mp3"}).find("name it with --output"),
              std::string::npos);
    EXPECT_NE(refusal({"render", clip, "--each", "-p", "mp3", "-o", place / "", "--report", place / "r"})
                  .find("about one export"),
              std::string::npos);
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList());
}

TEST_F(SeveralJobs, OfAQueueEndWithASignalAndAreTakenUpAgain) {
    TestMedia::FlashBeep media;
    media.frames = 2000;
    media.width = 640;
    media.height = 360;
    TestMedia::makeFlashBeep(*folder / "long.mov", media);
    writeQueue({job("one.mov"), job("long.mov"), job("two.mov")});
    Program program({"queue", queue, "--progress", "json"});
    program.start();
    ASSERT_TRUE(program.waitForError(name("\"number\":2")));
    ASSERT_TRUE(program.waitUntil([&] { return TestFiles::namesIn(place / "").size() > 3; })) << "its unfinished file";
    program.signal(SIGINT);
    EXPECT_EQ(program.finish().code, 130);
    EXPECT_EQ(TestFiles::namesIn(place / ""),
              QStringList({name("jobs.json"), name("jobs.json.state"), name("one.mov.mp4")}));
    writeQueue({job("one.mov"), job("two.mov")});
    const Result result = run({"queue", queue});
    EXPECT_TRUE(result.output.endsWith(name("2 jobs: 1 done, 1 done before\n"))) << result.output.toStdString();
}

TEST_F(SeveralJobs, OfAQueueAreDoneEvenWhereTheirReportsAreNot) {
    TestMedia::FlashBeep media;
    media.frames = 1000;
    media.width = 640;
    media.height = 360;
    TestMedia::makeFlashBeep(place / "long.mov", media);
    ASSERT_TRUE(QDir().mkdir(QString::fromStdString(place / "reports")));
    QJsonObject one = job(place / "long.mov", place / "film.mp4");
    one.insert(name("report"), QString::fromStdString(place / "reports/film.json"));
    writeQueue({one});
    Program program({"queue", queue, "--progress", "json"});
    program.start();
    ASSERT_TRUE(program.waitUntil([&] { return TestFiles::namesIn(place / "").size() > 3; })) << "its unfinished file";
    ASSERT_TRUE(QDir().rmdir(QString::fromStdString(place / "reports")));
    const Result result = program.finish();
    EXPECT_EQ(result.code, 1);
    EXPECT_TRUE(result.errors.contains(name("cannot write the report"))) << result.errors.toStdString();
    ASSERT_TRUE(stands("film.mp4"));
    ASSERT_TRUE(QDir().mkdir(QString::fromStdString(place / "reports")));
    const Result again = run({"queue", queue});
    EXPECT_EQ(again.code, 0) << again.errors.toStdString();
    EXPECT_TRUE(again.output.endsWith(name("1 job: 0 done, 1 done before\n"))) << again.output.toStdString();
}

TEST_F(SeveralJobs, OfAQueueAreNotDoneBeforeWhereTheirInputsHaveChanged) {
    TestMedia::FlashBeep media;
    media.frames = 5;
    media.samples = 48'000 / 25 * 5;
    const std::string medium = place / "medium.mov";
    TestMedia::makeFlashBeep(medium, media);
    TestFiles::write(
        place / "cut.otio",
        QByteArray::fromStdString(R"({"OTIO_SCHEMA":"Timeline.1","tracks":{"OTIO_SCHEMA":"Stack.1","children":[)"
                                  R"({"OTIO_SCHEMA":"Track.1","kind":"Video","children":[)" +
                                  TestCli::clipOf("one", "medium.mov", 0, 5) + "]}]}}"));
    writeQueue({job("medium.mov", "film.mp4"), job("cut.otio", "cut.mp4"), job("one.mov")});
    ASSERT_EQ(run({"queue", queue}).code, 0);
    media.frames = 10;
    media.samples = 48'000 / 25 * 10;
    TestMedia::makeFlashBeep(medium, media);
    const Result refused = run({"queue", queue});
    EXPECT_EQ(refused.code, 1) << "nothing is replaced without a word";
    EXPECT_TRUE(refused.output.endsWith(name("3 jobs: 0 done, 1 done before, 2 failed (number 1 and 2)\n")))
        << refused.output.toStdString();
    EXPECT_TRUE(refused.errors.contains(name("\"film.mp4\" is of before its inputs were changed")))
        << refused.errors.toStdString();
    for (const char* const file : {"film.mp4", "cut.mp4"})
        QFile::remove(QString::fromStdString(place / file));
    const Result result = run({"queue", queue});
    EXPECT_TRUE(result.output.contains(name("10 frames"))) << result.output.toStdString();
    EXPECT_TRUE(result.output.endsWith(name("3 jobs: 2 done, 1 done before\n"))) << result.output.toStdString();
}

TEST_F(SeveralJobs, OfAQueueHaveFilesOfTheirOwn) {
    QJsonObject first = job(*folder / "one.mov", "film.mp4"), second = job(*folder / "two.mov", "./film.mp4");
    second.insert(name("overwrite"), true);
    QJsonObject third = job(*folder / "three.mov", "other.mp4");
    third.insert(name("report"), QString::fromStdString(place / "film.mp4"));
    third.insert(name("overwrite"), true);
    writeQueue({first, second, third});
    const Result result = run({"queue", queue});
    EXPECT_EQ(result.code, 1);
    EXPECT_TRUE(result.output.endsWith(name("3 jobs: 1 done, 2 failed (number 2 and 3)\n")))
        << result.output.toStdString();
    EXPECT_TRUE(result.errors.contains(name("Job 2 writes a file that job 1 writes, too")))
        << result.errors.toStdString();
    EXPECT_TRUE(result.errors.contains(name("Job 3 writes a file that job 1 writes, too")))
        << result.errors.toStdString();
}

TEST_F(SeveralJobs, OfAQueueWriteNeitherItsFilesNorWhatOthersRead) {
    const auto with = [this](QJsonObject one, const char* member, const std::string& path) {
        one.insert(name(member), QString::fromStdString(path));
        one.insert(name("overwrite"), true);
        return one;
    };
    const std::string read = place / "read.mov";
    ASSERT_TRUE(QFile::copy(QString::fromStdString(*folder / "one.mov"), QString::fromStdString(read)));
    const QByteArray before = TestFiles::read(read);
    writeQueue({with(job("one.mov"), "report", queue), with(job("two.mov"), "report", queue + ".state"),
                with(job("two.mov"), "output", queue), with(job("three.mov"), "output", place / "./jobs.json.state"),
                with(job("three.mov"), "report", read), job(read, place / "last.mp4")});
    const QByteArray jobs = TestFiles::read(queue);
    const Result result = run({"queue", queue});
    EXPECT_TRUE(result.output.endsWith(name("6 jobs: 1 done, 5 failed (number 1, 2, 3, 4 and 5)\n")))
        << result.output.toStdString() << result.errors.toStdString();
    EXPECT_EQ(result.errors.count(name("writes the queue's own file")), 4);
    EXPECT_TRUE(result.errors.contains(name("Job 5 writes its report to what job 6 reads")));
    EXPECT_EQ(TestFiles::read(queue), jobs);
    EXPECT_EQ(TestFiles::read(read), before);
    EXPECT_TRUE(run({"queue", queue}).errors.contains(name("last.mp4\": done before")));
}

TEST_F(SeveralJobs, OfAQueueWriteNoReportToAMediumOfAnothersTimeline) {
    const std::string medium = place / "medium.mov";
    ASSERT_TRUE(QFile::copy(QString::fromStdString(*folder / "one.mov"), QString::fromStdString(medium)));
    const QByteArray before = TestFiles::read(medium);
    TestFiles::write(
        place / "cut.otio",
        QByteArray::fromStdString(R"({"OTIO_SCHEMA":"Timeline.1","tracks":{"OTIO_SCHEMA":"Stack.1","children":[)"
                                  R"({"OTIO_SCHEMA":"Track.1","kind":"Video","children":[)" +
                                  TestCli::clipOf("one", "medium.mov", 0, 5) + "]}]}}"));
    ASSERT_TRUE(QFile::link(name("medium.mov"), QString::fromStdString(place / "report.json")));
    QJsonObject first = job("one.mov"), second = job("two.mov");
    first.insert(name("report"), name("medium.mov"));
    second.insert(name("report"), name("report.json"));
    for (QJsonObject* const one : {&first, &second})
        one->insert(name("overwrite"), true);
    writeQueue({first, second, job("cut.otio", "cut.mp4")});
    const Result result = run({"queue", queue});
    EXPECT_EQ(result.errors.count(name("writes its report to what job 3 reads")), 2) << result.errors.toStdString();
    EXPECT_TRUE(result.output.endsWith(name("3 jobs: 1 done, 2 failed (number 1 and 2)\n")))
        << result.output.toStdString();
    EXPECT_EQ(TestFiles::read(medium), before);
}

TEST_F(SeveralJobs, OfAQueueHaveFoldersOfPicturesOfTheirOwn) {
    const auto pictures = [](const char* output, const char* preset) {
        QJsonObject one = job(*folder / "one.mov", output);
        one.insert(name("preset"), name(preset));
        one.insert(name("overwrite"), true);
        return one;
    };
    QJsonObject reported = job(*folder / "two.mov", "film.mp4");
    reported.insert(name("report"), name("both/frame_00002.png"));
    writeQueue({pictures("usual", "png-sequence"), pictures("./usual/frame_%05d.png", "png-sequence"),
                pictures("told/frame_%05d.png", "png-sequence"), pictures("told/", "png-sequence"),
                pictures("both/frame_%05d.png", "png-sequence"), pictures("both/frame_%05d.jpg", "jpeg-sequence"),
                reported});
    const Result result = run({"queue", queue});
    for (const char* const refusal : {"Job 2 writes a file that job 1 writes, too", "Job 4 writes a file that job 3",
                                      "Job 7 writes a file that job 5 writes, too"})
        EXPECT_TRUE(result.errors.contains(name(refusal))) << refusal << '\n' << result.errors.toStdString();
    EXPECT_TRUE(result.output.endsWith(name("7 jobs: 4 done, 3 failed (number 2, 4 and 7)\n")))
        << result.output.toStdString();
}

TEST_F(SeveralJobs, OfAQueueTakeWhatTheSchemaTakes) {
    QJsonObject list = job("one.mov"), number = job("two.mov"), lists = job("three.mov");
    list.insert(name("output"), QJsonArray{QString::fromStdString(place / "list.mp4")});
    number.insert(name("output"), 5);
    lists.insert(name("preset"), QJsonArray{name("mp4-h264-480p")});
    writeQueue({list, number, lists});
    const Result result = run({"queue", queue});
    EXPECT_EQ(result.code, 1);
    EXPECT_EQ(result.errors.count(name("\"output\": a text is expected")), 2) << result.errors.toStdString();
    EXPECT_TRUE(result.errors.contains(name("\"preset\": one value is expected, no list")))
        << result.errors.toStdString();
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList(name("jobs.json")));
}

TEST_F(SeveralJobs, OfAQueueHaveLimitsOfTheirOwn) {
    QJsonObject large = job("one.mov");
    large.insert(name("max-picture"), 2000);
    writeQueue({large, job("two.mov")});
    Program program({"queue", queue});
    program.setEnvironment("LD_PRELOAD", LIMIT_SHIM);
    program.setEnvironment("LIMIT_SHIM_FILE", place / "limits");
    EXPECT_EQ(program.run().code, 0);
    const QByteArray usual = QByteArray::number(1 << 30) + '\n', larger = QByteArray::number(2 * (2000LL << 20)) + '\n';
    const QByteArray limits = TestFiles::read(place / "limits");
    // The queue's own is heard of where the codecs are loaded before its first job.
    EXPECT_TRUE(limits == usual + larger + usual || limits == larger + usual) << limits.toStdString();
}

TEST_F(SeveralJobs, AreNotWhatTheLogIsKeptIn) {
    const std::string clip = place / "clip.mov";
    ASSERT_TRUE(QFile::copy(QString::fromStdString(*folder / "one.mov"), QString::fromStdString(clip)));
    QJsonObject one = job("clip.mov", "film.mp4");
    one.insert(name("report"), name("report.json"));
    writeQueue({one});
    const QByteArray before = TestFiles::read(clip), jobs = TestFiles::read(queue);
    for (const char* const file : {"clip.mov", "film.mp4", "report.json", "jobs.json", "jobs.json.state"}) {
        const Result result = run({"queue", queue, "--log", place / (std::string("./") + file)});
        EXPECT_EQ(result.code, 2) << file << result.errors.toStdString();
        EXPECT_TRUE(result.errors.contains(name("Cannot keep the log"))) << result.errors.toStdString();
    }
    EXPECT_EQ(run({"render", clip, "--each", "-p", "mp3", "-o", place / "", "--log", place / "clip.mp3"}).code, 2);
    EXPECT_EQ(TestFiles::read(clip), before);
    EXPECT_EQ(TestFiles::read(queue), jobs);
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList({name("clip.mov"), name("jobs.json")}));
}

TEST_F(SeveralJobs, ThatNobodyCanTellHaveNoLog) {
    const std::string clip = place / "clip.mov";
    ASSERT_TRUE(QFile::copy(QString::fromStdString(*folder / "one.mov"), QString::fromStdString(clip)));
    writeQueue({job("clip.mov", "film.mp4")});
    const QByteArray before = TestFiles::read(clip);
    QFile held(QString::fromStdString(queue));
    ASSERT_TRUE(held.open(QIODevice::ReadOnly));
    ASSERT_EQ(::flock(held.handle(), LOCK_EX), 0);
    const Result other = run({"queue", queue, "--log", clip});
    EXPECT_EQ(other.code, 2);
    EXPECT_TRUE(other.errors.contains(name("another process is running it"))) << other.errors.toStdString();
    held.close();
    TestFiles::write(queue + ".state", "{");
    EXPECT_EQ(run({"queue", queue, "--log", clip}).code, 2);
    EXPECT_EQ(TestFiles::read(clip), before) << "it is a job's input";
    const std::string film = place / "clip.mp3";
    TestFiles::write(film, "a song");
    EXPECT_EQ(run({"render", clip, "--each", "-o", place / "", "--log", film}).code, 2) << "no preset";
    EXPECT_EQ(TestFiles::read(film), "a song");
}

} // namespace
