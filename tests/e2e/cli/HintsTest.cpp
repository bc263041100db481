// SPDX-License-Identifier: GPL-3.0-or-later
// What a refusal says of the way out, what has no effect, what a log keeps, and by which number a script tells why.
#include "Program.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

using TestCli::Program;
using TestCli::Result;
using TestCli::run;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

class Hints : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        folder = new TestMedia::Folder;
        TestMedia::FlashBeep media;
        media.frames = 10;
        media.samples = 48'000 / 25 * 10;
        TestMedia::makeFlashBeep(*folder / "clip.mov", media);
    }
    static void TearDownTestSuite() { delete folder; }

    std::string refusal(const std::vector<std::string>& arguments) const {
        const Result result = run(arguments);
        EXPECT_EQ(result.code, 2) << result.rawErrors;
        return result.rawErrors;
    }
    std::string refusedRender(std::vector<std::string> more) const {
        more.insert(more.begin(), {"render", clip, "-o", place / "out.mp4"});
        return refusal(more);
    }
    int number(std::vector<std::string> arguments) const {
        arguments.insert(arguments.end(), {"--progress", "json"});
        const Result result = run(arguments);
        EXPECT_EQ(result.code, 2) << result.rawErrors;
        return TestCli::jsonLines(result.errors).last().value(QStringLiteral("code")).toInt();
    }
    void writeQueue(const std::vector<std::string>& outputs) const {
        QJsonArray jobs;
        for (const std::string& output : outputs)
            jobs.append(QJsonObject{{QStringLiteral("inputs"), QJsonArray{QString::fromStdString(clip)}},
                                    {QStringLiteral("output"), QString::fromStdString(output)},
                                    {QStringLiteral("preset"), QStringLiteral("wav")}});
        TestFiles::write(
            queue, QJsonDocument(QJsonObject{{QStringLiteral("queue"), 1}, {QStringLiteral("jobs"), jobs}}).toJson());
    }

    static TestMedia::Folder* folder;
    const std::string clip = *folder / "clip.mov";
    const TestMedia::Folder place;
    const std::string queue = place / "jobs.json";
};

TestMedia::Folder* Hints::folder = nullptr;

TEST_F(Hints, AQueueThatIsAPipeIsRefusedAndSoIsItsState) {
    ASSERT_EQ(::mkfifo((place / "pipe").c_str(), 0600), 0);
    EXPECT_THAT(refusal({"queue", place / "pipe"}), HasSubstr("it is a pipe"));
    writeQueue({place / "a.wav"});
    ASSERT_EQ(::mkfifo((queue + ".state").c_str(), 0600), 0);
    EXPECT_THAT(refusal({"queue", queue}), HasSubstr("jobs.json.state\": it is a pipe"));
    EXPECT_THAT(refusal({"queue", place / ""}), HasSubstr("it is a folder"));
    EXPECT_THAT(refusal({"queue", "no-such-queue"}), HasSubstr("Cannot run \"no-such-queue\": ")) << "as it was typed";
}

TEST_F(Hints, OfASettingThatIsGivenAsAnOptionIsHowItIsSet) {
    EXPECT_THAT(refusedRender({"--frame-rate=25"}), HasSubstr("--set frame-rate=25"));
    EXPECT_THAT(refusedRender({"--size", "640x360"}), HasSubstr("--set size=WxH"));
    EXPECT_THAT(refusal({"presets", "--size", "2"}), Not(HasSubstr("--set"))) << "presets has no --set";
}

TEST_F(Hints, OfATagInThePlaceOfAPresetIsThatItIsOne) {
    EXPECT_THAT(refusal({"presets", "mp4"}), HasSubstr("\"mp4\"; that is a tag: presets --tag mp4 lists its presets"));
    EXPECT_THAT(refusedRender({"-p", "MP4"}), HasSubstr("did you mean the tag mp4?"));
    EXPECT_THAT(refusedRender({"-p", "webb"}), HasSubstr("did you mean the tag webm or web?"));
}

TEST_F(Hints, AreTheNearNamesOfValues) {
    EXPECT_THAT(refusedRender({"--set", "frame-rate=ntcs"}), HasSubstr("did you mean ntsc"));
    EXPECT_THAT(refusedRender({"--set", "channels=sterio"}), HasSubstr("did you mean stereo"));
    EXPECT_THAT(refusedRender({"--progress", "jsn"}), HasSubstr("did you mean json"));
    EXPECT_THAT(refusedRender({"--branding", "dmeo"}), HasSubstr("did you mean demo"));
    EXPECT_EQ(run({"render", clip, "-o", place / "out.mp4", "--dry-run", "--set", "frame-rate=NTSC", "--set",
                   "channels=Stereo"})
                  .code,
              0);
}

