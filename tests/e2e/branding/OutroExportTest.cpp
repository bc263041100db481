// SPDX-License-Identifier: GPL-3.0-or-later
#include "../sync/Exported.h"
#include "Kestra/Base/Time.h"
#include "fakes/streams/DecodedFile.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include "support/OutroResource.h"
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

using ExportCore::ExportOutcome;
using ExportCore::ExportRequest;
using Fakes::DecodedFile;
using TestSupport::OutroResource;
using Rate = boost::rational<long long>;

namespace {

constexpr QRgb GREY = 0xffb4b4b4;
constexpr double BLACK = 16;
/// Limited range.
constexpr double GREY_LUMA = 16 + 219 * 180.0 / 255;

/// Luma of a pixel, as an 8-bit code.
int lumaAt(const AVFrame& picture, int x, int y) {
    return picture.data[0][y * picture.linesize[0] + x];
}

double opacityAt(double seconds) {
    return std::clamp(std::min(seconds, 5 - seconds), 0.0, 1.0);
}

class OutroExport : public ::testing::Test {
protected:
    /// A clip with the flash at every second.
    std::string clip(const TestMedia::FlashBeep& media, const char* name = "clip.mov") const {
        TestMedia::makeFlashBeep(place / name, media);
        return place / name;
    }
    DecodedFile exported(ExportRequest request, const char* outro) const {
        request.brandingName = QString::fromUtf8(outro);
        const ExportOutcome outcome = TestExport::run(request);
        EXPECT_EQ(outcome.status, ExportOutcome::Status::Done) << outcome.error.GetDescription();
        if (outcome.status != ExportOutcome::Status::Done)
            throw std::runtime_error("there is nothing to be measured");
        return Fakes::Decode(request.outputPath.toStdString());
    }
    /// `first` is the outro's first frame.
    static void expectEnvelope(const DecodedFile& file, std::size_t first, double rate, int x, int y) {
        for (const double seconds : {0.0, 0.25, 0.5, 1.0, 2.5, 4.75}) {
            const auto index = static_cast<std::size_t>(std::lround(seconds * rate));
            const double wanted = BLACK + opacityAt(static_cast<double>(index) / rate) * (GREY_LUMA - BLACK);
            ASSERT_LT(first + index, file.Video().pictures.size());
            EXPECT_NEAR(lumaAt(*file.Video().pictures[first + index], x, y), wanted, 2) << seconds << " s at " << rate;
        }
    }

