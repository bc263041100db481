// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/Thumbnails.h"
#include "support/FlashBeep.h"
#include "support/WaitUntil.h"
#include <cstdio>
#include <gtest/gtest.h>
#include <map>

using ExportCore::Thumbnails;
using TestSupport::waitUntil;

namespace {

class ThumbnailStrip : public ::testing::Test {
protected:
    ThumbnailStrip() {
        TestMedia::FlashBeep media;
        media.period = 1000; // one flash, at the very start
        TestMedia::makeFlashBeep(place / "clip.mov", media);
        sequence = Render::Sequence::ofFiles({Kestra::ioPath(place / "clip.mov")});
    }

    const TestMedia::Folder place;
    Render::Sequence sequence;
};

TEST_F(ThumbnailStrip, HasAPictureFromTheMiddleOfEachPart) {
    Thumbnails strip(sequence, {320, 180, 16, 9}, 4, QSize(64, 64));
    std::map<int, QImage> pictures;
    bool ended = false;
    std::exception_ptr error;
    QObject::connect(&strip, &Thumbnails::made, [&](int index, const QImage& picture) { pictures[index] = picture; });
    QObject::connect(&strip, &Thumbnails::finished, [&](const std::exception_ptr& end) {
        error = end;
        ended = true;
    });
    strip.start();
    ASSERT_TRUE(waitUntil([&] { return ended; }));
    ASSERT_FALSE(error);
    ASSERT_TRUE(waitUntil([&] { return pictures.size() == 4; }));
    for (const auto& [index, picture] : pictures) {
        EXPECT_EQ(picture.size(), QSize(64, 36));
        // Of 100 frames the one in the middle of the part, by its luma.
        const int frame = 25 * index + 12;
        const int grey = qRound((TestMedia::lumaOfFrame(frame) - 16) * 255.0 / 219);
        EXPECT_NEAR(qGray(picture.pixel(32, 18)), grey, 6) << index;
    }
}

TEST_F(ThumbnailStrip, OfWhatIsGoneEndsWithTheReason) {
    const Render::Sequence gone = sequence;
    std::remove((place / "clip.mov").c_str());
    Thumbnails strip(gone, {320, 180, 16, 9}, 2, QSize(64, 64));
    bool ended = false;
    std::exception_ptr error;
    QObject::connect(&strip, &Thumbnails::finished, [&](const std::exception_ptr& end) {
        error = end;
        ended = true;
    });
    strip.start();
    ASSERT_TRUE(waitUntil([&] { return ended; }));
    EXPECT_TRUE(error);
}

TEST_F(ThumbnailStrip, MayGoBeforeItIsDone) {
    for (int i = 0; i < 5; ++i) {
        Thumbnails strip(sequence, {320, 180, 16, 9}, 24, QSize(64, 64));
        strip.start();
    }
}

} // namespace