TEST_F(Hints, NameTheQualitiesTheBestFirst) {
    EXPECT_THAT(refusedRender({"-p", "mp4-h264-720p", "--quality", "hihg"}), HasSubstr("It has high, medium, low"));
}

TEST_F(Hints, OfAFolderAsOutputIsThatItIsOne) {
    EXPECT_THAT(refusal({"render", clip, "-o", "."}), HasSubstr("\".\" is a folder: name a file in it"));
    EXPECT_THAT(refusal({"render", clip, "-o", place / "x.mp4/"}), HasSubstr("is a folder: name a file in it"));
}

TEST_F(Hints, OptionsThatCanDoNothingAreNotedOnce) {
    const Result result =
        run({"render", clip, clip, "-p", "wav", "-o", place / "a.wav", "--limiter", "--media-root", "/nonexistent"});
    EXPECT_EQ(result.code, 0) << result.rawErrors;
    EXPECT_EQ(result.errors.count(QStringLiteral("have no effect")), 1) << result.rawErrors;
    EXPECT_THAT(result.rawErrors, HasSubstr("--media-root and --limiter have no effect: they are for timelines"));
    EXPECT_THAT(run({"render", clip, "-p", "wav", "-o", place / "b.wav"}).rawErrors, Not(HasSubstr("no effect")));
    const Result info = run({"info", clip, "--timeline", "first"});
    EXPECT_THAT(info.rawErrors, HasSubstr("--timeline has no effect"));
}

TEST_F(Hints, AQuietExportSaysTheResultThatIsAskedForAsJson) {
    const Result result = run({"render", clip, "-p", "wav", "-o", place / "a.wav", "-q", "--json"});
    EXPECT_EQ(result.code, 0);
    ASSERT_FALSE(result.output.isEmpty());
    EXPECT_EQ(TestCli::jsonLines(result.output).last().value(QStringLiteral("type")).toString(),
              QStringLiteral("done"));
    EXPECT_EQ(result.rawErrors, "");
    EXPECT_EQ(run({"render", clip, "-p", "wav", "-o", place / "b.wav", "-q"}).rawOutput, "");
}

TEST_F(Hints, ALogTellsWhatWasOrderedAndWhatCameOfIt) {
    const std::string log = place / "the log", output = place / "a.wav";
    ASSERT_EQ(run({"render", clip, "-p", "wav", "-o", output, "--log", log}).code, 0);
    const std::string kept = TestFiles::read(log).toStdString();
    EXPECT_THAT(kept, HasSubstr("editor-export render " + clip + " -p wav -o " + output + " --log '" + log + "'\n"));
    EXPECT_THAT(kept, HasSubstr("inputs: \"" + clip + "\"\n"));
    EXPECT_THAT(kept, HasSubstr("output: \"" + output + "\", preset: wav\n"));
    EXPECT_THAT(kept, HasSubstr(" " + output + ": 00:00:00.400"));
    EXPECT_THAT(kept, HasSubstr(", made in "));
}

TEST_F(Hints, TheLogOfAQueueTellsTheJobOfEachLine) {
    writeQueue({place / "a.wav", place / "b.wav"});
    ASSERT_EQ(run({"queue", queue, "--log", place / "log"}).code, 0);
    const std::string kept = TestFiles::read(place / "log").toStdString();
    EXPECT_THAT(kept, HasSubstr(" job 1 of 2: inputs: "));
    EXPECT_THAT(kept, HasSubstr(" job 2 of 2: " + (place / "b.wav") + ": 00:00:00.400"));
    EXPECT_THAT(kept, HasSubstr(" 2 jobs: 2 done\n"));
}

TEST_F(Hints, ScriptsTellByTheNumberWhetherAnInputOrThePlaceOfTheOutputIsNotFit) {
    TestFiles::write(place / "none.mp4", "no medium");
    TestFiles::write(place / "empty.mp4", "");
    const std::string output = place / "out.mp4";
    EXPECT_EQ(number({"render", place / "missing.mov", "-o", output}), 2) << "source not found";
    EXPECT_EQ(number({"render", place / "none.mp4", "-o", output}), 3) << "source unreadable";
    EXPECT_EQ(number({"render", place / "empty.mp4", "-o", output}), 3);
    EXPECT_EQ(number({"render", clip, "-o", place / "no/such/out.mp4"}), 5) << "output not writable";
    EXPECT_EQ(number({"render", clip, "-o", output, "-p", "nonsense"}), 15) << "invalid argument";
    EXPECT_EQ(number({"render", clip, "-o", clip}), 15);
    const Result info = run({"info", "--json", place / "missing.mov"});
    EXPECT_EQ(TestCli::jsonLines(info.errors).last().value(QStringLiteral("code")).toInt(), 2) << info.rawErrors;
}

