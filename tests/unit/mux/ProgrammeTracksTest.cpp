// SPDX-License-Identifier: GPL-3.0-or-later
// Names of tracks, covers and subtitles in files of every container.
#include "Kestra/Base/Time.h"
#include "Kestra/ClientAPI/ContainerLimits.h"
#include "Kestra/Conf/Container.h"
#include "Kestra/Conf/Language.h"
#include "Kestra/Conf/ProgrammeInfo.h"
#include "Kestra/Proc/FileCheck.h"
#include "Kestra/Proc/Filters/AudioFilterBase.h"
#include "Kestra/Proc/Filters/VideoFilterBase.h"
#include "Kestra/Proc/ProcException.h"
#include "fakes/streams/ExportDriver.h"
#include "fakes/streams/ScratchFolder.h"
#include "fakes/streams/SyntheticAudio.h"
#include "fakes/streams/SyntheticVideo.h"
#include "support/Described.h"
#include <gtest/gtest.h>

using namespace Fakes;
using namespace Kestra;
using ClientAPI::ContainerLimits;
using ClientAPI::ProgrammeField;
using Conf::ProgrammeInfo;
using Conf::Subtitles;

namespace {

constexpr std::int64_t SECOND = TIME_BASE;
/// As what players begin with, in the flags of the demuxer library.
constexpr int MARKED = 1;

class ToldAudio final : public Proc::AudioFilterBase {
public:
    explicit ToldAudio(ProgrammeInfo told)
        : AudioFilterBase(MakeAudio(Shape()), "told")
        , told(std::move(told)) {}
    void GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const override {
        source->GetAudioFormat(format);
        told.TellIn(*format);
    }

private:
    static AudioShape Shape() {
        AudioShape shape;
        shape.samples = 144000;
        return shape;
    }
    const ProgrammeInfo told;
};

std::string SoundFor(const std::string& container) {
    return container == "webm"   ? "opus"
           : container == "mp3"  ? "mp3"
           : container == "flac" ? "flac"
           : container == "wav"  ? "pcm_s16le"
           : container == "opus" ? "opus"
           : container == "ogg"  ? "opus"
           : container == "ac3"  ? "ac3"
                                 : "aac";
}

std::string PicturesFor(const std::string& container) {
    return container == "webm" ? "vp8" : container == "gif" ? "gif" : "mpeg4";
}

/// For anything; and the libraries that describe files here read none of these.
bool hasNoPlace(const Conf::Container& container) {
    return container.sequence || container.id == std::string("webp");
}

class Written : public ::testing::Test {
protected:
    TestMedia::DescribedFile write(const std::string& container, const ProgrammeInfo& told, bool pictures = false) {
        std::vector<Raw> tracks;
        VideoShape shape;
        shape.rate = 25;
        shape.frames = 75;
        const bool alone = container == "gif";
        if (pictures || alone)
            tracks.push_back(VideoEncoder(MakeVideo(shape), Description(PicturesFor(container))));
        if (!alone)
            tracks.push_back(AudioEncoder(new ToldAudio(told), Description(SoundFor(container))));
        WriteFile(folder.File(container), container, tracks);
        checked = Proc::CheckFile(ioPath(folder.File(container)), std::atomic<bool>(false));
        return TestMedia::describe(folder.File(container));
    }

    /// So many tracks, of which the first tells.
    void writeSounds(const std::string& container, const ProgrammeInfo& told, int count) {
        std::vector<Raw> tracks;
        for (int track = 0; track < count; ++track)
            tracks.push_back(
                AudioEncoder(new ToldAudio(track == 0 ? told : ProgrammeInfo()), Description(SoundFor(container))));
        WriteFile(folder.File(container), container, tracks);
        checked = Proc::CheckFile(ioPath(folder.File(container)), std::atomic<bool>(false));
    }

    const ScratchFolder folder;
    Proc::CheckedFile checked;
};

using ProgrammeNames = Written;
using ProgrammeCover = Written;
using ProgrammeSubtitles = Written;

Subtitles words() {
    Subtitles track;
    track.language = "de";
    track.title = "Words";
    track.header = "[Script Info]\nScriptType: v4.00+\n\n[V4+ Styles]\nFormat: Name, Fontname, Fontsize\nStyle: "
                   "Default,Arial,16\n\n[Events]\nFormat: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, "
                   "Effect, Text\n";
    track.cues = {{SECOND / 2, 2 * SECOND, "7,0,Default,,0,0,0,,Häuser"},
                  {SECOND, 3 * SECOND / 2, "7,0,Default,,0,0,0,,Höfe"},
                  {5 * SECOND / 2, 9 * SECOND, "7,0,Default,,0,0,0,,More"}};
    return track;
}

} // namespace

