// SPDX-License-Identifier: GPL-3.0-or-later
#include "Program.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>

using TestCli::Result;
using TestCli::run;

namespace {

QJsonObject objectOf(const Result& result) {
    return QJsonDocument::fromJson(result.output.toUtf8()).object();
}

TEST(Commands, VersionAndHelpGoToStandardOutput) {
    const Result version = run({"--version"});
    EXPECT_EQ(version.code, 0);
    for (const char* line : {"^editor-export \\d+\\.\\d+\\.\\d+\n", "\nlibavcodec \\d+\\.\\d+\\.\\d+\n",
                             "\nlibx264 \\d+\n", "\nQt 5\\.\\d+\\.\\d+\n$"})
        EXPECT_TRUE(QRegularExpression(QString::fromUtf8(line)).match(version.output).hasMatch())
            << version.output.toStdString();
    const Result help = run({"--help"});
    EXPECT_EQ(help.code, 0);
    for (const char* word : {"render", "presets", "info", "validate", "--version"})
        EXPECT_TRUE(help.output.contains(QString::fromUtf8(word))) << word;
    const Result renderHelp = run({"render", "--help"});
    for (const char* word : {"--preset", "--output", "--in", "--out", "--overwrite", "--progress"})
        EXPECT_TRUE(renderHelp.output.contains(QString::fromUtf8(word))) << word;
    for (const char* line : {"Usage: editor-export render [OPTIONS] INPUT...\n", "--in TIME ", "--progress STYLE ",
                             "Times are HH:MM:SS.mmm, MM:SS (up to 59:59), seconds (90, 90.5s) or frames\n(120f).\n",
                             "Exit codes: 0 done, "})
        EXPECT_TRUE(renderHelp.output.contains(QString::fromUtf8(line))) << renderHelp.output.toStdString();
    EXPECT_TRUE(version.errors.isEmpty() && help.errors.isEmpty() && renderHelp.errors.isEmpty());
}

class WrongUsage : public ::testing::TestWithParam<std::vector<std::string>> {};

TEST_P(WrongUsage, IsToldInOneLineWithCodeTwo) {
    const Result result = run(GetParam());
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(result.errorLines().size(), 1) << result.errors.toStdString();
    EXPECT_TRUE(result.errors.startsWith(QStringLiteral("editor-export: ")));
    EXPECT_TRUE(result.output.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Commands, WrongUsage,
    ::testing::Values(std::vector<std::string>{"transmogrify"}, std::vector<std::string>{"--nonsense"},
                      std::vector<std::string>{"render"}, std::vector<std::string>{"render", "a.mp4"},
                      std::vector<std::string>{"render", "-p", "x", "-o", "y"},
                      std::vector<std::string>{"render", "a", "-p", "x", "-o", "y", "--in", "1:3"},
                      std::vector<std::string>{"render", "a", "-p", "x", "-o", "y", "--out=-5"},
                      std::vector<std::string>{"render", "a", "-p", "x", "-o", "y", "--progress", "loud"},
                      std::vector<std::string>{"render", "a", "-p", "x", "-o", "y", "--nonsense"},
                      std::vector<std::string>{"presets", "--tag", "nonsense"}, std::vector<std::string>{"info"}));

TEST(Commands, WrongUsageIsToldInWordsOfThePeopleWhoUseIt) {
    const std::vector<std::string> render{"render", "a", "-p", "x", "-o", "y"};
    const auto complaint = [&render](const std::vector<std::string>& more) {
        std::vector<std::string> arguments = render;
        arguments.insert(arguments.end(), more.begin(), more.end());
        return run(arguments).errors.toStdString();
    };
    EXPECT_EQ(complaint({"--progress", "3"}),
              "editor-export: --progress: \"3\" is none of auto, bar, plain, json, none (see --help)\n");
    EXPECT_EQ(complaint({"-o", "z"}), "editor-export: --output can be given only once (see --help)\n");
    EXPECT_EQ(complaint({"--set"}), "editor-export: --set needs a value (see --help)\n");
    EXPECT_EQ(complaint({"--in", "1:3"}),
              "editor-export: --in: \"1:3\" is no time; write HH:MM:SS.mmm, MM:SS (up to 59:59), "
              "seconds (90, 90.5s) or frames (120f) (see --help)\n");
}

TEST(Commands, WithValuesThatAreEmptyAreWrong) {
    for (const char* const option : {"--report", "--log", "--preset", "--branding", "--media-root", "--output"})
        for (const std::vector<std::string>& words :
             {std::vector<std::string>{"render", "a", option, ""},
              std::vector<std::string>{"render", std::string(option) + '=', "a", "b"}}) {
            const Result result = run(words);
            EXPECT_EQ(result.code, 2);
            EXPECT_EQ(result.errors.toStdString(),
                      std::string("editor-export: ") + option + " needs a value, which is empty (see --help)\n");
        }
}

TEST(Commands, ListOnePartOfThePresetsAtATime) {
    for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
             {"presets", "mp3", "--tag", "web"}, {"presets", "mp3", "--tags"}, {"presets", "--tags", "--tag", "web"}}) {
        const Result result = run(arguments);
        EXPECT_EQ(result.code, 2);
        EXPECT_TRUE(result.errors.contains(QStringLiteral("ask for one of them"))) << result.errors.toStdString();
    }
}

