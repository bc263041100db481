// SPDX-License-Identifier: GPL-3.0-or-later
// What "--dry-run" finds and prints without making anything.
#include "Program.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <gtest/gtest.h>
#include <optional>

using TestCli::Program;
using TestCli::Result;
using TestCli::run;

namespace {

QString name(const char* text) {
    return QString::fromUtf8(text);
}

class DryRun : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        folder = new TestMedia::Folder;
        TestMedia::FlashBeep media;
        media.frames = 100;
        TestMedia::makeFlashBeep(*folder / "clip.mov", media);
    }
    static void TearDownTestSuite() { delete folder; }

    Result plan(std::vector<std::string> more = {}) const {
        std::vector<std::string> arguments{"render", clip, "-p", "mp4-h264-480p", "-o", output, "--dry-run"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return run(arguments);
    }
    /// It takes longer than it is tried.
    Program ofLongFilm(const std::vector<std::string>& more) const {
        constexpr int TWENTY_MINUTES = 300;
        std::vector<std::string> arguments(TWENTY_MINUTES, clip);
        arguments.insert(arguments.begin(), "render");
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Program(arguments);
    }
    static QJsonObject objectOf(const Result& result) {
        return QJsonDocument::fromJson(result.output.toUtf8()).object();
    }

    static TestMedia::Folder* folder;
    const std::string clip = *folder / "clip.mov";
    const TestMedia::Folder place;
    const std::string output = place / "film.mp4";
};

TestMedia::Folder* DryRun::folder = nullptr;

TEST_F(DryRun, PrintsThePlanAndMakesNothing) {
    const Result result = plan();
    EXPECT_EQ(result.code, 0) << result.errors.toStdString();
    for (const char* pattern : {"film\\.mp4: 00:00:04\\.000, mp4 by the preset mp4-h264-480p\n",
                                "  picture: h264 \\(high\\) 320x180, 25 fps, 100 frames, \\S+ [kM]bit/s\n",
                                "  sound: aac 48000 Hz, 2 channels, 128 kbit/s\n",
                                "  size: about \\S+ kB; \\S+ [kMGT]B are free\n", "  time: about \\S+ s\n"})
        EXPECT_TRUE(result.output.contains(QRegularExpression(name(pattern))))
            << pattern << result.output.toStdString();
    EXPECT_TRUE(result.errors.isEmpty()) << result.errors.toStdString();
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList());
}

TEST_F(DryRun, LeavesWhatStandsAtTheOutput) {
    TestFiles::write(output, "old");
    EXPECT_EQ(plan().code, 2) << "without --overwrite";
    EXPECT_EQ(plan({"-y"}).code, 0);
    EXPECT_EQ(TestFiles::read(output), "old");
    EXPECT_EQ(TestFiles::namesIn(place / "").size(), 1);
}

TEST_F(DryRun, TellsAsJsonWhatTheExportThenMakes) {
    const QJsonObject planned = objectOf(plan({"--json"})).value(name("plan")).toObject();
    const Result made = run({"render", clip, "-p", "mp4-h264-480p", "-o", output, "--json"});
    ASSERT_EQ(made.code, 0);
    const QJsonObject found = objectOf(made);
    const QJsonArray streams = planned.value(name("streams")).toArray();
    ASSERT_EQ(streams.size(), 2);
    for (const char* member : {"codec", "width", "height", "frames"})
        EXPECT_EQ(streams[0].toObject().value(name(member)), found.value(name("video")).toObject().value(name(member)))
            << member;
    for (const char* member : {"codec", "sampleRate", "channels"})
        EXPECT_EQ(streams[1].toObject().value(name(member)), found.value(name("audio")).toObject().value(name(member)))
            << member;
    EXPECT_EQ(planned.value(name("durationMs")), found.value(name("durationMs")));
    EXPECT_EQ(planned.value(name("output")), found.value(name("output")));
    EXPECT_GT(planned.value(name("sizeBytes")).toInt(), 0);
    EXPECT_FALSE(planned.value(name("sizeIsRough")).toBool(true));
    EXPECT_GT(planned.value(name("freeBytes")).toDouble(), 0);
    EXPECT_GT(planned.value(name("exportMs")).toInt(), 0);
}

TEST_F(DryRun, IsOneObjectWhereProgressIsJson) {
    const Result result = plan({"--progress", "json"});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(TestCli::jsonLines(result.errors).last().value(name("type")).toString(), name("planned"));
    EXPECT_EQ(objectOf(result).value(name("type")).toString(), name("planned"));
}

TEST_F(DryRun, IsRoughWhereAQualityDecides) {
    const Result result = ofLongFilm({"-p", "mp4-h264-480p", "-o", output, "--dry-run", "--set", "quality=30"}).run();
    EXPECT_TRUE(result.output.contains(name("size: roughly "))) << result.output.toStdString();
    EXPECT_TRUE(result.output.contains(name(", quality 30\n")));
}

TEST_F(DryRun, CountsTwoPasses) {
    const Result result = run({"render", clip, "-p", "mp4-h264-1080p-2pass", "-o", output, "--dry-run"});
    EXPECT_TRUE(result.output.contains(name(" s, in 2 passes\n"))) << result.output.toStdString();
}

