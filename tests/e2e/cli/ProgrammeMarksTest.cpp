// SPDX-License-Identifier: GPL-3.0-or-later
// What plans and reports count of a file is what players find in it.
#include "TracksFixture.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gmock/gmock.h>

using ::testing::HasSubstr;
using ::testing::Not;

namespace TestCli {
namespace {

class Marks : public TracksTest {
protected:
    /// What the export told of itself at its end, as it was planned and as it was found.
    QJsonObject report(std::vector<std::string> arguments, const std::string& output) {
        const std::string path = place / "report.json";
        arguments.insert(arguments.end(), {"--report", path});
        render(arguments, output);
        return QJsonDocument::fromJson(TestFiles::read(path)).object();
    }
    static std::vector<bool> defaultsIn(const QJsonValue& streams) {
        std::vector<bool> marked;
        for (const QJsonValue stream : streams.toArray())
            if (stream[QStringLiteral("kind")] == QStringLiteral("audio"))
                marked.push_back(stream[QStringLiteral("default")].toBool());
        return marked;
    }
};

TEST_F(Marks, OfWhatPlayersBeginWithAreAsPlanned) {
    constexpr int MARKED = 1; // in the flags of the demuxer library
    const std::string path = make("film.mkv", {pictures(), tone(440), quick(), {"-disposition:a:0", "0"}});
    for (const auto& [preset, output, told] :
         std::vector<std::tuple<std::string, std::string, bool>>{{"mp4-h264-480p", "a.mp4", true},
                                                                 {"mkv-ffv1-flac", "a.mkv", true},
                                                                 {"webm-vp9-720p", "a.webm", true},
                                                                 {"mov-prores-1080p", "a.mov", true},
                                                                 {"wav", "a.wav", false},
                                                                 {"ogg-vorbis", "a.ogg", false}}) {
        const QJsonObject job = report({path, "-p", preset}, output);
        const std::vector<bool> found = defaultsIn(job[QStringLiteral("file")][QStringLiteral("streams")]);
        EXPECT_EQ(found, std::vector<bool>{told}) << output;
        EXPECT_EQ(defaultsIn(job[QStringLiteral("plan")][QStringLiteral("streams")]), found) << output;
        if (!told)
            continue;
        const auto file = TestMedia::describe(place / output);
        EXPECT_EQ(file.all("video").at(0).disposition & MARKED, MARKED) << output;
        EXPECT_EQ(file.all("audio").at(0).disposition & MARKED, MARKED) << output;
        EXPECT_THAT(run({"render", path, "-p", preset, "-o", place / output, "-y", "--dry-run"}).output.toStdString(),
                    Not(HasSubstr(", default")))
            << "there is nothing else to begin with";
    }
}

TEST_F(Marks, OfChaptersThatBeginLaterAreCountedAsPlanned) {
    const std::string plain = make("plain.mkv", {pictures(), tone(220), quick()});
    const std::string marked = make("film.mkv", {pictures(),
                                                 tone(440),
                                                 {"-i", tags(chapter(0, 1000, "One") + chapter(1000, 2000, "Two")),
                                                  "-map", "0", "-map", "1", "-map_metadata", "2"},
                                                 quick()});
    for (const auto& [preset, output, count] : std::vector<std::tuple<std::string, std::string, int>>{
             {"mp4-h264-480p", "a.mp4", 3}, {"mov-prores-1080p", "a.mov", 3}, {"mkv-ffv1-flac", "a.mkv", 2}}) {
        const QJsonObject job = report({plain, marked, "-p", preset}, output);
        EXPECT_EQ(job[QStringLiteral("file")][QStringLiteral("chapters")].toInt(), count) << output;
        EXPECT_EQ(job[QStringLiteral("plan")][QStringLiteral("chapters")].toInt(), count) << output;
        EXPECT_EQ(TestMedia::describe(place / output).chapters.size(), static_cast<std::size_t>(count)) << output;
    }
}

} // namespace
} // namespace TestCli
