// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures for which an encoder takes more memory in one piece than media may ask for.
#include "Kestra/Proc/LargestAllocation.h"
#include "unit/encode/EncodeFixture.h"
#include <climits>

extern "C" {
#include <libavutil/mem.h>
}

using namespace Fakes;
using namespace Kestra;
using EncodeTest::Failure;

namespace {

constexpr std::size_t LIMIT = std::size_t{1} << 30;

bool IsGiven(std::size_t bytes) {
    void* const memory = av_malloc(bytes);
    av_free(memory);
    return memory != nullptr;
}

/// In the end everything is given again.
class Limit {
public:
    Limit() { Proc::SetLargestAllocation({}); }
    ~Limit() { av_max_alloc(INT_MAX); }
    Limit(const Limit&) = delete;
    Limit& operator=(const Limit&) = delete;

    static void Lower(std::size_t bytes) { av_max_alloc(bytes); }
};

VideoShape Still(int width, int height) {
    VideoShape shape;
    shape.width = width;
    shape.height = height;
    shape.frames = 1;
    return shape;
}

} // namespace

TEST(LargePictures, TakeWhatTheyNeedInOnePieceForAsLongAsTheyAreEncodedThoughMediaMayNot) {
    const Limit limit;
    auto encoder = VideoEncoder(MakeVideo(Still(3840, 2160)), Description("ffv1"));
    encoder->Prepare();
    constexpr std::size_t PIXELS = std::size_t{3840} * 2160;
    EXPECT_TRUE(IsGiven(PIXELS * 148));
    EXPECT_FALSE(IsGiven(PIXELS * 150)) << "and no more";
    const auto smaller = VideoEncoder(MakeVideo(Still(2560, 1440)), Description("ffv1"));
    smaller->Prepare();
    EXPECT_TRUE(IsGiven(PIXELS * 148)) << "the largest counts";
    encoder.reset();
    EXPECT_TRUE(IsGiven(LIMIT));
    EXPECT_FALSE(IsGiven(LIMIT + 1)) << "what media may take is what it was";
}

TEST(LargePictures, OfAnySizeTakeNoMoreThanAPacketCanBe) {
    const Limit limit;
    const auto encoder = VideoEncoder(MakeVideo(Still(7680, 4320)), Description("ffv1"));
    encoder->Prepare();
    EXPECT_TRUE(IsGiven(INT_MAX));
    EXPECT_FALSE(IsGiven(std::size_t{INT_MAX} + 1));
}

// The memory for large ones is filled, so it is a small one that shows whether the encoder needs more than it is given.
TEST(LargePictures, NeedNoMoreThanTheyAreGiven) {
    const Limit limit;
    const auto encoder = VideoEncoder(MakeVideo(Still(128, 64)), Description("ffv1"));
    encoder->Prepare();
    Limit::Lower((1 << 16) + 148 * 128 * 64);
    EXPECT_EQ(ReadAll(*encoder).size(), 1U);
}

TEST(LargePictures, ForWhichThereIsNoMemoryAreNamedWithWhatHelps) {
    const Limit limit;
    const auto encoder = VideoEncoder(MakeVideo(Still(128, 64)), Description("ffv1"));
    encoder->Prepare();
    Limit::Lower(1'000'000);
    const auto failure = Failure([&] { ReadAll(*encoder); });
    EXPECT_EQ(failure.GetCode(), Proc::TranscodingError::OutOfMemory);
    EXPECT_EQ(failure.GetDescription(),
              "ffv1 gets too little memory for pictures of 128x64, each of which takes up to 2 MiB in one piece: "
              "smaller pictures, or fewer exports at a time, take less");
}
