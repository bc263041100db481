// SPDX-License-Identifier: GPL-3.0-or-later
// What a file says of its programme: written, cut, and left out where there is no place for it.
#include "Kestra/Base/Time.h"
#include "Kestra/ClientAPI/ContainerLimits.h"
#include "Kestra/Conf/Container.h"
#include "Kestra/Conf/ProgrammeInfo.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/FileCheck.h"
#include "Kestra/Proc/Filters/AudioFilterBase.h"
#include "Kestra/Proc/Filters/VideoFilterBase.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "Kestra/Proc/ISourceFactory.h"
#include "Kestra/Proc/Segmenter.h"
#include "fakes/streams/DecodedFile.h"
#include "fakes/streams/ExportDriver.h"
#include "fakes/streams/ScratchFolder.h"
#include "fakes/streams/SyntheticAudio.h"
#include "fakes/streams/SyntheticVideo.h"
#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sstream>

using namespace Fakes;
using namespace Kestra;
using Chapter = Conf::ProgrammeInfo::Chapter;
using Conf::ProgrammeInfo;

namespace {

constexpr std::int64_t SECOND = TIME_BASE;

/// Tells of a programme in its format, as an export's stream does.
class TellingVideo final : public Proc::VideoFilterBase {
public:
    TellingVideo(const boost::intrusive_ptr<Proc::IStreamVideo>& source, ProgrammeInfo told)
        : VideoFilterBase(source, "telling")
        , told(std::move(told)) {}
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override {
        source->GetVideoFormat(format);
        told.TellIn(*format);
    }
    void PreferFormat(const Conf::IFormatCodec& format) override {
        EXPECT_TRUE(ProgrammeInfo::Of(format).IsEmpty()) << "no wish of an encoder's";
    }

private:
    const ProgrammeInfo told;
};

class TellingAudio final : public Proc::AudioFilterBase {
public:
    TellingAudio(const boost::intrusive_ptr<Proc::IStreamAudio>& source, ProgrammeInfo told)
        : AudioFilterBase(source, "telling")
        , told(std::move(told)) {}
    void GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const override {
        source->GetAudioFormat(format);
        told.TellIn(*format);
    }

private:
    const ProgrammeInfo told;
};

/// What FFmpeg's reader finds in a file.
struct Found {
    std::map<std::string, std::string> tags; ///< keys in lower case
    std::vector<Chapter> chapters;
    std::string timecode;
    double seconds = 0;
};

std::string Lower(std::string text) {
    for (char& letter : text)
        letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    return text;
}

Found Read(const std::string& path) {
    AVFormatContext* context = nullptr;
    Found found;
    if (avformat_open_input(&context, path.c_str(), nullptr, nullptr) < 0) {
        ADD_FAILURE() << path;
        return found;
    }
    EXPECT_GE(avformat_find_stream_info(context, nullptr), 0);
    const bool ofTracks = std::strcmp(context->iformat->name, "ogg") == 0;
    const AVDictionary* const tags = ofTracks ? context->streams[0]->metadata : context->metadata;
    const AVDictionaryEntry* tag = nullptr;
    while ((tag = av_dict_get(tags, "", tag, AV_DICT_IGNORE_SUFFIX)))
        found.tags[Lower(tag->key)] = tag->value;
    for (unsigned index = 0; index < context->nb_chapters; ++index) {
        const AVChapter& chapter = *context->chapters[index];
        const AVDictionaryEntry* const title = av_dict_get(chapter.metadata, "title", nullptr, 0);
        const AVRational ticks{1, static_cast<int>(TIME_BASE)};
        found.chapters.push_back({av_rescale_q(chapter.start, chapter.time_base, ticks),
                                  av_rescale_q(chapter.end, chapter.time_base, ticks), title ? title->value : ""});
    }
    for (unsigned index = 0; index < context->nb_streams; ++index)
        if (const auto* code = av_dict_get(context->streams[index]->metadata, "timecode", nullptr, 0))
            found.timecode = code->value;
    if (found.tags.count("timecode") > 0)
        found.timecode = found.tags["timecode"];
    found.seconds = static_cast<double>(context->duration) / AV_TIME_BASE;
    avformat_close_input(&context);
    return found;
}

VideoShape Pictures(const boost::rational<long long>& rate = 25, int frames = 75) {
    VideoShape shape;
    shape.rate = rate;
    shape.frames = frames;
    return shape;
}

boost::intrusive_ptr<Proc::IStreamVideo> Telling(const ProgrammeInfo& told, const VideoShape& shape = Pictures()) {
    return new TellingVideo(MakeVideo(shape), told);
}

ProgrammeInfo Told() {
    ProgrammeInfo told;
    told.title = "Häuser & Höfe";
    told.tags = {{"comment", "the first cut"}, {"artist", "someone"}};
    told.timecode = 3600 * SECOND;
    told.chapters = {{0, SECOND, "One"}, {SECOND, 2 * SECOND, "Zwei ½"}, {2 * SECOND, 9 * SECOND, "The end"}};
    return told;
}

std::string CodecFor(const std::string& container) {
    return container == "webm" ? "vp8" : container == "gif" ? "gif" : "mpeg4";
}

std::string SoundFor(const std::string& container) {
    const std::map<std::string, std::string> codecs{{"webm", "opus"},     {"mp3", "mp3"},   {"flac", "flac"},
                                                    {"wav", "pcm_s16le"}, {"opus", "opus"}, {"ogg", "opus"},
                                                    {"ac3", "ac3"}};
    const auto found = codecs.find(container);
    return found == codecs.end() ? "aac" : found->second;
}

void ExpectChapters(const std::vector<Chapter>& seen, const std::vector<Chapter>& wanted, const std::string& what,
                    double tolerance = TIME_BASE / 1000.0) {
    ASSERT_EQ(seen.size(), wanted.size()) << what;
    for (std::size_t index = 0; index < seen.size(); ++index) {
        EXPECT_EQ(seen[index].title, wanted[index].title) << what;
        EXPECT_NEAR(static_cast<double>(seen[index].start - wanted[index].start), 0, TIME_BASE / 1000.0) << what;
        EXPECT_NEAR(static_cast<double>(seen[index].end - wanted[index].end), 0, tolerance) << what;
    }
}

std::string BytesOf(const std::string& path) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

} // namespace

