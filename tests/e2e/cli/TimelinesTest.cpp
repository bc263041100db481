// SPDX-License-Identifier: GPL-3.0-or-later
// "info" and "validate" of timelines, over real media.
#include "TimelineFixture.h"
#include "support/FileHelpers.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <csignal>
#include <filesystem>
#include <zip.h>

using namespace TestCli;

namespace {

QJsonObject objectOf(const Result& result) {
    return QJsonDocument::fromJson(result.output.toUtf8()).object();
}

TEST_F(Timelines, AreListedClipByClip) {
    const std::string cut =
        write(clipOf("a", "both.mov", 5, 25) + ',' + clipOf("b", "silent.mov", 0, 50), clipOf("s", "both.mov", 0, 0));
    const Result text = run({"info", cut});
    EXPECT_EQ(text.code, 0) << text.errors.toStdString();
    EXPECT_TRUE(text.errors.isEmpty()) << text.errors.toStdString();
    EXPECT_TRUE(text.output.contains(QStringLiteral("timeline \"My cut\", 00:00:03.000, 2 tracks\n")));
    EXPECT_TRUE(text.output.contains(QStringLiteral("audio track \"Audio1\": 00:00:02.000, 1 item, 0 transitions\n")))
        << "a clip without a range lasts as long as its media";
    EXPECT_TRUE(text.output.contains(QString::fromStdString("00:00:01.000  00:00:02.000  clip \"b\" of " +
                                                            (*media / "silent.mov") + " from 00:00:00.000\n")))
        << text.output.toStdString();
    const Result json = run({"info", "--json", cut, *media / "both.mov"});
    EXPECT_EQ(json.code, 0);
    EXPECT_EQ(objectOf(json)[QStringLiteral("media")].toArray().size(), 1);
    const QJsonObject timeline = objectOf(json)[QStringLiteral("timelines")].toArray().at(0).toObject();
    EXPECT_EQ(timeline[QStringLiteral("durationMs")].toInt(), 3000);
    const QJsonObject first =
        timeline[QStringLiteral("tracks")].toArray().at(0)[QStringLiteral("items")].toArray().at(0).toObject();
    EXPECT_EQ(first[QStringLiteral("mediaStartMs")].toInt(), 200);
    EXPECT_EQ(first[QStringLiteral("media")].toString().toStdString(), *media / "both.mov");
}

TEST_F(Timelines, AreListedWithTheirSpeedsAndWhatIsMade) {
    const std::string bars =
        R"({"OTIO_SCHEMA":"Clip.1","name":"bars","source_range":{"OTIO_SCHEMA":"TimeRange.1","start_time":)" +
        timeOf(0) + R"(,"duration":)" + timeOf(25) +
        R"(},"media_reference":{"OTIO_SCHEMA":"GeneratorReference.1","generator_kind":"SMPTEBars","parameters":{}}})";
    const std::string slow = R"(,"effects":[{"OTIO_SCHEMA":"LinearTimeWarp.1","time_scalar":0.75}])";
    const Result text = run({"info", write(clipOf("slow", "both.mov", 0, 25, slow) + ',' + bars, {})});
    EXPECT_EQ(text.code, 0) << text.errors.toStdString();
    EXPECT_TRUE(text.output.contains(QStringLiteral("both.mov from 00:00:00.000, speed 3/4\n")))
        << text.output.toStdString();
    EXPECT_TRUE(text.output.contains(QStringLiteral("clip \"bars\" of bars from "))) << text.output.toStdString();
}

TEST_F(Timelines, ThatAreRightAreValid) {
    const std::string cut = write(clipOf("a", "both.mov", 5, 25), clipOf("s", "both.mov", 5, 25));
    const Result result = run({"validate", cut});
    EXPECT_EQ(result.code, 0);
    EXPECT_TRUE(result.output.isEmpty() && result.errors.isEmpty()) << result.output.toStdString();
}

TEST_F(Timelines, ThatAreWrongAreToldWithEveryFinding) {
    std::ofstream(*media / "text.mov") << "no media at all";
    const std::string cut = write(clipOf("gone", "gone.mov", 0, 10) + ',' + clipOf("broken", "text.mov", 0, 10) + ',' +
                                      clipOf("long", "both.mov", 40, 50),
                                  clipOf("mute", "silent.mov", 0, 10));
    const Result text = run({"validate", cut});
    EXPECT_EQ(text.code, 2);
    const QStringList lines = text.output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 4) << text.output.toStdString();
    EXPECT_TRUE(
        lines[0].contains(QStringLiteral("error: stack, track \"Video1\", clip \"gone\": the media \"gone.mov\" is not "
                                         "there (/tracks/children/0/children/0/media_reference/target_url)")));
    EXPECT_TRUE(lines[1].contains(QStringLiteral("clip \"broken\": its media ")) &&
                lines[1].contains(QStringLiteral("cannot be opened: ")));
    EXPECT_TRUE(lines[2].contains(QStringLiteral("warning: ")) &&
                lines[2].endsWith(QStringLiteral("lasts 2000 ms; the clip goes 1600 ms beyond it and holds the last "
                                                 "picture for 1600 ms (/tracks/children/0/children/2)")));
    EXPECT_TRUE(lines[3].contains(QStringLiteral("clip \"mute\"")) &&
                lines[3].endsWith(QStringLiteral("has no sound (/tracks/children/1/children/0)")));
    const Result json = run({"validate", "--json", cut});
    EXPECT_EQ(json.code, 2);
    const QJsonArray findings =
        objectOf(json)[QStringLiteral("timelines")].toArray().at(0)[QStringLiteral("findings")].toArray();
    ASSERT_EQ(findings.size(), 4);
    EXPECT_EQ(findings.at(0)[QStringLiteral("kind")].toString(), QStringLiteral("missing"));
    EXPECT_EQ(findings.at(2)[QStringLiteral("kind")].toString(), QStringLiteral("warning"));
}

