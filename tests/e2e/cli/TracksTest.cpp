// SPDX-License-Identifier: GPL-3.0-or-later
// Which of the inputs' tracks come into the file, and what "info" says of them.
#include "TimelineFixture.h"
#include "TracksFixture.h"
#include "support/MediaProbe.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <gmock/gmock.h>

using ::testing::HasSubstr;

namespace TestCli {
namespace {

class Tracks : public TracksTest {
protected:
    /// Pictures, German sound of two channels, English sound of one with a title.
    std::string film() const {
        return make("film.mkv",
                    {pictures(),
                     tone(440),
                     tone(880),
                     {"-map", "0", "-map", "1", "-map", "2", "-ac:a:0", "2", "-ac:a:1", "1"},
                     {"-metadata:s:a:0", "language=ger", "-metadata:s:a:1", "language=eng", "-metadata:s:a:1",
                      "title=Commentary", "-disposition:a:0", "default", "-disposition:a:1", "0"},
                     quick()});
    }
    static int channels(const std::string& path) { return TestMedia::probe(path).audio->channels; }
};

TEST_F(Tracks, AreAllListedByInfo) {
    const std::string path = make(
        "film.mkv", {pictures(),
                     tone(440),
                     {"-i", write("a.srt", "1\n00:00:00,000 --> 00:00:01,000\nWords\n")},
                     {"-i", tags("title=A film\nartist=Somebody\n" + chapter(0, 1000, "One"))},
                     {"-map", "0", "-map", "1", "-map", "2", "-map_metadata", "3", "-metadata:s:a:0", "language=ger",
                      "-metadata:s:s:0", "title=Signs", "-disposition:s:0", "forced", "-c:s", "subrip"},
                     quick()});
    const std::string text = run({"info", path}).output.toStdString();
    for (const char* line :
         {"\n  track 0: picture, mpeg4 64x64, 25 fps", "\n  track 1: sound, pcm_s16le 48000 Hz, mono, ger",
          "\n  track 2: subtitles, subrip, \"Signs\", forced\n", "\n  title: A film\n", "\n  artist: Somebody\n",
          "\n  chapter 1: 00:00:00.000 to 00:00:01.000, \"One\"\n"})
        EXPECT_THAT(text, HasSubstr(line));
    EXPECT_EQ(text.find("left out"), std::string::npos);
    const QJsonObject medium = QJsonDocument::fromJson(run({"info", path, "--json"}).output.toUtf8())
                                   .object()[QStringLiteral("media")]
                                   .toArray()[0]
                                   .toObject();
    const QJsonArray tracks = medium[QStringLiteral("tracks")].toArray();
    ASSERT_EQ(tracks.size(), 3);
    EXPECT_EQ(tracks[1].toObject()[QStringLiteral("kind")].toString(), QStringLiteral("audio"));
    EXPECT_EQ(tracks[1].toObject()[QStringLiteral("language")].toString(), QStringLiteral("ger"));
    EXPECT_EQ(tracks[1].toObject()[QStringLiteral("channelLayout")].toString(), QStringLiteral("mono"));
    EXPECT_TRUE(tracks[1].toObject()[QStringLiteral("main")].toBool());
    EXPECT_TRUE(tracks[2].toObject()[QStringLiteral("forced")].toBool());
    EXPECT_TRUE(tracks[2].toObject()[QStringLiteral("text")].toBool());
    EXPECT_EQ(medium[QStringLiteral("tags")].toObject()[QStringLiteral("title")].toString(), QStringLiteral("A film"));
    EXPECT_EQ(medium[QStringLiteral("chapters")].toArray()[0].toObject()[QStringLiteral("endMs")].toInt(), 1000);
}

TEST_F(Tracks, OfSoundAreChosenByNumberAndByLanguage) {
    const std::string path = film();
    render({path, "-p", "mkv-ffv1-flac"}, "default.mkv");
    EXPECT_EQ(channels(place / "default.mkv"), 2);
    EXPECT_THAT(said, HasSubstr("left out: 1 sound track (2, eng)\n"));
    for (const char* choice : {"2", "eng", "en", "en-GB"}) {
        const auto file = render({path, "-p", "mkv-ffv1-flac", "--audio", choice}, "chosen.mkv");
        EXPECT_EQ(channels(place / "chosen.mkv"), 1) << choice;
        EXPECT_THAT(said, HasSubstr("left out: 1 sound track (1, ger)\n"));
        EXPECT_EQ(file.all("audio")[0].tag("language"), "eng") << choice;
        EXPECT_EQ(file.all("audio")[0].tag("title"), "Commentary") << choice;
    }
}

TEST_F(Tracks, ThatAreNotThereAreRefusedWithThoseThatAre) {
    const std::string path = film();
    const std::vector<std::string> order{path, path, "-p", "mkv-ffv1-flac", "-o", place / "a.mkv", "--audio"};
    const auto with = [&order](const std::string& choice) {
        std::vector<std::string> all = order;
        all.push_back(choice);
        return refusal(all);
    };
    EXPECT_THAT(with("0"), HasSubstr("Cannot take sound track 0 of \"" + path +
                                     "\": it has no such sound track; it has 1 (ger), 2 (eng)"));
    EXPECT_THAT(with("fr"), HasSubstr("it has 1 (ger), 2 (eng)"));
    EXPECT_THAT(with("french"), HasSubstr("is no sound track"));
}

TEST_F(Tracks, OfSoundAllComeOnOrderWithTheirNames) {
    const std::string path = film();
    for (const auto& [preset, output] :
         std::vector<std::pair<const char*, const char*>>{{"mkv-ffv1-flac", "all.mkv"}, {"mp4-h264-480p", "all.mp4"}}) {
        const auto sounds = render({path, "-p", preset, "--audio", "all"}, output).all("audio");
        ASSERT_EQ(sounds.size(), 2U) << output;
        const bool isFilm = output == std::string("all.mp4");
        EXPECT_EQ(sounds[0].tag("language"), isFilm ? "deu" : "ger");
        EXPECT_EQ(sounds[1].tag("language"), "eng") << output;
        EXPECT_EQ(sounds[1].tag(isFilm ? "handler_name" : "title"), "Commentary");
        EXPECT_EQ(sounds[0].disposition & 1, 1) << output;
        EXPECT_EQ(sounds[1].disposition & 1, 0) << output;
        // The other preset orders two channels.
        const std::string note =
            "editor-export: note: \"" + path + "\": sound of mono (track 2) is encoded as stereo\n";
        EXPECT_EQ(said, isFilm ? "" : note) << output;
    }
    const Result told = run({"render", path, "-p", "mkv-ffv1-flac", "-o", place / "b.mkv", "--audio", "all"});
    EXPECT_THAT(told.output.toStdString(), HasSubstr("flac 48000 Hz, 2 channels, 1 further sound track, "));
    const auto bare =
        render({path, "-p", "mkv-ffv1-flac", "--audio", "all", "--metadata", "none"}, "bare.mkv").all("audio");
    ASSERT_EQ(bare.size(), 2U);
    EXPECT_EQ(bare[0].tag("language") + bare[1].tag("language") + bare[1].tag("title"), "");
}

TEST_F(Tracks, OfSoundAreAllNamedWhereAllWereOrderedAndThePresetHasNone) {
    const Result told =
        run({"render", film(), "-p", "png-sequence", "-o", place / "frames/", "--audio", "all", "--out", "2f"});
    EXPECT_EQ(told.code, 0);
    EXPECT_THAT(told.errors.toStdString(), HasSubstr("left out: 2 sound tracks (1, ger; 2, eng)\n"));
}

TEST_F(Tracks, OfATimelineBesideAMissingInputAreNoMatter) {
    const std::string timeline = write("cut.otio", R"({"OTIO_SCHEMA":"Timeline.1","name":"cut"})");
    const std::string why = refusal({place / "none.mkv", film(), timeline, "-o", place / "a.mkv"});
    EXPECT_THAT(why, HasSubstr("No such file"));
    EXPECT_THAT(why, ::testing::Not(HasSubstr("cut.otio")));
}

TEST_F(Tracks, OfSoundOfATimelineAreNotAll) {
    const std::string clip = clipOf("clip", film(), 0, 10);
    const std::string timeline =
        write("cut.otio", R"({"OTIO_SCHEMA":"Timeline.1","name":"cut","tracks":{"OTIO_SCHEMA":"Stack.1","children":[)"
                          R"({"OTIO_SCHEMA":"Track.1","name":"A1","kind":"Audio","children":[)" +
                              clip + "]}]}}");
    const std::string why = refusal({timeline, "-p", "mkv-ffv1-flac", "-o", place / "a.mkv", "--audio", "all"});
    EXPECT_THAT(why, HasSubstr("a timeline mixes its sound of one track of each medium"));
    render({timeline, "-p", "flac"}, "a.flac");
}

TEST_F(Tracks, OfOneKindAreLeftOutOnOrder) {
    const std::string path = film();
    const auto silent = render({path, "-p", "mp4-h264-480p", "--audio", "none"}, "silent.mp4");
    EXPECT_TRUE(silent.all("audio").empty());
    EXPECT_EQ(silent.all("video").size(), 1U);
    EXPECT_THAT(said, HasSubstr("left out: 2 sound tracks (1, ger; 2, eng)\n"));
    EXPECT_TRUE(
        render({path, "-p", "mp4-h264-480p", "--quality", "low", "--audio", "none"}, "low.mp4").all("audio").empty())
        << "a quality does not bring it back";
    const auto song = render({path, "-p", "mp3"}, "song.mp3");
    EXPECT_EQ(song.all("audio").size(), 1U);
    EXPECT_THAT(said, HasSubstr("left out: 1 picture track (0), 1 sound track (2, eng)\n"))
        << "what the preset has no place for as well";
    const auto blind = render({path, "-p", "mkv-ffv1-flac", "--video", "none"}, "blind.mka");
    EXPECT_TRUE(blind.all("video").empty());
    EXPECT_EQ(blind.all("audio").size(), 1U);
    EXPECT_THAT(said, HasSubstr("left out: 1 picture track (0), 1 sound track (2, eng)\n"));
    const std::string output = place / "none.mp4";
    EXPECT_THAT(refusal({path, "-p", "mp4-h264-480p", "-o", output, "--audio", "none", "--video", "none"}),
                HasSubstr("Nothing is left to export"));
    EXPECT_THAT(refusal({path, "-p", "mp3", "-o", place / "none.mp3", "--audio", "none"}),
                HasSubstr("Nothing is left to export"));
    EXPECT_THAT(refusal({path, "-p", "mp4-h264-480p", "-o", output, "--audio", "none", "--set", "audio-bitrate=96k"}),
                HasSubstr("audio-bitrate"));
}

TEST_F(Tracks, OfSoundThatAreAloneAreAllOfThem) {
    const std::string path = make("one.mkv", {pictures(), tone(440), quick()});
    EXPECT_EQ(render({path, "-p", "mp4-h264-480p", "--audio", "all"}, "all.mp4").all("audio").size(), 1U);
    render({path, "-p", "mp3", "--audio", "all"}, "all.mp3");
    const std::string mute = make("mute.mkv", {pictures(), quick()});
    render({mute, path, "-p", "mp4-h264-480p", "--audio", "1"}, "joined.mp4");
    EXPECT_THAT(refusal({mute, "-p", "mp4-h264-480p", "-o", place / "b.mp4", "--audio", "1"}),
                HasSubstr("none of the inputs has sound"));
}

} // namespace
} // namespace TestCli
