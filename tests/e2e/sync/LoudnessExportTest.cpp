// SPDX-License-Identifier: GPL-3.0-or-later
// Exports of a wanted loudness, measured by the ffmpeg program.
#include "Exported.h"
#include "support/FlashBeep.h"
#include "support/MediaProbe.h"
#include "support/Starter.h"
#include <gmock/gmock.h>
#include <regex>

using ExportCore::ExportOutcome;
using Status = ExportOutcome::Status;
using ::testing::HasSubstr;

namespace {

struct Measured {
    double lufs = 0;
    double truePeak = 0; ///< dBTP
};

Measured measure(const std::string& path) {
    static TestSupport::Starter ffmpeg("ffmpeg");
    const auto run = ffmpeg.run({"-nostdin", "-hide_banner", "-i", path, "-af", "ebur128=peak=true:framelog=verbose",
                                 "-vn", "-f", "null", "-"});
    std::smatch loudness, peak;
    EXPECT_TRUE(std::regex_search(run->errors, loudness, std::regex("I: +(-?[0-9.]+) LUFS"))) << run->errors;
    EXPECT_TRUE(std::regex_search(run->errors, peak, std::regex("Peak: +(-?[0-9.]+) dBFS"))) << run->errors;
    return {std::stod(loudness[1]), std::stod(peak[1])};
}

class LoudnessExport : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        media = new TestMedia::Folder;
        // A quiet part, clicks, a loud part.
        TestMedia::runFfmpeg({"-f", "lavfi", "-i",
                              "anoisesrc=color=pink:sample_rate=48000:amplitude=0.2:seed=3:duration=6", "-f", "lavfi",
                              "-i", "sine=frequency=900:beep_factor=4:sample_rate=48000:duration=6", "-filter_complex",
                              "[0]volume='if(lt(t,2),0.2,1)':eval=frame[n];[n][1]amix=2,aformat=cl=stereo", "-c:a",
                              "pcm_s16le", *media / "sound.wav"});
        TestMedia::runFfmpeg({"-f", "lavfi", "-i", "anullsrc=r=48000:cl=stereo", "-t", "1", "-c:a", "pcm_s16le",
                              *media / "silence.wav"});
    }
    static void TearDownTestSuite() { delete media; }

    ExportOutcome exported(const char* source, const char* preset, double lufs) {
        path = *media / (std::string(preset) + ".out");
        ExportCore::ExportRequest request = TestExport::requestOf(*media / source, preset, path);
        request.loudness = lufs;
        request.overwrite = true;
        return TestExport::run(request);
    }

    static TestMedia::Folder* media;
    std::string path;
};

TestMedia::Folder* LoudnessExport::media = nullptr;

TEST_F(LoudnessExport, HasTheLoudnessThatIsWanted) {
    for (const double lufs : {-14.0, -23.0, -31.0})
        for (const char* const preset : {"wav", "m4a-aac"}) {
            const ExportOutcome outcome = exported("sound.wav", preset, lufs);
            ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
            EXPECT_NEAR(measure(path).lufs, lufs, 0.5) << preset;
            EXPECT_LE(measure(path).truePeak, -0.9) << preset;
            ASSERT_EQ(outcome.notes.size(), 1);
            EXPECT_THAT(outcome.notes.front().toStdString(), HasSubstr("LUFS and is "));
        }
}

TEST_F(LoudnessExport, LeavesSilenceSilentAndSaysSo) {
    const ExportOutcome outcome = exported("silence.wav", "flac", -14);
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    EXPECT_THAT(outcome.notes.join(QLatin1Char('\n')).toStdString(), HasSubstr("stays as it is"));
}

TEST_F(LoudnessExport, LeavesSoundWithoutLoudnessAsItIsHoweverHighItsPeaks) {
    // Too short to be measured.
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", "sine=frequency=500:sample_rate=48000:duration=0.2,volume=8", "-c:a",
                          "pcm_s16le", *media / "click.wav"});
    ASSERT_EQ(exported("click.wav", "wav", -30).status, Status::Done);
    EXPECT_GT(TestMedia::probe(path).audio->peak, 0.95);
}

TEST_F(LoudnessExport, SaysThatThereIsNoSoundToChange) {
    path = *media / "mute.mkv";
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", "testsrc2=size=64x48:rate=25", "-t", "0.2", "-c:v", "ffv1", path});
    const ExportOutcome outcome = exported("mute.mkv", "mkv-ffv1-flac", -14);
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    EXPECT_THAT(outcome.notes.join(QLatin1Char('\n')).toStdString(), HasSubstr("no sound whose loudness"));
}

TEST_F(LoudnessExport, IsThatOfTheCut) {
    path = *media / "cut.wav";
    ExportCore::ExportRequest request = TestExport::requestOf(*media / "sound.wav", "wav", path);
    request.loudness = -20;
    request.out = KTime(1500); // the quiet part alone
    ASSERT_EQ(TestExport::run(request).status, Status::Done);
    EXPECT_NEAR(measure(path).lufs, -20, 0.5);
}

TEST_F(LoudnessExport, IsRefusedWherePresetsHaveNoSound) {
    const ExportOutcome outcome = exported("sound.wav", "mp4-h264-1080p-silent", -14);
    EXPECT_EQ(outcome.status, Status::Refused);
    EXPECT_THAT(outcome.error.GetDescription(), HasSubstr("has no sound"));
}

} // namespace