TEST_F(ProgrammeNames, AreWrittenInTheFormOfTheContainer) {
    ProgrammeInfo told;
    told.sound = {"de-AT", "Commentary"};
    for (const auto& [container, language] : std::vector<std::pair<std::string, std::string>>{
             {"mp4", "deu"}, {"m4a", "deu"}, {"mov", "ger"}, {"mkv", "ger"}, {"webm", "ger"}}) {
        const auto sound = write(container, told).all("audio").at(0);
        EXPECT_EQ(sound.tag("language"), language) << container;
        const bool isFilm = container == "mp4" || container == "mov" || container == "m4a";
        EXPECT_EQ(sound.tag(isFilm ? "handler_name" : "title"), "Commentary") << container;
        EXPECT_TRUE(Conf::Language::AreSame(checked.streams.at(0).language, "deu")) << container;
    }
    for (const char* code : {"eng", "fra", "swe", "zho", "ell", "zul"}) {
        told.sound.language = code;
        const std::string held = ContainerLimits::LanguageIn("mov", code);
        EXPECT_EQ(write("mov", told).all("audio").at(0).tag("language"), held) << code;
    }
}

TEST_F(ProgrammeNames, OfSeveralSoundsAreTheirOwnAndTellWhichPlayersBeginWith) {
    for (const Conf::Container& container : Conf::Container::All()) {
        if (!ContainerLimits::Holds(container.id, ProgrammeField::FurtherSounds))
            continue;
        ProgrammeInfo told;
        told.sound = {"deu", "Film"};
        told.furtherSounds = {{"eng", "Commentary", true}, {"fra", ""}};
        writeSounds(container.id, told, 3);
        const auto sounds = TestMedia::describe(folder.File(container.id)).all("audio");
        ASSERT_EQ(sounds.size(), 3U) << container.id;
        const bool isFilm = container.family == Conf::Container::Family::Mov;
        EXPECT_EQ(sounds[1].tag(isFilm ? "handler_name" : "title"), "Commentary") << container.id;
        const char* const languages[] = {"deu", "eng", "fra"};
        for (std::size_t track = 0; track < 3; ++track) {
            EXPECT_TRUE(Conf::Language::AreSame(checked.streams[track].language, languages[track])) << container.id;
            EXPECT_EQ(checked.streams[track].isDefault, track == 1) << container.id << ' ' << track;
        }
        told.furtherSounds[0].isDefault = false;
        writeSounds(container.id, told, 3);
        EXPECT_TRUE(checked.streams[0].isDefault) << container.id << ": the first where none is told";
        EXPECT_FALSE(checked.streams[1].isDefault || checked.streams[2].isDefault) << container.id;
    }
}

TEST_F(ProgrammeNames, OfSeveralSoundsHaveNoPlaceWhereAFileHoldsOne) {
    for (const char* container : {"mp3", "flac", "wav", "ac3"}) {
        EXPECT_FALSE(ContainerLimits::Holds(container, ProgrammeField::FurtherSounds)) << container;
        EXPECT_THROW(writeSounds(container, {}, 2), Proc::ProcException) << container;
    }
}

TEST_F(ProgrammeNames, AreToldByATagWhereTracksHaveNone) {
    ProgrammeInfo told;
    told.sound.language = "ger";
    for (const char* container : {"mp3", "flac", "wav"}) {
        EXPECT_EQ(write(container, told).tag("language"), "deu") << container;
        EXPECT_EQ(checked.streams.at(0).language, "deu") << container;
    }
}

TEST_F(ProgrammeNames, OfChaptersAreCutOffWhereNotAllReadersTakeLongOnes) {
    ProgrammeInfo told;
    std::string title;
    for (int i = 0; i < 100; ++i)
        title += "ä";
    told.chapters = {{0, SECOND, title}, {SECOND, 3 * SECOND, "Two"}};
    for (const Conf::Container& container : Conf::Container::All()) {
        if (hasNoPlace(container))
            continue;
        const auto file = write(container.id, told);
        if (!container.chapters)
            continue;
        const std::string held = ContainerLimits::ChapterTitleIn(container.id, title);
        EXPECT_EQ(held, container.id == std::string("mp3") ? title.substr(0, 120) : title);
        ASSERT_EQ(file.chapters.size(), 2U) << container.id;
        EXPECT_EQ(file.chapters[0].title, held) << container.id;
    }
    EXPECT_EQ(ContainerLimits::ChapterTitleIn("mp3", 'a' + title).size(), 119U) << "no character is cut in two";
}

TEST_F(ProgrammeNames, OfPicturesAndTheOnlySoundTellThatPlayersBeginWithThem) {
    for (const char* container : {"mp4", "mov", "mkv", "webm"}) {
        ProgrammeInfo told;
        told.subtitles = {words()};
        const auto streams = write(container, told, true).streams;
        ASSERT_GE(streams.size(), 3U) << container;
        for (std::size_t track = 0; track < 2; ++track) {
            EXPECT_NE(streams[track].disposition & MARKED, 0) << container << ' ' << track;
            EXPECT_TRUE(checked.streams[track].isDefault) << container << ' ' << track;
        }
    }
}