TEST_F(Hints, ARecordingWithoutItsIndexIsNamedAsThat) {
    const QByteArray whole = TestFiles::read(clip);
    TestFiles::write(place / "cut.mov", whole.left(whole.size() / 2));
    ASSERT_FALSE(whole.left(whole.size() / 2).contains("moov"));
    EXPECT_THAT(refusal({"render", place / "cut.mov", "-o", place / "out.mp4"}),
                HasSubstr("its index is missing: the recording was never finished"));
}

TEST_F(Hints, OfASmallFirstInputIsThatLargerOnesAreScaledDown) {
    TestMedia::FlashBeep media;
    media.frames = 10;
    media.samples = 48'000 / 25 * 10;
    media.width = 640;
    media.height = 360;
    TestMedia::makeFlashBeep(place / "large.mov", media);
    const std::string large = place / "large.mov";
    const auto plan = [&](std::vector<std::string> inputs, std::vector<std::string> more) {
        inputs.insert(inputs.begin(), "render");
        inputs.insert(inputs.end(), {"-p", "mp4-h264-1080p", "-o", place / "out.mp4", "--dry-run"});
        inputs.insert(inputs.end(), more.begin(), more.end());
        return run(inputs);
    };
    const Result joined = plan({clip, large, large}, {});
    EXPECT_THAT(joined.rawErrors, HasSubstr("large.mov\" is scaled down to the size of the first pictures, "));
    EXPECT_THAT(joined.rawErrors, HasSubstr("; --set size=640x360 chooses another"));
    EXPECT_EQ(joined.errors.count(QStringLiteral("scaled down")), 1);
    EXPECT_THAT(plan({clip, large}, {"--set", "size=640x360"}).rawErrors, Not(HasSubstr("scaled down")));
    EXPECT_THAT(plan({large, clip}, {}).rawErrors, Not(HasSubstr("scaled down")));
    EXPECT_THAT(plan({clip, large}, {"--in", "0.5"}).rawErrors, Not(HasSubstr("scaled down")))
        << "the small one is not in the range";
}

TEST_F(Hints, OfATurnedInputIsThatItIsScaledDownButOfSomeLinesMoreNothing) {
    const auto make = [this](const char* name, int width, int height) {
        TestMedia::FlashBeep media;
        media.frames = 5;
        media.width = width;
        media.height = height;
        TestMedia::makeFlashBeep(place / name, media);
        return place / name;
    };
    const std::string wide = make("wide.mov", 640, 352), turned = make("turned.mov", 352, 640);
    const auto said = [&](const std::string& first, const std::string& second) {
        return run({"render", first, second, "-p", "mp4-h264-1080p", "-o", place / "out.mp4", "--dry-run"}).rawErrors;
    };
    EXPECT_THAT(said(wide, turned), HasSubstr("turned.mov\" is scaled down to the size of the first pictures, 640x352; "
                                              "--set size=WxH chooses another"));
    EXPECT_THAT(said(turned, wide), HasSubstr("wide.mov\" is scaled down to the size of the first pictures, 352x640"));
    EXPECT_THAT(said(wide, make("lines.mov", 640, 360)), Not(HasSubstr("scaled down")));
}

TEST_F(Hints, OfInputsOfAnotherRateIsThatTheFirstOnesCounts) {
    const auto make = [this](const char* name, const char* rate) {
        TestMedia::runFfmpeg({"-i", clip, "-r", rate, "-c:v", "mpeg4", place / name});
        return place / name;
    };
    const std::string ntsc = make("ntsc.mov", "30000/1001"), twice = make("twice.mov", "50");
    const auto said = [&](std::vector<std::string> inputs, std::vector<std::string> more = {}) {
        inputs.insert(inputs.begin(), "render");
        inputs.insert(inputs.end(), {"-p", "mp4-h264-1080p", "-o", place / "out.mp4", "--dry-run"});
        inputs.insert(inputs.end(), more.begin(), more.end());
        return run(inputs).rawErrors;
    };
    EXPECT_THAT(said({clip, ntsc}),
                HasSubstr("ntsc.mov\" is shown at the rate of the first pictures, 25 instead of 29.97 frames a second; "
                          "--set frame-rate=29.97 chooses another"));
    EXPECT_THAT(said({clip, ntsc, twice}), HasSubstr("and 1 more are shown at the rate of the first pictures, 25 "
                                                     "instead of up to 50 frames a second"));
    EXPECT_THAT(said({ntsc, clip}), HasSubstr("29.97 instead of 25 frames a second; --set frame-rate=RATE chooses"))
        << "a lower rate would lose pictures";
    EXPECT_THAT(said({twice, clip}), Not(HasSubstr("rate of the first"))) << "each is shown twice";
    EXPECT_THAT(said({clip, ntsc}, {"--set", "frame-rate=25"}), Not(HasSubstr("rate of the first")));
    TestMedia::runFfmpeg({"-i", clip, "-frames:v", "1", place / "still.png"});
    EXPECT_THAT(said({place / "still.png", ntsc}), HasSubstr("25 instead of 29.97 frames a second"))
        << "a still picture has one, too";
    EXPECT_THAT(said({place / "still.png", clip}), Not(HasSubstr("rate of the first")));
}

