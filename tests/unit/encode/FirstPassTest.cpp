// SPDX-License-Identifier: GPL-3.0-or-later
// First passes that look at half of the width and height.
#include "Kestra/FF/Encode/FirstPassDraft.h"
#include "Kestra/FF/Encode/StatisticsManifest.h"
#include "Kestra/Proc/Filters/VideoFilterBase.h"
#include "Passes.h"
#include <algorithm>
#include <sstream>

using namespace Fakes;
using namespace EncodeTest;
using namespace Kestra;
using Conf::IFormatCodec;
using Conf::IFormatCodecVideo;

namespace {

constexpr int ENOUGH = 150; ///< frames, at 25 a second

FF::EncoderInput InputOf(int width, int height, bool interlaced = false) {
    FF::EncoderInput input;
    input.width = width;
    input.height = height;
    input.interlaced = interlaced;
    return input;
}

/// "960x540", or why it is whole.
std::string DraftText(const FF::EncoderInput& input, std::int64_t frames = ENOUGH) {
    const auto chosen = FF::FirstPassDraft::HalfOf(input, frames, 25);
    EXPECT_EQ(chosen.whyWhole.empty(), chosen.draft.has_value());
    if (chosen.draft)
        return std::to_string(chosen.draft->width) + "x" + std::to_string(chosen.draft->height);
    return chosen.whyWhole.substr(chosen.whyWhole.find(": ") + 2);
}

constexpr const char* SMALL = "a side of the picture has less than 128 pixels";
constexpr const char* SHORT = "the film is shorter than 4 seconds";

/// What x264 says of its first pass's frames.
std::string SizeIn(const std::string& log) {
    std::istringstream words(log);
    std::string first, size;
    words >> first >> size;
    return size;
}

/// The types of the frames in the log, in the order of presentation: keyframes, other references, the rest.
std::string TypesIn(const std::string& log) {
    std::istringstream lines(log);
    std::string types, line;
    while (std::getline(lines, line)) {
        const std::size_t in = line.find("in:"), type = line.find(" type:");
        if (in == std::string::npos || type == std::string::npos)
            continue;
        const auto number = static_cast<std::size_t>(std::stoul(line.substr(in + 3)));
        types.resize(std::max(types.size(), number + 1), '?');
        types[number] = line[type + 6];
    }
    return types;
}

/// Whether x264 says in what it puts before the first picture that it works with this parameter.
bool WorksWith(const Packets& packets, const std::string& parameter) {
    const auto* const bytes = reinterpret_cast<const char*>(packets.front()->GetBytes());
    return std::string(bytes, packets.front()->GetSize()).find(' ' + parameter + ' ') != std::string::npos;
}

std::string KeysOf(const Packets& packets, int frames) {
    std::string keys(static_cast<std::size_t>(frames), '.');
    for (const auto& packet : packets) {
        if (packet->IsKeyframe())
            keys[static_cast<std::size_t>(TimeToFrames(packet->GetTime(), 25))] = 'I';
    }
    return keys;
}

VideoShape Moving(int frames, int width = 160, int height = 128) {
    VideoShape shape;
    shape.width = width;
    shape.height = height;
    shape.frames = frames;
    shape.paint = [](AVFrame& frame, int index) {
        std::uint32_t state = static_cast<std::uint32_t>(index) * 2654435761U + 1;
        const int cut = index / 60 * 37;
        for (int y = 0; y < frame.height; ++y)
            for (int x = 0; x < frame.linesize[0]; ++x) {
                state = state * 1664525U + 1013904223U;
                frame.data[0][y * frame.linesize[0] + x] =
                    static_cast<std::uint8_t>(60 + ((x + index) / 5 + y / 3 + cut) % 90 + (state >> 28));
            }
        for (int plane = 1; plane < 3; ++plane)
            std::fill_n(frame.data[plane], frame.linesize[plane] * frame.height / 2, std::uint8_t{128});
    };
    return shape;
}

/// Whose first pass may look at halves.
class HalfPasses : public Passes {
public:
    template <typename Pictures>
    HalfPasses(std::string codec, Pictures pictures)
        : Passes(std::move(codec), std::move(pictures)) {
        extra.SetChild(IFormatCodecVideo::TAG_FIRST_PASS, std::string(IFormatCodecVideo::FIRST_PASS_HALF));
    }
};

/// Passes frames on, and remembers what was wished for and why it was not.
class Wishes final : public Proc::VideoFilterBase {
public:
    explicit Wishes(const boost::intrusive_ptr<Proc::IStreamVideo>& source)
        : VideoFilterBase(source, "wishes") {}

