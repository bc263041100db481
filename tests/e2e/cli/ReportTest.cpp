// SPDX-License-Identifier: GPL-3.0-or-later
// What "--report", "--log" and "--quiet" leave.

// GCC sees paths inside valijson on which sizes stay unset, and which its own checks exclude.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

#include "TimelineFixture.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <valijson/adapters/qtjson_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validation_results.hpp>
#include <valijson/validator.hpp>

using TestCli::Program;
using TestCli::Result;
using TestCli::run;

namespace {

QString name(const char* text) {
    return QString::fromUtf8(text);
}

QJsonObject readObject(const std::string& path) {
    return QJsonDocument::fromJson(TestFiles::read(path)).object();
}

/// What is wrong with a document; empty when nothing is.
std::string faultsOf(const QJsonObject& document, const char* schemaName) {
    const QJsonObject text = readObject(std::string(SCHEMA_FOLDER "/") + schemaName);
    EXPECT_FALSE(text.isEmpty()) << schemaName;
    valijson::Schema schema;
    valijson::SchemaParser parser;
    parser.populateSchema(valijson::adapters::QtJsonAdapter(QJsonValue(text)), schema);
    valijson::Validator validator;
    valijson::ValidationResults results;
    validator.validate(schema, valijson::adapters::QtJsonAdapter(QJsonValue(document)), &results);
    std::string faults;
    for (const auto& result : results) {
        for (const std::string& step : result.context)
            faults += step;
        faults += ": " + result.description + '\n';
    }
    return faults;
}

class Reports : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        folder = new TestMedia::Folder;
        TestMedia::FlashBeep media;
        media.frames = 25;
        TestMedia::makeFlashBeep(*folder / "clip.mov", media);
    }
    static void TearDownTestSuite() { delete folder; }

    Result render(std::vector<std::string> more) const {
        std::vector<std::string> arguments{"render", clip, "-p", "mp4-h264-480p", "-o", output};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return run(arguments);
    }
    QJsonObject checkedReport() const {
        const QJsonObject object = readObject(report);
        EXPECT_EQ(faultsOf(object, "report.schema.json"), "") << TestFiles::read(report).toStdString();
        return object;
    }
    static QString statusOf(const QJsonObject& object) {
        return object.value(name("result")).toObject().value(name("status")).toString();
    }

    static TestMedia::Folder* folder;
    const std::string clip = *folder / "clip.mov";
    const TestMedia::Folder place;
    const std::string output = place / "film.mp4";
    const std::string report = place / "report.json";
};

TestMedia::Folder* Reports::folder = nullptr;