TEST(ProgrammeInfo, IsReadAsItWasTold) {
    const auto format = Conf::IFormatCodecVideo::Create();
    EXPECT_TRUE(ProgrammeInfo::Of(*format).IsEmpty());
    const Core::Property before = format->GetProperty();
    auto told = Told();
    told.dropFrame = true;
    told.sound = {"eng", "Words", true};
    told.furtherSounds = {{"deu", "Worte"}, {"", "Music", true}};
    told.TellIn(*format);
    EXPECT_EQ(ProgrammeInfo::Of(*format), told);
    ProgrammeInfo small;
    small.timecode = 0;
    small.TellIn(*format);
    EXPECT_EQ(ProgrammeInfo::Of(*format), small) << "nothing of the first is left";
    ProgrammeInfo().TellIn(*format);
    EXPECT_EQ(format->GetProperty(), before);
}

TEST(ProgrammeInfo, OfAPartBeginsWithIt) {
    ProgrammeInfo whole = Told();
    whole.chapters.push_back({SECOND / 2, SECOND / 2, "a moment"});
    const ProgrammeInfo part = whole.Part(SECOND / 4, 3 * SECOND);
    EXPECT_EQ(part.timecode, 3600 * SECOND + SECOND / 4);
    EXPECT_EQ(part.title, whole.title);
    const std::vector<Chapter> wanted{{0, SECOND * 3 / 4, "One"},
                                      {SECOND / 4, SECOND * 3 / 4, "a moment"},
                                      {SECOND * 3 / 4, SECOND * 7 / 4, "Zwei ½"},
                                      {SECOND * 7 / 4, SECOND * 11 / 4, "The end"}};
    EXPECT_EQ(part.chapters, wanted);
    EXPECT_EQ(whole.Part(SECOND, 2 * SECOND).chapters, (std::vector<Chapter>{{0, SECOND, "Zwei ½"}}));
}