    boost::intrusive_ptr<Proc::IDataVideo> ReadVideo() override { return source->ReadVideo(); }
    void PreferFormat(const Conf::IFormatCodec& format) override {
        const auto& video = dynamic_cast<const IFormatCodecVideo&>(format);
        isDraft.push_back(Conf::Draft::Of(video).has_value());
        whyWhole.push_back(Conf::Draft::WhyWhole(video));
    }

    std::int64_t GetDuration() const override { return durationKnown ? source->GetDuration() : TIME_UNKNOWN; }

    bool durationKnown = true;
    std::vector<bool> isDraft;
    std::vector<std::string> whyWhole;
};

} // namespace

TEST(FirstPassDraft, IsHalfOfEachSideInEvenNumbers) {
    EXPECT_EQ(DraftText(InputOf(1920, 1080)), "960x540");
    EXPECT_EQ(DraftText(InputOf(8192, 4320)), "4096x2160");
    EXPECT_EQ(DraftText(InputOf(854, 486)), "426x242");
    EXPECT_EQ(DraftText(InputOf(853, 481)), "426x240") << "odd sides of 4:4:4";
}

TEST(FirstPassDraft, KeepsAFieldOfEvenHeight) {
    EXPECT_EQ(DraftText(InputOf(1920, 1080, true)), "960x540");
    EXPECT_EQ(DraftText(InputOf(720, 486, true)), "360x240");
}

TEST(FirstPassDraft, IsNotMadeOfSmallPictures) {
    EXPECT_EQ(DraftText(InputOf(2, 2)), SMALL);
    EXPECT_EQ(DraftText(InputOf(126, 1000)), SMALL);
    EXPECT_EQ(DraftText(InputOf(1000, 126)), SMALL);
    EXPECT_EQ(DraftText(InputOf(128, 128)), "64x64");
}

TEST(FirstPassDraft, IsNotMadeOfShortFilms) {
    EXPECT_EQ(DraftText(InputOf(1920, 1080), 99), SHORT);
    EXPECT_EQ(DraftText(InputOf(1920, 1080), 100), "960x540");
    EXPECT_EQ(DraftText(InputOf(1920, 1080), -1), "nobody knows how long the film is");
}

TEST(FirstPass, OfX264LooksAtHalfOfTheWidthAndHeight) {
    HalfPasses passes("h264", Moving(ENOUGH));
    passes.bitrate = 500000;
    EXPECT_EQ(passes.Run(true).size(), static_cast<std::size_t>(ENOUGH));
    const std::string log = Content(passes.log);
    EXPECT_EQ(SizeIn(log), "80x64");
    const Packets packets = passes.Run(false);
    EXPECT_EQ(packets.size(), static_cast<std::size_t>(ENOUGH));
    std::string keys = TypesIn(log);
    std::replace_if(
        keys.begin(), keys.end(), [](char type) { return type != 'I'; }, '.');
    EXPECT_GT(std::count(keys.begin(), keys.end(), 'I'), 1);
    EXPECT_EQ(KeysOf(packets, ENOUGH), keys) << "keyframes stand where the first pass put them";
    EXPECT_NEAR(BitsPerSecond(packets, ENOUGH / 25.0), 500000, 15000);
}

TEST(FirstPass, LeavesTheSecondItsWholePictures) {
    const HalfPasses passes("h264", Moving(ENOUGH));
    passes.Run(true);
    const auto encoder = passes.Make(false);
    encoder->Prepare();
    boost::intrusive_ptr<IFormatCodec> format;
    encoder->GetFormatCodec(format);
    const auto frame = boost::dynamic_pointer_cast<IFormatCodecVideo>(format)->GetFrameInfo();
    EXPECT_EQ(frame.width, 160U);
    EXPECT_EQ(frame.height, 128U);
    const std::string path = passes.folder.File("out.mkv");
    encoder->Reset();
    WriteFile(path, "mkv", {encoder});
    const DecodedFile file = Decode(path);
    ASSERT_EQ(file.Video().pictures.size(), static_cast<std::size_t>(ENOUGH));
    EXPECT_EQ(file.Video().pictures.front()->width, 160);
    EXPECT_EQ(file.Video().pictures.front()->height, 128);
}

