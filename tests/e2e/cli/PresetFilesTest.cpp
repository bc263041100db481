// SPDX-License-Identifier: GPL-3.0-or-later
// "presets export", "import", "validate" and "diff".
#include "Program.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <gtest/gtest.h>
#include <sys/stat.h>

using TestCli::Program;
using TestCli::Result;

namespace {

QString name(const char* text) {
    return QString::fromUtf8(text);
}

class PresetFiles : public ::testing::Test {
protected:
    Result presets(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), "presets");
        Program program(arguments);
        program.setEnvironment("XDG_CONFIG_HOME", place / "config");
        return program.run();
    }
    /// The same preset under a name of its own.
    void writeOwn(const char* id, int bitrate) const {
        TestFiles::write(file,
                         "{\"version\": 1, \"presets\": [{\"id\": \"" + QByteArray(id) +
                             "\", \"container\": {\"id\": \"mp3\"}, \"audio\": {\"codec\": \"mp3\", \"bitrate\": " +
                             QByteArray::number(bitrate) + "}}]}");
    }

    const TestMedia::Folder place;
    const std::string file = place / "mine.json";
};

TEST_F(PresetFiles, AreExportedInTheFormThatIsImported) {
    ASSERT_EQ(presets({"export", "mp3", "flac", "-o", file}).code, 0);
    EXPECT_EQ(presets({"validate", file}).code, 0);
    const QJsonObject object = QJsonDocument::fromJson(TestFiles::read(file)).object();
    EXPECT_EQ(object.value(name("presets")).toArray().size(), 2);
    EXPECT_EQ(presets({"export", "mp3", "flac"}).output.toUtf8(), TestFiles::read(file));
    EXPECT_EQ(presets({"export", "mp3", "-o", file}).code, 2) << "it exists";
    EXPECT_EQ(presets({"export", "mp3", "-o", file, "-y"}).code, 0);
    EXPECT_EQ(presets({"export", "mp3", "flac", "-o", "-"}).output.toUtf8(),
              presets({"export", "mp3", "flac"}).output.toUtf8())
        << "standard output";
    const Result unknown = presets({"export", "mp4"});
    EXPECT_EQ(unknown.code, 2);
}

TEST_F(PresetFiles, AreImportedToBeUsed) {
    writeOwn("my-sound", 128000);
    ASSERT_EQ(presets({"import", file}).code, 0);
    EXPECT_TRUE(presets({"my-sound"}).output.contains(name("128 kbit/s")));
    writeOwn("my-sound", 192000);
    const Result refused = presets({"import", file});
    EXPECT_EQ(refused.code, 2);
    EXPECT_TRUE(refused.errors.contains(name("--overwrite"))) << refused.errors.toStdString();
    EXPECT_EQ(presets({"import", file, "-y"}).code, 0);
    EXPECT_TRUE(presets({"my-sound"}).output.contains(name("192 kbit/s")));
    writeOwn("another", 96000);
    EXPECT_EQ(presets({"import", file}).code, 0);
    EXPECT_TRUE(presets({"my-sound"}).output.contains(name("192 kbit/s"))) << "what was there stays";
}

TEST_F(PresetFiles, OfAnInstalledIdAreImportedOnlyWhereThatIsSaid) {
    writeOwn("mp3", 64000);
    EXPECT_EQ(presets({"import", file}).code, 2);
    EXPECT_EQ(presets({"import", file, "-y"}).code, 0);
    EXPECT_TRUE(presets({"mp3"}).output.contains(name("64 kbit/s")));
}

