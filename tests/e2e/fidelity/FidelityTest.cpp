// SPDX-License-Identifier: GPL-3.0-or-later
// What reaches the encoder is as good as what the ffmpeg program gives it with the same settings.
#include "../sync/Exported.h"
#include "PictureRatio.h"
#include "support/CatalogueFixture.h"
#include "support/FlashBeep.h"
#include <algorithm>
#include <filesystem>

namespace {

using Arguments = std::vector<std::string>;

constexpr double MARGIN_DB = 0.3;
constexpr double SIZE_MARGIN = 1.05;

struct Case {
    const char* name;
    int width, height;             ///< of the source
    int targetWidth, targetHeight; ///< of the output
    const char* pixelFormat;       ///< of the source; the output is 8 bit 4:2:0
    const char* filters;           ///< that make the source special
    Arguments tags;                ///< of the source
    const char* conversion;        ///< by which the ffmpeg program does the same
    Arguments encoding;            ///< by which it encodes the same way
};

std::ostream& operator<<(std::ostream& stream, const Case& which) {
    return stream << which.name;
}

const Arguments HD{"-color_primaries", "bt709", "-color_trc", "bt709", "-colorspace", "bt709"};

Arguments operator+(Arguments first, const Arguments& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

/// Chroma stands beside the left pixel; left to itself the program's scaler moves it.
const char* const SCALED = "scale=640:360:in_h_chr_pos=0:in_v_chr_pos=128:out_h_chr_pos=0:out_v_chr_pos=128";

const Case CASES[] = {
    {"scaled", 960, 540, 640, 360, "yuv420p", "null", HD + Arguments{"-color_range", "tv"}, SCALED, {}},
    {"tenBit", 640, 360, 640, 360, "yuv420p10le", "null", HD + Arguments{"-color_range", "tv"}, "scale", {}},
    {"fourTwoTwo", 640, 360, 640, 360, "yuv422p", "null", HD + Arguments{"-color_range", "tv"}, "scale", {}},
    {"interlaced",
     720,
     576,
     720,
     576,
     "yuv420p",
     "tinterlace=interleave_top,setfield=tff",
     {"-flags", "+ildct+ilme", "-top", "1", "-color_primaries", "bt470bg", "-color_trc", "bt709", "-colorspace",
      "bt470bg", "-color_range", "tv"},
     "bwdif=mode=send_frame",
     {}},
    {"fullRange",
     640,
     360,
     640,
     360,
     "yuv420p",
     "scale=out_range=full",
     HD + Arguments{"-color_range", "pc"},
     "scale=in_range=full:out_range=limited",
     {}},
};

class Fidelity : public TestPresets::CatalogueFixture, public ::testing::WithParamInterface<Case> {
protected:
    void SetUp() override {
        const QString size = QStringLiteral("'width': %1, 'height': %2, 'maxWidth': %1, 'maxHeight': %2")
                                 .arg(GetParam().targetWidth)
                                 .arg(GetParam().targetHeight);
        writeCatalogue(TestPresets::object(R"({'version': 1,
            'tags': [{'name': 'all', 'default': 0, 'presets': ['same']}],
            'presets': [{'id': 'same', 'container': {'id': 'mp4'}, 'video': {'codec': 'h264', )" +
                                           size.toUtf8() + R"(,
                'frameRate': 'source', 'bitrateMode': 'quality', 'quality': 16, 'profile': 'high',
                'pixelFormat': 'yuv420p', 'options': {'preset': 'fast'}},
                'audio': {'codec': 'aac', 'bitrate': 96000, 'sampleRate': 48000, 'channelLayout': 'stereo'}}]})"));
        makeSource();
        makeReference();
    }

    void makeSource() const {
        const Case& which = GetParam();
        const std::string picture = "testsrc2=rate=50:size=" + std::to_string(which.width) + "x" +
                                    std::to_string(which.height) + ",noise=alls=5:allf=t," + which.filters +
                                    ",format=" + which.pixelFormat;
        TestMedia::runFfmpeg(Arguments{"-f", "lavfi", "-i", picture, "-frames:v", "12", "-c:v", "ffv1"} + which.tags +
                             Arguments{source});
    }

    /// The source as it is to look: converted with all the care that the scaler can take, in finer steps than the
    /// output has.
    void makeReference() const {
        const std::string conversion = GetParam().conversion;
        TestMedia::runFfmpeg({"-i", source, "-vf", conversion + ",format=yuv420p10le", "-sws_flags",
                              "bicubic+accurate_rnd+full_chroma_int+full_chroma_inp+bitexact", "-c:v", "ffv1",
                              reference});
    }

    void encodeWithFfmpeg() const {
        TestMedia::runFfmpeg(Arguments{"-i", source, "-vf", GetParam().conversion, "-sws_flags", "bicubic", "-c:v",
                                       "libx264", "-preset", "fast", "-crf", "16", "-profile:v", "high", "-pix_fmt",
                                       "yuv420p"} +
                             GetParam().encoding + Arguments{theirs});
    }

    double ratio(const std::string& path) const { return TestFidelity::pictureRatio(path, reference, "yuv420p10le"); }

    TestMedia::Folder media;
    const std::string source = media / "source.mkv";
    const std::string reference = media / "reference.mkv";
    const std::string own = media / "own.mp4";
    const std::string theirs = media / "theirs.mp4";
};

TEST_P(Fidelity, IsThatOfTheFfmpegProgramWithTheSameSettings) {
    const ExportCore::ExportOutcome outcome = TestExport::run(TestExport::requestOf(source, "same", own));
    ASSERT_EQ(outcome.status, ExportCore::ExportOutcome::Status::Done) << outcome.error.GetDescription();
    encodeWithFfmpeg();
    const double ownRatio = ratio(own);
    const double theirRatio = ratio(theirs);
    RecordProperty("OwnDecibels", std::to_string(ownRatio));
    RecordProperty("FfmpegDecibels", std::to_string(theirRatio));
    EXPECT_GE(ownRatio, theirRatio - MARGIN_DB);
    // Nor is the quality bought with bits.
    EXPECT_LE(static_cast<double>(std::filesystem::file_size(own)),
              SIZE_MARGIN * static_cast<double>(std::filesystem::file_size(theirs)));
    // Lest both are compared with something else.
    EXPECT_GE(ownRatio, 35);
}

INSTANTIATE_TEST_SUITE_P(All, Fidelity, ::testing::ValuesIn(CASES),
                         [](const auto& which) { return std::string(which.param.name); });

} // namespace
