// SPDX-License-Identifier: GPL-3.0-or-later
// What the check of a finished animated WebP file finds.
#include "Kestra/Base/Time.h"
#include "Kestra/Proc/FileCheck.h"
#include "Kestra/Proc/Interrupted.h"
#include "WebPFixture.h"
#include <algorithm>

using namespace Fakes;
using namespace Kestra;
using Proc::TranscodingError;

namespace {

constexpr WebPTest::Colour RED{20, 30, 220, 255}, HALF{200, 60, 40, 128};
/// Where things stand in a file: its size, VP8X's flags and size, the first picture's part.
constexpr std::size_t FILE_SIZE = 4, FLAGS = 20, CANVAS_WIDTH = 24, FIRST = 44, PICTURE_HEAD = FIRST + 8,
                      CODE = PICTURE_HEAD + 16;

class WebPCheck : public WebPTest::WebP, public ::testing::WithParamInterface<const char*> {
protected:
    std::vector<char> Made() const {
        VideoShape shape = WebPTest::Colours({}, 3, 64, 48);
        shape.paint = [](AVFrame& frame, int index) {
            WebPTest::Fill(frame, std::string(GetParam()) == "yuva420p" ? HALF : RED);
            for (int at = 0; at < 4 * frame.width; at += 5)
                frame.data[0][20 * frame.linesize[0] + at] = static_cast<std::uint8_t>(at * 3 + index);
        };
        Written(shape, GetParam());
        return Bytes();
    }
    Proc::CheckedFile Check() const { return Proc::CheckFile(ioPath(path), std::atomic<bool>(false)); }
    /// What the check says of these bytes; "" when it finds nothing.
    std::string Fault(const std::vector<char>& bytes) const {
        Write(bytes);
        const auto failure = WebPTest::Failure([this] { Check(); });
        if (failure.GetCode() == TranscodingError::None)
            return {};
        EXPECT_EQ(failure.GetCode(), TranscodingError::OutputFailed);
        return failure.GetDescription();
    }
    bool Blames(const std::vector<char>& bytes, const char* what) const {
        const std::string fault = Fault(bytes);
        EXPECT_NE(fault.find(what), std::string::npos) << fault;
        return fault.find(what) != std::string::npos;
    }
    static void Put(std::vector<char>& bytes, std::size_t place, std::size_t number) {
        for (std::size_t byte = 0; byte < 4; ++byte)
            bytes[place + byte] = static_cast<char>(number >> (8 * byte));
    }

    const std::vector<char> whole = Made();
};

TEST_P(WebPCheck, TellsWhatTheFileHolds) {
    const Proc::CheckedFile file = Check();
    EXPECT_EQ(file.container, "webp");
    EXPECT_EQ(file.size, static_cast<std::int64_t>(whole.size()));
    EXPECT_EQ(file.duration, 120 * TICKS_PER_MILLISECOND);
    ASSERT_EQ(file.streams.size(), 1U);
    EXPECT_EQ(file.streams[0].kind, Proc::CheckedStream::Kind::Video);
    EXPECT_EQ(file.streams[0].codec, "webp");
    EXPECT_EQ(file.streams[0].packets, 3);
    EXPECT_EQ(file.streams[0].plays, 0);
    EXPECT_EQ(file.streams[0].end, 120 * TICKS_PER_MILLISECOND);
    EXPECT_EQ(file.streams[0].frame.width, 64U);
    EXPECT_EQ(file.streams[0].frame.height, 48U);
}

TEST_P(WebPCheck, FindsEveryFileThatEndsEarlyOrLate) {
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const bool looksRight = Fault({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)}).empty();
        // Without its head it is none that moves, whatever else the demuxer library takes it for.
        ASSERT_FALSE(looksRight && Check().streams.at(0).plays >= 0) << size;
        ASSERT_FALSE(looksRight && size > FLAGS) << size;
    }
    std::vector<char> longer = whole;
    longer.push_back(0);
    EXPECT_TRUE(Blames(longer, "and says that it is"));
    EXPECT_EQ(Fault(whole), "");
}

// As a crash leaves them where the end did not reach the disk.
TEST_P(WebPCheck, FindsEndsThatAreCutOffWithTheirSizeCorrected) {
    for (std::size_t size = FIRST + 1; size < whole.size(); ++size) {
        std::vector<char> cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        Put(cut, FILE_SIZE, size - 8);
        const std::string fault = Fault(cut);
        if (fault.empty()) { // between two pictures it is a file, of fewer
            EXPECT_LT(Check().streams[0].packets, 3) << size;
        }
    }
}

TEST_P(WebPCheck, FindsPicturesOfAnotherSize) {
    std::vector<char> bytes = whole;
    bytes[CANVAS_WIDTH] = 65;
    EXPECT_TRUE(Blames(bytes, "its picture 1: only a part is there: 64x48 of 66x48"));
    bytes[PICTURE_HEAD + 6] = 65;
    EXPECT_TRUE(Blames(bytes, "the size is 64x48 and said to be 66x48"));
    bytes = whole;
    bytes[PICTURE_HEAD] = 1;
    EXPECT_TRUE(Blames(bytes, "64x48 at 2,0 do not lie within 64x48"));
}

TEST_P(WebPCheck, FindsPicturesThatLeaveWhatTheyShouldReplace) {
    std::vector<char> bytes = whole;
    bytes[PICTURE_HEAD + 15] = 0;
    EXPECT_TRUE(Blames(bytes, "its picture 1: it does not replace the one before"));
}

TEST_P(WebPCheck, FindsTransparencyThatTheHeadDoesNotTell) {
    std::vector<char> bytes = whole;
    bytes[FLAGS] = 2;
    if (std::string(GetParam()) != "yuv420p") {
        EXPECT_TRUE(Blames(bytes, "parts are transparent"));
    } else {
        EXPECT_EQ(Fault(bytes), "");
    }
}

TEST_P(WebPCheck, FindsPartsThatAreNoPictures) {
    std::vector<char> bytes = whole;
    std::fill_n(bytes.begin() + FIRST, 4, 'X');
    EXPECT_TRUE(Blames(bytes, "is none of its pictures"));
    bytes = whole;
    bytes[CODE] = 'X';
    EXPECT_TRUE(Blames(bytes, "its parts are not those of a picture"));
    bytes = whole;
    std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(CODE) + 8,
              bytes.begin() + static_cast<std::ptrdiff_t>(CODE) + 40, '\0');
    EXPECT_NE(Fault(bytes), "");
}

TEST_P(WebPCheck, TellsHowLongPicturesLast) {
    std::vector<char> bytes = whole;
    bytes[PICTURE_HEAD + 12] = 41;
    Write(bytes);
    EXPECT_EQ(Check().streams[0].end, 121 * TICKS_PER_MILLISECOND);
}

TEST_P(WebPCheck, EndsWhenItIsInterrupted) {
    EXPECT_THROW(Proc::CheckFile(ioPath(path), std::atomic<bool>(true)), Proc::Interrupted);
}

INSTANTIATE_TEST_SUITE_P(Formats, WebPCheck, ::testing::Values("yuv420p", "yuva420p", "bgra"),
                         [](const auto& row) { return std::string(row.param); });

} // namespace