TEST_F(Reports, HoldTheRequestTheStreamsAsOrderedAndAsFoundAndTheTimes) {
    ASSERT_EQ(render({"--report", report, "--in", "10f", "--set", "bitrate=300k"}).code, 0);
    const QJsonObject object = checkedReport();
    EXPECT_EQ(statusOf(object), name("done"));
    const QJsonObject request = object.value(name("request")).toObject();
    EXPECT_EQ(request.value(name("in")).toString(), name("10f"));
    EXPECT_EQ(request.value(name("settings")).toArray(), QJsonArray{name("bitrate=300k")});
    EXPECT_EQ(request.value(name("arguments")).toArray().first().toString(), name("render"));
    const QJsonArray ordered = object.value(name("plan")).toObject().value(name("streams")).toArray();
    const QJsonArray found = object.value(name("file")).toObject().value(name("streams")).toArray();
    ASSERT_EQ(ordered.size(), 2);
    ASSERT_EQ(found.size(), 2);
    EXPECT_EQ(ordered[0].toObject().value(name("frames")).toInt(), 15);
    EXPECT_EQ(ordered[0].toObject().value(name("bitrate")).toInt(), 300'000);
    EXPECT_EQ(found[0].toObject().value(name("packets")).toInt(), 15);
    EXPECT_EQ(found[0].toObject().value(name("endMs")).toInt(), 600);
    EXPECT_EQ(found[1].toObject().value(name("sampleRate")).toInt(), 48000);
}

TEST_F(Reports, HoldEverythingThatTheFileHolds) {
    const std::string words = place / "words.srt", tags = place / "tags", film = place / "several.mkv";
    TestFiles::write(words, "1\n00:00:00,100 --> 00:00:00,400\nWords\n");
    TestFiles::write(tags, ";FFMETADATA1\n[CHAPTER]\nTIMEBASE=1/1000\nSTART=0\nEND=1000\ntitle=One\n");
    TestMedia::runFfmpeg({"-i",
                          clip,
                          "-i",
                          words,
                          "-i",
                          tags,
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
                          "-c:v",
                          "copy",
                          "-c:a",
                          "copy",
                          "-c:s",
                          "subrip",
                          "-metadata:s:a:1",
                          "language=eng",
                          "-metadata:s:a:1",
                          "title=Words",
                          film});
    ASSERT_EQ(run({"render", film, "-p", "mp4-h264-480p", "-o", output, "--audio", "all", "--report", report}).code, 0);
    const QJsonObject object = checkedReport();
    for (const char* part : {"plan", "file"}) {
        const QJsonObject told = object.value(name(part)).toObject();
        const QJsonArray streams = told.value(name("streams")).toArray();
        ASSERT_EQ(streams.size(), std::string(part) == "plan" ? 4 : 5) << part << ", with a track of chapters";
        EXPECT_EQ(streams[2].toObject().value(name("kind")).toString(), name("audio")) << part;
        EXPECT_EQ(streams[2].toObject().value(name("language")).toString(), name("eng")) << part;
        EXPECT_EQ(streams[3].toObject().value(name("kind")).toString(), name("subtitles")) << part;
        EXPECT_EQ(streams[3].toObject().value(name("codec")).toString(), name("mov_text")) << part;
        EXPECT_EQ(told.value(name("chapters")).toInt(), 1) << part;
    }
}

TEST_F(Reports, OfARefusalAndATrialHaveTheirForm) {
    EXPECT_EQ(render({"--report", report, "--quality", "nonsense"}).code, 2);
    const QJsonObject refused = checkedReport();
    EXPECT_EQ(statusOf(refused), name("refused"));
    EXPECT_TRUE(refused.value(name("result")).toObject().value(name("message")).toString().contains(name("nonsense")));
    EXPECT_TRUE(refused.value(name("plan")).isNull() && refused.value(name("file")).isNull());
    EXPECT_EQ(render({"--report", report, "-y", "--dry-run"}).code, 0);
    EXPECT_EQ(statusOf(checkedReport()), name("planned"));
}

TEST_F(Reports, OfAFailureNameItAndItsReason) {
    Program program({"render", clip, "-p", "wav", "-o", place / "sound.wav", "--report", report});
    program.setEnvironment("TEST_TMPDIR", "/nowhere");
    program.setWrapper({name("prlimit"), name("--fsize=9000")}); // the report has room
    EXPECT_EQ(program.run().code, 1);
    const QJsonObject result = checkedReport().value(name("result")).toObject();
    EXPECT_EQ(result.value(name("status")).toString(), name("failed"));
    EXPECT_EQ(result.value(name("error")).toString(), name("disk full"));
    EXPECT_EQ(result.value(name("exitCode")).toInt(), 1);
    EXPECT_FALSE(result.value(name("message")).toString().isEmpty());
}

TEST_F(Reports, ReplaceNothingUnlessAllowed) {
    TestFiles::write(report, "mine");
    const Result result = render({"--report", report});
    EXPECT_EQ(result.code, 2);
    EXPECT_TRUE(result.errors.contains(name("--overwrite"))) << result.errors.toStdString();
    EXPECT_EQ(TestFiles::read(report), "mine");
    EXPECT_EQ(render({"--report", report, "-y"}).code, 0);
    EXPECT_EQ(statusOf(checkedReport()), name("done"));
}

TEST_F(Reports, AreNeverOneOfTheInputsNorTheOutput) {
    const QByteArray before = TestFiles::read(clip);
    for (const std::string& path : {clip, output}) {
        EXPECT_EQ(render({"--report", path, "-y"}).code, 2) << path;
        EXPECT_EQ(render({"--log", path, "-y"}).code, 2) << path;
    }
    EXPECT_EQ(TestFiles::read(clip), before);
    EXPECT_FALSE(QFile::exists(QString::fromStdString(output)));
    EXPECT_EQ(render({"--report", place / "no/report.json"}).code, 2);
    EXPECT_EQ(render({"--log", place / "no/log"}).code, 2);
}

TEST_F(Reports, AreNotTheOutputUnderAnotherNameEither) {
    const std::string link = place / "link.json";
    ASSERT_TRUE(QFile::link(QString::fromStdString(output), QString::fromStdString(link)));
    const std::string around = place / "./film.mp4";
    for (const bool isThere : {false, true}) {
        if (isThere)
            TestFiles::write(output, "a film");
        for (const std::string& path : {link, around}) {
            EXPECT_EQ(render({"--report", path, "-y"}).code, 2) << path;
            EXPECT_EQ(render({"--log", path, "-y"}).code, 2) << path;
        }
        EXPECT_EQ(QFile::exists(QString::fromStdString(output)), isThere);
    }
    EXPECT_EQ(TestFiles::read(output), "a film");
}

TEST_F(Reports, AreNoneOfThePicturesThatAreMade) {
    const std::string frames = place / "frames";
    ASSERT_TRUE(QDir().mkpath(QString::fromStdString(frames)));
    for (const auto& [made, picture] :
         std::vector<std::pair<std::string, std::string>>{{place / "a%03d.png", place / "./a003.png"},
                                                          {frames, frames + "/frame_00003.png"},
                                                          {frames + '/', frames + "/frame_000003.png"}})
        for (const char* const option : {"--report", "--log"}) {
            const Result result =
                run({"render", clip, "-p", "png-sequence", "-o", made, "-y", "--out", "5f", option, picture});
            EXPECT_EQ(result.code, 2) << option << picture;
            EXPECT_TRUE(result.errors.contains(name("it is one of the output's pictures")))
                << result.errors.toStdString();
            EXPECT_FALSE(QFile::exists(QString::fromStdString(picture)));
        }
    EXPECT_EQ(
        run({"render", clip, "-p", "png-sequence", "-o", frames, "--out", "5f", "--report", frames + "/frames.json"})
            .code,
        0)
        << "a name of its own beside them";
}

TEST_F(Reports, AreToldWhereTheyCannotBeWritten) {
    const Result result = render({"--report", "/proc/report.json"}); // a folder in which nobody makes files
    EXPECT_EQ(result.code, 2) << "before hours of an export";
    EXPECT_TRUE(result.errors.contains(name("Cannot write the report \"/proc/report.json\": in its folder: ")))
        << result.errors.toStdString();
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList());
}

