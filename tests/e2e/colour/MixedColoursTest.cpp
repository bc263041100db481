// SPDX-License-Identifier: GPL-3.0-or-later
// Clips of different colours in one export, judged by what is decoded from it.
#include "Kestra/Conf/IFormatCodecVideo.h"
#include "e2e/sync/Exported.h"
#include "fakes/streams/DecodedFile.h"
#include "fakes/streams/ExportDriver.h"
#include "fakes/streams/ScratchFolder.h"
#include "fakes/streams/SyntheticVideo.h"
#include "unit/filters/ColourReference.h"
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

using ColourReference::Code;
using ExportCore::ExportOutcome;
using ExportCore::ExportRequest;
using Kestra::Conf::ColourInfo;
using Kestra::Conf::IFormatCodecVideo;

namespace {

constexpr int FRAMES = 5;
const ColourInfo BT709{1, 1, 1, 1};
const ColourInfo PQ{9, 16, 9, 1};

template <class Sample>
void fillPlane(AVFrame& frame, int plane, double value) {
    const int rows = plane ? frame.height / 2 : frame.height;
    const int columns = plane ? frame.width / 2 : frame.width;
    for (int row = 0; row < rows; ++row)
        std::fill_n(reinterpret_cast<Sample*>(frame.data[plane] + row * frame.linesize[plane]), columns,
                    static_cast<Sample>(std::lround(value)));
}

double middle(const AVFrame& frame, std::size_t plane) {
    const std::size_t at = static_cast<std::size_t>(frame.width) / 4;
    const std::uint8_t* row = frame.data[plane] + frame.height / 4 * frame.linesize[plane];
    return frame.format == AV_PIX_FMT_YUV420P ? row[at] : reinterpret_cast<const std::uint16_t*>(row)[at];
}

class MixedColours : public ::testing::Test {
protected:
    /// A clip of one flat colour, without loss.
    void add(const Code& code, AVPixelFormat format, const ColourInfo& colour) {
        Fakes::VideoShape shape;
        shape.width = shape.height = 128;
        shape.frames = FRAMES;
        shape.format = format;
        shape.colour = colour;
        shape.paint = [code, format](AVFrame& frame, int) {
            for (int plane = 0; plane < 3; ++plane)
                if (format == AV_PIX_FMT_YUV420P)
                    fillPlane<std::uint8_t>(frame, plane, code[static_cast<std::size_t>(plane)]);
                else
                    fillPlane<std::uint16_t>(frame, plane, code[static_cast<std::size_t>(plane)]);
        };
        auto description = Fakes::Description("ffv1");
        description.SetChild(IFormatCodecVideo::TAG_DYNAMIC_RANGE,
                             std::string(IFormatCodecVideo::DYNAMIC_RANGE_SOURCE));
        const char* const name = format == AV_PIX_FMT_YUV420P ? "yuv420p" : "yuv420p10";
        description.SetChild(IFormatCodecVideo::TAG_PIXEL_FORMAT, std::string(name));
        description.SetChild(IFormatCodecVideo::TAG_COLOUR_RANGE, std::int64_t{colour.range});
        const std::string path = folder.File(std::to_string(inputs.size()) + ".mkv");
        Fakes::WriteFile(path, "mkv", {Fakes::VideoEncoder(Fakes::MakeVideo(shape), description)});
        inputs << QString::fromStdString(path);
    }
    Fakes::DecodedFile exported(const char* preset, const char* name) {
        ExportRequest request = TestExport::requestOfPictures({}, preset, folder.File(name));
        request.inputs = inputs;
        outcome = TestExport::run(request);
        EXPECT_EQ(outcome.status, ExportOutcome::Status::Done) << outcome.error.GetDescription();
        return Fakes::Decode(folder.File(name));
    }
    int notesOf(const char* words) const { return outcome.notes.filter(QString::fromUtf8(words)).size(); }

