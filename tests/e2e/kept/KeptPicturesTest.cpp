// The lossless preset keeps every sample of every kind of picture.
#include "../sync/Exported.h"
#include "Raw.h"
#include "support/FlashBeep.h"
#include <filesystem>
#include <gtest/gtest.h>

namespace {

using Status = ExportCore::ExportOutcome::Status;

struct Kept {
    const char* format; ///< of the source
    const char* codec;
    const char* container;
};

std::ostream& operator<<(std::ostream& stream, const Kept& kept) {
    return stream << kept.format;
}

class KeptPictures : public ::testing::TestWithParam<Kept> {
protected:
    void makeSource() const {
        const std::string filters = std::string(",noise=alls=20:allf=t,format=") + GetParam().format;
        TestMedia::runFfmpeg({"-f", "lavfi", "-i", "testsrc2=alpha=90:rate=25:size=64x48" + filters, "-frames:v", "3",
                              "-strict", "experimental", "-c:v", GetParam().codec, "-pix_fmt", GetParam().format,
                              source});
    }

    TestMedia::Folder media;
    const std::string source = media / ("source." + std::string(GetParam().container));
    const std::string archive = media / "archive.mkv";
};

TEST_P(KeptPictures, AreTheSameBytesInTheLosslessArchive) {
    makeSource();
    ASSERT_EQ(TestKept::told(source, "v", "pix_fmt").toStdString(), GetParam().format);
    const auto outcome = TestExport::run(TestExport::requestOf(source, "mkv-ffv1-flac", archive));
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    const QStringList before = TestKept::pictures(source, GetParam().format);
    EXPECT_EQ(before.size(), 3);
    EXPECT_EQ(before, TestKept::pictures(archive, GetParam().format))
        << TestKept::told(archive, "v", "pix_fmt,color_range").toStdString();
    EXPECT_TRUE(outcome.notes.isEmpty()) << outcome.notes.join(QLatin1Char('\n')).toStdString();
}

constexpr Kept ALL[] = {
    {"yuv420p", "ffv1", "mkv"},      {"yuv422p", "ffv1", "mkv"},      {"yuv444p", "ffv1", "mkv"},
    {"yuv411p", "ffv1", "mkv"},      {"yuv410p", "ffv1", "mkv"},      {"yuv440p", "ffv1", "mkv"},
    {"yuv420p10le", "ffv1", "mkv"},  {"yuv422p10le", "ffv1", "mkv"},  {"yuv444p10le", "ffv1", "mkv"},
    {"yuv420p12le", "ffv1", "mkv"},  {"yuv422p12le", "ffv1", "mkv"},  {"yuv444p12le", "ffv1", "mkv"},
    {"yuv420p16le", "ffv1", "mkv"},  {"yuv422p16le", "ffv1", "mkv"},  {"yuv444p16le", "ffv1", "mkv"},
    {"yuva420p", "ffv1", "mkv"},     {"yuva422p", "ffv1", "mkv"},     {"yuva444p", "ffv1", "mkv"},
    {"yuva444p10le", "ffv1", "mkv"}, {"yuva444p16le", "ffv1", "mkv"}, {"gray", "ffv1", "mkv"},
    {"gray10le", "ffv1", "mkv"},     {"gray12le", "ffv1", "mkv"},     {"gray16le", "ffv1", "mkv"},
    {"ya8", "ffv1", "mkv"},          {"gbrp10le", "ffv1", "mkv"},     {"gbrp12le", "ffv1", "mkv"},
    {"gbrp16le", "ffv1", "mkv"},     {"gbrap10le", "ffv1", "mkv"},    {"gbrap16le", "ffv1", "mkv"},
    {"bgr0", "ffv1", "mkv"},         {"bgra", "ffv1", "mkv"},         {"rgb24", "png", "mov"},
    {"rgba", "png", "mov"},          {"rgb48be", "png", "mov"},       {"rgba64be", "png", "mov"},
    {"gray16be", "png", "mov"},      {"gbrp", "utvideo", "avi"},      {"argb", "qtrle", "mov"},
    {"uyvy422", "rawvideo", "mov"},  {"yuyv422", "rawvideo", "avi"},  {"nv12", "rawvideo", "avi"},
    {"yuvj420p", "mjpeg", "mov"},    {"yuvj422p", "mjpeg", "mov"},    {"yuvj444p", "mjpeg", "mov"},
};

INSTANTIATE_TEST_SUITE_P(All, KeptPictures, ::testing::ValuesIn(ALL),
                         [](const auto& which) { return std::string(which.param.format); });

TEST(KeptPictures, OfFullRangeStayInTheFullRange) {
    const TestMedia::Folder media;
    const std::string source = media / "full.mkv";
    const std::string archive = media / "archive.mkv";
    for (const char* const format : {"yuv420p", "gray", "gray10le"}) {
        TestMedia::runFfmpeg({"-f", "lavfi", "-i", "testsrc2=rate=25:size=64x48,scale=out_range=full", "-frames:v", "3",
                              "-c:v", "ffv1", "-pix_fmt", format, "-color_range", "pc", source});
        std::filesystem::remove(archive);
        const auto outcome = TestExport::run(TestExport::requestOf(source, "mkv-ffv1-flac", archive));
        ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
        EXPECT_EQ(TestKept::told(archive, "v", "color_range"), QLatin1String("pc")) << format;
        EXPECT_EQ(TestKept::pictures(source, format), TestKept::pictures(archive, format)) << format;
    }
}

TEST(KeptPictures, WhatACodecCannotHoldIsNamed) {
    const TestMedia::Folder media;
    const std::string source = media / "alpha.mov";
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", "testsrc2=alpha=90:rate=25:size=64x48", "-frames:v", "3", "-c:v", "png",
                          "-pix_fmt", "rgba", source});
    const auto outcome = TestExport::run(TestExport::requestOf(source, "mp4-h264-source", media / "out.mp4"));
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    ASSERT_EQ(outcome.notes.size(), 1);
    EXPECT_TRUE(outcome.notes.front().contains(QLatin1String("transparency was left out, over black")))
        << outcome.notes.front().toStdString();
}

TEST(KeptPictures, AClipOfMoreBitsThanTheFirstLosesNone) {
    const TestMedia::Folder media;
    const std::string plain = media / "plain.mkv";
    const std::string deep = media / "deep.mkv";
    const auto make = [](const std::string& path, const char* format) {
        TestMedia::runFfmpeg({"-f", "lavfi", "-i", "testsrc2=rate=25:size=64x48,noise=alls=20:allf=t", "-frames:v", "3",
                              "-c:v", "ffv1", "-pix_fmt", format, path});
    };
    make(plain, "yuv420p");
    make(deep, "yuv422p10le");
    auto request = TestExport::requestOf(plain, "mkv-ffv1-flac", media / "archive.mkv");
    request.inputs += QString::fromStdString(deep);
    const auto outcome = TestExport::run(request);
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    EXPECT_EQ(TestKept::pictures(deep, "yuv422p10le"), TestKept::pictures(media / "archive.mkv", "yuv422p10le").mid(3));
    EXPECT_TRUE(outcome.notes.isEmpty()) << outcome.notes.join(QLatin1Char('\n')).toStdString();
}

} // namespace