TEST_F(DryRun, RefusesWhatAnExportWouldRefuse) {
    EXPECT_EQ(run({"render", clip, "-p", "mp4-h264-480p", "-o", place / "film.webm", "--dry-run"}).code, 2);
    EXPECT_EQ(run({"render", place / "no.mov", "-p", "mp4-h264-480p", "-o", output, "--dry-run"}).code, 2);
    EXPECT_EQ(run({"render", clip, "-p", "mp4-h264-480p", "-o", place / "no/film.mp4", "--dry-run"}).code, 2);
}

/// What an option is worth shows when the encoder opens: the catalogue knows no more than its name and kind.
TEST_F(DryRun, OpensTheEncodersWithTheirOptions) {
    const TestMedia::Folder own;
    const auto tried = [&](const char* container, const char* streams) {
        TestFiles::write(own / "mine.json",
                         "{\"version\": 1, \"presets\": [{\"id\": \"mine\", \"container\": {\"id\": \"" +
                             QByteArray(container) + "\"}, " + QByteArray(streams) + "}]}");
        Program import({"presets", "import", own / "mine.json", "-y"});
        Program render({"render", clip, "-p", "mine", "-o", place / ("film." + std::string(container)), "--dry-run"});
        for (Program* program : {&import, &render})
            program->setEnvironment("XDG_CONFIG_HOME", own / "config");
        EXPECT_EQ(import.run().code, 0) << streams;
        return render.run();
    };
    const auto expectRefused = [&](const char* container, const char* streams, const char* option) {
        const Result result = tried(container, streams);
        EXPECT_EQ(result.code, 1) << streams << result.output.toStdString();
        EXPECT_TRUE(result.errors.contains(name("the export failed (codec refused): "))) << result.errors.toStdString();
        EXPECT_TRUE(result.errors.contains(name(option))) << result.errors.toStdString();
        EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList());
    };
    expectRefused("mp4", R"("video": {"codec": "h264", "options": {"x264-params": "me=wonderful"}})", "x264-params");
    expectRefused("mp4", R"("video": {"codec": "h264", "options": {"preset": "wonderful"}})", "preset");
    expectRefused("opus", R"("audio": {"codec": "opus", "options": {"frame_duration": 7}})", "frame_duration");
    EXPECT_EQ(tried("mp4", R"("video": {"codec": "h264", "options": {"x264-params": "me=hex"}})").code, 0);
    EXPECT_EQ(tried("opus", R"("audio": {"codec": "opus", "options": {"frame_duration": 10}})").code, 0);
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList());
}

class DryRunOnASmallDisk : public DryRun {
protected:
    /// Of so many kB; nothing where that cannot be had.
    std::optional<Result> tried(const char* preset, const char* file, int size) const {
        const std::string mountPoint = place / "small";
        Program program = ofLongFilm({"-p", preset, "-o", mountPoint + '/' + file, "--dry-run"});
        program.setWrapper(
            {name("unshare"), name("-m"), name("sh"), name("-c"),
             name("mkdir -p '%1' && mount -t tmpfs -o size=%2k none '%1' || exit 77; shift; \"$@\"; code=$?; "
                  "test -z \"$(ls -A '%1')\" || exit 88; exit $code")
                 .arg(QString::fromStdString(mountPoint))
                 .arg(size),
             name("sh"), name("-")});
        Result result = program.run();
        const bool hasNoRight = result.code == 77 || result.errors.contains(name("unshare"));
        return hasNoRight ? std::nullopt : std::optional(std::move(result));
    }
};

TEST_F(DryRunOnASmallDisk, FailsWhereTheFileWouldNotFit) {
    const auto result = tried("wav", "sound.wav", 200'000);
    if (!result)
        GTEST_SKIP() << "no right to mount";
    EXPECT_EQ(result->code, 1) << result->errors.toStdString();
    EXPECT_TRUE(result->errors.contains(
        QRegularExpression(name("disk full\\): The file will take 23\\d MB, but beside .* only 20\\d MB are free"))))
        << result->errors.toStdString();
}

TEST_F(DryRunOnASmallDisk, WarnsWhereTheSizeIsKnownRoughly) {
    const auto result = tried("mkv-ffv1-flac", "film.mkv", 6000);
    if (!result)
        GTEST_SKIP() << "no right to mount";
    EXPECT_EQ(result->code, 0) << result->errors.toStdString();
    EXPECT_TRUE(result->errors.contains(QRegularExpression(name("warning: The file will take roughly .* are free"))))
        << result->errors.toStdString();
    EXPECT_TRUE(result->output.contains(name("size: roughly"))) << result->output.toStdString();
}

/// Titles and slides take a fortieth of what was ordered: nobody is kept from exporting them.
TEST_F(DryRunOnASmallDisk, WarnsWhereTheMaterialMayNeedLessThanWasOrdered) {
    const auto result = tried("mp4-h264-480p", "film.mp4", 20'000);
    if (!result)
        GTEST_SKIP() << "no right to mount";
    EXPECT_EQ(result->code, 0) << result->errors.toStdString();
    EXPECT_TRUE(result->errors.contains(QRegularExpression(name("warning: The file will take about .* are free"))))
        << result->errors.toStdString();
}

} // namespace