TEST_F(Reports, AreNoneOfATimelinesMedia) {
    const std::string medium = place / "medium.mov", link = place / "link", cut = place / "cut.otio";
    ASSERT_TRUE(QFile::copy(QString::fromStdString(clip), QString::fromStdString(medium)));
    ASSERT_TRUE(QFile::link(QString::fromStdString(medium), QString::fromStdString(link)));
    TestFiles::write(
        cut, QByteArray::fromStdString(R"({"OTIO_SCHEMA":"Timeline.1","tracks":{"OTIO_SCHEMA":"Stack.1","children":[)"
                                       R"({"OTIO_SCHEMA":"Track.1","kind":"Video","children":[)" +
                                       TestCli::clipOf("one", "medium.mov", 0, 5) + "]}]}}"));
    const QByteArray before = TestFiles::read(medium);
    for (const std::string& path : {medium, link})
        for (const char* const option : {"--report", "--log"}) {
            const Result result = run({"render", cut, "-p", "mp4-h264-480p", "-o", output, "-y", option, path});
            EXPECT_EQ(result.code, 2) << option << path;
            EXPECT_TRUE(result.errors.contains(name("it is one of the timeline's media")))
                << result.errors.toStdString();
        }
    EXPECT_EQ(TestFiles::read(medium), before);
    const std::string log = place / "log";
    TestFiles::write(log, "before\n");
    EXPECT_EQ(run({"render", cut, "-p", "mp4-h264-480p", "-o", output, "--log", log}).code, 0)
        << "a file of no account";
    EXPECT_TRUE(TestFiles::read(log).startsWith("before\n"));
}