TEST_F(PresetFiles, WithAKnownTagTakeItsPlaceOnlyWhereThatIsSaidAndLoseNoPreset) {
    const QString installed = presets({"--json"}).output;
    TestFiles::write(file,
                     R"({"version": 1, "presets": [{"id": "mine", "container": {"id": "mp4"},)"
                     R"( "video": {"codec": "h264"}}], "tags": [{"name": "mp4", "default": 0, "presets": ["mine"]}]})");
    const Result refused = presets({"import", file});
    EXPECT_EQ(refused.code, 2);
    EXPECT_TRUE(refused.errors.contains(name("There is a tag \"mp4\" already"))) << refused.errors.toStdString();
    EXPECT_EQ(presets({"--json"}).output, installed) << "nothing was imported";
    EXPECT_EQ(presets({"import", file, "-y"}).code, 0);
    const auto idsOf = [](const QString& list) {
        QStringList ids;
        for (const QJsonValue& preset :
             QJsonDocument::fromJson(list.toUtf8()).object().value(name("presets")).toArray())
            ids << preset.toObject().value(name("id")).toString();
        ids.sort();
        return ids;
    };
    QStringList wanted = idsOf(installed) << name("mine");
    wanted.sort();
    EXPECT_EQ(idsOf(presets({"--json"}).output), wanted);
    EXPECT_TRUE(presets({"--tag", "mp4"}).output.startsWith(name("mine")));
}

TEST_F(PresetFiles, ThatWentWrongLaterAreNamedAsTheyAreCalled) {
    writeOwn("my-sound", 128000);
    ASSERT_EQ(presets({"import", file}).code, 0);
    const std::string own = place / "config/EditorExport/presets.json";
    TestFiles::write(own, TestFiles::read(own).replace("128000", "5"));
    writeOwn("another", 96000);
    const Result result = presets({"import", file});
    EXPECT_EQ(result.code, 2);
    EXPECT_TRUE(result.errors.contains(QString::fromStdString(own) + name(": /presets/0/audio/bitrate: ")))
        << result.errors.toStdString();
    EXPECT_EQ(TestFiles::namesIn(place / "config/EditorExport"), QStringList(name("presets.json")));
}

TEST_F(PresetFiles, OfOnesOwnThatAreBrokenAreLeftOutWithAWarning) {
    const std::string own = place / "config/EditorExport";
    ASSERT_TRUE(QDir().mkpath(QString::fromStdString(own)));
    TestFiles::write(own + "/presets.json", "nonsense");
    const Result listed = presets({});
    EXPECT_EQ(listed.code, 0);
    EXPECT_TRUE(listed.output.contains(name("mp4-h264-1080p")));
    EXPECT_TRUE(listed.errors.contains(QString::fromStdString(own))) << listed.errors.toStdString();
    const QJsonObject object = QJsonDocument::fromJson(presets({"--json"}).output.toUtf8()).object();
    EXPECT_EQ(object.value(name("warnings")).toArray().size(), 1);
    writeOwn("mine", 128000);
    EXPECT_EQ(presets({"import", file}).code, 2) << "what is there is not lost";
    EXPECT_EQ(TestFiles::read(own + "/presets.json"), "nonsense");
}

TEST_F(PresetFiles, ThatAreNoFilesAreRefusedAndNotWaitedFor) {
    const std::string own = place / "config/EditorExport";
    ASSERT_TRUE(QDir().mkpath(QString::fromStdString(own)));
    writeOwn("mine", 128000);
    const std::string pipe = place / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const auto refusal = [this](const std::vector<std::string>& arguments) {
        Program program(arguments);
        program.setWrapper({name("timeout"), name("20")});
        program.setEnvironment("XDG_CONFIG_HOME", place / "config");
        const Result result = program.run();
        EXPECT_EQ(result.code, 2);
        return result.errors;
    };
    EXPECT_TRUE(refusal({"presets", "import", pipe}).contains(name("is not a regular file")));
    EXPECT_TRUE(refusal({"presets", "diff", "mp3", pipe}).contains(name("is not a regular file")));
    ASSERT_EQ(::mkfifo((own + "/presets.json").c_str(), 0600), 0);
    const QString errors = refusal({"presets", "import", file});
    EXPECT_TRUE(errors.contains(name("presets.json\": it is a pipe"))) << errors.toStdString();
}