TEST_F(Hints, OfAFirstSoundOfFewChannelsIsThatOthersAreMixedDown) {
    const auto make = [this](const char* name, const char* layout) {
        TestMedia::runFfmpeg({"-f", "lavfi", "-i", std::string("aevalsrc=0:s=48000:d=0.4:c=") + layout, place / name});
        return place / name;
    };
    const std::string mono = make("mono.wav", "mono"), wide = make("wide.wav", "5.1");
    const auto plan = [&](const std::vector<std::string>& more, const std::string& preset = "flac") {
        std::vector<std::string> arguments{"render", "-p", preset, "-o", place / ("out." + preset), "--dry-run"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return run(arguments).rawErrors;
    };
    EXPECT_THAT(
        plan({mono, wide}),
        HasSubstr("wide.wav\" is mixed down to the channels of the first sound, mono; --set channels=5.1 chooses"));
    EXPECT_THAT(plan({mono, wide, "--set", "channels=5.1"}), Not(HasSubstr("mixed down")));
    EXPECT_THAT(plan({mono, wide, "--set", "channels=mono"}), Not(HasSubstr("mixed down"))) << "as it was ordered";
    EXPECT_THAT(plan({wide, mono}), Not(HasSubstr("mixed down")));
    EXPECT_THAT(plan({mono, wide, "--in", "0.4"}), Not(HasSubstr("mixed down"))) << "the first is not in the range";
    EXPECT_THAT(plan({mono, wide}, "mp3"), Not(HasSubstr("mixed down"))) << "the preset has channels of its own";
}

TEST_F(Hints, MoreChannelsGetMoreBits) {
    const auto bitrate = [this](std::vector<std::string> more) {
        more.insert(more.begin(), {"render", clip, "-p", "m4a-aac", "-o", place / "out.m4a", "--dry-run", "--json"});
        const Result result = run(more);
        const QJsonObject plan = TestCli::jsonLines(result.output).last().value(QStringLiteral("plan")).toObject();
        return plan.value(QStringLiteral("streams"))
            .toArray()
            .at(0)
            .toObject()
            .value(QStringLiteral("bitrate"))
            .toInt();
    };
    const int stereo = bitrate({});
    EXPECT_GT(stereo, 0);
    EXPECT_EQ(bitrate({"--set", "channels=5.1"}), 3 * stereo);
    EXPECT_EQ(bitrate({"--set", "channels=5.1", "--set", "audio-bitrate=256k"}), 256'000);
    EXPECT_EQ(bitrate({"--set", "channels=mono"}), stereo) << "it is what people know a preset by";
}

TEST_F(Hints, APresetOfTheEncodersThatIsNoneIsRefusedInOneLineWithThoseThereAre) {
    const std::string folderOfOwn = place / "EditorExport";
    ASSERT_EQ(::mkdir(folderOfOwn.c_str(), 0700), 0);
    TestFiles::write(folderOfOwn + "/presets.json",
                     R"({"version": 1, "presets": [{"id": "own", "container": {"id": "mp4"}, "video": {"codec": "h264",
                         "bitrateMode": "automatic", "options": {"preset": "nonsense"}}}]})");
    Program program({"render", clip, "-p", "own", "-o", place / "out.mp4"});
    program.setEnvironment("XDG_CONFIG_HOME", place / "");
    const Result result = program.run();
    EXPECT_EQ(result.code, 1);
    EXPECT_THAT(result.rawErrors,
                HasSubstr("refuses the value \"nonsense\" for its option \"preset\": it has ultrafast, "));
    EXPECT_THAT(result.rawErrors, Not(HasSubstr("x264 [error]")));
}

} // namespace