TEST_F(Timelines, ThatCannotBeRenderedAreNotValid) {
    std::string half = write(clipOf("a", "both.mov", 2, 1), {});
    std::string text = TestFiles::read(half).toStdString();
    text.replace(text.rfind(timeOf(1)), timeOf(1).size(), R"({"OTIO_SCHEMA":"RationalTime.1","rate":25,"value":0.4})");
    std::ofstream(half) << text;
    const Result shorter = run({"validate", half});
    EXPECT_EQ(shorter.code, 2);
    EXPECT_TRUE(shorter.output.contains(QStringLiteral("16 ms, which is shorter than one frame")))
        << shorter.output.toStdString();
    TestMedia::FlashBeep clip;
    clip.frames = 100;
    TestMedia::makeFlashBeep(*media / "torn.mkv", clip);
    std::filesystem::resize_file(*media / "torn.mkv", std::filesystem::file_size(*media / "torn.mkv") / 2);
    const std::string cut = write(clipOf("a", "torn.mkv", 0, 90), {});
    const Result torn = run({"validate", cut});
    EXPECT_EQ(torn.code, 2);
    EXPECT_TRUE(torn.output.contains(QStringLiteral("it is incomplete"))) << torn.output.toStdString();
    const Result rendered = run({"render", cut, "-p", "mkv-ffv1-flac", "-o", *media / "torn.out.mkv"});
    EXPECT_EQ(rendered.code, 1);
    EXPECT_TRUE(rendered.errors.contains(QStringLiteral("it is incomplete"))) << rendered.errors.toStdString();
}

TEST_F(Timelines, WithWarningsAloneAreValid) {
    const Result result = run({"validate", write(clipOf("long", "both.mov", 40, 50), {})});
    EXPECT_EQ(result.code, 0);
    EXPECT_TRUE(result.output.contains(QStringLiteral("beyond it")));
}

TEST_F(Timelines, TellWhichPicturesOfASequenceAreMissing) {
    TestMedia::runFfmpeg({"-i", *media / "silent.mov", "-frames:v", "7", "-start_number", "108", *media / "p.%d.png"});
    for (const int number : {110, 112, 113})
        std::filesystem::remove(*media / ("p." + std::to_string(number) + ".png"));
    const auto sequence = [](int frames) {
        return R"({"OTIO_SCHEMA":"Clip.1","name":"seq","source_range":{"OTIO_SCHEMA":"TimeRange.1","start_time":)" +
               timeOf(0) + R"(,"duration":)" + timeOf(frames) +
               R"(},"media_reference":{"OTIO_SCHEMA":"ImageSequenceReference.1","target_url_base":".","name_prefix":"p.","name_suffix":".png","start_frame":108,"rate":25,"available_range":{"OTIO_SCHEMA":"TimeRange.1","start_time":)" +
               timeOf(0) + R"(,"duration":)" + timeOf(frames) + "}}}";
    };
    EXPECT_EQ(run({"validate", write(sequence(2), {})}).code, 0);
    const Result heard = run({"validate", write(clipOf("a", "both.mov", 0, 10), sequence(2))});
    EXPECT_EQ(heard.code, 2);
    EXPECT_TRUE(heard.output.contains(QStringLiteral("pictures stand among sound"))) << heard.output.toStdString();
    const Result some = run({"validate", write(sequence(5), {})});
    EXPECT_EQ(some.code, 2);
    EXPECT_TRUE(some.output.contains(
        QStringLiteral("2 of the 5 pictures that it shows are not there, the first one is \"p.110.png\"")))
        << some.output.toStdString();
    const Result year = run({"validate", write(sequence(25 * 86400 * 365), {})});
    EXPECT_TRUE(year.output.contains(QStringLiteral("788399996 of the 788400000 pictures")))
        << year.output.toStdString();
}