    const TestMedia::Folder place;
    const OutroResource outros{{{QStringLiteral("wide"), OutroResource::flat(320, 180, GREY)},
                                {QStringLiteral("square"), OutroResource::flat(64, 64, GREY)}}};
};

TEST_F(OutroExport, FadesAsTheEnvelopeSays) {
    TestMedia::FlashBeep media;
    media.frames = 20;
    media.rate = 20;
    const DecodedFile file = exported(TestExport::requestOf(clip(media), "mkv-ffv1-flac", place / "out.mkv"), "wide");
    ASSERT_EQ(file.Video().pictures.size(), 120U);
    expectEnvelope(file, 20, 20, 160, 90);
    expectEnvelope(file, 20, 20, 0, 0);
    EXPECT_NE(lumaAt(*file.Video().pictures[19], 160, 90), 16) << "the clip before is not faded";
}

TEST_F(OutroExport, FadesAtEveryRateAndEndsWithTheSound) {
    for (const Rate& rate :
         {Rate(24000, 1001), Rate(24), Rate(25), Rate(30000, 1001), Rate(50), Rate(60000, 1001), Rate(60)}) {
        TestMedia::FlashBeep media;
        media.rate = rate;
        media.frames = 31;
        media.sampleRate = rate == Rate(25) ? 44100 : 48000;
        ExportRequest request = TestExport::requestOf(clip(media), "mkv-ffv1-flac", place / "out.mkv");
        request.overwrite = true;
        const DecodedFile file = exported(request, "wide");
        const auto frames = 31 + Kestra::TimeToFrames(5 * Kestra::TIME_BASE, rate);
        EXPECT_EQ(file.Video().pictures.size(), static_cast<std::size_t>(frames)) << rate;
        const double fps = boost::rational_cast<double>(rate);
        expectEnvelope(file, 31, fps, 160, 90);
        const double picture = static_cast<double>(frames) / fps;
        const double sound =
            static_cast<double>(file.Audio().samples.at(0).size()) / file.Audio().parameters->sample_rate;
        EXPECT_LT(std::abs(picture - sound), 1 / fps) << rate;
    }
}

TEST_F(OutroExport, FollowsAClipOfVariableRate) {
    TestMedia::FlashBeep media;
    media.variableFrameRate = true;
    const DecodedFile file =
        exported(TestExport::requestOf(clip(media, "clip.mkv"), "mkv-ffv1-flac", place / "out.mkv"), "wide");
    ASSERT_EQ(file.Video().pictures.size(), 225U);
    expectEnvelope(file, 100, 25, 160, 90);
}

TEST_F(OutroExport, FollowsClipsOfEveryPixelFormat) {
    for (const char* format : {"yuv444p", "yuv422p10le", "gray", "rgb24"}) {
        TestMedia::FlashBeep media;
        media.frames = 5;
        media.videoCodec = "ffv1";
        media.pixelFormat = format;
        ExportRequest request = TestExport::requestOf(clip(media, "clip.mkv"), "mp4-h264-source", place / "out.mp4");
        request.overwrite = true;
        const DecodedFile file = exported(request, "wide");
        EXPECT_EQ(file.Video().pictures.size(), 130U) << format;
        const AVFrame& middle = *file.Video().pictures.at(60);
        EXPECT_NEAR(lumaAt(middle, 160, 90), GREY_LUMA, 2) << format;
    }
}

TEST_F(OutroExport, OfOddSidesIsNotScaledForThem) {
    // Each column and row its own, so that every scaling shows.
    QImage picture(161, 121, QImage::Format_ARGB32);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, (x + y) % 2 == 0 ? qRgb(x, 2 * y, 255) : qRgb(255 - x, y, 0));
    const OutroResource odd{{{QStringLiteral("odd"), OutroResource::encoded(picture)}}};
    TestMedia::FlashBeep media;
    media.width = 161;
    media.height = 121;
    media.frames = 5;
    media.videoCodec = "ffv1";
    media.pixelFormat = "bgr0";
    const DecodedFile file =
        exported(TestExport::requestOf(clip(media, "clip.mkv"), "mkv-ffv1-flac", place / "out.mkv"), "odd");
    const DecodedFile source = Fakes::Decode(place / "clip.mkv");
    const AVFrame& middle = *file.Video().pictures.at(65);
    ASSERT_EQ(middle.width, 161);
    ASSERT_EQ(middle.height, 121);
    ASSERT_EQ(middle.format, AV_PIX_FMT_BGR0);
    int wrong = 0;
    for (int y = 0; y < middle.height; ++y)
        for (int x = 0; x < middle.width; ++x) {
            const auto sample = [x, y](const AVFrame& from, int colour) {
                return from.data[0][y * from.linesize[0] + 4 * x + colour];
            };
            wrong += qRgb(sample(middle, 2), sample(middle, 1), sample(middle, 0)) == picture.pixel(x, y) ? 0 : 1;
            for (const int colour : {0, 1, 2})
                EXPECT_EQ(sample(*file.Video().pictures[3], colour), sample(*source.Video().pictures.at(3), colour));
        }
    EXPECT_EQ(wrong, 0) << "pixels of the outro where it is opaque";
}

TEST_F(OutroExport, KeepsThePicturesShapeOnBlack) {
    TestMedia::FlashBeep media;
    media.frames = 5;
    const DecodedFile file = exported(TestExport::requestOf(clip(media), "mkv-ffv1-flac", place / "out.mkv"), "square");
    const AVFrame& middle = *file.Video().pictures.at(65);
    EXPECT_NEAR(lumaAt(middle, 160, 90), GREY_LUMA, 2);
    for (const int x : {0, 68, 251, 319})
        EXPECT_EQ(lumaAt(middle, x, 90), 16) << x;
    for (const int x : {73, 246})
        EXPECT_NEAR(lumaAt(middle, x, 3), GREY_LUMA, 2) << x;
}

TEST_F(OutroExport, IsSilent) {
    TestMedia::FlashBeep media;
    media.frames = 50;
    const DecodedFile file = exported(TestExport::requestOf(clip(media), "mkv-ffv1-flac", place / "out.mkv"), "wide");
    const std::vector<float>& samples = file.Audio().samples.at(0);
    ASSERT_EQ(samples.size(), 7U * 48000);
    EXPECT_TRUE(std::any_of(samples.begin(), samples.begin() + 96000, [](float value) { return value > 0.5F; }));
    EXPECT_TRUE(std::all_of(samples.begin() + 96000, samples.end(), [](float value) { return value == 0; }));
}

TEST_F(OutroExport, LengthensSoundWithoutPicture) {
    TestMedia::FlashBeep media;
    media.sampleRate = 44100;
    const DecodedFile file = exported(TestExport::requestOf(clip(media), "flac", place / "out.flac"), "wide");
    EXPECT_EQ(file.Audio().samples.at(0).size(), 9U * 44100);
}