TEST(Programme, IsWrittenAsFarAsTheContainerHasAPlace) {
    using ClientAPI::ContainerLimits;
    using ClientAPI::ProgrammeField;
    const ScratchFolder folder;
    for (const Conf::Container& container : Conf::Container::All()) {
        const std::string id = container.id;
        if (container.sequence || id == "webp") { // has no place for anything
            for (const auto field : {ProgrammeField::Title, ProgrammeField::Tags, ProgrammeField::TimeCode,
                                     ProgrammeField::Chapters, ProgrammeField::Cover, ProgrammeField::Subtitles})
                EXPECT_FALSE(ContainerLimits::Holds(id, field)) << id;
            continue;
        }
        const std::string path = folder.File(id);
        const bool pictures = container.extensionsOfSound.size() > 0 || id == "mov" || id == "gif";
        AudioShape sound;
        sound.samples = 144000;
        std::vector<Raw> tracks;
        if (pictures)
            tracks.push_back(VideoEncoder(Telling(Told()), Description(CodecFor(id))));
        if (id != "gif")
            tracks.push_back(AudioEncoder(new TellingAudio(MakeAudio(sound), Told()), Description(SoundFor(id))));
        WriteFile(path, id, tracks);
        Found found = Read(path);
        const bool titled = ContainerLimits::Holds(id, ProgrammeField::Title);
        EXPECT_EQ(ContainerLimits::Holds(id, ProgrammeField::Tags), titled) << id;
        EXPECT_EQ(found.tags["title"], titled ? "Häuser & Höfe" : "") << id;
        EXPECT_EQ(found.tags["comment"], titled ? "the first cut" : "") << id;
        // Ogg has a place for the library's name alone.
        const bool isOgg = id == "ogg" || id == "opus";
        EXPECT_EQ(found.tags["encoder"].substr(0, isOgg ? 4 : 12), isOgg ? "Lavf" : titled ? "EditorExport" : "") << id;
        EXPECT_EQ(found.timecode, ContainerLimits::Holds(id, ProgrammeField::TimeCode) ? "01:00:00:00" : "") << id;
        auto wanted = Told().chapters;
        wanted.back().end = 3 * SECOND;
        ExpectChapters(found.chapters,
                       ContainerLimits::Holds(id, ProgrammeField::Chapters) ? wanted : std::vector<Chapter>{}, id,
                       // Of Opus its length is told with what its decoder leaves out at the start.
                       TIME_BASE / (isOgg ? 100.0 : 1000.0));
        EXPECT_NEAR(found.seconds, 3, 0.06) << id << " is as long as what is in it";
        EXPECT_NO_THROW(Proc::CheckFile(ioPath(path), std::atomic<bool>(false))) << id;
    }
}

TEST(Programme, HasChaptersToTheMillisecond) {
    const ScratchFolder folder;
    constexpr std::int64_t MILLISECOND = SECOND / 1000;
    ProgrammeInfo told;
    for (const int start : {0, 333, 500, 1000, 1499, 1667, 1978, 2001, 2999})
        told.chapters.push_back({start * MILLISECOND, 0, "At " + std::to_string(start)});
    told.chapters[3].title.clear();
    told = told.Part(0, 3 * SECOND);
    int tried = 0;
    for (const Conf::Container& container : Conf::Container::All()) {
        if (!container.chapters)
            continue;
        ++tried;
        const std::string id = container.id;
        AudioShape sound;
        sound.samples = 144000;
        std::vector<Raw> tracks{AudioEncoder(new TellingAudio(MakeAudio(sound), told), Description(SoundFor(id)))};
        if (id != "m4a" && !container.extensionsOfSound.empty())
            tracks.insert(tracks.begin(), VideoEncoder(Telling(told), Description(CodecFor(id))));
        WriteFile(folder.File(id), id, tracks);
        const bool isOgg = id == "ogg" || id == "opus";
        auto wanted = told.chapters;
        if (id == "mp3")
            wanted[3].title = "ch3"; // of the mark itself, where it has no title
        ExpectChapters(Read(folder.File(id)).chapters, wanted, id, TIME_BASE / (isOgg ? 100.0 : 1000.0));
    }
    EXPECT_GE(tried, 6);
}

