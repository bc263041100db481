// SPDX-License-Identifier: GPL-3.0-or-later
// Exports of all sound tracks of their inputs, heard track by track through the ffmpeg program.
#include "Exported.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include "support/Starter.h"
#include <cmath>
#include <cstring>
#include <gmock/gmock.h>

using ExportCore::ExportOutcome;
using ExportCore::ExportPlan;
using ExportCore::ExportRequest;
using Kind = Kestra::Proc::CheckedStream::Kind;
using Status = ExportOutcome::Status;
using ::testing::HasSubstr;

namespace {

constexpr int RATE = 48000;

/// Samples of the left channel, and of the right one behind each.
using Samples = std::vector<std::int16_t>;

/// How often it goes up through zero in each second.
double pitchOf(const Samples& samples) {
    int rises = 0;
    for (std::size_t i = 2; i < samples.size(); i += 2)
        rises += samples[i - 2] < 0 && samples[i] >= 0 ? 1 : 0;
    return rises * double{RATE} / (static_cast<double>(samples.size()) / 2);
}

Samples part(const Samples& samples, double from, double to) {
    const auto at = [&samples](double time) { return samples.begin() + std::lround(time * RATE) * 2; };
    return {at(from), at(to)};
}

Samples behind(Samples first, const Samples& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

class SoundTracksExport : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        media = new TestMedia::Folder;
        makeFilm("film.mkv", {440, 660, 880});
        makeFilm("other.mkv", {330, 550, 770});
        makeFilm("two.mkv", {440, 660});
    }
    static void TearDownTestSuite() { delete media; }

    static std::vector<std::string> tone(int frequency, const std::string& seconds = "2") {
        return {"-f", "lavfi", "-i",
                "sine=f=" + std::to_string(frequency) + ":r=48000:d=" + seconds + ",aformat=cl=stereo"};
    }
    static void make(const std::string& name, const std::vector<std::vector<std::string>>& parts) {
        std::vector<std::string> all;
        for (const auto& one : parts)
            all.insert(all.end(), one.begin(), one.end());
        all.push_back(*media / name);
        TestMedia::runFfmpeg(all);
    }
    /// Two seconds of pictures and so many tones.
    static void makeFilm(const std::string& name, const std::vector<int>& frequencies,
                         const std::vector<std::string>& more = {}) {
        std::vector<std::vector<std::string>> parts{{"-f", "lavfi", "-i", "testsrc2=s=64x64:r=25:d=2"}};
        std::vector<std::string> maps{"-map", "0"};
        for (std::size_t i = 0; i < frequencies.size(); ++i) {
            parts.push_back(tone(frequencies[i]));
            maps.insert(maps.end(), {"-map", std::to_string(i + 1)});
        }
        parts.insert(parts.end(), {maps, {"-c:v", "mpeg4", "-c:a", "pcm_s16le"}, more});
        make(name, parts);
    }

    ExportRequest all(const std::vector<std::string>& inputs, const char* preset, const std::string& output) {
        path = place / output;
        ExportRequest request = TestExport::requestOf(*media / inputs.front(), preset, path);
        for (std::size_t i = 1; i < inputs.size(); ++i)
            request.inputs << QString::fromStdString(*media / inputs[i]);
        EXPECT_TRUE(request.tracks.chooseSound("all"));
        return request;
    }
    ExportOutcome done(const ExportRequest& request) {
        ExportOutcome outcome = TestExport::run(request);
        EXPECT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
        return outcome;
    }

    /// Of one sound track, as it is played.
    static Samples heard(const std::string& file, int track) {
        static TestSupport::Starter ffmpeg("ffmpeg");
        const auto run = ffmpeg.run({"-nostdin", "-v", "error", "-i", file, "-map", "0:a:" + std::to_string(track),
                                     "-ac", "2", "-ar", std::to_string(RATE), "-f", "s16le", "-"});
        EXPECT_EQ(run->errors, "") << file;
        Samples samples(run->output.size() / sizeof(std::int16_t));
        std::memcpy(samples.data(), run->output.data(), samples.size() * sizeof(std::int16_t));
        return samples;
    }
    static Samples given(const std::string& name, int track) { return heard(*media / name, track); }
    Samples heard(int track) const { return heard(path, track); }
    std::string notesOf(const ExportOutcome& outcome) const {
        return outcome.notes.join(QLatin1Char('\n')).toStdString();
    }