TEST_F(ProgrammeSubtitles, AreForcedInEachContainer) {
    for (const char* container : {"mp4", "mov", "mkv", "webm"}) {
        ProgrammeInfo told;
        told.subtitles = {words(), words()};
        told.subtitles[1].forced = true;
        told.subtitles[1].language = "fra";
        const auto file = write(container, told, true);
        EXPECT_FALSE(checked.streams.at(2).forced) << container;
        EXPECT_TRUE(checked.streams.at(3).forced) << container;
        EXPECT_EQ(std::int64_t(file.all("subtitle").at(1).texts.size()), checked.streams.at(3).packets) << container;
    }
}

TEST_F(ProgrammeSubtitles, AreMarkedAsShownByDefaultWhereTheyAre) {
    for (const char* container : {"mp4", "mov", "mkv", "webm"}) {
        ProgrammeInfo told;
        told.subtitles = {words(), words()};
        told.subtitles[1].isDefault = true;
        write(container, told, true);
        EXPECT_FALSE(checked.streams.at(2).isDefault) << container;
        EXPECT_TRUE(checked.streams.at(3).isDefault) << container;
    }
}

TEST_F(ProgrammeCover, StandsInFilesWithoutPicturesThatHaveAPlaceForIt) {
    ProgrammeInfo told;
    // The smallest picture that there is.
    told.cover = {
        "image/png",
        std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\0\1\0\0\0\1\x08\2\0\0\0\x90wS\xDE\0\0\0\x0CIDAT\x08\xD7"
                    "c\xF8\xCF\xC0\0\0\3\1\1\0\x18\xDD\x8D\xB0\0\0\0\0IEND\xAE"
                    "B`\x82",
                    69),
        1, 1, "rgb24"};
    for (const Conf::Container& container : Conf::Container::All()) {
        if (hasNoPlace(container))
            continue;
        const auto covers = write(container.id, told).all("cover");
        const bool held = ContainerLimits::Holds(container.id, ProgrammeField::Cover);
        ASSERT_EQ(covers.size(), held ? 1U : 0U) << container.id;
        EXPECT_EQ(held ? covers[0].coverBytes : 69, 69) << container.id;
    }
    EXPECT_TRUE(write("mp4", told, true).all("cover").empty());
}

TEST_F(ProgrammeSubtitles, AreWrittenInTheKindOfTheContainer) {
    ProgrammeInfo told;
    told.subtitles = {words(), words()};
    told.subtitles[1].language = "eng";
    told.subtitles[1].styled = true;
    const std::string whole = "Häuser 0.50-2.00, Höfe 1.00-1.50, More 2.50-3.00";
    const std::string apart = "Häuser 0.50-1.00, Häuser\\NHöfe 1.00-1.50, Häuser 1.50-2.00, More 2.50-3.00";
    const std::map<std::string, std::pair<std::string, std::string>> kinds{{"mp4", {"mov_text", apart}},
                                                                           {"mov", {"mov_text", apart}},
                                                                           {"mkv", {"subrip", whole}},
                                                                           {"webm", {"webvtt", whole}}};
    for (const Conf::Container& container : Conf::Container::All()) {
        if (hasNoPlace(container))
            continue;
        const auto kind = kinds.find(container.id);
        const bool pictures = kind != kinds.end();
        const auto file = write(container.id, told, pictures);
        const auto tracks = file.all("subtitle");
        ASSERT_EQ(tracks.size(), pictures ? 2U : 0U) << container.id;
        EXPECT_EQ(ContainerLimits::Holds(container.id, ProgrammeField::Subtitles), pictures) << container.id;
        if (!pictures)
            continue;
        EXPECT_EQ(tracks[0].codec, kind->second.first) << container.id;
        EXPECT_EQ(file.subtitleText(0), kind->second.second) << container.id;
        EXPECT_EQ(file.subtitleText(1), kind->second.second) << container.id;
        EXPECT_EQ(tracks[1].tag("language"), "eng") << container.id;
        EXPECT_EQ(checked.streams.at(2).packets, pictures && kind->second.second == apart ? 4 : 3) << container.id;
        EXPECT_EQ(checked.streams.at(2).kind, Proc::CheckedStream::Kind::Subtitles);
    }
    EXPECT_EQ(write("mkv", told, true).all("subtitle")[1].codec, "ass");
}

TEST_F(ProgrammeSubtitles, StandBetweenThePackets) {
    ProgrammeInfo told;
    told.subtitles = {words()};
    const auto file = write("mkv", told, true);
    EXPECT_EQ(checked.streams.at(0).packets, 75);
    EXPECT_LT(file.disorder, 0.3) << "each near what is shown with it";
}