TEST(Programme, KeepsTheTagsThatTheContainerIsSaidToKnow) {
    const ScratchFolder folder;
    ProgrammeInfo told;
    for (const char* key : {"album",     "album_artist", "artist",   "author",     "comment", "composer", "copyright",
                            "date",      "description",  "disc",     "episode_id", "genre",   "grouping", "keywords",
                            "language",  "location",     "lyrics",   "make",       "model",   "network",  "performer",
                            "publisher", "show",         "synopsis", "track",      "anything"})
        told.tags.emplace_back(key, "7");
    for (const std::string id : {"mp4", "mov", "mkv", "m4a", "mp3", "flac", "wav"}) {
        WriteFile(folder.File(id), id,
                  {AudioEncoder(new TellingAudio(MakeAudio({}), told), Description(SoundFor(id)))});
        const auto found = Read(folder.File(id)).tags;
        for (const auto& [key, value] : told.tags) {
            // Two keys of one place: the later one is read.
            if ((id == "mov" && key == "author") || (id == "flac" && (key == "comment" || key == "description")))
                continue;
            EXPECT_EQ(found.count(key) > 0, ClientAPI::ContainerLimits::HoldsTag(id, key)) << id << ' ' << key;
        }
    }
    EXPECT_FALSE(ClientAPI::ContainerLimits::HoldsTag("avi", "artist"));
}

TEST(Programme, DoesNotReplaceWhatTheWriterSaysItself) {
    const ScratchFolder folder;
    ProgrammeInfo told;
    told.title = "right";
    told.tags = {{"title", "wrong"}, {"Encoder", "wrong"}, {"timecode", "09:00:00:00"}, {"", "wrong"}};
    WriteFile(folder.File("a"), "mov", {VideoEncoder(Telling(told), Description("mpeg4"))});
    const Found found = Read(folder.File("a"));
    EXPECT_EQ(found.tags.at("title"), "right");
    EXPECT_EQ(found.tags.at("encoder").substr(0, 12), "EditorExport");
    EXPECT_EQ(found.timecode, "");
}

TEST(Programme, TimeCodesAreCountedInFramesOfTheFile) {
    const boost::rational<long long> ntsc(30000, 1001);
    struct Row {
        boost::rational<long long> rate;
        std::int64_t frames; ///< of the rate
        bool drop;
        const char* text;
    };
    const ScratchFolder folder;
    for (const Row& row : {Row{ntsc, 107892, true, "01:00:00;00"}, Row{ntsc, 107892, false, "00:59:56:12"},
                           Row{ntsc, 1800, true, "00:01:00;02"}, Row{25, 90001, true, "01:00:00:01"},
                           Row{{24000, 1001}, 86400, false, "01:00:00:00"}, Row{25, -1, false, "23:59:59:24"},
                           Row{25, 25 * 86400 + 3, false, "00:00:00:03"}})
        for (const char* container : {"mov", "mkv"}) {
            ProgrammeInfo told;
            told.timecode = FramesToTime(row.frames, row.rate);
            told.dropFrame = row.drop;
            WriteFile(folder.File("a"), container,
                      {VideoEncoder(Telling(told, Pictures(row.rate, 3)), Description("mpeg4"))});
            EXPECT_EQ(Read(folder.File("a")).timecode, row.text) << container;
        }
}

TEST(Programme, TimeCodeIsWhatTheEngineReadsAgain) {
    const ScratchFolder folder;
    const boost::rational<long long> rate(30000, 1001);
    ProgrammeInfo told;
    told.timecode = FramesToTime(107892 + 17, rate);
    told.dropFrame = true;
    WriteFile(folder.File("a.mp4"), "mp4", {VideoEncoder(Telling(told, Pictures(rate, 30)), Description("mpeg4"))});
    const auto source = Core::CoreManager::Instance().GetSourceFactory().OpenMedia(ioPath(folder.File("a.mp4")));
    EXPECT_EQ(source->GetInfo().timecode, told.timecode);
    EXPECT_EQ(source->GetInfo().duration, FramesToTime(30, rate));
}