    const Fakes::ScratchFolder folder;
    QStringList inputs;
    ExportOutcome outcome;
};

const AVFrame& pictureOf(const Fakes::DecodedFile& file, std::size_t clip) {
    return *file.Video().pictures.at(clip * FRAMES + 2);
}

TEST_F(MixedColours, OfAStandardRangeComeOutInOne) {
    const std::vector<ColourInfo> colours{BT709, {6, 6, 6, 1}, {5, 6, 5, 1}, {9, 14, 9, 1}, {1, 1, 1, 2}, {6, 6, 6, 2}};
    const Code tone{150, 108, 150};
    for (const ColourInfo& colour : colours)
        add(tone, AV_PIX_FMT_YUV420P, colour);
    const auto file = exported("mkv-ffv1-flac", "out.mkv");
    ASSERT_EQ(file.Video().pictures.size(), colours.size() * FRAMES);
    for (std::size_t clip = 0; clip < colours.size(); ++clip) {
        const Code expected = ColourReference::convert(tone, 8, colours[clip], 8, BT709);
        for (std::size_t plane = 0; plane < 3; ++plane)
            EXPECT_NEAR(middle(pictureOf(file, clip), plane), expected[plane], 1.01) << clip << ", plane " << plane;
    }
    EXPECT_EQ(file.Video().parameters->color_primaries, 1);
    EXPECT_EQ(file.Video().parameters->color_space, 1);
    EXPECT_EQ(notesOf("colours converted from BT.601 to BT.709"), 3);
    EXPECT_EQ(notesOf("colours converted from BT.2020 to BT.709"), 1);
    EXPECT_EQ(outcome.notes.size(), 4) << outcome.notes.join(QLatin1Char('\n')).toStdString();
}

TEST_F(MixedColours, OfAHighRangeBecomeStandardAndAreNoted) {
    const double white = ColourReference::greyCode(203, 10, PQ);
    add({180, 128, 128}, AV_PIX_FMT_YUV420P, BT709);
    add({white, 512, 512}, AV_PIX_FMT_YUV420P10, PQ);
    const auto file = exported("mp4-h264-source", "out.mp4");
    ASSERT_EQ(file.Video().pictures.size(), 2U * FRAMES);
    EXPECT_EQ(pictureOf(file, 0).format, AV_PIX_FMT_YUV420P);
    EXPECT_NE(file.Video().parameters->color_trc, 16);
    EXPECT_NE(file.Video().parameters->color_primaries, 9);
    EXPECT_NEAR(middle(pictureOf(file, 0), 0), 180, 2);
    EXPECT_NEAR(middle(pictureOf(file, 1), 0), 201, 3);
    EXPECT_EQ(notesOf("high dynamic range (PQ, up to 10000 cd/m2), tone-mapped to BT."), 1);
    EXPECT_EQ(notesOf("(mobius curve)"), 1);
}

TEST_F(MixedColours, OfAHighRangeAreKeptByPresetsThatSaySo) {
    const double white = ColourReference::greyCode(203, 10, PQ);
    add({235, 128, 128}, AV_PIX_FMT_YUV420P, BT709);
    add({white, 512, 512}, AV_PIX_FMT_YUV420P10, PQ);
    const std::vector<std::pair<const char*, const char*>> presets{{"mp4-hevc-1080p-hdr", "hevc.mp4"},
                                                                   {"webm-vp9-1080p-hdr", "vp9.webm"},
                                                                   {"mp4-av1-1080p-hdr", "av1.mp4"},
                                                                   {"mov-prores-1080p", "prores.mov"}};
    for (const auto& [preset, name] : presets) {
        const auto file = exported(preset, name);
        ASSERT_EQ(file.Video().pictures.size(), 2U * FRAMES) << preset;
        EXPECT_EQ(file.Video().parameters->color_trc, 16) << preset;
        EXPECT_EQ(file.Video().parameters->color_primaries, 9) << preset;
        EXPECT_EQ(file.Video().parameters->color_space, 9) << preset;
        for (const std::size_t clip : {0U, 1U}) {
            EXPECT_NE(pictureOf(file, clip).format, AV_PIX_FMT_YUV420P) << preset;
            EXPECT_NEAR(middle(pictureOf(file, clip), 0), white, 8) << preset << ", clip " << clip;
        }
        EXPECT_EQ(notesOf("standard dynamic range, placed in PQ with its white at 203 cd/m2"), 1) << preset;
    }
}

TEST_F(MixedColours, ThatAreReservedAreUntold) {
    add({150, 108, 150}, AV_PIX_FMT_YUV420P, BT709);
    add({150, 108, 150}, AV_PIX_FMT_YUV420P, {3, 3, 3, 1});
    const auto file = exported("mkv-ffv1-flac", "out.mkv");
    ASSERT_EQ(file.Video().pictures.size(), 2U * FRAMES);
    // Small pictures that tell nothing are taken for BT.601.
    const Code expected = ColourReference::convert({150, 108, 150}, 8, {6, 6, 6, 1}, 8, BT709);
    for (std::size_t plane = 0; plane < 3; ++plane)
        EXPECT_NEAR(middle(pictureOf(file, 1), plane), expected[plane], 1.01) << plane;
    EXPECT_EQ(notesOf("does not fully tell its colour, taken for BT.601"), 1);
}

TEST_F(MixedColours, ThatTheCodecHasNoNameForAreConvertedAndNoted) {
    add({150, 108, 150}, AV_PIX_FMT_YUV420P, {22, 1, 1, 1});
    const auto file = exported("mp4-h264-source", "out.mp4");
    ASSERT_EQ(file.Video().pictures.size(), std::size_t{FRAMES});
    EXPECT_EQ(file.Video().parameters->color_primaries, 1);
    EXPECT_EQ(notesOf("colours converted from ebu3213 to BT.709"), 1);
}

TEST_F(MixedColours, ThatCannotBeConvertedAreRefusedByName) {
    add({150, 108, 150}, AV_PIX_FMT_YUV420P, BT709);
    add({150, 108, 150}, AV_PIX_FMT_YUV420P, {1, 17, 1, 1});
    ExportRequest request = TestExport::requestOfPictures({}, "mkv-ffv1-flac", folder.File("out.mkv"));
    request.inputs = inputs;
    outcome = TestExport::run(request);
    EXPECT_EQ(outcome.status, ExportOutcome::Status::Failed);
    const std::string words = outcome.error.GetDescription();
    EXPECT_NE(words.find("1.mkv"), std::string::npos) << words;
    EXPECT_NE(words.find("transfer smpte428"), std::string::npos) << words;
}

} // namespace