TEST_F(OutroExport, FollowsTheCut) {
    ExportRequest request = TestExport::requestOf(clip({}), "mkv-ffv1-flac", place / "out.mkv");
    request.in = KTime(1000);
    request.out = KTime(2400);
    const DecodedFile file = exported(request, "wide");
    ASSERT_EQ(file.Video().pictures.size(), 35U + 125);
    expectEnvelope(file, 35, 25, 160, 90);
    EXPECT_EQ(file.Audio().samples.at(0).size(), static_cast<std::size_t>(48000 * 1.4 + 5 * 48000));
}

TEST_F(OutroExport, IsPartOfWhatTheExportRangeCuts) {
    ExportRequest request = TestExport::requestOf(clip({}), "mkv-ffv1-flac", place / "out.mkv");
    request.exportRange = {KTime(3000), KTime(6000)};
    const DecodedFile file = exported(request, "wide");
    ASSERT_EQ(file.Video().pictures.size(), 75U);
    EXPECT_NEAR(lumaAt(*file.Video().pictures[25], 160, 90), BLACK, 2);
    EXPECT_NEAR(lumaAt(*file.Video().pictures[37], 160, 90), BLACK + 0.48 * (GREY_LUMA - BLACK), 2);
    EXPECT_NEAR(lumaAt(*file.Video().pictures[74], 160, 90), GREY_LUMA, 2);
}

TEST_F(OutroExport, MayBeAllThatTheExportRangeLeaves) {
    ExportRequest request = TestExport::requestOf(clip({}), "mkv-ffv1-flac", place / "out.mkv");
    request.exportRange = {KTime(4000), KTime(9000)};
    const DecodedFile file = exported(request, "wide");
    ASSERT_EQ(file.Video().pictures.size(), 125U);
    expectEnvelope(file, 0, 25, 160, 90);
    EXPECT_EQ(file.Audio().samples.at(0).size(), 5U * 48000);
}

TEST_F(OutroExport, IsInBothPasses) {
    TestMedia::FlashBeep media;
    media.frames = 50;
    const DecodedFile file =
        exported(TestExport::requestOf(clip(media), "mp4-h264-1080p-2pass", place / "out.mp4"), "wide");
    ASSERT_EQ(file.Video().pictures.size(), 175U);
    expectEnvelope(file, 50, 25, 160, 90);
}

TEST_F(OutroExport, CountsInTheFactsOfTheFile) {
    ExportRequest request = TestExport::requestOf(clip({}), "mp4-h264-720p", place / "out.mp4");
    request.brandingName = QStringLiteral("wide");
    const ExportOutcome outcome = TestExport::run(request);
    ASSERT_EQ(outcome.status, ExportOutcome::Status::Done) << outcome.error.GetDescription();
    EXPECT_EQ(outcome.facts.frames, 225);
    EXPECT_EQ(outcome.facts.durationMs, 9000);
}

TEST_F(OutroExport, TakesPicturesOfEverySizeAndKind) {
    QImage grey(50, 40, QImage::Format_Grayscale8);
    grey.fill(180);
    const OutroResource odd({{QStringLiteral("one-pixel"), OutroResource::flat(1, 1, GREY)},
                             {QStringLiteral("large"), OutroResource::flat(4000, 3000, GREY)},
                             {QStringLiteral("greyscale"), OutroResource::encoded(grey)},
                             {QStringLiteral("half"), OutroResource::flat(40, 30, 0x80ffffff)}});
    TestMedia::FlashBeep media;
    media.frames = 5;
    const std::string source = clip(media);
    for (const char* name : {"one-pixel", "large", "greyscale", "half"}) {
        ExportRequest request = TestExport::requestOf(source, "mkv-ffv1-flac", place / "out.mkv");
        request.overwrite = true;
        const DecodedFile file = exported(request, name);
        const double wanted = std::string(name) == "half" ? 16 + 219 * 128 / 255.0 : GREY_LUMA;
        EXPECT_NEAR(lumaAt(*file.Video().pictures.at(70), 160, 90), wanted, 2) << name;
    }
}

// A gigabyte once it is a pixmap; as a file of one bit a pixel it is quickly made.
TEST_F(OutroExport, TakesAVeryLargePicture) {
    const QByteArray white = "P4\n16000 16000\n" + QByteArray(16000 / 8 * 16000, '\0');
    const OutroResource huge({{QStringLiteral("huge"), white}});
    TestMedia::FlashBeep media;
    media.frames = 5;
    const DecodedFile file = exported(TestExport::requestOf(clip(media), "mkv-ffv1-flac", place / "out.mkv"), "huge");
    ASSERT_EQ(file.Video().pictures.size(), 130U);
    EXPECT_NEAR(lumaAt(*file.Video().pictures[70], 160, 90), 235, 2);
    EXPECT_EQ(lumaAt(*file.Video().pictures[70], 10, 90), 16);
}

} // namespace