TEST(FirstPass, LooksAtWholePicturesWhereHalvesAreNotOrdered) {
    const Passes passes("h264", Moving(ENOUGH));
    passes.Run(true);
    EXPECT_EQ(SizeIn(Content(passes.log)), "160x128");
    EXPECT_EQ(passes.Run(false).size(), static_cast<std::size_t>(ENOUGH));
}

TEST(FirstPass, OfHalvesHasTheSecondKeepToItsBitrateSooner) {
    const Passes whole("h264", Moving(ENOUGH));
    whole.Run(true);
    EXPECT_TRUE(WorksWith(whole.Run(false), "ratetol=1.0"));
    HalfPasses halves("h264", Moving(ENOUGH));
    halves.Run(true);
    EXPECT_TRUE(WorksWith(halves.Run(false), "ratetol=0.1"));
    Options(halves.extra).SetChild("x264-params", std::string("ratetol=0.5"));
    EXPECT_TRUE(WorksWith(halves.Run(false), "ratetol=0.5")) << "as the preset has it";
    HalfPasses others("h264", Moving(ENOUGH));
    others.Run(true);
    Options(others.extra).SetChild("x264opts", std::string("aq-mode=1:ratetol=0.4"));
    EXPECT_TRUE(WorksWith(others.Run(false), "ratetol=0.4")) << "and in the other list";
}

TEST(FirstPass, LooksAtWholePicturesWhereOptionsCountTheirPixels) {
    HalfPasses passes("h264", Moving(ENOUGH));
    Options(passes.extra).SetChild("x264-params", std::string("crop-rect=0,0,100,0"));
    passes.Run(true);
    EXPECT_EQ(SizeIn(Content(passes.log)), "160x128");
    EXPECT_EQ(passes.Run(false).size(), static_cast<std::size_t>(ENOUGH));
}

TEST(FirstPass, LooksAtWholePicturesOfAShortFilm) {
    const HalfPasses passes("h264", Moving(50));
    passes.Run(true);
    EXPECT_EQ(SizeIn(Content(passes.log)), "160x128");
    EXPECT_EQ(passes.Run(false).size(), 50U);
}

TEST(FirstPass, SuitsPicturesOfEveryFormatAndTheLargest) {
    struct Case {
        AVPixelFormat format;
        const char* name;
        int width, height;
        const char* half;
    };
    for (const Case& one : {Case{AV_PIX_FMT_YUV420P10, "yuv420p10", 160, 128, "80x64"},
                            Case{AV_PIX_FMT_YUV422P, "yuv422p", 146, 134, "72x66"},
                            Case{AV_PIX_FMT_YUV444P, "yuv444p", 147, 133, "72x66"},
                            Case{AV_PIX_FMT_YUV420P, "yuv420p", 8192, 128, "4096x64"}}) {
        VideoShape shape;
        shape.width = one.width;
        shape.height = one.height;
        shape.format = one.format;
        shape.frames = one.width > 1000 ? 6 : ENOUGH;
        shape.rate = one.width > 1000 ? 1 : 25;
        HalfPasses passes("h264", shape);
        passes.extra.SetChild(IFormatCodecVideo::TAG_PIXEL_FORMAT, std::string(one.name));
        Options(passes.extra).SetChild("preset", std::string("veryfast"));
        passes.Run(true);
        EXPECT_EQ(SizeIn(Content(passes.log)), one.half) << one.name;
        EXPECT_EQ(passes.Run(false).size(), static_cast<std::size_t>(shape.frames)) << one.name;
    }
}

TEST(FirstPass, KeepsFieldsApart) {
    VideoShape shape = Moving(ENOUGH, 160, 136);
    shape.paint = [paint = shape.paint](AVFrame& frame, int index) {
        paint(frame, index);
        frame.interlaced_frame = 1;
        frame.top_field_first = 1;
    };
    HalfPasses passes("h264", shape);
    passes.extra.SetChild(IFormatCodecVideo::TAG_INTERLACED, true);
    passes.Run(true);
    const std::string log = Content(passes.log);
    EXPECT_EQ(SizeIn(log), "80x68");
    EXPECT_NE(log.find(" interlaced=tff"), std::string::npos) << log.substr(0, log.find('\n'));
    EXPECT_EQ(passes.Run(false).size(), static_cast<std::size_t>(ENOUGH));
}

