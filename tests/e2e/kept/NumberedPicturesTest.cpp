// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures that are files of their own: as many as frames, each with the samples that it should have, at their place
// all or not at all.
#include "../sync/Exported.h"
#include "ExportCore/ExportJob.h"
#include "Raw.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include "support/MediaProbe.h"
#include "support/WaitUntil.h"
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <vector>

using ExportCore::ExportOutcome;
using ExportCore::ExportRequest;
using Status = ExportOutcome::Status;

namespace {

class NumberedPictures : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        media = new TestMedia::Folder;
        TestMedia::FlashBeep flashBeep;
        flashBeep.frames = 50;
        TestMedia::makeFlashBeep(*media / "clip.mov", flashBeep);
    }
    static void TearDownTestSuite() { delete media; }

    ExportOutcome exported(const std::string& input, const char* preset, const std::string& output,
                           const char* quality = nullptr) {
        ExportRequest request = TestExport::requestOf(input, preset, output);
        if (quality)
            request.quality = quality;
        const ExportOutcome outcome = TestExport::run(request);
        EXPECT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
        return outcome;
    }
    std::vector<std::string> filesIn(const std::string& folder) const {
        std::vector<std::string> paths;
        for (const QString& name : TestFiles::namesIn(folder))
            paths.push_back(folder + '/' + name.toStdString());
        return paths;
    }
    /// The checksums of all pictures in a folder, in order.
    QStringList pictures(const std::string& folder, const std::string& format) const {
        QStringList sums;
        for (const std::string& path : filesIn(folder))
            sums += TestKept::pictures(path, format);
        return sums;
    }
    /// Numbers of the flash-beep's frames, from pictures of full range.
    std::vector<int> numbersIn(const std::string& folder) const {
        std::vector<int> numbers;
        for (const std::string& path : filesIn(folder)) {
            const QByteArray bytes = TestKept::bytes(path, "gray");
            const auto middle = static_cast<unsigned char>(bytes[bytes.size() / 2 + 160]);
            numbers.push_back(TestMedia::numberOfLuma(16 + middle * 219.0 / 255));
        }
        return numbers;
    }

    static TestMedia::Folder* media;
    const TestMedia::Folder place;
    const std::string clip = *media / "clip.mov";
    const std::string frames = place / "frames";
};

TestMedia::Folder* NumberedPictures::media = nullptr;

TEST_F(NumberedPictures, OfGrayThatTellsNoRangeAreBlackAndWhiteWhereItIs) {
    const std::vector<std::pair<std::string, std::string>> kinds{{"a.tif", "gray"}, {"b.tif", "gray16le"},
                                                                 {"c.tif", "ya8"},  {"a.pgm", "gray"},
                                                                 {"a.jp2", "gray"}, {"a.nut", "gray"}};
    for (const auto& [name, format] : kinds) {
        SCOPED_TRACE(name + ", " + format);
        const std::string ramp = "color=black:s=256x16:r=25:d=0.04,format=gray,geq=lum=X,format=" + format;
        std::vector<std::string> arguments{"-f", "lavfi", "-i", ramp, "-frames:v", "1"};
        if (name == "a.jp2") // a transform that loses nothing
            arguments.insert(arguments.end(), {"-pred", "1"});
        if (name == "a.nut")
            arguments.insert(arguments.end(), {"-c:v", "rawvideo"});
        arguments.push_back(place / name);
        TestMedia::runFfmpeg(arguments);
        ExportRequest request = TestExport::requestOf(place / name, "png-sequence", place / (name + "-frames"));
        request.out = KTime(40);
        const ExportOutcome outcome = TestExport::run(request);
        ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
        const QByteArray luma = TestKept::bytes(filesIn(place / (name + "-frames")).front(), "gray");
        ASSERT_EQ(luma.size(), 256 * 16);
        const bool ownCurve = name.substr(name.size() - 4) == ".tif";
        for (int x = 1; x < 255; ++x) {
            EXPECT_GT(static_cast<unsigned char>(luma[x]), 0) << x;
            EXPECT_LT(static_cast<unsigned char>(luma[x]), 255) << x;
            EXPECT_NEAR(static_cast<unsigned char>(luma[x]), x, ownCurve ? 8 : 1) << x;
        }
    }
}

TEST_F(NumberedPictures, AreAsManyAsFramesAndEachTheRightOne) {
    for (const char* const preset : {"png-sequence", "jpeg-sequence"}) {
        const std::string folder = place / preset;
        const ExportOutcome outcome = exported(clip, preset, folder + '/');
        EXPECT_EQ(outcome.facts.frames, 50) << preset;
        EXPECT_EQ(outcome.facts.firstPicture.toStdString().find(folder + "/frame_00000."), 0U);
        EXPECT_EQ(outcome.facts.lastPicture.toStdString().find(folder + "/frame_00049."), 0U);
        std::vector<int> wanted;
        for (int number = 0; number < 50; ++number)
            wanted.push_back(number % 25 < 2 ? -1 : number % 16);
        EXPECT_EQ(numbersIn(folder), wanted) << preset;
        qint64 size = 0;
        for (const std::string& path : filesIn(folder))
            size += TestFiles::read(path).size();
        EXPECT_EQ(outcome.facts.sizeBytes, size);
        EXPECT_EQ(outcome.notes.filter(QStringLiteral("left out: 1 sound track (1)")).size(), 1)
            << outcome.notes.join(QLatin1Char('\n')).toStdString();
    }
}