TEST(Commands, AreToldWhatToWriteInPlaceOfAKindThatNobodyWritesAndOfAFolder) {
    const TestMedia::Folder place;
    TestMedia::FlashBeep media;
    media.frames = 5;
    TestMedia::makeFlashBeep(place / "clip.mov", media);
    const auto complaint = [&](const std::string& output) {
        const Result result = run({place / "clip.mov", output});
        EXPECT_EQ(result.code, 2);
        return result.errors.toStdString();
    };
    const std::string kind = complaint(place / "film.avi");
    EXPECT_NE(kind.find("No preset writes files that end in .avi; those that there are write "), std::string::npos)
        << kind;
    EXPECT_NE(kind.find(".mp4"), std::string::npos) << kind;
    const std::string folder = complaint(place / "");
    EXPECT_NE(folder.find("is a folder: name a file in it, or let -p PRESET --each -o "), std::string::npos) << folder;
}

TEST(Commands, NoneShowsTheHelp) {
    const Result result = run({});
    EXPECT_EQ(result.code, 2);
    EXPECT_TRUE(result.output.isEmpty());
    for (const char* word : {"render", "presets", "info"})
        EXPECT_TRUE(result.errors.contains(QString::fromUtf8(word))) << word;
}

TEST(Commands, AnUnknownOneIsNamedWithWhatMayBeMeant) {
    EXPECT_TRUE(run({"frob"}).errors.startsWith(QStringLiteral("editor-export: there is no command \"frob\"")));
    const Result near = run({"-v", "rendr", "a.mp4"});
    EXPECT_EQ(near.code, 2);
    EXPECT_TRUE(near.errors.contains(QStringLiteral("\"rendr\"; did you mean render?"))) << near.errors.toStdString();
}

TEST(Commands, PresetsTellIdTagsAndCodecsAsJson) {
    const Result result = run({"presets", "--json"});
    EXPECT_EQ(result.code, 0);
    const QJsonArray presets = objectOf(result).value(QStringLiteral("presets")).toArray();
    ASSERT_FALSE(presets.isEmpty());
    QSet<QString> ids;
    for (const QJsonValue& value : presets) {
        const QJsonObject preset = value.toObject();
        for (const char* key : {"id", "tags", "container", "video", "audio", "twoPass"})
            EXPECT_TRUE(preset.contains(QString::fromUtf8(key))) << key;
        EXPECT_FALSE(preset.value(QStringLiteral("tags")).toArray().isEmpty());
        ids << preset.value(QStringLiteral("id")).toString();
    }
    EXPECT_EQ(ids.size(), presets.size());
    EXPECT_TRUE(ids.contains(QStringLiteral("mp4-h264-720p")));
}