TEST(FirstPass, AsksForDraftsAndTheSecondForWholePictures) {
    struct Case {
        const char* codec;
        bool draft;
    };
    for (const Case& one : {Case{"h264", true}, Case{"hevc", false}, Case{"vp9", false}, Case{"mpeg4", false}}) {
        const boost::intrusive_ptr<Wishes> wishes = new Wishes(MakeVideo(Moving(ENOUGH)));
        HalfPasses passes(one.codec, wishes);
        passes.Make(true)->Prepare();
        EXPECT_EQ(wishes->isDraft, std::vector<bool>{one.draft}) << one.codec;
        HalfPasses written(one.codec, MakeVideo(Moving(12)));
        written.Run(true);
        passes.log = written.log;
        passes.Make(false)->Prepare();
        EXPECT_EQ(wishes->isDraft, (std::vector<bool>{one.draft, false})) << one.codec;
    }
}

namespace {

/// What a first pass tells upstream, and a second one.
std::vector<std::string> Told(const Passes& passes, const Wishes& wishes) {
    passes.Run(true);
    passes.Make(false)->Prepare();
    return wishes.whyWhole;
}

std::vector<std::string> ToldOfHalves(const char* codec, VideoShape shape, const std::string& parameters = {},
                                      bool durationKnown = true) {
    const boost::intrusive_ptr<Wishes> wishes = new Wishes(MakeVideo(std::move(shape)));
    wishes->durationKnown = durationKnown;
    HalfPasses passes(codec, wishes);
    if (!parameters.empty())
        Options(passes.extra).SetChild("x264-params", parameters);
    return Told(passes, *wishes);
}

std::vector<std::string> Once(const std::string& why) {
    return {"The first pass looks at whole pictures in place of halves: " + why, ""};
}

} // namespace

TEST(FirstPass, TellsWhyOrderedHalvesAreNotMade) {
    EXPECT_EQ(ToldOfHalves("h264", Moving(50)), Once(SHORT));
    EXPECT_EQ(ToldOfHalves("h264", Moving(ENOUGH, 160, 120)), Once(SMALL));
    EXPECT_EQ(ToldOfHalves("h264", Moving(ENOUGH), {}, false), Once("nobody knows how long the film is"));
    EXPECT_EQ(ToldOfHalves("h264", Moving(ENOUGH), "crop-rect=0,0,100,0"),
              Once("libx264 with its options takes no statistics of smaller ones"));
    EXPECT_EQ(ToldOfHalves("mpeg4", Moving(ENOUGH)),
              Once("mpeg4 with its options takes no statistics of smaller ones"));
}

TEST(FirstPass, TellsNothingOfHalvesThatAreMadeOrNotOrdered) {
    const std::vector<std::string> nothing{"", ""};
    EXPECT_EQ(ToldOfHalves("h264", Moving(ENOUGH)), nothing);
    const boost::intrusive_ptr<Wishes> wishes = new Wishes(MakeVideo(Moving(50)));
    EXPECT_EQ(Told(Passes("h264", wishes), *wishes), nothing);
}

// All else that x264 does with such statistics it does in silence.
TEST(FirstPass, IsNotGoneByWhereItDoesNotSayHowLargeItsPicturesWere) {
    const HalfPasses passes("h264", Moving(ENOUGH));
    passes.Run(true);
    const std::string whole = Content(passes.log);
    for (const std::string& header : {std::string("#options: timebase=1/25"), std::string("#options: 0x64 fps=25/1")}) {
        std::ofstream(passes.log, std::ios::binary) << header + whole.substr(whole.find('\n'));
        FF::StatisticsManifest::Write(passes.log, ENOUGH);
        const auto failure = passes.Second();
        EXPECT_EQ(failure.GetCode(), Proc::TranscodingError::SourceDamaged);
        EXPECT_NE(failure.GetDescription().find(passes.log + "\" do not say how large"), std::string::npos)
            << failure.GetDescription();
    }
}