TEST_F(NumberedPictures, OfARangeOrAnotherRateAreThoseOfIt) {
    ExportRequest request = TestExport::requestOf(clip, "png-sequence", frames);
    request.in = ExportCore::TimePoint::ofFrames(10);
    request.out = ExportCore::TimePoint::ofFrames(20);
    EXPECT_EQ(TestExport::run(request).status, Status::Done);
    EXPECT_EQ(numbersIn(frames), (std::vector<int>{10, 11, 12, 13, 14, 15, 0, 1, 2, 3}));
    request = TestExport::requestOf(clip, "png-sequence", place / "slow");
    request.settings = {"frame-rate=5"};
    EXPECT_EQ(TestExport::run(request).status, Status::Done);
    EXPECT_EQ(filesIn(place / "slow").size(), 10U);
}

TEST_F(NumberedPictures, OfOneFrameAreOneFile) {
    ExportRequest request = TestExport::requestOf(clip, "png-sequence", frames + "/50%_%03d.png");
    ASSERT_EQ(mkdir(frames.c_str(), 0755), 0);
    request.in = ExportCore::TimePoint::ofFrames(5);
    request.out = ExportCore::TimePoint::ofFrames(6);
    const ExportOutcome outcome = TestExport::run(request);
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    EXPECT_EQ(TestFiles::namesIn(frames), QStringList(QStringLiteral("50%_000.png")));
    EXPECT_EQ(outcome.facts.firstPicture, outcome.facts.lastPicture);
    EXPECT_EQ(numbersIn(frames), std::vector<int>{5});
}

struct Lossless {
    const char* preset;
    const char* quality;
    const char* format;
};

TEST_F(NumberedPictures, OfPngHaveEverySampleOfWhatTheyWereMadeOf) {
    for (const Lossless& kept :
         {Lossless{"png-sequence", nullptr, "rgb24"}, Lossless{"png-sequence", "high", "rgb48be"},
          Lossless{"png-sequence-alpha", nullptr, "rgba"}, Lossless{"png-sequence-alpha", "high", "rgba64be"}}) {
        const std::string source = place / (std::string(kept.format) + ".mov"), folder = place / kept.format;
        TestMedia::runFfmpeg(
            {"-f", "lavfi", "-i",
             std::string("testsrc2=alpha=90:rate=25:size=65x47,noise=alls=20:allf=t,format=") + kept.format,
             "-frames:v", "3", "-c:v", "png", "-pix_fmt", kept.format, source});
        exported(source, kept.preset, folder, kept.quality);
        EXPECT_EQ(pictures(folder, kept.format), TestKept::pictures(source, kept.format)) << kept.format;
        ASSERT_EQ(filesIn(folder).size(), 3U);
        EXPECT_EQ(TestMedia::probe(filesIn(folder)[0]).video->pixelFormat, kept.format);
    }
}

TEST_F(NumberedPictures, WithoutTransparencyShowItOverBlackAndSaySo) {
    const std::string source = place / "alpha.mov";
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", "color=white:size=64x48:rate=25,format=rgba,geq=r=255:g=255:b=255:a=128",
                          "-frames:v", "1", "-c:v", "png", "-pix_fmt", "rgba", source});
    const ExportOutcome outcome = exported(source, "png-sequence", frames);
    EXPECT_TRUE(outcome.notes.join(QLatin1Char(' ')).contains(QLatin1String("transparency")))
        << outcome.notes.join(QLatin1Char(' ')).toStdString();
    const QByteArray bytes = TestKept::bytes(filesIn(frames).at(0), "rgb24");
    EXPECT_NEAR(static_cast<unsigned char>(bytes[0]), 128, 1);
}

/// A patch of one colour in video of BT.709, and what it is on a computer's screen.
TEST_F(NumberedPictures, OfVideoHaveTheColoursOfComputers) {
    const std::string source = place / "patch.mkv";
    // Y' 120, Cb 90, Cr 160 of BT.709, limited: R 178.5, G 112.1, B 40.8 of 255.
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", "nullsrc=s=64x48:r=25,format=yuv444p,geq=lum=120:cb=90:cr=160",
                          "-frames:v", "1", "-c:v", "ffv1", "-color_range", "tv", "-colorspace", "bt709",
                          "-color_primaries", "bt709", "-color_trc", "bt709", source});
    for (const char* const preset : {"png-sequence", "jpeg-sequence"}) {
        const std::string folder = place / preset;
        exported(source, preset, folder);
        const QByteArray bytes = TestKept::bytes(filesIn(folder).at(0), "rgb24");
        const auto sample = [&bytes](int component) {
            return static_cast<unsigned char>(bytes[bytes.size() / 6 * 3 + component]);
        };
        const int tolerance = preset[0] == 'p' ? 1 : 3;
        EXPECT_NEAR(sample(0), 178, tolerance) << preset;
        EXPECT_NEAR(sample(1), 112, tolerance) << preset;
        EXPECT_NEAR(sample(2), 41, tolerance) << preset;
    }
    // Not every decoder tells of it.
    const QByteArray png = TestFiles::read(filesIn(place / "png-sequence").at(0));
    EXPECT_TRUE(png.contains("sRGB")) << "and it says so";
    EXPECT_FALSE(png.contains("iCCP")) << "and nothing else";
}