TEST(Programme, ChaptersBeginWhereTheyAreToldToInEveryContainer) {
    const ScratchFolder folder;
    ProgrammeInfo told;
    told.chapters = {{SECOND / 2, SECOND, "late"}, {2 * SECOND, 0, "open"}};
    for (const char* container : {"mp4", "mkv"}) {
        WriteFile(folder.File("a"), container, {VideoEncoder(Telling(told), Description("mpeg4"))});
        auto chapters = Read(folder.File("a")).chapters;
        if (std::string(container) == "mp4") {
            // There what lies before is a chapter without a name, and one lasts until the next.
            ASSERT_EQ(chapters.size(), 3U);
            EXPECT_EQ(chapters.front().title, "");
            chapters.erase(chapters.begin());
            chapters.front().end = SECOND;
        }
        ExpectChapters(chapters, {{SECOND / 2, SECOND, "late"}, {2 * SECOND, 3 * SECOND, "open"}}, container);
    }
}

TEST(Programme, GoesThroughConcatenationAndIsCutWithSegments) {
    const ScratchFolder folder;
    const auto joined = Core::CoreManager::Instance().GetFilterFactory().CreateConcatenation();
    joined->Append(Telling(Told()));
    joined->Append(MakeVideo(Pictures()));
    WriteFile(folder.File("a"), "mkv", {VideoEncoder(joined, Description("mpeg4"))});
    ExpectChapters(Read(folder.File("a")).chapters,
                   {{0, SECOND, "One"}, {SECOND, 2 * SECOND, "Zwei ½"}, {2 * SECOND, 6 * SECOND, "The end"}}, "joined");
    const auto part = Proc::CreateVideoSegmenter(Telling(Told()), SECOND, 3 * SECOND);
    AudioShape sound;
    sound.samples = 144000;
    const auto heard = Proc::CreateAudioSegmenter(
        AudioEncoder(new TellingAudio(MakeAudio(sound), Told()), Description("aac")), SECOND, 2 * SECOND);
    WriteFile(folder.File("b"), "mov", {VideoEncoder(part, Description("mpeg4"))});
    WriteFile(folder.File("c"), "m4a", {heard});
    const Found pictures = Read(folder.File("b"));
    ExpectChapters(pictures.chapters, {{0, SECOND, "Zwei ½"}, {SECOND, 2 * SECOND, "The end"}}, "pictures");
    EXPECT_EQ(pictures.timecode, "01:00:01:00");
    ExpectChapters(Read(folder.File("c")).chapters, {{0, SECOND, "Zwei ½"}}, "sound");
}

TEST(Programme, IsThereInASecondPass) {
    const auto encoder = VideoEncoder(Telling(Told()), Description("mpeg4"));
    for (int pass = 0; pass < 2; ++pass) {
        encoder->Reset();
        encoder->Prepare();
        boost::intrusive_ptr<Conf::IFormatCodec> format;
        encoder->GetFormatCodec(format);
        EXPECT_EQ(ProgrammeInfo::Of(*format), Told().Part(0, 3 * SECOND)) << pass;
    }
}

TEST(Programme, OfWhichNothingIsToldLeavesTheFileAsItIs) {
    const ScratchFolder folder;
    for (const char* container : {"mp4", "mov"}) {
        WriteFile(folder.File("a"), container, {VideoEncoder(MakeVideo(Pictures()), Description("mpeg4"))});
        WriteFile(folder.File("b"), container, {VideoEncoder(Telling({}), Description("mpeg4"))});
        const std::string plain = BytesOf(folder.File("a"));
        EXPECT_FALSE(plain.empty());
        EXPECT_TRUE(plain == BytesOf(folder.File("b"))) << container;
    }
}
