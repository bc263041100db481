// SPDX-License-Identifier: GPL-3.0-or-later
// What pictures of high dynamic range tell of the display that they were graded on.
#include "Kestra/FF/Picture/HdrMetadata.h"
#include "unit/encode/EncodeFixture.h"
#include <algorithm>

namespace EncodeTest {
namespace {

using Kestra::Conf::IFormatCodecVideo;
using Kestra::FF::HdrMetadata;

constexpr int BT2020 = 9;
constexpr int PQ = 16;
constexpr int BT709 = 1;

/// Grey of 203 cd/m2 in PQ.
void PaintWhite(AVFrame& frame) {
    for (int plane = 0; plane < 3; ++plane)
        for (int row = 0; row < (plane ? frame.height / 2 : frame.height); ++row)
            std::fill_n(reinterpret_cast<std::uint16_t*>(frame.data[plane] + row * frame.linesize[plane]),
                        plane ? frame.width / 2 : frame.width, static_cast<std::uint16_t>(plane ? 512 : 573));
}

void Grade(AVFrame& frame, int) {
    PaintWhite(frame);
    AVMasteringDisplayMetadata& display = *av_mastering_display_metadata_create_side_data(&frame);
    constexpr int places[3][2] = {{35400, 14600}, {8500, 39850}, {6550, 2300}};
    for (int colour = 0; colour < 3; ++colour)
        for (int axis = 0; axis < 2; ++axis)
            display.display_primaries[colour][axis] = {places[colour][axis], 50000};
    display.white_point[0] = {15635, 50000};
    display.white_point[1] = {16450, 50000};
    display.max_luminance = {10000000, 10000};
    display.min_luminance = {50, 10000};
    display.has_primaries = display.has_luminance = 1;
    AVContentLightMetadata& light = *av_content_light_metadata_create_side_data(&frame);
    light.MaxCLL = 987;
    light.MaxFALL = 123;
}

Fakes::VideoShape Graded(int transfer) {
    Fakes::VideoShape shape;
    shape.width = shape.height = 128;
    shape.format = AV_PIX_FMT_YUV420P10;
    shape.colour = {BT2020, transfer, BT2020, 1};
    shape.frames = 5;
    shape.paint = Grade;
    return shape;
}

std::string Encode(const Fakes::ScratchFolder& folder, const char* codec, const char* container, const char* format,
                   int transfer, const char* range = IFormatCodecVideo::DYNAMIC_RANGE_SOURCE) {
    auto description = Fakes::Description(codec);
    description.SetChild(IFormatCodecVideo::TAG_PIXEL_FORMAT, std::string(format));
    description.SetChild(IFormatCodecVideo::TAG_DYNAMIC_RANGE, std::string(range));
    std::string path = folder.File(std::string("out.") + container);
    Fakes::WriteFile(path, container, {Fakes::VideoEncoder(Fakes::MakeVideo(Graded(transfer)), description)});
    return path;
}

HdrMetadata ToldByContainer(const std::string& path) {
    AVFormatContext* raw = nullptr;
    EXPECT_GE(avformat_open_input(&raw, path.c_str(), nullptr, nullptr), 0);
    const Kestra::FF::InputContextHandle context(raw);
    EXPECT_GE(avformat_find_stream_info(raw, nullptr), 0);
    const Kestra::FF::FrameHandle none = Kestra::FF::MakeFrame();
    Kestra::FF::AddHdrMetadata(*none, *raw->streams[0]);
    return Kestra::FF::HdrMetadataOf(*none);
}

void ExpectTold(const HdrMetadata& metadata, const std::string& where) {
    ASSERT_TRUE(metadata.mastering && metadata.light) << where;
    EXPECT_NEAR(av_q2d(metadata.mastering->display_primaries[0][0]), 0.708, 1e-4) << where;
    EXPECT_NEAR(av_q2d(metadata.mastering->display_primaries[1][1]), 0.797, 1e-4) << where;
    EXPECT_NEAR(av_q2d(metadata.mastering->display_primaries[2][0]), 0.131, 1e-4) << where;
    EXPECT_NEAR(av_q2d(metadata.mastering->white_point[0]), 0.3127, 1e-4) << where;
    EXPECT_NEAR(av_q2d(metadata.mastering->max_luminance), 1000, 1e-3) << where;
    EXPECT_NEAR(av_q2d(metadata.mastering->min_luminance), 0.005, 1e-5) << where;
    EXPECT_EQ(metadata.light->MaxCLL, 987U) << where;
    EXPECT_EQ(metadata.light->MaxFALL, 123U) << where;
}

TEST(Hdr, IsToldByTheContainer) {
    const Fakes::ScratchFolder folder;
    ExpectTold(ToldByContainer(Encode(folder, "vp9", "webm", "yuv420p10", PQ)), "vp9 in webm");
    ExpectTold(ToldByContainer(Encode(folder, "vp9", "mp4", "yuv420p10", PQ)), "vp9 in mp4");
    ExpectTold(ToldByContainer(Encode(folder, "hevc", "mkv", "yuv420p10", PQ)), "hevc in mkv");
}

TEST(Hdr, IsToldByTheStreamOfHevc) {
    const Fakes::ScratchFolder folder;
    const auto file = Fakes::Decode(Encode(folder, "hevc", "mp4", "yuv420p10", PQ));
    ASSERT_FALSE(file.Video().pictures.empty());
    ExpectTold(Kestra::FF::HdrMetadataOf(*file.Video().pictures.front()), "hevc");
}

TEST(Hdr, KeepsThePlaceOfChroma) {
    for (const AVChromaLocation place : {AVCHROMA_LOC_TOPLEFT, AVCHROMA_LOC_LEFT, AVCHROMA_LOC_UNSPECIFIED}) {
        const Fakes::ScratchFolder folder;
        auto shape = Graded(PQ);
        shape.paint = [place](AVFrame& frame, int index) {
            Grade(frame, index);
            frame.chroma_location = place;
        };
        auto description = Fakes::Description("hevc");
        description.SetChild(IFormatCodecVideo::TAG_PIXEL_FORMAT, std::string("yuv420p10"));
        description.SetChild(IFormatCodecVideo::TAG_DYNAMIC_RANGE,
                             std::string(IFormatCodecVideo::DYNAMIC_RANGE_SOURCE));
        Fakes::WriteFile(folder.File("out.mp4"), "mp4", {Fakes::VideoEncoder(Fakes::MakeVideo(shape), description)});
        EXPECT_EQ(Fakes::Decode(folder.File("out.mp4")).Video().pictures.at(0)->chroma_location,
                  place == AVCHROMA_LOC_UNSPECIFIED ? AVCHROMA_LOC_LEFT : place);
    }
}

TEST(Hdr, IsNotToldOfAnOrdinaryTransfer) {
    const Fakes::ScratchFolder folder;
    EXPECT_TRUE(ToldByContainer(Encode(folder, "hevc", "mkv", "yuv420p10", BT709)).IsEmpty());
}

/// The file's first picture is grey of the light that the source's had: 58 % of PQ, which is reference white.
void ExpectStandardWhite(const std::string& path) {
    const auto file = Fakes::Decode(path);
    EXPECT_EQ(file.Video().parameters->color_trc, 6);
    EXPECT_EQ(file.Video().parameters->color_primaries, 6);
    EXPECT_EQ(file.Video().parameters->color_space, 6);
    const AVFrame& picture = *file.Video().pictures.front();
    const bool deep = picture.format != AV_PIX_FMT_YUV420P;
    const int luma = deep ? reinterpret_cast<const std::uint16_t*>(picture.data[0])[64] / 4 : picture.data[0][64];
    EXPECT_NEAR(luma, 201, 3);
    EXPECT_TRUE(ToldByContainer(path).IsEmpty());
    EXPECT_TRUE(Kestra::FF::HdrMetadataOf(picture).IsEmpty());
}

TEST(Hdr, BecomesAStandardRangeUnlessItIsToBeKept) {
    const Fakes::ScratchFolder folder;
    ExpectStandardWhite(Encode(folder, "h264", "mp4", "yuv420p", PQ, "standard"));
    ExpectStandardWhite(Encode(folder, "hevc", "mkv", "yuv420p10", PQ, "standard"));
    ExpectStandardWhite(Encode(folder, "vp9", "webm", "yuv420p10", PQ, "standard"));
}

TEST(Hdr, BecomesAStandardRangeInEightBitsWhateverIsToBeKept) {
    const Fakes::ScratchFolder folder;
    ExpectStandardWhite(Encode(folder, "h264", "mkv", "yuv420p", PQ));
}

} // namespace
} // namespace EncodeTest