    static TestMedia::Folder* media;
    const TestMedia::Folder place;
    std::string path;
};

TestMedia::Folder* SoundTracksExport::media = nullptr;

TEST_F(SoundTracksExport, HasEachTrackSampleBySampleFromTheCutOn) {
    ExportRequest request = all({"film.mkv"}, "mkv-ffv1-flac", "cut.mkv");
    request.in = KTime(400);
    request.out = KTime(1400);
    const ExportOutcome outcome = done(request);
    EXPECT_EQ(outcome.facts.countOf(Kind::Audio), 3);
    for (int track = 0; track < 3; ++track)
        EXPECT_EQ(heard(track), part(given("film.mkv", track), 0.4, 1.4)) << track;
}

TEST_F(SoundTracksExport, HasTheTracksOfJoinedInputsOneBehindTheOther) {
    done(all({"film.mkv", "other.mkv"}, "mkv-ffv1-flac", "joined.mkv"));
    for (int track = 0; track < 3; ++track)
        EXPECT_EQ(heard(track), behind(given("film.mkv", track), given("other.mkv", track))) << track;
}

TEST_F(SoundTracksExport, IsCodedLikeTheFirstInEveryContainerThatHoldsSeveral) {
    for (const auto& [preset, output] :
         std::vector<std::pair<const char*, const char*>>{{"mp4-h264-480p", "a.mp4"},
                                                          {"mov-h264-1080p", "a.mov"},
                                                          {"webm-vp9-720p", "a.webm"},
                                                          {"m4a-aac", "a.m4a"},
                                                          {"mkv-h264-1080p", "a.mkv"},
                                                          {"mp4-mpeg4-720p-2pass", "b.mp4"}}) {
        ExportRequest request = all({"film.mkv"}, preset, output);
        request.out = KTime(1000);
        const ExportOutcome outcome = done(request);
        const std::vector<double> pitches{440, 660, 880};
        for (int track = 0; track < 3; ++track) {
            const Samples samples = heard(track);
            EXPECT_NEAR(static_cast<double>(samples.size()) / 2, RATE, 2400) << output;
            // At its end a codec puts noise into the silence that fills the last packet.
            EXPECT_NEAR(pitchOf(part(samples, 0.1, 0.9)), pitches[static_cast<std::size_t>(track)], 2) << output;
        }
        std::string codec;
        for (const auto& stream : outcome.facts.streams)
            if (stream.kind == Kind::Audio) {
                codec = codec.empty() ? stream.codec : codec;
                EXPECT_EQ(stream.codec, codec) << output;
            }
    }
}

TEST_F(SoundTracksExport, IsCutByAWindowOnTheFinishedStreamsAndLengthenedByAnOutro) {
    ExportRequest request = all({"film.mkv"}, "mkv-ffv1-flac", "outro.mkv");
    request.brandingName = QStringLiteral("demo");
    request.exportRange = {KTime(520), KTime(6000)};
    done(request);
    for (int track = 0; track < 3; ++track) {
        const Samples silence(static_cast<std::size_t>(4 * RATE * 2));
        EXPECT_EQ(heard(track), behind(part(given("film.mkv", track), 0.52, 2), silence)) << track;
    }
}

TEST_F(SoundTracksExport, KeepsATrackThatBeginsEarlierInStep) {
    // The first track begins with the pictures, 0.4 s behind the second one, which is longer, too.
    make("early.mkv", {{"-itsoffset", "0.4", "-f", "lavfi", "-i", "testsrc2=s=64x64:r=25:d=1", "-itsoffset", "0.4"},
                       tone(440, "1"),
                       tone(660, "2"),
                       {"-map", "0", "-map", "1", "-map", "2", "-c:v", "mpeg4", "-c:a", "pcm_s16le"}});
    const ExportOutcome outcome = done(all({"early.mkv"}, "mkv-ffv1-flac", "a.mkv"));
    EXPECT_EQ(outcome.facts.frames, 50);
    EXPECT_EQ(heard(1), given("early.mkv", 1));
    const Samples late(static_cast<std::size_t>(std::lround(0.4 * RATE) * 2));
    const Samples rest(static_cast<std::size_t>(std::lround(0.6 * RATE) * 2));
    EXPECT_EQ(heard(0), behind(behind(late, given("early.mkv", 0)), rest));
}

