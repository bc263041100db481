// SPDX-License-Identifier: GPL-3.0-or-later
// The lossless preset keeps every sample of every kind of picture.
#include "../sync/Exported.h"
#include "Raw.h"
#include "support/FlashBeep.h"
#include <QFile>
#include <filesystem>
#include <gtest/gtest.h>
#include <vector>

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
    const auto outcome = TestExport::run(TestExport::requestOfPictures(source, "mkv-ffv1-flac", archive));
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

/// The samples of one component: where the first stands in a picture's bytes, how far apart, how many bytes each.
struct Plane {
    int first;
    int step;
    int bytes;
    bool bigEndian;
};

std::vector<int> samplesOf(const QByteArray& picture, const Plane& plane) {
    std::vector<int> samples;
    for (int index = 0; index < 64 * 48; ++index) {
        const int at = plane.first + index * plane.step;
        int sample = static_cast<unsigned char>(picture[at]);
        if (plane.bytes == 2) {
            const int other = static_cast<unsigned char>(picture[at + 1]);
            sample = plane.bigEndian ? sample << 8 | other : other << 8 | sample;
        }
        samples.push_back(sample);
    }
    return samples;
}

struct Repacked {
    const char* format;
    const char* codec;
    const char* container;
    const char* archived;
    int bytes; ///< of one picture of the source
    int archivedBytes;
    std::vector<std::pair<Plane, Plane>> planes; ///< in source and archive
};

// libswscale is one off where it makes these formats again, so the archive's own bytes are looked at.
TEST(KeptPictures, KeepSamplesThatTheScalerCannotReadBack) {
    constexpr int AREA = 64 * 48;
    const std::vector<Repacked> formats = {
        {"gbrap",
         "utvideo",
         "avi",
         "bgra",
         4 * AREA,
         4 * AREA,
         {{{0, 1, 1, false}, {1, 4, 1, false}},
          {{AREA, 1, 1, false}, {0, 4, 1, false}},
          {{2 * AREA, 1, 1, false}, {2, 4, 1, false}},
          {{3 * AREA, 1, 1, false}, {3, 4, 1, false}}}},
        {"ya16be",
         "png",
         "mov",
         "yuva420p16le",
         4 * AREA,
         5 * AREA,
         {{{0, 4, 2, true}, {0, 2, 2, false}}, {{2, 4, 2, true}, {3 * AREA, 2, 2, false}}}}};
    for (const Repacked& format : formats) {
        const TestMedia::Folder media;
        const std::string source = media / (std::string("source.") + format.container);
        TestMedia::runFfmpeg(
            {"-f", "lavfi", "-i",
             std::string("testsrc2=alpha=90:rate=25:size=64x48,noise=alls=20:allf=t,format=") + format.format,
             "-frames:v", "3", "-c:v", format.codec, "-pix_fmt", format.format, source});
        const auto outcome =
            TestExport::run(TestExport::requestOfPictures(source, "mkv-ffv1-flac", media / "archive.mkv"));
        ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
        EXPECT_TRUE(outcome.notes.isEmpty()) << outcome.notes.join(QLatin1Char('\n')).toStdString();
        ASSERT_EQ(TestKept::told(media / "archive.mkv", "v", "pix_fmt").toStdString(), format.archived);
        const QByteArray before = TestKept::bytes(source, format.format);
        const QByteArray after = TestKept::bytes(media / "archive.mkv", format.archived);
        ASSERT_EQ(before.size(), 3 * format.bytes);
        ASSERT_EQ(after.size(), 3 * format.archivedBytes);
        for (int picture = 0; picture < 3; ++picture)
            for (const auto& [own, archived] : format.planes)
                EXPECT_TRUE(samplesOf(before.mid(picture * format.bytes, format.bytes), own) ==
                            samplesOf(after.mid(picture * format.archivedBytes, format.archivedBytes), archived))
                    << format.format << ", picture " << picture << ", byte " << own.first;
    }
}

TEST(KeptPictures, OfFullRangeStayInTheFullRange) {
    const TestMedia::Folder media;
    const std::string source = media / "full.mkv";
    const std::string archive = media / "archive.mkv";
    for (const char* const format : {"yuv420p", "gray", "gray10le"}) {
        TestMedia::runFfmpeg({"-f", "lavfi", "-i", "testsrc2=rate=25:size=64x48,scale=out_range=full", "-frames:v", "3",
                              "-c:v", "ffv1", "-pix_fmt", format, "-color_range", "pc", source});
        std::filesystem::remove(archive);
        const auto outcome = TestExport::run(TestExport::requestOfPictures(source, "mkv-ffv1-flac", archive));
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
    const auto outcome = TestExport::run(TestExport::requestOfPictures(source, "mp4-h264-source", media / "out.mp4"));
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    ASSERT_EQ(outcome.notes.size(), 1);
    EXPECT_TRUE(outcome.notes.front().contains(QLatin1String("transparency was left out, over black")))
        << outcome.notes.front().toStdString();
}

TEST(KeptPictures, PresetsForTransparencyDeliverIt) {
    const TestMedia::Folder media;
    const std::string source = media / "alpha.mov";
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", "color=red:size=128x96:rate=25,format=rgba,geq=r=r(X\\,Y):g=0:b=0:a=2*X",
                          "-frames:v", "3", "-c:v", "png", "-pix_fmt", "rgba", source});
    struct Delivery {
        const char* preset;
        const char* file;
        std::vector<std::string> decoder; ///< that reads transparency
    };
    for (const Delivery& delivery : {Delivery{"mov-prores-1080p-4444", "out.mov", {}},
                                     Delivery{"webm-vp9-1080p-alpha", "out.webm", {"-c:v", "libvpx-vp9"}}}) {
        const std::string output = media / delivery.file;
        const std::string planes = media / (std::string(delivery.file) + ".raw");
        const auto outcome = TestExport::run(TestExport::requestOfPictures(source, delivery.preset, output));
        ASSERT_EQ(outcome.status, Status::Done) << delivery.preset << ": " << outcome.error.GetDescription();
        EXPECT_FALSE(outcome.notes.join(QLatin1Char(' ')).contains(QLatin1String("transparency"))) << delivery.preset;
        std::vector<std::string> words = delivery.decoder;
        words.insert(words.end(), {"-i", output, "-vf", "alphaextract,format=gray", "-f", "rawvideo", planes});
        TestMedia::runFfmpeg(words);
        QFile file(QString::fromStdString(planes));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray alpha = file.readAll();
        ASSERT_EQ(alpha.size(), 3 * 128 * 96) << delivery.preset;
        for (int index = 0; index < alpha.size(); ++index)
            ASSERT_NEAR(static_cast<unsigned char>(alpha[index]), 2 * (index % 128), 12) << delivery.preset << index;
    }
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
    auto request = TestExport::requestOfPictures(plain, "mkv-ffv1-flac", media / "archive.mkv");
    request.inputs += QString::fromStdString(deep);
    const auto outcome = TestExport::run(request);
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    EXPECT_EQ(TestKept::pictures(deep, "yuv422p10le"), TestKept::pictures(media / "archive.mkv", "yuv422p10le").mid(3));
    EXPECT_TRUE(outcome.notes.isEmpty()) << outcome.notes.join(QLatin1Char('\n')).toStdString();
}

} // namespace