TEST_F(Reports, ReplaceNothingThatIsNoFile) {
    ASSERT_EQ(::mkfifo(report.c_str(), 0600), 0);
    const Result result = render({"--report", report, "-y"});
    EXPECT_EQ(result.code, 2);
    EXPECT_TRUE(result.errors.contains(name("it is a pipe"))) << result.errors.toStdString();
    const Result log = render({"--log", report});
    EXPECT_EQ(log.code, 2);
    EXPECT_TRUE(log.errors.contains(name("it is a pipe that nobody reads"))) << log.errors.toStdString();
    struct stat state = {};
    EXPECT_TRUE(::lstat(report.c_str(), &state) == 0 && S_ISFIFO(state.st_mode));
}

TEST_F(Reports, AreNotTheLog) {
    const Result result = render({"--report", report, "--log", place / "./report.json"});
    EXPECT_EQ(result.code, 2);
    EXPECT_TRUE(result.errors.contains(name("it is the report"))) << result.errors.toStdString();
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList());
}

TEST_F(Reports, HoldTheWholeRequest) {
    ASSERT_EQ(render({"--report", report, "--audio", "eng", "--metadata", "none", "--limiter", "--missing", "black",
                      "--max-tracks", "7", "--dry-run"})
                  .code,
              2)
        << "no track is in that language";
    const QJsonObject request = checkedReport().value(name("request")).toObject();
    EXPECT_EQ(request.value(name("audio")).toString(), name("eng"));
    EXPECT_TRUE(request.value(name("video")).toBool());
    EXPECT_FALSE(request.value(name("metadata")).toBool(true));
    const QJsonObject timeline = request.value(name("timeline")).toObject();
    EXPECT_EQ(timeline.value(name("missing")).toString(), name("black"));
    EXPECT_TRUE(timeline.value(name("limiter")).toBool());
    EXPECT_EQ(request.value(name("limits")).toObject().value(name("tracks")).toInt(), 7);
}

TEST_F(Reports, OfALogKeepWhatIsTold) {
    const std::string log = place / "log";
    const Result first = run({clip, output, "--log", log});
    EXPECT_EQ(first.code, 0);
    EXPECT_EQ(first.errorLines().size(), 1) << "the note alone: " << first.errors.toStdString();
    const QString kept = QString::fromUtf8(TestFiles::read(log));
    EXPECT_TRUE(
        kept.contains(QRegularExpression(name("^\\d{4}-\\d\\d-\\d\\dT\\S+ "), QRegularExpression::MultilineOption)));
    EXPECT_TRUE(kept.contains(name("editor-export: note: The preset is "))) << kept.toStdString();
    EXPECT_TRUE(kept.contains(name("libx264"))) << "what the codecs have to say";
    EXPECT_EQ(render({"--log", log}).code, 2);
    const QString longer = QString::fromUtf8(TestFiles::read(log));
    EXPECT_TRUE(longer.startsWith(kept)) << "nothing is written over";
    EXPECT_TRUE(longer.contains(name("(--overwrite replaces it)")));
}

TEST_F(Reports, QuietSaysErrorsAlone) {
    const Result good = run({clip, output, "-q"});
    EXPECT_EQ(good.code, 0);
    EXPECT_TRUE(good.output.isEmpty() && good.errors.isEmpty())
        << good.output.toStdString() << good.errors.toStdString();
    const Result bad = run({clip, output, "--quiet"});
    EXPECT_EQ(bad.code, 2);
    EXPECT_EQ(bad.errorLines().size(), 1);
}

TEST_F(Reports, TheQueueInItsDocumentHasTheFormOfItsSchema) {
    const QJsonObject good{{name("queue"), 1},
                           {name("jobs"), QJsonArray{QJsonObject{{name("inputs"), QJsonArray{name("a.mov")}},
                                                                 {name("output"), name("a.mp4")},
                                                                 {name("overwrite"), true},
                                                                 {name("set"), QJsonArray{name("bitrate=1M")}}}}}};
    EXPECT_EQ(faultsOf(good, "queue.schema.json"), "");
    QJsonObject bad = good;
    bad.insert(name("queue"), 2);
    EXPECT_NE(faultsOf(bad, "queue.schema.json"), "");
    bad = good;
    bad.insert(name("jobs"), QJsonArray{QJsonObject{{name("inputs"), name("a.mov")}}});
    EXPECT_NE(faultsOf(bad, "queue.schema.json"), "") << "no output";
}

} // namespace
