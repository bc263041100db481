// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures keep their size and the shape of their pixels.
#include "../sync/Exported.h"
#include "Raw.h"
#include "support/FlashBeep.h"
#include "support/MediaProbe.h"
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <vector>

namespace {

using Status = ExportCore::ExportOutcome::Status;

void make(const std::string& path, const std::string& size, const std::string& filters,
          const std::string& format = "yuv420p") {
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", "testsrc2=rate=25:size=" + size + "," + filters, "-frames:v", "3",
                          "-c:v", "ffv1", "-pix_fmt", format, path});
}

std::string shapeOf(const std::string& path) {
    return TestKept::told(path, "v", "width,height,sample_aspect_ratio").toStdString();
}

struct Exported {
    const char* preset;
    const char* extension;
};

constexpr Exported SOURCE_SIZED[] = {
    {"mp4-h264-source", "mp4"}, {"mkv-ffv1-flac", "mkv"}, {"mov-prores-1080p", "mov"}, {"mp4-h264-1080p", "mp4"}};

TEST(KeptSize, PixelsThatAreNotSquareStayAsTheyAre) {
    const TestMedia::Folder media;
    make(media / "wide.mkv", "720x576", "setsar=64/45");
    for (const Exported& target : SOURCE_SIZED) {
        const std::string file = media / (std::string(target.preset) + "." + target.extension);
        const auto outcome = TestExport::run(TestExport::requestOfPictures(media / "wide.mkv", target.preset, file));
        ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
        EXPECT_EQ(shapeOf(file), "720,576,64:45") << target.preset;
        EXPECT_TRUE(outcome.notes.isEmpty()) << outcome.notes.join(QLatin1Char('\n')).toStdString();
    }
    EXPECT_EQ(TestKept::pictures(media / "wide.mkv", "yuv420p"),
              TestKept::pictures(media / "mkv-ffv1-flac.mkv", "yuv420p"));
}

struct Animated {
    const char* preset;
    const char* file;    ///< to be made
    const char* picture; ///< the file that holds the first one
};

TEST(KeptSize, PixelsBecomeSquareInFilesWhoseViewersKnowNoOthers) {
    constexpr Animated kinds[] = {{"gif-gif-240p", "wide.gif", "wide.gif"},
                                  {"webp-webp-480p", "wide.webp", "wide.webp"},
                                  {"png-sequence", "wide_%d.png", "wide_0.png"},
                                  {"jpeg-sequence", "wide_%d.jpg", "wide_0.jpg"}};
    const TestMedia::Folder media;
    make(media / "wide.mkv", "72x48", "drawbox=c=white:t=fill,setsar=2");
    for (const Animated& kind : kinds) {
        const auto outcome =
            TestExport::run(TestExport::requestOfPictures(media / "wide.mkv", kind.preset, media / kind.file));
        ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
        const QStringList told = outcome.notes.filter(QStringLiteral("become square, 72x48 as 3:1: "));
        EXPECT_EQ(told.size(), 1) << kind.preset << outcome.notes.join(QLatin1Char('\n')).toStdString();
        const auto shown = TestMedia::probe(media / kind.picture);
        EXPECT_EQ(shown.video->width, 144) << kind.preset;
        EXPECT_EQ(shown.video->height, 48) << kind.preset;
        if (shown.video->codec == "webp") // which FFmpeg's programs cannot read
            continue;
        const QByteArray pixels = TestKept::bytes(media / kind.picture, "gray");
        const auto isBar = [](char luma) { return static_cast<unsigned char>(luma) < 128; };
        EXPECT_TRUE(std::none_of(pixels.begin(), pixels.end(), isBar)) << kind.preset;
    }
}

TEST(KeptSize, IsThatOfTheLimitWherePixelsBecomeSquare) {
    const TestMedia::Folder media;
    make(media / "wide.mkv", "720x576", "setsar=64/45");
    const auto outcome =
        TestExport::run(TestExport::requestOfPictures(media / "wide.mkv", "gif-gif-240p", media / "wide.gif"));
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    EXPECT_EQ(shapeOf(media / "wide.gif").substr(0, 7), "426,240");
    EXPECT_EQ(outcome.notes.filter(QStringLiteral("become square, 720x576 as 16:9: ")).size(), 1);
}

TEST(KeptSize, OfSquarePixelsStaysInSuchFilesWithoutAWord) {
    const TestMedia::Folder media;
    make(media / "square.mkv", "72x48", "setsar=1280/1281"); // but for rounding
    const auto outcome =
        TestExport::run(TestExport::requestOfPictures(media / "square.mkv", "png-sequence", media / "square_%d.png"));
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    EXPECT_EQ(shapeOf(media / "square_0.png").substr(0, 5), "72,48");
    EXPECT_TRUE(outcome.notes.filter(QStringLiteral("become square")).isEmpty());
}

TEST(KeptSize, IsThatOfTheClipsInTheRange) {
    const TestMedia::Folder media;
    make(media / "small.mkv", "64x48", "setsar=1");
    make(media / "large.mkv", "322x180", "setsar=1", "yuv444p");
    auto request = TestExport::requestOfPictures(media / "small.mkv", "mkv-ffv1-flac", media / "out.mkv");
    request.inputs << QString::fromStdString(media / "large.mkv");
    request.in = KTime(120);
    const auto outcome = TestExport::run(request);
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    EXPECT_EQ(TestKept::pictures(media / "out.mkv", "yuv444p"), TestKept::pictures(media / "large.mkv", "yuv444p"));
}