TEST_F(PresetFiles, AreRefusedWhereTheirPlaceCannotBeWritten) {
    writeOwn("mine", 128000);
    Program program({"presets", "import", file});
    program.setEnvironment("XDG_CONFIG_HOME", "/proc/config");
    const Result result = program.run();
    EXPECT_EQ(result.code, 2);
    EXPECT_TRUE(result.errors.contains(name("Cannot make the folder"))) << result.errors.toStdString();
}

TEST_F(PresetFiles, AreWrittenOverFilesAlone) {
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    const Result result = presets({"export", "mp3", "-o", file, "-y"});
    EXPECT_EQ(result.code, 2);
    EXPECT_TRUE(result.errors.contains(name("it is a pipe"))) << result.errors.toStdString();
    struct stat state = {};
    EXPECT_TRUE(::lstat(file.c_str(), &state) == 0 && S_ISFIFO(state.st_mode));
}

TEST_F(PresetFiles, ThatAreWrongAreToldWithThePlaceAndNotImported) {
    writeOwn("my-sound", 5);
    const Result checked = presets({"validate", file});
    EXPECT_EQ(checked.code, 2);
    EXPECT_TRUE(checked.output.contains(name("mine.json: /presets/0/audio/bitrate: "))) << checked.output.toStdString();
    EXPECT_EQ(presets({"import", file}).code, 2);
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList({name("mine.json")})) << "nothing was made";
    TestFiles::write(file, "nonsense");
    EXPECT_EQ(presets({"validate", file}).code, 2);
    EXPECT_EQ(presets({"validate", place / "nothing"}).code, 2);
}

/// The whole file that the page shows.
QByteArray fileOfThePage() {
    const QStringList lines = QString::fromUtf8(TestFiles::read(OWN_PRESETS_PAGE)).split(QLatin1Char('\n'));
    const int begin = lines.indexOf(QStringLiteral("    {")), end = lines.indexOf(QStringLiteral("    }"));
    return lines.mid(begin, end - begin + 1).join(QLatin1Char('\n')).toUtf8();
}

TEST_F(PresetFiles, MayBeWrittenAsThePageShows) {
    TestFiles::write(file, fileOfThePage());
    const Result checked = presets({"validate", file});
    ASSERT_EQ(checked.code, 0) << checked.output.toStdString();
    ASSERT_EQ(presets({"import", file}).code, 0);
    EXPECT_EQ(presets({"--tag", "phones"}).code, 0);
    const std::string clip = place / "clip.mov";
    TestMedia::FlashBeep media;
    media.frames = 5;
    TestMedia::makeFlashBeep(clip, media);
    for (const char* const quality : {"high", "low"}) {
        Program render(
            {"render", clip, "-p", "phone-720p", "--quality", quality, "-o", place / "film.mp4", "--dry-run"});
        render.setEnvironment("XDG_CONFIG_HOME", place / "config");
        const Result result = render.run();
        EXPECT_EQ(result.code, 0) << result.errors.toStdString();
    }
}

TEST_F(PresetFiles, AreComparedSettingBySetting) {
    EXPECT_EQ(presets({"diff", "mp3", "mp3"}).code, 0);
    const Result result = presets({"diff", "mp4-h264-1080p", "mp4-h264-720p"});
    EXPECT_EQ(result.code, 1);
    EXPECT_TRUE(result.output.contains(name("/video/width: 1920 | 1280\n"))) << result.output.toStdString();
    EXPECT_FALSE(result.output.contains(name("/video/codec")));
    writeOwn("my-sound", 128000);
    const Result withFile = presets({"diff", "mp3", file});
    EXPECT_TRUE(withFile.output.contains(name("/audio/sampleRate: 48000 | -\n"))) << withFile.output.toStdString();
    EXPECT_EQ(presets({"diff", "mp3"}).code, 2);
    const Result unknown = presets({"diff", "a", "b"});
    EXPECT_EQ(unknown.code, 2);
    EXPECT_EQ(unknown.errors.toStdString(),
              std::string("editor-export: There is no preset \"a\"; presets lists those there are; "
                          "There is no preset \"b\"; presets lists those there are\n"));
}

} // namespace