std::vector<int> samplesOf(const QByteArray& bytes) {
    std::vector<int> samples;
    for (int at = 0; at + 1 < bytes.size(); at += 2)
        samples.push_back(static_cast<unsigned char>(bytes[at]) + 256 * static_cast<unsigned char>(bytes[at + 1]));
    return samples;
}

/// A step of ten bits is 64 of sixteen.
TEST_F(NumberedPictures, OfSixteenBitsAreAsExactAsVideoOfTen) {
    const std::string source = place / "deep.mkv";
    TestMedia::runFfmpeg({"-f", "lavfi", "-i",
                          "nullsrc=s=64x48:r=25,format=yuv444p10,geq=lum=200+9*X:cb=420+4*Y:cr=600-3*Y", "-frames:v",
                          "1", "-c:v", "ffv1", "-color_range", "tv", "-colorspace", "bt709", "-color_primaries",
                          "bt709", "-color_trc", "bt709", source});
    const std::vector<int> video = samplesOf(TestKept::bytes(source, "yuv444p10le"));
    const int area = 64 * 48;
    ASSERT_EQ(video.size(), static_cast<std::size_t>(3 * area));
    for (const char* const preset : {"png-sequence", "png-sequence-alpha"}) {
        exported(source, preset, place / preset, "high");
        const std::vector<int> made = samplesOf(TestKept::bytes(filesIn(place / preset).at(0), "rgb48le"));
        ASSERT_EQ(made.size(), video.size());
        double farthest = 0;
        for (int at = 0; at < area; ++at) {
            const double luma = (video[at] - 64) / 876.0, cr = (video[2 * area + at] - 512) / 896.0;
            const double red = std::clamp(luma + 1.5748 * cr, 0.0, 1.0);
            farthest = std::max(farthest, std::abs(made[3 * at] - red * 65535));
        }
        EXPECT_LT(farthest, 32) << preset;
    }
}

TEST_F(NumberedPictures, ReplaceThoseOfTheirNamesAndNothingElse) {
    exported(clip, "png-sequence", frames);
    TestFiles::write(frames + "/notes.txt", "mine");
    ExportRequest request = TestExport::requestOf(clip, "png-sequence", frames);
    request.out = ExportCore::TimePoint::ofFrames(3);
    const ExportOutcome refused = TestExport::run(request);
    EXPECT_EQ(refused.status, Status::Refused);
    EXPECT_NE(refused.error.GetDescription().find("--overwrite"), std::string::npos);
    EXPECT_EQ(TestFiles::namesIn(frames).size(), 51);
    request.overwrite = true;
    EXPECT_EQ(TestExport::run(request).status, Status::Done);
    EXPECT_EQ(TestFiles::namesIn(frames).join(QLatin1Char(' ')).toStdString(),
              "frame_00000.png frame_00001.png frame_00002.png notes.txt");
}

TEST_F(NumberedPictures, OfARunThatIsStoppedAreGoneAndTheOldOnesStay) {
    ASSERT_EQ(mkdir(frames.c_str(), 0755), 0);
    TestFiles::write(frames + "/frame_00000.png", "old");
    for (const std::string& output : {frames, place / "new"}) {
        ExportRequest request = TestExport::requestOf(clip, "png-sequence", output);
        request.overwrite = true;
        request.settings = {"size=3840x2160"};
        ExportCore::ExportJob job(request);
        ExportOutcome outcome;
        bool ended = false;
        QObject::connect(&job, &ExportCore::ExportJob::started, &job, &ExportCore::ExportJob::stop);
        QObject::connect(&job, &ExportCore::ExportJob::finished, [&](const ExportOutcome& result) {
            outcome = result;
            ended = true;
        });
        job.start();
        ASSERT_TRUE(TestSupport::waitUntil([&ended] { return ended; }));
        EXPECT_EQ(outcome.status, Status::Stopped) << outcome.error.GetDescription();
    }
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList(QStringLiteral("frames")));
    EXPECT_EQ(TestFiles::namesIn(frames), QStringList(QStringLiteral("frame_00000.png")));
    EXPECT_EQ(TestFiles::read(frames + "/frame_00000.png"), "old");
}

} // namespace
