// SPDX-License-Identifier: GPL-3.0-or-later
// Sound that begins behind so many pictures that the beginning of the file does not tell what it is like.
#include "SourceFixture.h"
#include <algorithm>

namespace TestMedia {
namespace {

constexpr int SAMPLE_RATE = 48000;

class LateSound : public SourceTest {
protected:
    /// 3 s of pictures, and half a second of a tone at 2 s.
    std::string makeFilm(const std::string& name, const std::string& pictures, const std::vector<std::string>& codecs) {
        return make(name, join({"-f", "lavfi", "-i", pictures, "-itsoffset", "2", "-f", "lavfi", "-i",
                                "sine=r=" + std::to_string(SAMPLE_RATE) + ":d=0.5", "-max_interleave_delta", "0",
                                "-pix_fmt", "yuv420p"},
                               codecs));
    }
    static std::string noisyPictures() { return "color=gray:s=640x480:r=25:d=3,noise=alls=100:allf=t"; }
    static std::vector<std::string> mpeg2(const char* sound) {
        return {"-c:v", "mpeg2video", "-g", "1", "-q:v", "1", "-qmin", "1", "-c:a", sound};
    }
    static double onsetIn(IMediaSource& source) {
        const std::vector<float> samples = readSamples(*source.CreateAudioStream());
        const auto loud = std::find_if(samples.begin(), samples.end(), [](float s) { return std::abs(s) > 0.02F; });
        return static_cast<double>(loud - samples.begin()) / SAMPLE_RATE;
    }
};

TEST_F(LateSound, IsFoundBehindPicturesThatTakeMoreThanIsSearchedOtherwise) {
    // 88 MiB of pictures
    const auto source = open(makeFilm("a.mkv", "color=s=1280x720:r=25:d=3",
                                      {"-c:v", "rawvideo", "-c:a", "pcm_s16le", "-allow_raw_vfw", "1"}));
    ASSERT_TRUE(source->GetInfo().audio);
    EXPECT_NEAR(onsetIn(*source), 2, 0.001);
    EXPECT_TRUE(source->TakeDamageReports().empty());
    EXPECT_TRUE(source->TakeNotes().empty());
}

TEST_F(LateSound, OfATransportStreamIsWhatItsFirstPacketSays) {
    const auto source = open(makeFilm("a.ts", noisyPictures(), mpeg2("mp2")));
    ASSERT_TRUE(source->GetInfo().audio);
    EXPECT_EQ(source->GetInfo().audio->sampleRate, SAMPLE_RATE);
    EXPECT_NEAR(onsetIn(*source), 2, 0.03);
    EXPECT_TRUE(source->TakeDamageReports().empty());
    EXPECT_TRUE(source->TakeNotes().empty());
}

TEST_F(LateSound, ThatNothingAnnouncedIsToldToBeMissing) {
    const std::vector<std::string> flv = {"-c:v",  "flv", "-g",   "1",          "-q:v", "1",
                                          "-qmin", "1",   "-c:a", "libmp3lame", "-ar",  "44100"};
    for (const std::string& path :
         {makeFilm("a.vob", noisyPictures(), mpeg2("mp2")), makeFilm("a.flv", noisyPictures(), flv)}) {
        const auto source = open(path);
        EXPECT_FALSE(source->GetInfo().audio) << path;
        const auto reports = source->TakeDamageReports();
        ASSERT_EQ(reports.size(), 1U) << path;
        EXPECT_TRUE(reports[0].incomplete) << path;
        EXPECT_NE(reports[0].what.find("sound track begins so late"), std::string::npos) << reports[0].what;
        EXPECT_EQ(reports[0].time, source->GetInfo().duration) << path;
    }
}

TEST_F(LateSound, ThatIsAnnouncedAndNeverComesIsLeftOut) {
    const std::string path = make("a.ts", join(pictures("25", 25), {"-f", "lavfi", "-i", "anullsrc=d=1", "-c:v",
                                                                    "mpeg2video", "-c:a", "mp2", "-frames:a", "0"}));
    const auto source = open(path);
    EXPECT_FALSE(source->GetInfo().audio);
    EXPECT_TRUE(source->TakeDamageReports().empty());
    const auto& tracks = source->GetInfo().contents.tracks;
    ASSERT_EQ(tracks.size(), 2U) << "so that whoever exports the file can name it";
    EXPECT_EQ(tracks[1].kind, Kestra::Proc::ListedTrack::Kind::Sound);
}

} // namespace
} // namespace TestMedia
