// SPDX-License-Identifier: GPL-3.0-or-later
// "render" of timelines with numbered pictures.
#include "RenderedTimelines.h"
#include <filesystem>

using namespace TestCli;

namespace {

TEST_F(RenderedTimelines, ShowNumberedPicturesAtTheirRate) {
    makeNumbered();
    // Behind pictures in YUV, so that the numbers can be read.
    std::vector<int> expected = shown(2, 2);
    append(expected, shown(4, 6));
    EXPECT_EQ(rendered(write(clipOf("a", "both.mov", 2, 2) + ',' + numbered(112, 6), {})).numbers(), expected);
}

TEST_F(RenderedTimelines, HoldTheLastOfNumberedPictures) {
    makeNumbered();
    std::vector<int> expected = shown(2, 2);
    append(expected, shown(8, 4));
    append(expected, std::vector<int>(3, 11));
    const std::string cut = write(clipOf("a", "both.mov", 2, 2) + ',' + numbered(116, 7), {});
    EXPECT_EQ(rendered(cut).numbers(), expected);
    EXPECT_TRUE(render(cut).errors.contains(QStringLiteral(
        "its media lasts 480 ms; the clip goes 120 ms beyond it and holds the last picture for 120 ms")));
}

TEST_F(RenderedTimelines, ShowBlackInPlaceOfNumberedPicturesThatAreMissing) {
    makeNumbered();
    std::filesystem::remove(*media / "p.108.png");
    std::filesystem::remove(*media / "p.111.png");
    const std::string cut = write(clipOf("a", "both.mov", 2, 2) + ',' + numbered(108, 6), {});
    EXPECT_EQ(render(cut).code, 2);
    const auto found = rendered(cut, {"--missing", "black"});
    std::vector<int> expected = shown(2, 2);
    append(expected, {-1, -1, 2, -1, 4, 5});
    EXPECT_EQ(found.numbers(), expected);
    EXPECT_LT(found.video->frames[2].luma, 17);
    EXPECT_LT(found.video->frames[5].luma, 17);
}

} // namespace