struct Camera {
    const char* name; ///< of the file
    const char* rate; ///< of fields
    const char* size;
    const char* order;
    const char* shape;
    std::vector<std::string> coding;
    const char* format;
    const char* told;
};

TEST(KeptSize, InterlacedPixelsThatAreNotSquareAreNeitherScaledNorDeinterlacedInTheArchive) {
    const std::vector<std::string> dv = {"-c:v", "dvvideo"};
    const std::vector<std::string> mpeg2 = {"-c:v", "mpeg2video", "-flags", "+ildct+ilme", "-b:v", "6M"};
    const std::vector<Camera> cameras = {
        {"narrow.avi", "60000/1001", "720x480", "bottom", "8/9", dv, "yuv411p", "720,480,8:9,bb"},
        {"wide.dv", "60000/1001", "720x480", "bottom", "32/27", dv, "yuv411p", "720,480,32:27,bb"},
        {"tall.mov", "50", "720x576", "bottom", "16/15", dv, "yuv420p", "720,576,16:15,bb"},
        {"broadcast.mpg", "50", "720x576", "top", "64/45", mpeg2, "yuv420p", "720,576,64:45,tt"}};
    for (const Camera& camera : cameras) {
        const TestMedia::Folder media;
        const std::string source = media / camera.name;
        const std::string order = camera.order;
        std::vector<std::string> command = {
            "-f",        "lavfi",
            "-i",        std::string("testsrc2=rate=") + camera.rate + ":size=" + camera.size,
            "-vf",       "tinterlace=interleave_" + order + ",setfield=" + order[0] + "ff,setsar=" + camera.shape,
            "-frames:v", "4"};
        command.insert(command.end(), camera.coding.begin(), camera.coding.end());
        command.insert(command.end(), {"-pix_fmt", camera.format, source});
        TestMedia::runFfmpeg(command);
        const auto outcome =
            TestExport::run(TestExport::requestOfPictures(source, "mkv-ffv1-flac", media / "archive.mkv"));
        ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
        EXPECT_TRUE(outcome.notes.isEmpty()) << outcome.notes.join(QLatin1Char('\n')).toStdString();
        EXPECT_EQ(TestKept::told(media / "archive.mkv", "v", "width,height,sample_aspect_ratio,field_order"),
                  QLatin1String(camera.told))
            << camera.name;
        EXPECT_EQ(TestKept::pictures(source, camera.format).size(), 4) << camera.name;
        EXPECT_EQ(TestKept::pictures(source, camera.format), TestKept::pictures(media / "archive.mkv", camera.format))
            << camera.name;
    }
}

TEST(KeptSize, OddSidesStayInTheLosslessArchive) {
    const TestMedia::Folder media;
    for (const char* const format : {"yuv420p", "yuv422p10le", "yuv444p", "gray"}) {
        std::filesystem::remove(std::string(media / "archive.mkv"));
        make(media / "odd.mkv", "162x122", "crop=161:121:0:0:exact=1", format);
        const auto outcome =
            TestExport::run(TestExport::requestOfPictures(media / "odd.mkv", "mkv-ffv1-flac", media / "archive.mkv"));
        ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
        EXPECT_EQ(shapeOf(media / "archive.mkv").substr(0, 7), "161,121") << format;
        EXPECT_EQ(TestKept::pictures(media / "odd.mkv", format), TestKept::pictures(media / "archive.mkv", format));
    }
}

TEST(KeptSize, AnOddSideThatMustBeEvenLosesItsLastLineAndNothingIsScaled) {
    const TestMedia::Folder media;
    make(media / "odd.mkv", "162x122", "crop=161:121:0:0:exact=1");
    make(media / "even.mkv", "162x122", "crop=160:120:0:0:exact=1");
    for (const char* const source : {"odd", "even"}) {
        const std::string file = media / (std::string(source) + ".mp4");
        const auto outcome = TestExport::run(
            TestExport::requestOfPictures(media / (std::string(source) + ".mkv"), "mp4-h264-source", file));
        ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
        EXPECT_EQ(shapeOf(file).substr(0, 7), "160,120");
        EXPECT_EQ(outcome.notes.size(), source == std::string("odd") ? 1 : 0);
    }
    EXPECT_EQ(TestKept::pictures(media / "odd.mp4", "yuv420p"), TestKept::pictures(media / "even.mp4", "yuv420p"));
}

TEST(KeptSize, WhatThePresetFitsToTheSourceIsTheSizeOfTheFile) {
    const TestMedia::Folder media;
    make(media / "tall.mkv", "1080x1920", "null");
    const auto outcome =
        TestExport::run(TestExport::requestOfPictures(media / "tall.mkv", "mp4-h264-1080p", media / "tall.mp4"));
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    EXPECT_EQ(shapeOf(media / "tall.mp4"), "1080,1920,1:1");
}

TEST(KeptSize, PicturesTurnedSidewaysKeepTheirPixelsToo) {
    const TestMedia::Folder media;
    make(media / "wide.mkv", "720x576", "setsar=64/45");
    TestMedia::runFfmpeg({"-i", media / "wide.mkv", "-c:v", "libx264", "-qp", "0", media / "flat.mp4"});
    TestMedia::runFfmpeg({"-i", media / "flat.mp4", "-c", "copy", "-metadata:s:v", "rotate=90", media / "turned.mp4"});
    const auto outcome =
        TestExport::run(TestExport::requestOfPictures(media / "turned.mp4", "mkv-ffv1-flac", media / "archive.mkv"));
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    EXPECT_EQ(shapeOf(media / "archive.mkv"), "576,720,45:64");
}

} // namespace
