// SPDX-License-Identifier: GPL-3.0-or-later
// What of a subtitle's text is markup, and how the rest stands in each format.
#include "Kestra/FF/Data/SubtitleText.h"
#include "SourceFixture.h"
#include <atomic>
#include <fstream>

namespace TestMedia {
namespace {

using namespace Kestra::FF;

constexpr const char* JOINER = "\xE2\x81\xA0";

TEST(SubtitleText, KnowsTheTagsOfSubRip) {
    for (const char* tag : {"<b>", "</b>", "<I>", "<u >", "<s>", "</s>", "<br>", "<br/>", "<br />", "<font>", "</font>",
                            "<font color=\"#ff0000\">", "<FONT face='a b'>"})
        EXPECT_TRUE(IsSubRipTag(tag, 0)) << tag;
    for (const char* text : {"<", "<b", "< b>", "<b and c>", "<3 --> love", "<applause>", "<over>", "</over>", "<bold>",
                             "<fonts>", "<b<i>", "<>", "</>", "<v Somebody>"})
        EXPECT_FALSE(IsSubRipTag(text, 0)) << text;
    EXPECT_FALSE(IsSubRipTag("<font face=\"" + std::string(120, 'a') + "\">", 0)) << "longer than any reader takes";
}

TEST(SubtitleText, OfSubRipIsShieldedWhereItIsNoTag) {
    std::string text = "a < b <i>c</i> <\x01<br/>d";
    const char standIn = ShieldSubRip(text);
    EXPECT_EQ(text, "a \x02 b <i>c</i> \x02\x01<br >d") << "by a character that it has not";
    EXPECT_EQ(standIn, '\x02');
    std::string event = std::string("0,0,Default,,0,0,0,,a \x02 b \x02") + JOINER + "b>";
    UnshieldSubRip(event, standIn);
    EXPECT_EQ(event, "0,0,Default,,0,0,0,,a < b <b>");
    std::string plain = "<b>all</b> is markup";
    EXPECT_EQ(ShieldSubRip(plain), 0);
    EXPECT_EQ(plain, "<b>all</b> is markup");
}

TEST(SubtitleText, IsWrittenAsEachFormatHasIt) {
    const std::string text =
        "{\\b1}R&D{\\b0} a < b > c {\\1c&HFF&}<over>{\\1c} <i>, \\{x\\} {y} \\{\\an8\\}\\Ntwo\\hwords";
    const std::string blank = "\xC2\xA0", end = std::string("{x} {y} {") + JOINER + "\\an8}\\Ntwo" + blank + "words";
    EXPECT_EQ(TextFor(AV_CODEC_ID_MOV_TEXT, text), "{\\b1}R&D{\\b0} a < b > c {\\1c&HFF&}<over>{\\1c} <i>, " + end);
    EXPECT_EQ(TextFor(AV_CODEC_ID_SUBRIP, text),
              std::string("{\\b1}R&D{\\b0} a < b > c {\\1c&HFF&}<over>{\\1c} <") + JOINER + "i>, " + end);
    EXPECT_EQ(TextFor(AV_CODEC_ID_WEBVTT, text),
              "{\\b1}R&amp;D{\\b0} a &lt; b &gt; c {\\1c&HFF&}&lt;over&gt;{\\1c} &lt;i&gt;, " + end);
    for (const char* cut : {"", "\\", "{\\", "{\\b1", "<"})
        EXPECT_EQ(TextFor(AV_CODEC_ID_SUBRIP, cut), cut);
}

TEST(SubtitleText, OfWebVttHasItsCharacters) {
    EXPECT_EQ(WithCharacters("&quot;a&#39;b&#x2014;c&hellip;&#60;d&#38;"), "\"a'b\xE2\x80\x94"
                                                                           "c\xE2\x80\xA6&lt;d&amp;");
    for (const char* kept :
         {"&lt;", "&amp;", "&unknown;", "&", "&;", "&#;", "&#x;", "&#xD800;", "&#7;", "&#12x;", "R&D; "})
        EXPECT_EQ(WithCharacters(kept), kept);
}

TEST(SubtitleText, OfWebVttMayHaveTagsThatItDoesNotKnow) {
    for (const char* known : {"<b>a</b>", "<c.yellow>a</c>", "<v Somebody>a", "<lang en>a</lang>", "<00:01.000>a",
                              "<ruby>a<rt>b</rt></ruby>", "a &lt;over&gt;"})
        EXPECT_FALSE(HasForeignWebVttTags(known)) << known;
    for (const char* foreign : {"<applause>", "a < b", "<font color=red>a</font>"})
        EXPECT_TRUE(HasForeignWebVttTags(foreign)) << foreign;
}

class SubtitleReading : public SourceTest {
protected:
    /// The text of the only subtitle in a file of the codec, as the muxer library writes it.
    std::string read(const std::string& name, const std::string& file, const std::string& content) {
        std::ofstream(folder / file, std::ios::binary) << content;
        const auto source = open(make(name, join(pictures("25", 25), {"-i", folder / file, "-map", "0", "-map", "1",
                                                                      "-c:s", "copy", "-c:v", "libvpx"})));
        const std::atomic<bool> never{false};
        const auto tracks = source->ReadSubtitles({1}, never);
        notes.clear();
        for (const auto& note : source->TakeNotes())
            notes += note.what + '\n';
        return tracks.at(0).cues.empty() ? "" : tracks.at(0).cues[0].Text();
    }

    std::string notes;
};

TEST_F(SubtitleReading, TakesForMarkupOnlyWhatIs) {
    const auto subrip = [this](const std::string& text) {
        return read("a.mkv", "a.srt", "1\n00:00:00,100 --> 00:00:00,400\n" + text + "\n\n");
    };
    EXPECT_EQ(subrip("If a < b & c > d"), "If a < b & c > d");
    EXPECT_EQ(subrip("<applause> Bravo <3 --> love"), "<applause> Bravo <3 --> love");
    EXPECT_EQ(subrip("<i>a</i><br/>b <over>c</over>"), "{\\i1}a{\\i0}\\Nb <over>c</over>");
    EXPECT_EQ(notes, "");
}

TEST_F(SubtitleReading, TellsOfTagsThatWebVttDoesNotKnow) {
    const auto webvtt = [this](const std::string& text) {
        return read("a.webm", "a.vtt", "WEBVTT\n\n00:00.100 --> 00:00.400\n" + text + "\n\n");
    };
    EXPECT_EQ(webvtt("a &lt;over&gt; R&amp;D &quot;b&quot; &amp;lt;"), "a <over> R&D \"b\" &lt;");
    EXPECT_EQ(notes, "");
    EXPECT_EQ(webvtt("<applause>Bravo"), "Bravo");
    EXPECT_EQ(notes, "1 of the subtitles of track 1 have tags that WebVTT does not know, which are left out\n");
}

} // namespace
} // namespace TestMedia
