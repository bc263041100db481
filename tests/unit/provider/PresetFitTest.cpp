// SPDX-License-Identifier: GPL-3.0-or-later
// The size that a preset is fitted to is the size of the file.
#include "ProviderFixture.h"
#include <algorithm>
#include <cmath>
#include <random>

namespace {

class PresetFit : public ProviderFixture {};

constexpr int SOURCES = 500;

double shapeOf(const Media::Video& video) {
    return double(video.aspectNumerator) / video.aspectDenominator;
}

} // namespace

TEST_F(PresetFit, IsTheSizeOfTheFileWhateverTheSource) {
    std::mt19937 random(20); // NOLINT: the same sources in every run
    std::uniform_int_distribution<std::uint32_t> sides(2, 4200);
    std::uniform_int_distribution<std::uint32_t> shapes(1, 3);
    Export::PresetProvider& large = makeSelected("large");
    for (int number = 0; number < SOURCES; ++number) {
        Media::Video source = video(sides(random), sides(random));
        source.aspectNumerator = source.width * shapes(random);
        source.aspectDenominator = source.height * shapes(random);
        large.updateResolutionPresetIfNeeded(&source);
        const Preset fitted = large.preset();
        if (std::min(fitted.width(), fitted.height()) < 2)
            continue;
        const Media::Video file = large.applyPreset(&source);
        const std::string what = std::to_string(source.width) + "x" + std::to_string(source.height);
        EXPECT_EQ(file.width, static_cast<std::uint32_t>(fitted.width())) << what;
        EXPECT_EQ(file.height, static_cast<std::uint32_t>(fitted.height())) << what;
        const double rounding = 2.5 / std::min(file.width, file.height);
        EXPECT_NEAR(shapeOf(file) / shapeOf(source), 1, rounding) << what;
    }
}
