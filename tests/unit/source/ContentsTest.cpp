// SPDX-License-Identifier: GPL-3.0-or-later
// What media list of themselves, and the text of their subtitles.
#include "SourceFixture.h"
#include <atomic>
#include <fstream>

namespace TestMedia {
namespace {

using Kestra::Proc::ListedTrack;
using Kestra::Proc::MediaContents;
using Kestra::Proc::TrackChoice;
using Kind = Kestra::Proc::ListedTrack::Kind;

constexpr std::int64_t MILLISECOND = Kestra::TICKS_PER_MILLISECOND;

class Contents : public SourceTest {
protected:
    std::string write(const std::string& name, const std::string& content) {
        std::ofstream(folder / name, std::ios::binary) << content;
        return folder / name;
    }
    static std::vector<std::string> tone(int frequency) {
        return {"-f", "lavfi", "-i", "sine=f=" + std::to_string(frequency) + ":r=48000:d=1"};
    }
    static std::vector<std::string> all(const std::vector<std::vector<std::string>>& parts) {
        std::vector<std::string> words;
        for (const auto& part : parts)
            words.insert(words.end(), part.begin(), part.end());
        return words;
    }
    std::string words(const std::string& text) {
        return write("words.srt",
                     "1\n00:00:00,100 --> 00:00:00,400\n" + text + "\n\n2\n00:00:00,500 --> 00:00:00,900\nMore\n");
    }
    std::string twoSounds() {
        return make("sounds.mkv", all({pictures("25", 25),
                                       tone(440),
                                       tone(880),
                                       {"-map",
                                        "0",
                                        "-map",
                                        "1",
                                        "-map",
                                        "2",
                                        "-c:v",
                                        "ffv1",
                                        "-c:a",
                                        "flac",
                                        "-ac:a:1",
                                        "2",
                                        "-metadata:s:a:0",
                                        "language=ger",
                                        "-metadata:s:a:1",
                                        "language=eng",
                                        "-metadata:s:a:1",
                                        "title=Commentary",
                                        "-disposition:a:0",
                                        "default"}}));
    }
};

TEST_F(Contents, ListEveryTrack) {
    const auto source = open(twoSounds());
    const auto& tracks = source->GetInfo().contents.tracks;
    ASSERT_EQ(tracks.size(), 3U);
    EXPECT_EQ(tracks[0].kind, Kind::Picture);
    EXPECT_EQ(tracks[0].codec, "ffv1");
    EXPECT_EQ(tracks[0].frameRate, 25);
    EXPECT_EQ(tracks[0].frame.width, source->GetInfo().video->frame.width);
    EXPECT_EQ(tracks[1].language, "ger");
    EXPECT_TRUE(tracks[1].isDefault);
    EXPECT_EQ(tracks[2].kind, Kind::Sound);
    EXPECT_EQ(tracks[2].title, "Commentary");
    EXPECT_EQ(tracks[2].channelLayout, "stereo");
    EXPECT_EQ(tracks[2].sampleRate, 48000);
    EXPECT_FALSE(tracks[2].isDefault);
    EXPECT_TRUE(source->TakeNotes().empty());
}

TEST_F(Contents, HaveChaptersFromTheFirstPictureOn) {
    const std::string chapters = write(
        "tags", ";FFMETADATA1\n[CHAPTER]\nTIMEBASE=1/1000\nSTART=0\nEND=400\ntitle=One\n[CHAPTER]\nTIMEBASE=1/1000\n"
                "START=400\nEND=1000\ntitle=Two\n[CHAPTER]\nTIMEBASE=1/1000\nSTART=400\nEND=400\ntitle=Three\n");
    for (const char* name : {"a.mkv", "a.mp4"}) {
        const auto source =
            open(make(name, all({pictures("25", 25), {"-i", chapters, "-map_metadata", "1", "-c:v", "mpeg4"}})));
        const auto& found = source->GetInfo().contents.programme.chapters;
        ASSERT_EQ(found.size(), 2U) << name;
        EXPECT_EQ(found[1].start, 400 * MILLISECOND) << name;
        EXPECT_EQ(found[0].title + found[1].title, "OneTwo") << name;
    }
}

TEST_F(Contents, HaveNoMoreChaptersThanAnybodyChoosesFrom) {
    std::string chapters = ";FFMETADATA1\n";
    for (int i = 0; i < 2100; ++i)
        chapters += "[CHAPTER]\nTIMEBASE=1/10000\nSTART=" + std::to_string(i) + "\nEND=" + std::to_string(i + 1) + '\n';
    const auto source = open(make(
        "a.mkv", all({pictures("25", 25), {"-i", write("tags", chapters), "-map_metadata", "1", "-c:v", "mpeg4"}})));
    EXPECT_EQ(source->GetInfo().contents.programme.chapters.size(), 2000U);
    EXPECT_EQ(source->TakeNotes().at(0).what, "of its 2100 chapters the first 2000 are read");
}

TEST_F(Contents, HaveTheTagsThatSomebodyWrote) {
    const auto source = open(
        make("a.mkv",
             all({pictures("25", 5),
                  {"-c:v", "ffv1", "-metadata", "title=A film", "-metadata", "ARTIST=Jürgen", "-metadata",
                   "creation_time=2020-01-01T00:00:00Z", "-metadata", "major_brand=isom", "-metadata", "rotate=90",
                   "-metadata", "encoded_by=x", "-metadata", "com.android.version=9", "-metadata", "mood=grave"}})));
    const auto& programme = source->GetInfo().contents.programme;
    EXPECT_EQ(programme.title, "A film");
    const std::vector<std::pair<std::string, std::string>> wanted{
        {"mood", "grave"}, {"artist", "Jürgen"}, {"date", "2020-01-01T00:00:00.000000Z"}};
    EXPECT_EQ(programme.tags, wanted) << "what made the file is often all that tells its date";
    const auto large = open(
        make("b.mkv", all({pictures("25", 5), {"-c:v", "ffv1", "-metadata", "comment=" + std::string(40000, 'a')}})));
    EXPECT_TRUE(large->GetInfo().contents.programme.tags.empty());
    EXPECT_EQ(large->TakeNotes().at(0).what, "the tag \"comment\" is left out: it holds 40000 bytes");
}

TEST_F(Contents, OfOggHaveTheirTagsInTheTracks) {
    const auto source = open(make(
        "a.ogg", all({tone(440), {"-c:a", "libvorbis", "-metadata", "title=A song", "-metadata", "artist=Somebody"}})));
    const auto& contents = source->GetInfo().contents;
    EXPECT_EQ(contents.programme.title, "A song");
    EXPECT_EQ(contents.programme.tags.at(0).second, "Somebody");
    EXPECT_EQ(contents.tracks.at(0).title, "") << "it is the whole that is called so";
}

TEST_F(Contents, HaveTheCover) {
    const std::string picture = make("cover.png", {"-f", "lavfi", "-i", "color=red:s=8x6", "-frames:v", "1"});
    const auto source = open(make(
        "a.mp3",
        all({tone(440), {"-i", picture, "-map", "0", "-map", "1", "-c:v", "copy", "-disposition:v", "attached_pic"}})));
    const auto& contents = source->GetInfo().contents;
    EXPECT_EQ(contents.tracks.at(1).kind, Kind::Cover);
    EXPECT_EQ(contents.programme.cover.mimeType, "image/png");
    EXPECT_EQ(contents.programme.cover.width, 8);
    EXPECT_EQ(contents.programme.cover.bytes.substr(1, 3), "PNG");
    EXPECT_FALSE(source->GetInfo().video);
}

TEST_F(Contents, HaveTheChosenSound) {
    const std::string path = twoSounds();
    EXPECT_EQ(open(path)->GetInfo().audio->index, 1);
    EXPECT_EQ(openWith(path, {2, {}})->GetInfo().audio->index, 2);
    EXPECT_EQ(openWith(path, {2, {}})->GetInfo().audio->channels, 2);
    EXPECT_EQ(openWith(path, {{}, "en"})->GetInfo().audio->index, 2);
    EXPECT_EQ(openWith(path, {{}, "deu"})->GetInfo().audio->index, 1);
    const std::string mute = make("mute.mkv", all({pictures("25", 5), {"-c:v", "ffv1"}}));
    EXPECT_FALSE(openWith(mute, {2, {}})->GetInfo().audio) << "there is nothing to choose from";
}

TEST_F(Contents, OfOneSoundMayHaveTheOriginOfAnother) {
    const std::string path =
        make("early.mkv", all({{"-itsoffset", "0.4"},
                               pictures("25", 25),
                               {"-itsoffset", "0.4"},
                               tone(440),
                               tone(880),
                               {"-map", "0", "-map", "1", "-map", "2", "-c:v", "ffv1", "-c:a", "pcm_s16le"}}));
    const auto late = openWith(path, {1, {}});
    const auto early = openWith(path, {2, {}});
    EXPECT_EQ(late->GetInfo().origin - early->GetInfo().origin, 400 * MILLISECOND);
    EXPECT_EQ(late->GetInfo().audio->start, 0);
    const auto together = openWith(path, {1, {}, early->GetInfo().origin});
    EXPECT_EQ(together->GetInfo().origin, early->GetInfo().origin);
    EXPECT_EQ(together->GetInfo().audio->start, 400 * MILLISECOND);
    EXPECT_EQ(together->GetInfo().video->start, early->GetInfo().video->start);
    EXPECT_EQ(together->GetInfo().duration, late->GetInfo().duration + 400 * MILLISECOND);
}

TEST_F(Contents, RefuseASoundTrackThatIsNotThere) {
    const std::string path = twoSounds();
    for (const TrackChoice& choice : {TrackChoice{0, {}}, TrackChoice{7, {}}, TrackChoice{{}, "fra"}})
        try {
            openWith(path, choice);
            ADD_FAILURE() << choice.soundLanguage;
        } catch (const Kestra::Proc::ProcException& error) {
            EXPECT_NE(std::string(error.what()).find("it has no such sound track; it has 1 (ger), 2 (eng)"),
                      std::string::npos)
                << error.what();
        }
}

TEST_F(Contents, HaveTheTextOfSubtitles) {
    const std::atomic<bool> never{false};
    const std::string text = words("Häuser <b>und</b> Höfe");
    for (const auto& [name, codec] : std::vector<std::pair<std::string, std::string>>{
             {"a.mkv", "subrip"}, {"b.mkv", "ass"}, {"a.webm", "webvtt"}, {"a.mp4", "mov_text"}}) {
        const auto source =
            open(make(name, all({pictures("25", 25),
                                 {"-i", text, "-map", "0", "-map", "1", "-c:s", codec, "-c:v",
                                  name == "a.webm" ? "libvpx" : "mpeg4", "-metadata:s:s", "language=ger"}})));
        ASSERT_TRUE(source->GetInfo().contents.tracks.at(1).isText) << name;
        const auto read = source->ReadSubtitles({1}, never);
        ASSERT_EQ(read.size(), 1U);
        EXPECT_EQ(Kestra::Conf::Subtitles(read[0]).styled, codec == "ass");
        ASSERT_EQ(read[0].cues.size(), 2U) << name << ' ' << codec;
        EXPECT_EQ(read[0].cues[0].start, 100 * MILLISECOND) << codec;
        EXPECT_EQ(read[0].cues[0].end, 400 * MILLISECOND) << codec;
        // QuickTime's styles go back to what they were.
        EXPECT_EQ(read[0].cues[0].Text(),
                  std::string("Häuser {\\b1}und{\\") + (codec == "mov_text" ? "r" : "b0") + "} Höfe")
            << codec;
        EXPECT_EQ(read[0].cues[1].Text(), "More") << codec;
        EXPECT_NE(read[0].header.find("[Script Info]"), std::string::npos) << codec;
    }
}

TEST_F(Contents, RepairTextThatIsNoUtf8) {
    const std::atomic<bool> never{false};
    const auto path = make(
        "a.mkv", all({pictures("25", 25),
                      {"-i", words("12345"), "-map", "0", "-map", "1", "-c:v", "ffv1", "-metadata", "artist=67890"}}));
    std::stringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    std::string bytes = content.str();
    bytes.replace(bytes.find("12345"), 5, "gr\xFC\xDF\x80");
    bytes.replace(bytes.find("67890"), 5, "J\xFCrgn");
    write("b.mkv", bytes);
    const auto source = open(folder / "b.mkv");
    EXPECT_EQ(source->GetInfo().contents.programme.tags.at(0).second, "Jürgn");
    EXPECT_EQ(source->ReadSubtitles({1}, never)[0].cues.at(0).Text(), "grüß€");
    const auto notes = source->TakeNotes();
    ASSERT_EQ(notes.size(), 2U);
    EXPECT_EQ(notes[0].what, "the tag \"artist\" is no UTF-8 and was read as Windows-1252");
    EXPECT_EQ(notes[1].what, "1 of the subtitles of track 1 are no UTF-8 and were read as Windows-1252");
}

} // namespace
} // namespace TestMedia
