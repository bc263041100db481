// SPDX-License-Identifier: GPL-3.0-or-later
// Orientation: the numbers, and pictures that come out upright.
#include "Kestra/FF/Data/DataVideoFF.h"
#include "Kestra/FF/Picture/Orientation.h"
#include "unit/source/SourceFixture.h"

#include <fstream>
#include <sstream>
#include <tuple>

extern "C" {
#include <libavutil/display.h>
}

namespace TestMedia {
namespace {

using Kestra::FF::ReadDisplayMatrix;

TEST(Orientation, IsTheClockwiseTurnThatBringsThePictureUpright) {
    for (const int turn : {0, 90, 180, 270}) {
        std::int32_t matrix[9];
        // libav counts the other way round.
        av_display_rotation_set(matrix, turn);
        EXPECT_EQ(ReadDisplayMatrix(matrix).rotation, turn);
        EXPECT_FALSE(ReadDisplayMatrix(matrix).flipped);
    }
}

TEST(Orientation, KnowsMirroredPictures) {
    std::int32_t matrix[9];
    av_display_rotation_set(matrix, 0);
    av_display_matrix_flip(matrix, 1, 0);
    EXPECT_EQ(ReadDisplayMatrix(matrix).rotation, 180);
    EXPECT_TRUE(ReadDisplayMatrix(matrix).flipped);
}

TEST(Orientation, OfAnEmptyMatrixIsUpright) {
    const std::int32_t matrix[9] = {};
    EXPECT_EQ(ReadDisplayMatrix(matrix).rotation, 0);
}

TEST(Orientation, BetweenQuarterTurnsIsAskew) {
    for (const auto& [angle, rotation, askew] :
         {std::tuple(3, 0, 3.0), std::tuple(100, 90, 10.0), std::tuple(-40, 0, -40.0), std::tuple(90, 90, 0.0)}) {
        std::int32_t matrix[9];
        av_display_rotation_set(matrix, angle);
        EXPECT_EQ(ReadDisplayMatrix(matrix).rotation, rotation) << angle;
        EXPECT_NEAR(ReadDisplayMatrix(matrix).askew, askew, 0.01) << angle;
    }
}

class Askew : public SourceTest {};

TEST_F(Askew, PicturesAreToldOf) {
    const std::string path =
        make("a.mov", {"-f", "lavfi", "-i", "testsrc=s=64x32:r=25:d=0.2", "-c:v", "mjpeg", "-pix_fmt", "yuvj420p"});
    EXPECT_TRUE(open(path)->TakeNotes().empty());
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    std::string film = bytes.str();
    constexpr std::size_t matrixAt = 44; // from the name of the box on
    // The cosine and the sine of 30 degrees, in 65536ths.
    for (const auto& [place, value] :
         {std::pair(0, 56756), std::pair(4, 32768), std::pair(12, -32768), std::pair(16, 56756)})
        for (int byte = 0; byte < 4; ++byte)
            film[film.find("tkhd") + matrixAt + static_cast<std::size_t>(place + byte)] =
                static_cast<char>(static_cast<std::uint32_t>(value) >> (24 - 8 * byte));
    std::ofstream(path, std::ios::binary) << film;
    const auto source = open(path);
    EXPECT_EQ(source->GetInfo().video->rotation, 0);
    const auto notes = source->TakeNotes();
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0].what, "its pictures are to be turned by 30 degrees, and are turned by 0");
}

class Upright : public SourceTest, public testing::WithParamInterface<std::string> {
protected:
    /// Luma of the quarters, row by row.
    static std::vector<int> quarters(const Kestra::Proc::IDataVideo& picture) {
        const AVFrame& frame = Kestra::FF::FrameOf(picture);
        const bool deep = frame.format == AV_PIX_FMT_YUV422P10 || frame.format == AV_PIX_FMT_YUV444P10;
        std::vector<int> result;
        for (const int y : {frame.height / 4, frame.height * 3 / 4})
            for (const int x : {frame.width / 4, frame.width * 3 / 4}) {
                const std::uint8_t* row = frame.data[0] + y * frame.linesize[0];
                result.push_back(((deep ? reinterpret_cast<const std::uint16_t*>(row)[x] >> 2 : row[x]) + 10) / 50);
            }
        return result;
    }
};

TEST_P(Upright, PicturesOfAPhoneComeOutTurned) {
    // Quarters of luma 50, 100 over 150, 200.
    const std::string input =
        "color=black:s=64x32:r=25:d=0.2,format=yuv420p,geq=lum='50+50*gte(X,32)+100*gte(Y,16)':cb=128:cr=128,format=" +
        GetParam();
    const std::string codec = GetParam() == "yuv422p10le" ? "prores_ks" : "libx264";
    const std::string plain = make("plain.mov", {"-f", "lavfi", "-i", input, "-c:v", codec, "-qp", "5"});
    const std::vector<std::vector<int>> expected{{1, 2, 3, 4}, {3, 1, 4, 2}, {4, 3, 2, 1}, {2, 4, 1, 3}};
    for (const int turn : {0, 90, 180, 270}) {
        // The program counts the other way round, too.
        const auto source = open(make(
            "a.mov", {"-i", plain, "-c", "copy", "-metadata:s:v", "rotate=" + std::to_string((360 - turn) % 360)}));
        ASSERT_EQ(source->GetInfo().video->rotation, turn);
        const bool sideways = turn % 180 != 0;
        EXPECT_EQ(source->GetInfo().video->frame.width, sideways ? 32U : 64U);
        EXPECT_EQ(source->GetInfo().video->frame.height, sideways ? 64U : 32U);
        const auto stream = source->CreateVideoStream();
        const auto picture = stream->ReadVideo();
        EXPECT_EQ(picture->GetFrameInfo(), source->GetInfo().video->frame);
        EXPECT_EQ(quarters(*picture), expected[turn / 90]) << turn;
        boost::intrusive_ptr<Kestra::Conf::IFormatCodecVideo> format;
        stream->GetVideoFormat(format);
        EXPECT_EQ(format->GetFrameInfo(), picture->GetFrameInfo());
        EXPECT_EQ(format->GetPixelFormat(), picture->GetPixelFormat()) << turn;
    }
}

INSTANTIATE_TEST_SUITE_P(Formats, Upright, testing::Values("yuv420p", "yuv422p", "yuv444p", "yuv422p10le"));

} // namespace
} // namespace TestMedia