TEST_F(SoundTracksExport, BringsEachTrackToTheLoudness) {
    makeFilm("uneven.mkv", {440, 660}, {"-filter:a:0", "volume=0.2", "-filter:a:1", "volume=3"});
    ExportRequest request = all({"uneven.mkv"}, "mkv-ffv1-flac", "even.mkv");
    request.loudness = -20;
    const ExportOutcome outcome = done(request);
    EXPECT_THAT(notesOf(outcome), HasSubstr("Sound track 1 has "));
    EXPECT_THAT(notesOf(outcome), HasSubstr("Sound track 2 has "));
    const auto loudest = [](const Samples& samples) {
        int most = 0;
        for (const std::int16_t one : samples)
            most = std::max(most, std::abs(int{one}));
        return most;
    };
    // Tones of nearly the same pitch are as loud where they are as high.
    EXPECT_NEAR(loudest(heard(0)), loudest(heard(1)), 0.1 * loudest(heard(0)));
    EXPECT_GT(loudest(heard(0)), 2 * loudest(given("uneven.mkv", 0)));
    EXPECT_LT(loudest(heard(1)), loudest(given("uneven.mkv", 1)));
}

TEST_F(SoundTracksExport, MixesATrackOfMoreChannelsAndSaysSo) {
    makeFilm("wide.mkv", {440, 660}, {"-filter:a:1", "aformat=cl=5.1", "-c:a:1", "flac"});
    const ExportOutcome outcome = done(all({"wide.mkv"}, "mkv-ffv1-flac", "narrow.mkv"));
    EXPECT_THAT(notesOf(outcome), HasSubstr("wide.mkv\": sound of 5.1 (track 2) is encoded as stereo"));
    for (const auto& stream : outcome.facts.streams)
        EXPECT_EQ(stream.kind == Kind::Audio ? stream.channels : 2, 2);
}

TEST_F(SoundTracksExport, TakesNeitherRateNorBitsFromATrackBehindALesserOne) {
    makeFilm("better.mkv", {440, 660}, {"-ar:a:0", "32000", "-c:a:1", "pcm_s24le"});
    const ExportOutcome outcome = done(all({"better.mkv"}, "mkv-ffv1-flac", "best.mkv"));
    EXPECT_EQ(notesOf(outcome), "");
    for (const auto& stream : outcome.facts.streams)
        EXPECT_EQ(stream.kind == Kind::Audio ? stream.sampleRate : RATE, RATE);
    EXPECT_EQ(heard(1), given("better.mkv", 1));
}

TEST_F(SoundTracksExport, IsPlannedWithEachTrackAndItsBytes) {
    // As it is reckoned: of a film so short a trial would know the real size.
    const auto three = done(all({"film.mkv"}, "mp4-h264-480p", "three.mp4")).plan;
    ExportRequest request = all({"film.mkv"}, "mp4-h264-480p", "one.mp4");
    request.tracks = {};
    const auto one = done(request).plan;
    ASSERT_TRUE(three && one);
    EXPECT_EQ(three->streams.size(), 4U);
    EXPECT_EQ(one->streams.size(), 2U);
    EXPECT_EQ(three->estimate.audioBytes, 3 * one->estimate.audioBytes);
}

TEST_F(SoundTracksExport, IsRefusedWithAWayOutWhereItIsNotPossible) {
    const auto refusal = [](const ExportRequest& request) {
        const ExportOutcome outcome = TestExport::run(request);
        EXPECT_EQ(outcome.status, Status::Refused);
        return outcome.error.GetDescription();
    };
    for (const auto& [preset, output] : std::vector<std::pair<const char*, const char*>>{
             {"mp3", "a.mp3"}, {"wav", "a.wav"}, {"flac", "a.flac"}, {"opus", "a.opus"}, {"ac3", "a.ac3"}}) {
        const std::string why = refusal(all({"film.mkv"}, preset, output));
        EXPECT_THAT(why, HasSubstr("Cannot put all 3 sound tracks of \"" + *media / "film.mkv" + "\" into one file"));
        EXPECT_THAT(why, HasSubstr("holds one; --audio takes the number or the language of one"));
        EXPECT_THAT(why, HasSubstr("for an export each, and mp4, mov, webm, mkv and m4a hold all"));
    }
    const std::string why = refusal(all({"film.mkv", "two.mkv"}, "mkv-ffv1-flac", "a.mkv"));
    EXPECT_THAT(why, HasSubstr("film.mkv\" into one file: \"" + *media / "two.mkv" + "\" has 2; --audio takes"));
}

} // namespace
