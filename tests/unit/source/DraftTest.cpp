// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures for a consumer that looks at them roughly.
#include "Kestra/Conf/Draft.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include "unit/source/SourceFixture.h"

namespace TestMedia {
namespace {

using Kestra::Conf::Draft;
using Kestra::Conf::IFormatCodecVideo;

class DraftTest : public SourceTest {
protected:
    static constexpr std::size_t FRAMES = 40;

    /// So coarsely coded that the loop filter has much to do.
    std::string blocks() {
        return make("blocks.mp4", {"-f", "lavfi", "-i", "testsrc2=size=160x96:rate=25,noise=alls=20:allf=t",
                                   "-frames:v", std::to_string(FRAMES), "-c:v", "libx264", "-preset", "veryfast", "-qp",
                                   "40", "-g", "100", "-pix_fmt", "yuv420p"});
    }
    static void prefer(IStreamVideo& stream, const std::optional<Draft>& draft) {
        boost::intrusive_ptr<IFormatCodecVideo> format;
        stream.GetVideoFormat(format);
        Draft::TellIn(*format, draft);
        stream.PreferFormat(*format);
    }
    /// The luma of every picture.
    static std::vector<std::string> lumas(IStreamVideo& stream) {
        std::vector<std::string> all;
        while (const auto picture = stream.ReadVideo()) {
            const AVFrame& frame = Kestra::FF::FrameOf(*picture);
            std::string luma;
            for (int y = 0; y < frame.height; ++y)
                luma.append(reinterpret_cast<const char*>(frame.data[0] + y * frame.linesize[0]),
                            static_cast<std::size_t>(frame.width));
            all.push_back(std::move(luma));
        }
        return all;
    }
};

TEST_F(DraftTest, IsDecodedRoughlyAndTheNextReadingIsNot) {
    const auto medium = open(blocks());
    const auto stream = medium->CreateVideoStream();
    const auto beside = medium->CreateVideoStream();
    const auto whole = lumas(*medium->CreateVideoStream());
    ASSERT_EQ(whole.size(), FRAMES);

    prefer(*stream, Draft{80, 48});
    prefer(*beside, std::nullopt);
    const auto draft = lumas(*stream);
    ASSERT_EQ(draft.size(), FRAMES);
    EXPECT_NE(draft.front(), whole.front());
    EXPECT_NE(draft.back(), whole.back());
    EXPECT_EQ(lumas(*beside), whole) << "another reader of the file";

    stream->Reset();
    prefer(*stream, std::nullopt);
    EXPECT_EQ(lumas(*stream), whole) << "the next reading";
}

TEST_F(DraftTest, BrokenOffLeavesNothingToTheNextReading) {
    const auto medium = open(blocks());
    const auto stream = medium->CreateVideoStream();
    const auto whole = lumas(*medium->CreateVideoStream());
    prefer(*stream, Draft{80, 48});
    for (int picture = 0; picture < 10; ++picture)
        stream->ReadVideo();
    stream->Reset();
    prefer(*stream, std::nullopt);
    EXPECT_EQ(lumas(*stream), whole);
}

TEST(Draft, IsToldInAWishAndTakenBack) {
    const auto format = IFormatCodecVideo::Create();
    EXPECT_FALSE(Draft::Of(*format));
    Draft::TellIn(*format, Draft{960, 540});
    ASSERT_TRUE(Draft::Of(*format));
    EXPECT_EQ(Draft::Of(*format)->width, 960U);
    EXPECT_EQ(Draft::Of(*format)->height, 540U);
    EXPECT_EQ(format->GetFrameInfo().width, 0U) << "the frame stays the whole one";
    Draft::TellIn(*format, std::nullopt);
    EXPECT_FALSE(Draft::Of(*format));
}

} // namespace
} // namespace TestMedia
