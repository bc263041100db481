// SPDX-License-Identifier: GPL-3.0-or-later
// Interlaced pictures: kept as they are, or deinterlaced for a consumer that wants progressive ones.
#include "Kestra/Conf/IFormatCodecVideo.h"
#include "unit/source/FieldPictures.h"
#include "unit/source/SourceFixture.h"
#include "unit/source/WovenMedia.h"
#include <algorithm>
#include <fstream>
#include <optional>
#include <random>

namespace TestMedia {
namespace {

using Kestra::Conf::IFormatCodecVideo;

struct Woven {
    std::string name;
    std::string file;
    std::string fieldRate;
    Rate rate; ///< of the pictures
    int width;
    int height;
    bool topFieldFirst;
    std::vector<std::string> arguments;
    /// How far the container's clock lets times be off.
    std::int64_t rounding;
    /// Fields that are coded as pictures of their own, in H.264; the arguments do not count.
    std::optional<FieldPackets> fields = std::nullopt;
};

void PrintTo(const Woven& woven, std::ostream* out) {
    *out << woven.name;
}

const std::vector<std::string> FIELDS{"-flags", "+ilme+ildct"};

// What the filters say of fields does not reach the encoder from a source of their own.
std::string setField(bool topFieldFirst) {
    return topFieldFirst ? "setfield=tff" : "setfield=bff";
}

std::vector<std::string> with(std::vector<std::string> codec) {
    codec.insert(codec.end(), FIELDS.begin(), FIELDS.end());
    return codec;
}

std::vector<Woven> wovenMedia() {
    const std::int64_t tick = TIME_BASE / 90000;
    const std::int64_t millisecond = TIME_BASE / 1000;
    const std::vector<std::string> mpeg2 = with({"-c:v", "mpeg2video", "-g", "12", "-bf", "2", "-q:v", "2"});
    const std::vector<std::string> h264 = with({"-c:v", "libx264", "-g", "12", "-bf", "2", "-qp", "8"});
    return {
        {"Mpeg2TopFirstInTs", "a.ts", "50", 25, 352, 288, true, mpeg2, tick},
        {"Mpeg2BottomFirstInMpg", "a.mpg", "50", 25, 352, 288, false, mpeg2, tick},
        {"DvBottomFirst", "a.dv", "60000/1001", Rate(30000, 1001), 720, 480, false,
         with({"-c:v", "dvvideo", "-pix_fmt", "yuv411p"}), 1},
        {"DvInMov", "b.mov", "50", 25, 720, 576, false, with({"-c:v", "dvvideo", "-pix_fmt", "yuv420p"}), 1},
        {"H264TopFirstInMp4", "a.mp4", "60000/1001", Rate(30000, 1001), 352, 288, true, h264, 1},
        {"H264BottomFirstInTs", "b.ts", "50", 25, 352, 288, false, h264, tick},
        {"ProResInMov", "a.mov", "50", 25, 352, 288, true, with({"-c:v", "prores_ks", "-qscale:v", "4"}), 1},
        {"Ffv1InMkv", "a.mkv", "50", 25, 720, 480, false, {"-c:v", "ffv1", "-level", "3"}, millisecond},
        {"OldFfv1InMkv",
         "d.mkv",
         "50",
         25,
         720,
         480,
         true,
         {"-c:v", "ffv1", "-level", "1", "-field_order", "tt"},
         millisecond},
        {"V210InMov", "c.mov", "50", 25, 352, 288, true, with({"-c:v", "v210", "-pix_fmt", "yuv422p10"}), 1},
        {"HuffyuvInMkv", "b.mkv", "50", 25, 352, 288, true,
         with({"-c:v", "huffyuv", "-pix_fmt", "yuv422p", "-field_order", "tt"}), millisecond},
        {"FieldsOfH264ApartInTs", "e.ts", "50", 25, 352, 288, true, {}, tick, FieldPackets::Apart},
        {"FieldsOfH264WithOneTimeInTs", "f.ts", "50", 25, 352, 288, false, {}, tick, FieldPackets::OneTime},
        {"FieldsOfH264TogetherInTs", "g.ts", "50", 25, 352, 288, true, {}, tick, FieldPackets::Together},
        {"FieldsOfH264ApartInMp4", "e.mp4", "50", 25, 352, 288, false, {}, 1, FieldPackets::Apart},
        {"FieldsOfH264TogetherInMp4", "g.mp4", "50", 25, 352, 288, true, {}, 1, FieldPackets::Together},
        {"FieldsOfH264TogetherInMkv", "g.mkv", "50", 25, 352, 288, true, {}, millisecond, FieldPackets::Together},
        {"FieldsOfH264ApartInMpg", "e.mpg", "50", 25, 352, 288, true, {}, tick, FieldPackets::Apart},
        {"FieldsOfH264WithOneTimeInVob", "f.vob", "50", 25, 352, 288, false, {}, tick, FieldPackets::OneTime},
        {"FieldsOfH264TogetherInMpg", "g.mpg", "50", 25, 352, 288, true, {}, tick, FieldPackets::Together},
        {"FieldsOfH264ApartInAvi", "e.avi", "50", 25, 352, 288, true, {}, 1, FieldPackets::Apart},
        {"FieldsOfH264WithoutContainer", "g.h264", "50", 25, 352, 288, true, {}, 1, FieldPackets::Together},
    };
}

std::string nameOf(const testing::TestParamInfo<Woven>& info) {
    return info.param.name;
}

/// Tells the stream that its consumer wants pictures at that rate, with fields or progressive.
void prefer(IStreamVideo& stream, const Rate& rate, bool fields) {
    const auto wish = IFormatCodecVideo::Create();
    wish->SetFrameRate(rate);
    Kestra::Core::Property tree = wish->GetProperty();
    tree.SetChild(IFormatCodecVideo::TAG_INTERLACED, fields);
    wish->SetProperty(tree);
    stream.PreferFormat(*wish);
}

std::string notesOf(IMediaSource& source) {
    std::string notes;
    for (const auto& note : source.TakeNotes())
        notes += note.what + '\n';
    return notes;
}

class WovenPictures : public SourceTest, public testing::WithParamInterface<Woven> {
protected:
    static constexpr int FRAMES = 19;
    std::string makeMedia() {
        const Woven& woven = GetParam();
        if (woven.fields) {
            makeFieldPictures(folder / woven.file, woven.width, woven.height, 2 * FRAMES, woven.topFieldFirst,
                              *woven.fields);
            return folder / woven.file;
        }
        const std::string input =
            barPictures(woven.fieldRate, 2 * FRAMES, woven.width, woven.height) + weave(woven.topFieldFirst);
        return make(woven.file,
                    join({"-f", "lavfi", "-i", input, "-vf", setField(woven.topFieldFirst)}, woven.arguments));
    }
    intrusive_ptr<IStreamVideo> progressive(IMediaSource& source, const Rate& rate) {
        const auto stream = source.CreateVideoStream();
        prefer(*stream, rate, false);
        return stream;
    }
    Rate twice() const { return GetParam().rate * 2; }
};

TEST_P(WovenPictures, AreToldWithTheOrderOfTheirFields) {
    const auto source = open(makeMedia());
    ASSERT_TRUE(source->GetInfo().video);
    EXPECT_TRUE(source->GetInfo().video->interlaced);
    EXPECT_EQ(source->GetInfo().video->topFieldFirst, GetParam().topFieldFirst);
    EXPECT_EQ(source->GetInfo().video->frameRate, GetParam().rate);
}

TEST_P(WovenPictures, BecomeOneWithoutCombsEach) {
    const auto source = open(makeMedia());
    const auto stream = progressive(*source, GetParam().rate);
    int count = 0;
    while (const auto picture = stream->ReadVideo()) {
        const ShownFields shown = fieldsIn(*picture);
        EXPECT_EQ(shown.top, 2 * count);
        EXPECT_EQ(shown.bottom, 2 * count);
        EXPECT_FALSE(shown.flagged);
        EXPECT_NEAR(picture->GetTime(), FramesToTime(count, GetParam().rate), GetParam().rounding);
        EXPECT_NEAR(picture->GetDuration(), FramesToTime(1, GetParam().rate), 2 * GetParam().rounding);
        ++count;
    }
    EXPECT_EQ(count, FRAMES);
    EXPECT_EQ(notesOf(*source), std::string("interlaced (") + (GetParam().topFieldFirst ? "top" : "bottom") +
                                    " field first), deinterlaced\n");
}

TEST_P(WovenPictures, BecomeOneForEachFieldAtTwiceTheRate) {
    const auto source = open(makeMedia());
    const auto stream = progressive(*source, twice());
    int count = 0;
    while (const auto picture = stream->ReadVideo()) {
        const ShownFields shown = fieldsIn(*picture);
        EXPECT_EQ(shown.top, count);
        EXPECT_EQ(shown.bottom, count);
        EXPECT_NEAR(picture->GetTime(), FramesToTime(count, twice()), GetParam().rounding + 1);
        ++count;
    }
    EXPECT_EQ(count, 2 * FRAMES);
    EXPECT_NE(notesOf(*source).find("a picture for each field"), std::string::npos);
}

TEST_P(WovenPictures, AreTheSameAfterASeekAndAfterAReset) {
    const auto source = open(makeMedia());
    for (const Rate& rate : {GetParam().rate, twice()}) {
        const auto stream = progressive(*source, rate);
        std::vector<intrusive_ptr<Kestra::Proc::IDataVideo>> all;
        while (const auto picture = stream->ReadVideo())
            all.push_back(picture);
        const auto expectAt = [&](std::size_t index) {
            const auto picture = stream->ReadVideo();
            ASSERT_TRUE(picture) << index;
            EXPECT_EQ(picture->GetTime(), all[index]->GetTime()) << index;
            EXPECT_EQ(picture->GetDuration(), all[index]->GetDuration()) << index;
            EXPECT_TRUE(samplesOf(*picture) == samplesOf(*all[index])) << index;
        };
        std::mt19937 random(7);
        for (int round = 0; round < 12; ++round) {
            const std::size_t index = round == 0 ? all.size() - 1 : random() % all.size();
            stream->Seek(all[index]->GetTime() + all[index]->GetDuration() / 2, SeekMode::Exact);
            for (std::size_t next = index; next < std::min(index + 3, all.size()); ++next)
                expectAt(next);
        }
        stream->Reset();
        expectAt(0);
        expectAt(1);
    }
}

TEST_P(WovenPictures, StayWovenForAConsumerOfFields) {
    const auto source = open(makeMedia());
    const auto stream = source->CreateVideoStream();
    prefer(*stream, GetParam().rate, true);
    int count = 0;
    while (const auto picture = stream->ReadVideo()) {
        const ShownFields shown = fieldsIn(*picture);
        EXPECT_EQ(shown.top, 2 * count + (GetParam().topFieldFirst ? 0 : 1));
        EXPECT_EQ(shown.bottom, 2 * count + (GetParam().topFieldFirst ? 1 : 0));
        EXPECT_TRUE(shown.flagged);
        EXPECT_EQ(shown.topFieldFirst, GetParam().topFieldFirst);
        ++count;
    }
    EXPECT_EQ(count, FRAMES);
    EXPECT_EQ(notesOf(*source), "");
}

INSTANTIATE_TEST_SUITE_P(Media, WovenPictures, testing::ValuesIn(wovenMedia()), nameOf);

class Fields : public SourceTest {};

TEST_F(Fields, OfMixedMaterialAreFoundByTheFlagOfEachPicture) {
    // A second of whole frames, one of woven ones, one of whole frames.
    const std::vector<std::string> mpeg2{"-c:v", "mpeg2video", "-g", "6", "-bf", "2", "-q:v", "2"};
    const std::string whole = make("a.ts", join({"-f", "lavfi", "-i", barPictures("25", 25, 448, 288)}, mpeg2));
    const std::string woven =
        make("b.ts", join({"-f", "lavfi", "-i", barPictures("50", 50, 448, 288) + weave(true), "-vf", "setfield=tff"},
                          with(mpeg2)));
    std::ofstream mixed(folder / "c.ts", std::ios::binary);
    for (const std::string& part : {whole, woven, whole})
        mixed << std::ifstream(part, std::ios::binary).rdbuf();
    mixed.close();
    const auto source = open(folder / "c.ts");
    const auto kept = source->CreateVideoStream();
    const auto stream = source->CreateVideoStream();
    prefer(*stream, 25, false);
    for (int index = 0; index < 75; ++index) {
        const auto picture = stream->ReadVideo();
        const auto original = kept->ReadVideo();
        ASSERT_TRUE(picture && original) << index;
        const bool isWoven = index >= 25 && index < 50;
        EXPECT_EQ(fieldsIn(*original).flagged, isWoven) << index;
        EXPECT_EQ(fieldsIn(*picture).top, isWoven ? 2 * (index - 25) : index % 25) << index;
        EXPECT_EQ(fieldsIn(*picture).bottom, fieldsIn(*picture).top) << index;
        EXPECT_EQ(picture->GetTime(), original->GetTime());
        if (!isWoven) {
            EXPECT_TRUE(samplesOf(*picture) == samplesOf(*original)) << index;
        }
    }
    EXPECT_FALSE(stream->ReadVideo());
}

TEST_F(Fields, AreNotKeptWhereThePictureIsTurned) {
    const std::string flat =
        make("a.mp4", join({"-f", "lavfi", "-i", barPictures("50", 40, 352, 288) + weave(true), "-vf", "setfield=tff"},
                           with({"-c:v", "libx264", "-qp", "8"})));
    const auto source = open(make("b.mp4", {"-i", flat, "-c", "copy", "-metadata:s:v", "rotate=180"}));
    const auto stream = source->CreateVideoStream();
    prefer(*stream, 25, true);
    int count = 0;
    while (const auto picture = stream->ReadVideo()) {
        const ShownFields shown = fieldsIn(*picture);
        EXPECT_NE(shown.top, -1);
        EXPECT_EQ(shown.top, shown.bottom);
        EXPECT_FALSE(shown.flagged);
        ++count;
    }
    EXPECT_EQ(count, 20);
}

TEST_F(Fields, AreNotSoughtInProgressiveMaterial) {
    const auto source = open(make(
        "a.mp4", {"-f", "lavfi", "-i", barPictures("25", 20, 352, 288), "-c:v", "libx264", "-qp", "8", "-bf", "2"}));
    EXPECT_FALSE(source->GetInfo().video->interlaced);
    const auto stream = source->CreateVideoStream();
    prefer(*stream, 50, false);
    const auto kept = source->CreateVideoStream();
    int count = 0;
    while (const auto picture = stream->ReadVideo()) {
        EXPECT_TRUE(samplesOf(*picture) == samplesOf(*kept->ReadVideo()));
        ++count;
    }
    EXPECT_EQ(count, 20);
    EXPECT_EQ(notesOf(*source), "");
}

} // namespace
} // namespace TestMedia
