// SPDX-License-Identifier: GPL-3.0-or-later
// What subtitles say is the same in each file that is made of them.
#include "TracksFixture.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gmock/gmock.h>

extern "C" {
#include <libavformat/avformat.h>
}

using ::testing::HasSubstr;

namespace TestCli {
namespace {

constexpr const char* MP4 = "mp4-h264-480p";
constexpr const char* MKV = "mkv-ffv1-flac";
constexpr const char* WEBM = "webm-vp9-720p";
constexpr const char* MOV = "mov-prores-1080p";

class SubtitleFiles : public TracksTest {
protected:
    std::string film(const std::string& name, const std::string& words, const std::string& codec,
                     const std::vector<std::string>& more = {}) const {
        return make(name, {pictures(),
                           tone(440),
                           {"-i", words, "-map", "0", "-map", "1", "-map", "2", "-c:s", codec},
                           more,
                           quick()});
    }
    std::string subrip(const std::string& first, const std::string& second) const {
        return write("a.srt", "1\n00:00:00,200 --> 00:00:01,200\n" + first + "\n\n2\n00:00:01,500 --> 00:00:01,900\n" +
                                  second + "\n");
    }
    std::string ass(const std::string& text) const {
        return write("a.ass", "[Script Info]\nScriptType: v4.00+\n\n[V4+ Styles]\nFormat: Name, Fontname, Fontsize\n"
                              "Style: Default,Arial,20\n\n[Events]\nFormat: Layer, Start, End, "
                              "Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
                              "Dialogue: 0,0:00:00.20,0:00:01.20,Default,,0,0,0,," +
                                  text + '\n');
    }
    /// The track's packets as they are, in a file of text.
    std::string packets(const std::string& file, const std::string& extension) const {
        const std::string text = make("packets." + extension, {{"-i", place / file, "-map", "0:s:0", "-c", "copy"}});
        return TestFiles::read(text).toStdString();
    }
};

TEST_F(SubtitleFiles, HaveTheTextThatLooksLikeMarkup) {
    const std::string path =
        film("film.mkv", subrip("If a < b & c > d", "<applause> <i>Bravo</i> <3 --> love"), "copy");
    render({path, "-p", MKV}, "a.mkv");
    EXPECT_EQ(said, "");
    const std::string again = packets("a.mkv", "srt");
    EXPECT_THAT(again, HasSubstr("\nIf a < b & c > d\n"));
    EXPECT_THAT(again, HasSubstr("\n<applause> <i>Bravo</i> <3 --> love\n"));
    EXPECT_EQ(render({path, "-p", MP4}, "a.mp4").subtitleText(),
              "If a < b & c > d 0.20-1.20, <applause> Bravo <3 --> love 1.50-1.90");
    EXPECT_EQ(said, "");
    render({path, "-p", WEBM}, "a.webm");
    EXPECT_EQ(said, "");
    const std::string web = packets("a.webm", "vtt");
    EXPECT_THAT(web, HasSubstr("\nIf a &lt; b &amp; c &gt; d\n"));
    EXPECT_THAT(web, HasSubstr("\n&lt;applause&gt; <i>Bravo</i> &lt;3 --&gt; love\n"));
    // And from there.
    for (const char* file : {"a.mp4", "a.webm"}) {
        render({place / file, "-p", MKV}, "b.mkv");
        EXPECT_EQ(said, "") << file;
        EXPECT_EQ(packets("b.mkv", "srt"), again) << file;
    }
}

TEST_F(SubtitleFiles, HaveTheTextOfStylesThatGo) {
    const std::string path = film("film.mkv", ass("Top & <over> <i>lapping{\\i1}x{\\i0}\\hy"), "ass");
    render({path, "-p", WEBM}, "a.webm");
    EXPECT_THAT(packets("a.webm", "vtt"), HasSubstr("\nTop &amp; &lt;over&gt; &lt;i&gt;lapping<i>x</i>\u00A0y\n"));
    const char* const shown = "Top & <over> <i>lappingx\u00A0y 0.20-1.20";
    EXPECT_EQ(render({path, "-p", MP4}, "a.mp4").subtitleText(), shown);
    EXPECT_EQ(render({path, "-p", MKV}, "a.mkv").subtitleText(), "Top & <over> <i>lappingx\\hy 0.20-1.20");
    render({place / "a.mp4", "-p", MKV}, "b.mkv");
    EXPECT_THAT(packets("b.mkv", "srt"), HasSubstr("Top & <over> <\u2060i>lapping<i>x</i>"))
        << "what would be markup is none";
    EXPECT_EQ(render({place / "b.mkv", "-p", MP4}, "b.mp4").subtitleText(), shown);
}

TEST_F(SubtitleFiles, AreSeenBehindTextOfAnotherSize) {
    const std::string path = film("film.mkv", subrip("a <font size=\"30\">large</font> word", "Two"), "copy");
    render({path, "-p", MP4}, "a.mp4");
    const std::string read = TestFiles::read(make("a.srt", {{"-i", place / "a.mp4", "-map", "0:s:0"}})).toStdString();
    EXPECT_THAT(read, HasSubstr("\na <font size=\"30\">large</font> word\n")) << "and not in the size 0";
    EXPECT_EQ(said, "");
}

TEST_F(SubtitleFiles, SayWhichFontsAndLinesAreLost) {
    const std::string fonts = "Fonts of subtitles and their sizes are left out: the file has no place for them\n";
    const std::string lines = "Lines through the text of subtitles are left out: the file has no place for them\n";
    const std::string note = "editor-export: note: ";
    const std::string path = film("film.mkv", subrip("a <font size=\"30\">large</font> <s>word</s>", "Two"), "copy");
    render({path, "-p", WEBM}, "a.webm");
    EXPECT_EQ(said, note + fonts + note + lines);
    render({path, "-p", MP4}, "a.mp4");
    EXPECT_EQ(said, note + lines);
    render({path, "-p", MKV}, "a.mkv");
    EXPECT_EQ(said, "");
    EXPECT_THAT(packets("a.mkv", "srt"), HasSubstr("\na <font size=\"30\">large</font> <s>word</s>\n"));
}

TEST_F(SubtitleFiles, ThatShowNothingAreNone) {
    const std::string plain = film("film.mkv", subrip("<i></i>", "{\\an8}Two"), "copy");
    const std::string styled = film("styled.mkv",
                                    ass("{\\pos(1,2)}\nDialogue: 0,0:00:01.30,0:00:01.40,Default,,0,0,0,,"
                                        "{\\p1}m 0 0 l 10 10{\\p0}\n"
                                        "Dialogue: 0,0:00:01.50,0:00:01.90,Default,,0,0,0,,{for whom}{\\i1}Two"),
                                    "ass");
    for (const std::string& path : {plain, styled})
        for (const auto& [preset, output] : std::vector<std::pair<const char*, const char*>>{
                 {MP4, "a.mp4"}, {MOV, "a.mov"}, {WEBM, "a.webm"}, {MKV, "a.mkv"}})
            if (path == plain || preset != MKV) {
                EXPECT_EQ(render({path, "-p", preset}, output).subtitleText(), "Two 1.50-1.90") << path << output;
            }
    EXPECT_EQ(TestMedia::describe(place / "styled.mkv").all("subtitle").at(0).texts.size(), 2U) << "with what is drawn";
}

TEST_F(SubtitleFiles, StayWhatIsShownToWhoeverChoosesNothing) {
    const auto marksOf = [](const std::string& file) {
        std::vector<bool> marks;
        const QJsonObject told = QJsonDocument::fromJson(run({"info", "--json", file}).output.toUtf8()).object();
        for (const QJsonValue track : told[QStringLiteral("media")][0][QStringLiteral("tracks")].toArray())
            if (track[QStringLiteral("kind")] == QStringLiteral("subtitles"))
                marks.push_back(track[QStringLiteral("default")].toBool());
        return marks;
    };
    for (const bool isMarked : {true, false}) {
        const std::string path = film("film.mkv", subrip("One", "Two"), "copy",
                                      {"-default_mode", "passthrough", "-disposition:s:0", isMarked ? "default" : "0"});
        ASSERT_EQ(marksOf(path), std::vector<bool>{isMarked});
        for (const auto& [preset, output] :
             std::vector<std::pair<const char*, const char*>>{{MKV, "b.mkv"}, {WEBM, "b.webm"}}) {
            render({path, "-p", preset}, output);
            EXPECT_EQ(marksOf(place / output), std::vector<bool>{isMarked}) << output;
        }
        // Here the first ones are marked always, which says nothing.
        render({path, "-p", MP4}, "b.mp4");
        EXPECT_EQ(marksOf(place / "b.mp4"), std::vector<bool>{true});
        render({place / "b.mp4", "-p", MKV}, "c.mkv");
        EXPECT_EQ(marksOf(place / "c.mkv"), std::vector<bool>{false});
    }
}

TEST_F(SubtitleFiles, OfSeveralInputsAreShownByDefaultWhereThoseOfOneWere) {
    const auto marked = [&](const char* name, const char* mark) {
        return film(name, subrip("One", "Two"), "copy", {"-default_mode", "passthrough", "-disposition:s:0", mark});
    };
    const std::string shown = marked("shown.mkv", "default"), hidden = marked("hidden.mkv", "0");
    for (const auto& inputs : {std::vector{shown, hidden}, {hidden, shown}, {hidden, hidden}}) {
        std::vector<std::string> arguments = inputs;
        arguments.insert(arguments.end(), {"-p", MKV});
        const auto track = render(arguments, "joined.mkv").all("subtitle").at(0);
        EXPECT_EQ((track.disposition & AV_DISPOSITION_DEFAULT) != 0, inputs.front() != inputs.back());
    }
}

TEST_F(SubtitleFiles, StayForced) {
    const std::string path = film("film.mkv", subrip("One", "Two"), "copy",
                                  {"-disposition:s:0", "forced", "-metadata:s:s:0", "language=fre"});
    std::string from = path;
    for (const auto& [preset, output] : std::vector<std::pair<const char*, const char*>>{
             {MOV, "a.mov"}, {MKV, "b.mkv"}, {MP4, "a.mp4"}, {MOV, "b.mov"}, {WEBM, "a.webm"}}) {
        EXPECT_EQ(render({from, "-p", preset}, output).subtitleText(), "One 0.20-1.20, Two 1.50-1.90") << output;
        EXPECT_EQ(said, "") << output;
        EXPECT_THAT(run({"info", place / output}).output.toStdString(), HasSubstr(", forced\n")) << output;
        from = place / output;
    }
}

} // namespace
} // namespace TestCli