TEST_F(Timelines, AskTheFolderHowLongASequenceIs) {
    const std::string sequence =
        R"({"OTIO_SCHEMA":"Clip.1","name":"seq","media_reference":{"OTIO_SCHEMA":"ImageSequenceReference.1",)"
        R"("target_url_base":".","name_prefix":"q.","name_suffix":".png","start_frame":8,"frame_step":2,"rate":25}})";
    const Result none = run({"validate", write(sequence, {})});
    EXPECT_TRUE(none.output.contains(QStringLiteral("nothing tells how long it lasts"))) << none.output.toStdString();
    for (const int number : {6, 8, 9, 10, 12, 14})
        std::ofstream(*media / ("q." + std::to_string(number) + ".png")) << number;
    const Result result = run({"info", "--json", write(sequence, {})});
    const QJsonObject timeline = objectOf(result)[QStringLiteral("timelines")].toArray().at(0).toObject();
    EXPECT_NEAR(timeline[QStringLiteral("tracks")].toArray().at(0)[QStringLiteral("durationMs")].toDouble(), 320, 1e-6)
        << result.output.toStdString();
}

TEST_F(Timelines, FindTheirMediaBelowAnotherFolder) {
    const std::string cut = write(clipOf("a", "/elsewhere/both.mov", 0, 10), {}, "sub.otio");
    EXPECT_EQ(run({"validate", cut}).code, 2);
    EXPECT_EQ(run({"validate", "--media-root", *media / "", cut}).code, 0);
}

/// A timeline with a medium that takes half a second to unpack.
void packSlowly(const std::string& path, const std::string& timeline) {
    std::string noise(12 << 20, '\0');
    std::uint32_t number = 1;
    for (char& one : noise)
        one = static_cast<char>((number = number * 1664525 + 1013904223) >> 24);
    int error = 0;
    zip_t* const archive = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
    ASSERT_TRUE(archive);
    const auto add = [archive](const char* name, const std::string& content, zip_int32_t method) {
        zip_source_t* const source = zip_source_buffer(archive, content.data(), content.size(), 0);
        const zip_int64_t index = zip_file_add(archive, name, source, 0);
        EXPECT_EQ(zip_set_file_compression(archive, static_cast<zip_uint64_t>(index), method, 1), 0) << name;
    };
    add("content.otio", timeline, ZIP_CM_STORE);
    add("media/slow.mov", noise, ZIP_CM_BZIP2);
    EXPECT_EQ(zip_close(archive), 0);
}

TEST_F(Timelines, ThatAreEndedByASignalLeaveNothingOfTheirArchives) {
    const TestMedia::Folder place, temporary;
    const std::string cut = write(clipOf("slow", "media/slow.mov", 0, 10), {}, "slow.otio");
    packSlowly(place / "slow.otioz", TestFiles::read(cut).toStdString());
    const auto isAtIt = [&temporary] {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(temporary / ""))
            if (entry.path().filename() == "slow.mov" && entry.file_size() > 0)
                return true;
        return false;
    };
    for (const char* const command : {"validate", "info"}) {
        Program program({command, place / "slow.otioz"});
        program.setEnvironment("TMPDIR", temporary / "");
        program.start();
        ASSERT_TRUE(program.waitUntil(isAtIt)) << program.finish().errors.toStdString();
        program.signal(SIGTERM);
        EXPECT_EQ(program.finish().code, 128 + SIGTERM) << command;
        EXPECT_TRUE(std::filesystem::is_empty(temporary / "")) << command;
    }
}

TEST_F(Timelines, ThatCannotBeReadAreRefusedWithTheReason) {
    std::ofstream(*media / "bad.otio") << "{";
    for (const char* const command : {"info", "validate"}) {
        const Result result = run({command, *media / "bad.otio"});
        EXPECT_EQ(result.code, 2) << command;
        EXPECT_TRUE((result.output + result.errors).contains(QStringLiteral("it is no JSON"))) << command;
        EXPECT_EQ(run({command, *media / "none.otio"}).code, 2) << command;
    }
}

} // namespace