TEST(Commands, PresetsTellWhichRunTwoPasses) {
    const QJsonArray presets = objectOf(run({"presets", "--json"})).value(QStringLiteral("presets")).toArray();
    for (const QJsonValue& value : presets) {
        const QString id = value.toObject().value(QStringLiteral("id")).toString();
        EXPECT_EQ(value.toObject().value(QStringLiteral("twoPass")).toBool(), id.endsWith(QStringLiteral("-2pass")))
            << id.toStdString();
    }
}

TEST(Commands, PresetsTellTheirQualities) {
    const QJsonArray presets = objectOf(run({"presets", "--json"})).value(QStringLiteral("presets")).toArray();
    QHash<QString, QJsonArray> qualities;
    for (const QJsonValue& value : presets)
        qualities.insert(value.toObject().value(QStringLiteral("id")).toString(),
                         value.toObject().value(QStringLiteral("quality")).toArray());
    EXPECT_EQ(qualities.value(QStringLiteral("mp4-h264-720p")),
              (QJsonArray{QStringLiteral("high"), QStringLiteral("medium"), QStringLiteral("low")}))
        << "the best one first";
    EXPECT_EQ(
        qualities.value(QStringLiteral("mov-prores-1080p")),
        (QJsonArray{QStringLiteral("high"), QStringLiteral("medium"), QStringLiteral("low"), QStringLiteral("draft")}));
    EXPECT_EQ(qualities.value(QStringLiteral("mkv-ffv1-flac")),
              (QJsonArray{QStringLiteral("high"), QStringLiteral("medium"), QStringLiteral("low")}));
    EXPECT_TRUE(qualities.value(QStringLiteral("flac")).isEmpty());
    EXPECT_TRUE(run({"presets"}).output.contains(QStringLiteral("720p [mp4, web], quality high|medium|low\n")));
}

TEST(Commands, HelpListsEverySetting) {
    const Result help = run({"render", "--help"});
    for (const char* word :
         {"--quality NAME", "--set KEY=VALUE", "size=WxH", "width=PIXELS", "height=PIXELS", "frame-rate=RATE",
          "bitrate=BITS", "quality=NUMBER", "sample-rate=HZ", "channels=LAYOUT", "audio-bitrate=BITS"})
        EXPECT_TRUE(help.output.contains(QString::fromUtf8(word))) << word;
}

TEST(Commands, PresetsOfATagAreThoseOfTheTag) {
    const Result result = run({"presets", "--tag", "audio", "--json"});
    for (const QJsonValue& value : objectOf(result).value(QStringLiteral("presets")).toArray()) {
        EXPECT_TRUE(value.toObject().value(QStringLiteral("tags")).toArray().contains(QStringLiteral("audio")));
        EXPECT_TRUE(value.toObject().value(QStringLiteral("video")).isNull());
    }
    EXPECT_GE(run({"presets", "--tag", "audio"}).output.count(QLatin1Char('\n')), 4);
}

