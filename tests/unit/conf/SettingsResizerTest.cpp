// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Settings/SettingsResizer.h"
#include "Kestra/Proc/Settings/SettingsFilterFrameRate.h"
#include <gtest/gtest.h>
#include <ostream>

using Kestra::Conf::FrameInfo;
using Kestra::Proc::AspectMode;
using Kestra::Proc::SettingsResizer;

namespace Kestra::Conf {
std::ostream& operator<<(std::ostream& out, const FrameInfo& frame) {
    return out << frame.width << 'x' << frame.height << " as " << frame.aspectNumerator << ':'
               << frame.aspectDenominator;
}
} // namespace Kestra::Conf

namespace {

FrameInfo resized(AspectMode mode, const FrameInfo& target, const FrameInfo& source) {
    SettingsResizer settings;
    settings.aspectMode = mode;
    settings.target = target;
    return settings.GetOutputFrameSize(source);
}

} // namespace

TEST(SettingsResizer, FitInsideTakesTheLargestFrameOfTheSourcesShape) {
    EXPECT_EQ(resized(AspectMode::FitInside, {1280, 720, 0, 0}, {1920, 1080, 16, 9}), (FrameInfo{1280, 720, 16, 9}));
    EXPECT_EQ(resized(AspectMode::FitInside, {1280, 720, 0, 0}, {1440, 1080, 4, 3}), (FrameInfo{960, 720, 4, 3}));
    EXPECT_EQ(resized(AspectMode::FitInside, {1280, 720, 0, 0}, {1080, 1920, 0, 0}), (FrameInfo{404, 720, 101, 180}));
    EXPECT_EQ(resized(AspectMode::FitInside, {1280, 720, 0, 0}, {2560, 1080, 0, 0}), (FrameInfo{1280, 540, 64, 27}));
}

TEST(SettingsResizer, FitInsideNeverLeavesTheTarget) {
    for (std::uint32_t width = 1; width < 400; width += 7) {
        for (std::uint32_t height = 1; height < 400; height += 11) {
            const FrameInfo out = resized(AspectMode::FitInside, {101, 57, 0, 0}, {width, height, 0, 0});
            EXPECT_LE(out.width, 100u);
            EXPECT_LE(out.height, 56u);
            EXPECT_TRUE(out.width == 100 || out.height == 56) << out;
        }
    }
}

TEST(SettingsResizer, FitInsideMakesPixelsSquare) {
    EXPECT_EQ(resized(AspectMode::FitInside, {1920, 1080, 0, 0}, {1440, 1080, 16, 9}), (FrameInfo{1920, 1080, 16, 9}));
    EXPECT_EQ(resized(AspectMode::FitInside, {1920, 1080, 0, 0}, {720, 576, 16, 9}), (FrameInfo{1920, 1080, 16, 9}));
}

TEST(SettingsResizer, FitInsideLeavesASourceThatIsItsTargetAsItIs) {
    EXPECT_EQ(resized(AspectMode::FitInside, {720, 576, 0, 0}, {720, 576, 16, 9}), (FrameInfo{720, 576, 16, 9}));
    EXPECT_EQ(resized(AspectMode::FitInside, {0, 0, 0, 0}, {720, 576, 16, 9}), (FrameInfo{720, 576, 16, 9}));
    EXPECT_EQ(resized(AspectMode::FitInside, {160, 120, 0, 0}, {161, 121, 0, 0}), (FrameInfo{160, 120, 4, 3}));
}

TEST(SettingsResizer, FitInsideTakesATargetThatIsTheSourceScaled) {
    EXPECT_EQ(resized(AspectMode::FitInside, {606, 1080, 0, 0}, {1080, 1920, 0, 0}), (FrameInfo{606, 1080, 101, 180}));
    EXPECT_EQ(resized(AspectMode::FitInside, {960, 720, 0, 0}, {1440, 1080, 16, 9}), (FrameInfo{960, 720, 16, 9}));
}

TEST(SettingsResizer, SidesAreOddWhereTheyMayBeAndTheSourcesAre) {
    SettingsResizer settings;
    settings.aspectMode = AspectMode::FitInside;
    settings.oddSides = true;
    settings.target = {160, 120, 0, 0};
    EXPECT_EQ(settings.GetOutputFrameSize({161, 121, 0, 0}), (FrameInfo{161, 121, 161, 121}));
    // Scaled, they are even.
    EXPECT_EQ(settings.GetOutputFrameSize({323, 243, 0, 0}).width, 160U);
    settings.target = {0, 0, 0, 0};
    EXPECT_EQ(settings.GetOutputFrameSize({161, 121, 0, 0}), (FrameInfo{161, 121, 161, 121}));
}

