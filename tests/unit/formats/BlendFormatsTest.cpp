// SPDX-License-Identifier: GPL-3.0-or-later
// The pairs of pixel formats in which pictures are laid over each other.
#include "Kestra/Conf/BlendFormats.h"
#include "Kestra/Base/Exception.h"
#include "Kestra/Conf/PixelLoss.h"
#include <gtest/gtest.h>

using namespace Kestra;

namespace {

using Conf::PixelFormatFromString;

std::string pairOf(const char* wanted) {
    const Conf::BlendFormats pair = Conf::BlendFormatsFor(PixelFormatFromString(wanted));
    return std::string(PixelFormatToString(pair.opaque)) + " " + PixelFormatToString(pair.alpha);
}

std::string pairOfAll(const std::vector<const char*>& wanted) {
    std::vector<Conf::PixelFormat> formats;
    for (const char* const name : wanted)
        formats.push_back(PixelFormatFromString(name));
    const Conf::BlendFormats pair = Conf::BlendFormatsForAll(formats);
    return std::string(PixelFormatToString(pair.opaque)) + " " + PixelFormatToString(pair.alpha);
}

} // namespace

TEST(BlendFormats, OfSeveralHoldTheColoursAndBitsOfAll) {
    EXPECT_EQ(pairOfAll({"yuv420p"}), "yuv420p yuva420p");
    EXPECT_EQ(pairOfAll({"yuv420p", "rgba"}), "yuv444p yuva444p") << "a title";
    EXPECT_EQ(pairOfAll({"yuv420p10", "rgb24"}), "yuv444p10le yuva444p10le");
    EXPECT_EQ(pairOfAll({"rgba", "yuv420p"}), "gbrp gbrap") << "of equals the one for the first";
    EXPECT_EQ(pairOfAll({"yuv444p", "yuv420p10"}), "yuv444p10le yuva444p10le") << "neither holds the other";
    EXPECT_EQ(pairOfAll({"yuvj420p", "rgb24"}), "yuvj444p yuva444p");
    EXPECT_EQ(pairOfAll({"yuvj420p", "yuv422p10"}), "yuv422p10le yuva422p10le");
    for (const Conf::PixelFormatRecord& first : Conf::PixelFormatRecord::All()) {
        for (const Conf::PixelFormatRecord& second : Conf::PixelFormatRecord::All()) {
            if (first.kind == Conf::PixelKind::Hardware || second.kind == Conf::PixelKind::Hardware)
                continue;
            const auto pair = Conf::BlendFormatsForAll({first.Format(), second.Format()});
            for (const auto* const one : {&first, &second}) {
                auto loss = Conf::PixelLoss::Between(*one, *Conf::PixelFormatRecord::Find(pair.alpha));
                loss.model = false;
                ASSERT_TRUE(loss.IsNone()) << one->name << " of " << first.name << " and " << second.name;
            }
        }
    }
}

TEST(BlendFormats, AreTheNearestOfPlanesAndStayWhatTheyAreWherePossible) {
    EXPECT_EQ(pairOf("yuv420p"), "yuv420p yuva420p");
    EXPECT_EQ(pairOf("yuva444p"), "yuv444p yuva444p");
    EXPECT_EQ(pairOf("nv12"), "yuv420p yuva420p");
    EXPECT_EQ(pairOf("uyvy422"), "yuv422p yuva422p");
    EXPECT_EQ(pairOf("p010"), "yuv420p10le yuva420p10le");
    EXPECT_EQ(pairOf("yuv420p10"), "yuv420p10le yuva420p10le");
    EXPECT_EQ(pairOf("yuv422p12"), "yuv422p12le yuva422p12le");
    EXPECT_EQ(pairOf("yuvj422p"), "yuvj422p yuva422p");
    EXPECT_EQ(pairOf("rgb24"), "gbrp gbrap");
    EXPECT_EQ(pairOf("bgra"), "gbrp gbrap");
    EXPECT_EQ(pairOf("pal8"), "gbrp gbrap");
    EXPECT_EQ(pairOf("rgb48"), "gbrp16le gbrap16le");
    EXPECT_EQ(pairOf("gbrpf32"), "gbrpf32le gbrapf32le");
}

TEST(BlendFormats, HoldWhatHasNoSiblingWithAlpha) {
    EXPECT_EQ(pairOf("yuv420p12"), "yuv420p16le yuva420p16le");
    EXPECT_EQ(pairOf("yuv411p"), "yuv422p yuva422p");
    EXPECT_EQ(pairOf("yuv440p"), "yuv444p yuva444p");
    EXPECT_EQ(pairOf("gray"), "yuv420p yuva420p");
    EXPECT_EQ(pairOf("gray14"), "yuv420p16le yuva420p16le");
    EXPECT_EQ(pairOf("gbrp14"), "gbrp16le gbrap16le");
}

TEST(BlendFormats, LoseNothingButTheModelOfWhatIsGrayInFloatingPoint) {
    for (const Conf::PixelFormatRecord& record : Conf::PixelFormatRecord::All()) {
        if (record.kind == Conf::PixelKind::Hardware)
            continue;
        const Conf::BlendFormats pair = Conf::BlendFormatsFor(record.Format());
        const auto* const opaque = Conf::PixelFormatRecord::Find(pair.opaque);
        const auto* const alpha = Conf::PixelFormatRecord::Find(pair.alpha);
        EXPECT_FALSE(opaque->alpha) << record.name;
        EXPECT_EQ(opaque->bits, alpha->bits) << record.name;
        EXPECT_EQ(opaque->chromaShiftX, alpha->chromaShiftX) << record.name;
        EXPECT_EQ(opaque->chromaShiftY, alpha->chromaShiftY) << record.name;
        EXPECT_EQ(opaque->fullRange, record.fullRange) << record.name;
        const bool exception = record.kind == Conf::PixelKind::Gray && record.bits == 32;
        EXPECT_EQ(Conf::PixelLoss::Between(record, *alpha).IsNone(), !exception) << record.name;
    }
}

TEST(BlendFormats, AreRefusedByNameWhereThereAreNoPixelsInMemory) {
    for (const char* const name : {"vaapi", "unknown", "other"})
        try {
            pairOf(name);
            ADD_FAILURE() << name << " was taken";
        } catch (const Exception& error) {
            EXPECT_EQ(error.what(), std::string("Pictures of the pixel format \"") + name + "\" cannot be blended");
        }
}