TEST(Commands, PresetsStandInColumns) {
    QSet<int> columns;
    for (const QString& line :
         run({"presets", "--tag", "two-pass"}).output.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        columns << QRegularExpression(QStringLiteral(" +\\K[A-Z]")).match(line).capturedStart();
    EXPECT_EQ(columns.size(), 1);
}

TEST(Commands, PresetsMarkTheDefaultsOfTags) {
    EXPECT_TRUE(run({"presets"}).output.contains(QStringLiteral("up to 1080p [mp4*, web*], quality")));
    const Result tags = run({"presets", "--tags"});
    EXPECT_TRUE(
        tags.output.contains(QStringLiteral("\naudio: m4a-aac*, mp3, opus, ogg-vorbis, ac3, flac, m4a-alac, wav\n")))
        << tags.output.toStdString();
    const QJsonObject json = objectOf(run({"presets", "--json", "--tags"}));
    const QJsonObject first = json[QStringLiteral("tags")].toArray().at(0).toObject();
    EXPECT_EQ(first[QStringLiteral("name")], QStringLiteral("mp4"));
    EXPECT_EQ(first[QStringLiteral("default")], QStringLiteral("mp4-h264-1080p"));
    EXPECT_TRUE(first[QStringLiteral("presets")].toArray().contains(QStringLiteral("mp4-h264-720p")));
}

TEST(Commands, PresetsAreShownWhole) {
    const Result result = run({"presets", "mp4-h264-720p", "mov-prores-1080p"});
    EXPECT_EQ(result.code, 0);
    for (const char* const words :
         {"mp4-h264-720p: MP4", "mp4 (.mp4, .m4v)", "h264, up to 1280x720, the source's rate",
          "bitrate by size and rate", "aac, 192 kbit/s, 48000 Hz, stereo", "high: ", "profile proxy"})
        EXPECT_TRUE(result.output.contains(QString::fromUtf8(words))) << words << result.output.toStdString();
    EXPECT_LT(result.output.indexOf(QStringLiteral("high: ")), result.output.indexOf(QStringLiteral("low: ")));
    const Result none = run({"presets", "mp4-h264-72p"});
    EXPECT_EQ(none.code, 2);
    EXPECT_TRUE(none.errors.contains(QStringLiteral("did you mean mp4-h264-720p"))) << none.errors.toStdString();
}

TEST(Commands, AnUnknownTagHasNearNames) {
    EXPECT_TRUE(run({"presets", "--tag", "audoi"}).errors.contains(QStringLiteral("did you mean audio?")));
    EXPECT_EQ(run({"presets", "--tag", ""}).code, 2);
}

TEST(Commands, InfoTellsWhatMediaHold) {
    const TestMedia::Folder folder;
    const std::string path = folder / "clip.mov";
    TestMedia::FlashBeep media;
    media.rate = {30000, 1001};
    media.frames = 60;
    TestMedia::makeFlashBeep(path, media);
    const Result text = run({"info", path});
    EXPECT_EQ(text.code, 0);
    EXPECT_TRUE(
        text.output.contains(QStringLiteral("h264 320x180 yuv420p, 30000/1001 fps, pcm_s16le 48000 Hz, 2 channels")))
        << text.output.toStdString();
    const QJsonObject json =
        objectOf(run({"info", path, "--json"})).value(QStringLiteral("media")).toArray()[0].toObject();
    EXPECT_EQ(json.value(QStringLiteral("video")).toObject().value(QStringLiteral("frameRate")).toString(),
              QStringLiteral("30000/1001"));
    EXPECT_EQ(json.value(QStringLiteral("audio")).toObject().value(QStringLiteral("sampleRate")).toInt(), 48000);
    EXPECT_EQ(json.value(QStringLiteral("durationMs")).toInt(), 2002);
}

TEST(Commands, InfoTellsAllThatIsWrongAndWhatIsNot) {
    const TestMedia::Folder folder;
    TestMedia::FlashBeep media;
    media.frames = 5;
    TestMedia::makeFlashBeep(folder / "clip.mov", media);
    for (const char* const file : {"a.mov", "b.mov"})
        TestFiles::write(folder / file, "This is no film, and it is not meant to be one.");
    const Result broken = run({"info", folder / "a.mov", folder / "clip.mov", folder / "b.mov"});
    EXPECT_EQ(broken.code, 2);
    EXPECT_EQ(broken.errorLines().size(), 2) << broken.errors.toStdString();
    EXPECT_TRUE(broken.output.contains(QStringLiteral("clip.mov"))) << broken.output.toStdString();
    const Result missing = run({"info", folder / "no", folder / "clip.mov", folder / "nor"});
    EXPECT_EQ(missing.code, 2);
    EXPECT_EQ(missing.errorLines().size(), 2) << missing.errors.toStdString();
}

TEST(Commands, InfoOnWhatIsNoMediaIsBadInput) {
    const TestMedia::Folder folder;
    const Result result = run({"info", folder / "missing.mov"});
    EXPECT_EQ(result.code, 2);
    EXPECT_TRUE(result.errors.contains(QStringLiteral("missing.mov")));
    EXPECT_EQ(result.errorLines().size(), 1);
}

} // namespace
