// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures on their way to a display.
#include "Kestra/Proc/PictureReading.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/Filters/PictureTap.h"
#include "Kestra/Proc/IDataVideoFFFactory.h"
#include "fakes/kestra/FakeStreamVideo.h"
#include "fakes/streams/SyntheticVideo.h"
#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <stdexcept>

namespace Kestra {
namespace {

using Pixel = std::array<int, 3>;

/// Left half of one colour, right half of another, as blue, green, red, alpha.
boost::intrusive_ptr<Proc::IDataVideo> halves(const Conf::FrameInfo& frame, const std::array<std::uint8_t, 4>& left,
                                              const std::array<std::uint8_t, 4>& right) {
    return Core::CoreManager::Instance().GetDataVideoFFFactory().CreateDataVideo(
        frame, Conf::PixelFormat::BGRA, [&](std::uint8_t* pixels, std::ptrdiff_t stride) {
            for (std::uint32_t y = 0; y < frame.height; ++y)
                for (std::uint32_t x = 0; x < frame.width; ++x)
                    for (std::uint32_t channel = 0; channel < 4; ++channel)
                        pixels[y * stride + 4 * x + channel] = (x < frame.width / 2 ? left : right)[channel];
        });
}

Pixel at(const Proc::RgbPicture& picture, int x, int y) {
    const std::uint8_t* const first = &picture.pixels.at(static_cast<std::size_t>(3 * (y * picture.width + x)));
    return {first[0], first[1], first[2]};
}

TEST(PictureReading, GivesRedGreenAndBlueRowByRow) {
    const auto picture = halves({37, 19, 0, 0}, {10, 20, 30, 255}, {200, 150, 100, 255});
    const Proc::RgbPicture read = Proc::ReadPicture(*picture, 100, 100);
    ASSERT_EQ(read.width, 37) << "it is not enlarged";
    ASSERT_EQ(read.height, 19);
    ASSERT_EQ(read.pixels.size(), 3U * 37 * 19);
    EXPECT_EQ(at(read, 0, 0), (Pixel{30, 20, 10}));
    EXPECT_EQ(at(read, 36, 18), (Pixel{100, 150, 200}));
}

TEST(PictureReading, FitsIntoTheLimitInItsShapeAsShown) {
    const auto square = halves({64, 64, 0, 0}, {0, 0, 0, 255}, {255, 255, 255, 255});
    EXPECT_EQ(Proc::ReadPicture(*square, 32, 16).width, 16);
    const auto wide = halves({64, 64, 2, 1}, {0, 0, 0, 255}, {255, 255, 255, 255});
    const Proc::RgbPicture read = Proc::ReadPicture(*wide, 32, 100);
    EXPECT_EQ(read.width, 32);
    EXPECT_EQ(read.height, 16);
}

TEST(PictureReading, BlendsAlphaOverBlack) {
    const auto picture = halves({16, 16, 0, 0}, {200, 200, 200, 0}, {200, 100, 50, 128});
    const Proc::RgbPicture read = Proc::ReadPicture(*picture, 16, 16);
    EXPECT_EQ(at(read, 1, 8), (Pixel{0, 0, 0}));
    const Pixel half = at(read, 14, 8);
    EXPECT_NEAR(half[0], 25, 2);
    EXPECT_NEAR(half[1], 50, 2);
    EXPECT_NEAR(half[2], 100, 2);
}

TEST(PictureReading, ShowsTheColoursOfVideo) {
    ::Fakes::VideoShape shape;
    shape.colour = {1, 1, 1, 1};
    shape.paint = [](AVFrame& frame, int) {
        for (int plane = 0; plane < 3; ++plane)
            for (int y = 0; y < (plane == 0 ? frame.height : frame.height / 2); ++y)
                std::fill_n(frame.data[plane] + y * frame.linesize[plane], frame.width / (plane == 0 ? 1 : 2),
                            static_cast<std::uint8_t>(std::array<int, 3>{63, 102, 240}[plane]));
    };
    const auto picture = ::Fakes::MakeVideo(shape)->ReadVideo();
    const Pixel red = at(Proc::ReadPicture(*picture, 32, 32), 10, 10);
    EXPECT_NEAR(red[0], 255, 3); // BT.709 in limited range
    EXPECT_NEAR(red[1], 0, 3);
    EXPECT_NEAR(red[2], 0, 3);
}

TEST(PictureReading, RefusesALimitWithoutPixels) {
    const auto picture = halves({16, 16, 0, 0}, {}, {});
    EXPECT_THROW(Proc::ReadPicture(*picture, 0, 10), std::invalid_argument);
    EXPECT_THROW(Proc::ReadPicture(*picture, 10, -1), std::invalid_argument);
}

class Tapped : public ::testing::Test {
protected:
    static int numberOf(const boost::intrusive_ptr<Proc::IDataVideo>& picture) {
        return dynamic_cast<const Fakes::FakeFrame&>(*picture).GetNumber();
    }
    const std::shared_ptr<Proc::PictureBox> box = std::make_shared<Proc::PictureBox>();
    const boost::intrusive_ptr<Proc::PictureTap> tap = new Proc::PictureTap(new Fakes::FakeStreamVideo(5), box);
};

TEST_F(Tapped, PassesEveryPictureItself) {
    for (int number = 0; number < 5; ++number) {
        const auto picture = tap->ReadVideo();
        ASSERT_TRUE(picture);
        EXPECT_EQ(numberOf(picture), number);
    }
    EXPECT_FALSE(tap->ReadVideo());
}

TEST_F(Tapped, KeepsTheNextPictureThatIsWantedAndNoOther) {
    EXPECT_FALSE(box->Take());
    const auto first = tap->ReadVideo();
    tap->ReadVideo();
    const auto taken = box->Take();
    ASSERT_TRUE(taken);
    EXPECT_EQ(numberOf(taken), 0);
    EXPECT_NE(taken, first) << "its times are its own";
    EXPECT_FALSE(box->Take());
    tap->ReadVideo();
    tap->ReadVideo();
    EXPECT_EQ(numberOf(box->Take()), 2);
}

TEST_F(Tapped, TellsHowFarItHasBeenRead) {
    EXPECT_EQ(box->Reached(), 0);
    const auto first = tap->ReadVideo();
    EXPECT_EQ(box->Reached(), first->GetTime() + first->GetDuration());
    boost::intrusive_ptr<Proc::IDataVideo> last;
    while (const auto picture = tap->ReadVideo())
        last = picture;
    EXPECT_EQ(box->Reached(), last->GetTime() + last->GetDuration()) << "the end of the stream is no picture";
}

TEST_F(Tapped, KeepsNothingBeforeAnybodyLooks) {
    tap->ReadVideo();
    EXPECT_FALSE(box->Take());
    tap->ReadVideo();
    EXPECT_EQ(numberOf(box->Take()), 1);
}

TEST_F(Tapped, NeedsASourceAndABox) {
    EXPECT_THROW(Proc::PictureTap(nullptr, box), std::invalid_argument);
    EXPECT_THROW(Proc::PictureTap(new Fakes::FakeStreamVideo(1), nullptr), std::invalid_argument);
}

} // namespace
} // namespace Kestra
