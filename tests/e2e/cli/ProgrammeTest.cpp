// SPDX-License-Identifier: GPL-3.0-or-later
// What the inputs say of themselves, in the file that is made of them.
#include "TracksFixture.h"
#include <QJsonArray>
#include <algorithm>
#include <array>
#include <gmock/gmock.h>

using ::testing::HasSubstr;
using ::testing::Not;

namespace TestCli {
namespace {

constexpr const char* MP4 = "mp4-h264-480p";
constexpr const char* MKV = "mkv-ffv1-flac";

class Programmes : public TracksTest {
protected:
    std::string words(const std::string& name, const std::string& text) const {
        return write(name,
                     "1\n00:00:00,200 --> 00:00:01,200\n" + text + "\n\n2\n00:00:01,500 --> 00:00:01,900\nMore\n");
    }
    /// Tags of the programme and of the file, two chapters, two tracks of subtitles.
    std::string film(const std::string& name = "film.mkv", const std::string& title = "A film") const {
        const std::string description =
            tags("title=" + title +
                 "\nartist=Jürgen\nalbum=Films\ndate=2020\ncomment=two\\\nlines\nmood=grave\n"
                 "creation_time=2020-01-01T00:00:00Z\nmajor_brand=isom\nrotate=90\nencoder=Another\n" +
                 chapter(0, 1000, "One") + chapter(1000, 2000, "Two"));
        return make(name, {pictures(),
                           tone(440),
                           {"-i", words("a.srt", "Häuser <i>und</i> Höfe")},
                           {"-i", words("b.srt", "Houses")},
                           {"-i", description},
                           {"-map", "0", "-map", "1", "-map", "2", "-map", "3", "-map_metadata", "4", "-metadata:s:a:0",
                            "language=ger", "-metadata:s:s:0", "language=ger", "-metadata:s:s:1", "language=eng",
                            "-c:s", "subrip"},
                           quick()});
    }
    std::string ass() const {
        return write("a.ass", "[Script Info]\nScriptType: v4.00+\n\n[V4+ Styles]\nFormat: Name, Fontname, Fontsize\n"
                              "Style: Default,Arial,20\nStyle: Loud,Arial,40\n\n[Events]\nFormat: Layer, Start, End, "
                              "Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
                              "Dialogue: 0,0:00:00.20,0:00:01.20,Loud,,0,0,0,,{\\pos(1,2)}Noise\n"
                              "Dialogue: 0,0:00:00.60,0:00:01.00,Default,,0,0,0,,Beside\n");
    }
    std::string picture() const {
        return make("cover.png", {{"-f", "lavfi", "-i", "color=red:s=8x8", "-frames:v", "1"}});
    }
};

TEST_F(Programmes, AreKeptWhereTheFileCanHoldThem) {
    const std::string path = film();
    for (const auto& [preset, output] :
         std::vector<std::pair<const char*, const char*>>{{MP4, "a.mp4"}, {MKV, "a.mkv"}}) {
        const auto file = render({path, "-p", preset}, output);
        EXPECT_EQ(file.tag("title"), "A film") << output;
        EXPECT_EQ(file.tag("artist"), "Jürgen") << output;
        EXPECT_EQ(file.tag("album"), "Films") << output;
        EXPECT_EQ(file.tag("date"), "2020") << output;
        EXPECT_EQ(file.tag("comment"), "two\nlines") << output;
        EXPECT_EQ(file.tag("encoder").substr(0, 12), "EditorExport") << output;
        EXPECT_EQ(file.tag("creation_time") + file.tag("rotate"), "") << output << ": there is a date";
        EXPECT_EQ(file.chapterText(), "One 0.00-1.00, Two 1.00-2.00") << output;
        ASSERT_EQ(file.all("audio").size(), 1U);
        EXPECT_EQ(file.all("audio")[0].tag("language"), output == std::string("a.mp4") ? "deu" : "ger");
        EXPECT_EQ(file.subtitleText(0), "Häuser und Höfe 0.20-1.20, More 1.50-1.90") << output;
        EXPECT_EQ(file.subtitleText(1), "Houses 0.20-1.20, More 1.50-1.90") << output;
    }
    EXPECT_EQ(TestMedia::describe(place / "a.mkv").tag("mood"), "grave");
    EXPECT_EQ(said, "");
    render({path, "-p", MP4}, "a.mp4");
    EXPECT_THAT(said, HasSubstr("left out: tag (mood)\n"));
}

TEST_F(Programmes, AreDroppedOnOrder) {
    const std::string path = film();
    const auto bare = render({path, "-p", MKV, "--metadata", "none", "--subtitles", "none"}, "a.mkv");
    EXPECT_EQ(bare.tag("title") + bare.tag("artist") + bare.chapterText(), "");
    EXPECT_TRUE(bare.all("subtitle").empty());
    EXPECT_EQ(bare.all("audio")[0].tag("language"), "");
    EXPECT_THAT(said, HasSubstr("left out: 2 subtitle tracks (2, ger; 3, eng)\n"));
    const auto worded = render({path, "-p", MKV, "--metadata", "none"}, "b.mkv");
    EXPECT_EQ(worded.tag("title"), "");
    EXPECT_EQ(worded.all("subtitle").size(), 2U);
}

TEST_F(Programmes, AreCutWithTheRange) {
    const std::string path = film();
    for (const auto& [preset, output] :
         std::vector<std::pair<const char*, const char*>>{{MP4, "a.mp4"}, {MKV, "a.mkv"}}) {
        const auto file = render({path, "-p", preset, "--in", "0.8", "--out", "1.6"}, output);
        EXPECT_EQ(file.chapterText(), "One 0.00-0.20, Two 0.20-0.80") << output;
        EXPECT_EQ(file.subtitleText(), "Häuser und Höfe 0.00-0.40, More 0.70-0.80") << output;
    }
    const auto behind = render({path, "-p", MKV, "--in", "1.92"}, "b.mkv");
    EXPECT_EQ(behind.chapterText(), "Two 0.00-0.08");
    EXPECT_TRUE(behind.all("subtitle").empty());
    EXPECT_THAT(said, HasSubstr("Subtitles that show nothing in the range are left out\n"));
}

TEST_F(Programmes, OfSeveralInputsStandOneBehindTheOther) {
    const std::string first = film();
    const std::string plain = make("plain.mkv", {pictures(), tone(220), quick()});
    const std::string second = film("second.mkv", "Another film");
    const auto file = render({first, plain, second, "-p", MKV}, "a.mkv");
    EXPECT_EQ(file.tag("title"), "A film");
    EXPECT_EQ(file.chapterText(), "One 0.00-1.00, Two 1.00-2.00, One 4.00-5.00, Two 5.00-6.00");
    EXPECT_EQ(file.all("subtitle").size(), 2U);
    EXPECT_EQ(file.subtitleText(1), "Houses 0.20-1.20, More 1.50-1.90, Houses 4.20-5.20, More 5.50-5.90");
    EXPECT_THAT(said, HasSubstr("second.mkv\": left out: title, tags\n"));
}

TEST_F(Programmes, OfInputsThatLackWhatOthersHaveSayWhatIsMadeForThem) {
    const std::string whole = make("whole.mkv", {pictures(), tone(220), quick()});
    const std::string silent = make("silent.mkv", {pictures(), quick()});
    const std::string song = make("song.mka", {tone(220)});
    render({whole, silent, song, "-p", MKV}, "a.mkv");
    EXPECT_THAT(said, HasSubstr("silent.mkv\": has no sound: what is heard there is silence\n"));
    EXPECT_THAT(said, HasSubstr("song.mka\": has no picture: what is shown there is black\n"));
    render({silent, "-p", MKV}, "b.mkv");
    EXPECT_THAT(said, HasSubstr("None of the inputs has sound: what is heard is silence\n"));
    render({whole, picture(), "-p", MKV}, "c.mkv");
    EXPECT_THAT(said, Not(HasSubstr("has no sound"))) << "of a still nobody expects it";
}

TEST_F(Programmes, OfLanguagesThatDifferHaveNone) {
    const std::string german = make("de.mkv", {pictures(), tone(220), {"-metadata:s:a:0", "language=ger"}, quick()});
    const std::string english = make("en.mkv", {pictures(), tone(220), {"-metadata:s:a:0", "language=eng"}, quick()});
    const auto file = render({german, english, "-p", MP4}, "a.mp4");
    EXPECT_EQ(file.all("audio")[0].tag("language"), "und");
    EXPECT_THAT(said, HasSubstr("The sound's language is left out: the inputs' differ\n"));
}

TEST_F(Programmes, OfALanguageThatTheFileCannotTellSaySo) {
    const std::string zulu = make("zu.mkv", {pictures(), tone(220), {"-metadata:s:a:0", "language=zul"}, quick()});
    render({zulu, "-p", "mov-prores-1080p"}, "a.mov");
    EXPECT_THAT(said, HasSubstr("The sound's language, zul, is left out: the file has no place for it\n"));
    EXPECT_EQ(render({zulu, "-p", MP4}, "a.mp4").all("audio")[0].tag("language"), "zul");
}

TEST_F(Programmes, KeepTheStylesOfSubtitlesWhereThereIsAPlace) {
    const std::string path =
        make("film.mkv",
             {pictures(), tone(440), {"-i", ass(), "-map", "0", "-map", "1", "-map", "2", "-c:s", "ass"}, quick()});
    const auto styled = render({path, "-p", MKV}, "a.mkv");
    ASSERT_EQ(styled.all("subtitle").size(), 1U);
    EXPECT_EQ(styled.all("subtitle")[0].codec, "ass");
    EXPECT_EQ(styled.subtitleText(), "Noise 0.20-1.20, Beside 0.60-1.00");
    EXPECT_EQ(said, "");
    const auto plain = render({path, "-p", MP4}, "a.mp4");
    EXPECT_EQ(plain.subtitleText(), "Noise 0.20-0.60, Noise\\NBeside 0.60-1.00, Noise 1.00-1.20");
    EXPECT_THAT(said, HasSubstr("Styles of subtitles are left out: the file has no place for them\n"));
}

TEST_F(Programmes, HaveSubtitlesInWebmAndMovToo) {
    const std::string path = film();
    const auto web = render({path, "-p", "webm-vp9-720p"}, "a.webm");
    ASSERT_EQ(web.all("subtitle").size(), 2U);
    EXPECT_EQ(web.all("subtitle")[0].codec, "webvtt");
    EXPECT_EQ(web.subtitleText(), "Häuser und Höfe 0.20-1.20, More 1.50-1.90");
    EXPECT_EQ(web.chapterText(), "One 0.00-1.00, Two 1.00-2.00");
    const auto film = render({place / "a.webm", "-p", "mov-prores-1080p"}, "a.mov");
    EXPECT_EQ(film.all("subtitle")[1].codec, "mov_text");
    EXPECT_EQ(film.subtitleText(1), "Houses 0.20-1.20, More 1.50-1.90");
    const auto back = render({place / "a.mov", "-p", MKV}, "b.mkv");
    EXPECT_EQ(back.all("subtitle")[0].codec, "subrip");
    EXPECT_EQ(back.subtitleText(0), "Häuser und Höfe 0.20-1.20, More 1.50-1.90");
}

TEST_F(Programmes, ArePlannedAndToldWithWhatTheFileHolds) {
    const std::string path = film();
    const Result planned = run({"render", path, "-p", MKV, "-o", place / "a.mkv", "--dry-run"});
    for (const char* line : {"  sound: flac 48000 Hz, 1 channel, ger\n", "  subtitles: subrip, ger, default\n",
                             "  subtitles: subrip, eng\n", "  chapters: 2\n"})
        EXPECT_THAT(planned.output.toStdString(), HasSubstr(line));
    const Result made = run({"render", path, "-p", MKV, "-o", place / "a.mkv", "--progress", "none"});
    EXPECT_THAT(made.output.toStdString(), HasSubstr("1 channel, 2 subtitle tracks, 2 chapters, "));
    const Result json = run({"render", path, "-p", MKV, "-o", place / "b.mkv", "--json"});
    const QJsonObject object = jsonLines(json.output).last();
    const QJsonArray streams = object[QStringLiteral("streams")].toArray();
    ASSERT_EQ(streams.size(), 4);
    EXPECT_EQ(streams[2].toObject()[QStringLiteral("kind")].toString(), QStringLiteral("subtitles"));
    EXPECT_EQ(streams[2].toObject()[QStringLiteral("language")].toString(), QStringLiteral("ger"));
    EXPECT_EQ(object[QStringLiteral("chapters")].toInt(), 2);
    const std::string song =
        make("song.mp3", {tone(440),
                          {"-i", picture(), "-map", "0", "-map", "1", "-c:v", "copy", "-disposition:v", "attached_pic"},
                          {"-c:a", "libmp3lame"}});
    EXPECT_THAT(run({"render", song, "-p", "mp3", "-o", place / "a.mp3", "--dry-run"}).output.toStdString(),
                HasSubstr("  cover: png 8x8\n"));
    EXPECT_THAT(run({"render", song, "-p", "mp3", "-o", place / "a.mp3"}).output.toStdString(),
                HasSubstr(", 1 cover, "));
}

TEST_F(Programmes, KeepTheTimeCodeOfTheFirstInput) {
    const auto coded = [this](const std::string& name, const std::string& rate, const std::string& timecode) {
        return make(
            name,
            {{"-f", "lavfi", "-i", "color=gray:s=64x64:d=2:r=" + rate}, tone(440), {"-timecode", timecode}, quick()});
    };
    const auto timecodeOf = [](const TestMedia::DescribedFile& file) {
        const std::string ofFile = file.tag("timecode");
        return ofFile.empty() ? file.all("video").at(0).tag("timecode") : ofFile;
    };
    const std::string path = coded("a.mov", "25", "10:00:00:00");
    EXPECT_EQ(timecodeOf(render({path, "-p", MKV}, "a.mkv")), "10:00:00:00");
    EXPECT_EQ(timecodeOf(render({path, "-p", MP4, "--in", "0.8"}, "a.mp4")), "10:00:00:20");
    EXPECT_EQ(said, "");
    EXPECT_EQ(timecodeOf(render({path, "-p", MKV, "--metadata", "none"}, "b.mkv")), "");
    for (const char* timecode : {"01:00:00;02", "01:00:00:02"})
        EXPECT_EQ(timecodeOf(render({coded("ntsc.mov", "30000/1001", timecode), "-p", MP4}, "b.mp4")), timecode);
    render({path, "-p", "wav"}, "a.wav");
    EXPECT_THAT(said, HasSubstr("time code\n"));
    const std::string next = coded("next.mov", "25", "10:00:02:00");
    render({path, next, "-p", MKV}, "c.mkv");
    EXPECT_EQ(said, "") << "it goes on";
    render({path, coded("other.mov", "25", "11:00:00:00"), "-p", MKV}, "c.mkv");
    EXPECT_THAT(said, HasSubstr("other.mov\": left out: time code\n"));
    render({path, path, path, "-p", MKV}, "d.mkv");
    EXPECT_THAT(said, HasSubstr("a.mov\": its time code is the file's, which runs on where this medium comes again\n"));
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
    render({path, path, "-p", MKV, "--metadata", "none"}, "e.mkv");
    EXPECT_EQ(said, "");
}

TEST_F(Programmes, OfTracksWithTitlesThatTheFileCannotTellSaySo) {
    const std::string path = make("a.mkv", {pictures(), tone(440), {"-metadata:s:a:0", "title=Commentary"}, quick()});
    for (const auto& [preset, output] :
         std::vector<std::pair<const char*, const char*>>{{"mp3", "a.mp3"}, {"flac", "a.flac"}, {"wav", "a.wav"}}) {
        render({path, "-p", preset}, output);
        EXPECT_THAT(said, HasSubstr("The sound's title, \"Commentary\", is left out: the file has no place for it\n"));
    }
    const std::string other = make("b.mkv", {pictures(), tone(440), {"-metadata:s:a:0", "title=Film"}, quick()});
    EXPECT_EQ(render({path, other, "-p", MKV}, "c.mkv").all("audio").at(0).tag("title"), "");
    EXPECT_THAT(said, HasSubstr("The sound's title is left out: the inputs' differ\n"));
}

TEST_F(Programmes, OfSubtitlesSayWhichMarkupIsLost) {
    const std::string coloured = make("a.mkv", {pictures(),
                                                tone(440),
                                                {"-i", words("a.srt", "<font color=\"#ff0000\">red</font> words"),
                                                 "-map", "0", "-map", "1", "-map", "2", "-c:s", "subrip"},
                                                quick()});
    const std::string placed =
        make("b.mkv", {pictures(),
                       tone(440),
                       {"-i", words("b.srt", "{\\an8}above"), "-map", "0", "-map", "1", "-map", "2", "-c:s", "subrip"},
                       quick()});
    const char* const colours = "Colours of subtitles are left out: the file has no place for them\n";
    const char* const places = "Places of subtitles on the picture are left out: the file has none for them\n";
    render({coloured, "-p", "webm-vp9-720p"}, "a.webm");
    EXPECT_EQ(said, std::string("editor-export: note: ") + colours);
    render({placed, "-p", "webm-vp9-720p"}, "a.webm");
    EXPECT_EQ(said, std::string("editor-export: note: ") + places);
    render({placed, "-p", MP4}, "a.mp4");
    EXPECT_EQ(said, std::string("editor-export: note: ") + places);
    // What is kept can be read from the file again.
    for (const auto& [path, preset, output, note] : std::vector<std::array<std::string, 4>>{
             {coloured, MP4, "c.mp4", colours}, {coloured, MKV, "c.mkv", colours}, {placed, MKV, "d.mkv", places}}) {
        render({path, "-p", preset}, output);
        EXPECT_EQ(said, "") << output;
        render({place / output, "-p", "webm-vp9-720p"}, "e.webm");
        EXPECT_EQ(said, "editor-export: note: " + note) << output;
    }
    render({place / "c.mp4", "-p", MKV}, "f.mkv");
    const std::string again = make("f.srt", {{"-i", place / "f.mkv", "-map", "0:s:0", "-c", "copy"}});
    EXPECT_THAT(TestFiles::read(again).toStdString(), HasSubstr("<font color=\"#ff0000\">red</font> words"))
        << "the colour ends where it did";
}

TEST_F(Programmes, OfSubtitlesNameThePlacesThatNobodyReads) {
    const std::string vtt = write("a.vtt", "WEBVTT\n\n00:00.200 --> 00:01.200 line:0 align:start\nabove\n\n"
                                           "00:01.500 --> 00:01.900\n<v Somebody>below</v>\n");
    const std::string path =
        make("a.webm", {pictures(), {"-i", vtt, "-map", "0", "-map", "1", "-c:s", "copy", "-c:v", "libvpx"}});
    EXPECT_EQ(render({path, "-p", MKV}, "a.mkv").subtitleText(), "above 0.20-1.20, below 1.50-1.90");
    EXPECT_THAT(
        said, HasSubstr("1 of the subtitles of track 1 have a place of their own on the picture, which is left out\n"));
    EXPECT_THAT(said, HasSubstr("1 of the subtitles of track 1 name speakers or classes, which are left out\n"));
}

TEST_F(Programmes, NameSubtitlesThatAreNoText) {
    const std::string header("PG\0\0\0\0\0\0\0\0", 10);
    const std::string screen = header + std::string("\x16\0\x0B\0\x40\0\x40\x10\0\0\x80\0\0\0", 14);
    const std::string bitmaps = write("a.sup", screen + header + std::string("\x80\0\0", 3));
    const std::string path = make("film.mkv", {pictures(),
                                               tone(440),
                                               {"-i", bitmaps, "-i", words("a.srt", "Words")},
                                               {"-map", "0", "-map", "1", "-map", "2", "-map", "3", "-c:s:0", "copy"},
                                               quick()});
    EXPECT_EQ(render({path, "-p", MKV}, "a.mkv").subtitleText(), "Words 0.20-1.20, More 1.50-1.90");
    EXPECT_THAT(said, HasSubstr("left out: 1 subtitle track (2)\n"));
}

TEST_F(Programmes, OfSoundAloneKeepTheirCover) {
    const std::string song =
        make("song.mp3", {tone(440),
                          {"-i", picture(), "-map", "0", "-map", "1", "-c:v", "copy", "-disposition:v", "attached_pic"},
                          {"-metadata", "title=A song", "-metadata", "artist=Somebody", "-metadata", "language=ger",
                           "-metadata", "track=3/12", "-c:a", "libmp3lame"}});
    for (const auto& [preset, output] : std::vector<std::pair<const char*, const char*>>{
             {"mp3", "a.mp3"}, {"flac", "a.flac"}, {"m4a-aac", "a.m4a"}, {"opus", "a.opus"}, {"ogg-vorbis", "a.ogg"}}) {
        const auto file = render({song, "-p", preset}, output);
        ASSERT_EQ(file.all("cover").size(), 1U) << output;
        EXPECT_EQ(file.all("cover")[0].coverBytes, TestMedia::describe(song).all("cover")[0].coverBytes) << output;
        const bool ofTheTrack = *preset == 'o'; // in Ogg
        EXPECT_EQ(ofTheTrack ? file.all("audio")[0].tag("title") : file.tag("title"), "A song") << output;
        EXPECT_EQ(ofTheTrack ? file.all("audio")[0].tag("track") : file.tag("track"), "3/12") << output;
        EXPECT_EQ(said, "") << output;
    }
    EXPECT_EQ(TestMedia::describe(place / "a.m4a").all("audio")[0].tag("language"), "deu");
    EXPECT_EQ(TestMedia::describe(place / "a.mp3").tag("language"), "deu");
    const auto film = render({song, "-p", MKV, "--video", "none"}, "a.mka");
    EXPECT_EQ(film.all("cover").size(), 1U);
    const auto bare = render({song, "-p", "mp3", "--metadata", "none"}, "b.mp3");
    EXPECT_TRUE(bare.all("cover").empty());
    EXPECT_EQ(bare.tag("title"), "");
    render({song, "-p", "wav"}, "a.wav");
    EXPECT_THAT(said, HasSubstr("left out: 1 attached picture (1)"));
}

TEST_F(Programmes, OfMediaAreNotCalledThoseOfATimeline) {
    const std::string film = make("film.mkv", {pictures(), {"-metadata", "title=A film"}, quick()});
    render({film, "-p", "gif-gif-480p"}, "a.gif");
    EXPECT_THAT(said, HasSubstr("note: The title is left out: the file has no place for it\n"));
    EXPECT_THAT(said, Not(HasSubstr("timeline")));
}

TEST_F(Programmes, ThatAreNotInTheFileFailTheExport) {
    std::string catalogue = TestFiles::read(EDITOR_EXPORT_CATALOGUE).toStdString();
    const std::string plain = R"("container": {"id": "mp3"})";
    ASSERT_NE(catalogue.find(plain), std::string::npos);
    catalogue.replace(catalogue.find(plain), plain.size(),
                      R"("container": {"id": "mp3", "options": {"id3v2_version": 0}})");
    const std::string song = make("song.mka", {tone(440), {"-metadata", "title=A song", "-c:a", "flac"}});
    Program program({"render", song, "-p", "mp3", "-o", place / "a.mp3", "--progress", "none"});
    program.setEnvironment("EDITOR_EXPORT_PRESETS", write("catalogue.json", catalogue));
    const Result result = program.run();
    EXPECT_EQ(result.code, 1);
    EXPECT_THAT(result.errors.toStdString(), HasSubstr("found wrong: it does not have its title"));
}

TEST_F(Programmes, ThatAreNoUtf8AreReadAsTheyWereMeant) {
    const std::string path = make(
        "film.mkv", {pictures(), tone(440), {"-metadata", "title=12345", "-metadata", "artist=Somebody"}, quick()});
    std::string bytes = TestFiles::read(path).toStdString();
    bytes.replace(bytes.find("12345"), 5, "Stra\xDF");
    TestFiles::write(path, QByteArray::fromStdString(bytes));
    EXPECT_EQ(render({path, "-p", MKV}, "a.mkv").tag("title"), "Straß");
    EXPECT_THAT(said, HasSubstr("the tag \"title\" is no UTF-8 and was read as Windows-1252\n"));
}

} // namespace
} // namespace TestCli