TEST(SettingsResizer, FitInsideCountsInThePixelsOfATargetWithAnAspect) {
    // Pixels of a 720x576 frame shown as 16:9 are 64/45 wide.
    EXPECT_EQ(resized(AspectMode::FitInside, {720, 576, 16, 9}, {1920, 1080, 16, 9}), (FrameInfo{720, 576, 16, 9}));
    const FrameInfo out = resized(AspectMode::FitInside, {720, 576, 16, 9}, {768, 576, 4, 3});
    EXPECT_EQ(out, (FrameInfo{540, 576, 4, 3}));
}

TEST(SettingsResizer, KeepSizeOnlyMakesPixelsSquareAndLosesNone) {
    EXPECT_EQ(resized(AspectMode::KeepSize, {10, 10, 0, 0}, {1920, 1080, 16, 9}), (FrameInfo{1920, 1080, 16, 9}));
    EXPECT_EQ(resized(AspectMode::KeepSize, {}, {720, 576, 4, 3}), (FrameInfo{768, 576, 4, 3}));
    EXPECT_EQ(resized(AspectMode::KeepSize, {}, {720, 480, 4, 3}), (FrameInfo{720, 540, 4, 3}));
    EXPECT_EQ(resized(AspectMode::KeepSize, {}, {721, 481, 0, 0}), (FrameInfo{720, 480, 3, 2}));
}

TEST(SettingsResizer, StretchTakesTheTargetWhateverTheShape) {
    EXPECT_EQ(resized(AspectMode::Stretch, {640, 480, 0, 0}, {1920, 1080, 16, 9}), (FrameInfo{640, 480, 4, 3}));
    EXPECT_EQ(resized(AspectMode::Stretch, {720, 576, 16, 9}, {640, 480, 4, 3}), (FrameInfo{720, 576, 16, 9}));
    EXPECT_EQ(resized(AspectMode::Stretch, {641, 481, 0, 0}, {1920, 1080, 16, 9}), (FrameInfo{640, 480, 4, 3}));
    EXPECT_EQ(resized(AspectMode::Stretch, {0, 0, 0, 0}, {1920, 1080, 16, 9}), (FrameInfo{1920, 1080, 16, 9}));
}

TEST(SettingsResizer, CropAndLetterboxFillTheTarget) {
    EXPECT_EQ(resized(AspectMode::Crop, {1080, 1080, 0, 0}, {1920, 1080, 16, 9}), (FrameInfo{1080, 1080, 1, 1}));
    EXPECT_EQ(resized(AspectMode::Letterbox, {1280, 720, 0, 0}, {640, 480, 4, 3}), (FrameInfo{1280, 720, 16, 9}));
}

TEST(SettingsResizer, TheCropIsTakenBeforeAnythingElse) {
    SettingsResizer settings;
    settings.aspectMode = AspectMode::FitInside;
    settings.target = {1280, 720, 0, 0};
    settings.cropTop = 140;
    settings.cropBottom = 140;
    EXPECT_EQ(settings.GetOutputFrameSize({1920, 1080, 16, 9}), (FrameInfo{1280, 534, 640, 267}));
}

TEST(SettingsResizer, NoSideIsEverBelowTwo) {
    for (const AspectMode mode :
         {AspectMode::Stretch, AspectMode::KeepSize, AspectMode::FitInside, AspectMode::Crop, AspectMode::Letterbox}) {
        for (const FrameInfo& source :
             {FrameInfo{}, FrameInfo{1, 1, 0, 0}, FrameInfo{100000, 1, 0, 0}, FrameInfo{1, 100000, 1, 4000000000u},
              FrameInfo{4294967295u, 4294967295u, 7, 9}}) {
            for (const FrameInfo& target : {FrameInfo{}, FrameInfo{1, 1, 0, 0}, FrameInfo{1280, 720, 4294967295u, 1}}) {
                const FrameInfo out = resized(mode, target, source);
                EXPECT_GE(out.width, 2u) << source << " into " << target;
                EXPECT_GE(out.height, 2u) << source << " into " << target;
                EXPECT_EQ(out.width % 2 + out.height % 2, 0u) << source << " into " << target;
                EXPECT_GT(out.aspectNumerator, 0u);
                EXPECT_GT(out.aspectDenominator, 0u);
            }
        }
    }
}

TEST(SettingsResizer, ACropBeyondTheSourceLeavesTheSmallestFrame) {
    SettingsResizer settings;
    settings.aspectMode = AspectMode::KeepSize;
    settings.cropLeft = 5000;
    settings.cropRight = 4294967295u;
    const FrameInfo out = settings.GetOutputFrameSize({1920, 1080, 0, 0});
    EXPECT_EQ(out.width, 2u);
    EXPECT_EQ(out.height, 1080u);
}

TEST(SettingsFilterFrameRate, TheMarkOfTheSourcesRateIsZero) {
    EXPECT_EQ(Kestra::Proc::SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE,
              Kestra::Proc::SettingsFilterFrameRate::Rational(0, 1));
}
