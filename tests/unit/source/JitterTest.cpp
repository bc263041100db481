// SPDX-License-Identifier: GPL-3.0-or-later
// Sound whose timestamps and samples disagree: it goes on without a break.
#include "unit/source/SourceFixture.h"
#include <algorithm>
#include <cmath>
#include <fstream>

namespace TestMedia {
namespace {

constexpr int RATE = 48000;
constexpr double PI = 3.14159265358979;
constexpr double TONE = 1000;

std::string tone(int rate, double seconds) {
    return "aevalsrc='0.4*sin(2*PI*1000*t)':s=" + std::to_string(rate) + ":d=" + std::to_string(seconds);
}

/// Where a tone breaks: of three samples of a sine, the middle one follows from the others.
std::vector<double> breaks(const std::vector<float>& samples, int rate, double tolerance) {
    const double factor = 2 * std::cos(2 * PI * TONE / rate);
    std::vector<double> found;
    const auto edge = static_cast<std::size_t>(rate / 25);
    for (std::size_t index = edge; index + edge < samples.size(); ++index) {
        const double off = samples[index - 1] + samples[index + 1] - factor * samples[index];
        const double time = static_cast<double>(index) / rate;
        if (std::abs(off) > tolerance && (found.empty() || time - found.back() > 0.01))
            found.push_back(time);
    }
    return found;
}

/// By how much the tone is late at `time`, in seconds; known up to whole periods.
double lateness(const std::vector<float>& samples, int rate, double time) {
    double sine = 0;
    double cosine = 0;
    const auto from = static_cast<std::size_t>(time * rate);
    for (std::size_t index = from; index < from + static_cast<std::size_t>(rate) / 10; ++index) {
        const double phase = 2 * PI * TONE * static_cast<double>(index) / rate;
        sine += samples.at(index) * std::sin(phase);
        cosine += samples.at(index) * std::cos(phase);
    }
    return -std::atan2(cosine, sine) / (2 * PI * TONE);
}

std::vector<std::string> notesOf(IMediaSource& source) {
    std::vector<std::string> notes;
    for (const auto& note : source.TakeNotes())
        notes.push_back(note.what);
    return notes;
}

class Jitter : public SourceTest {
protected:
    /// Packets of `name` with other timestamps: an expression over T (seconds) and N (number).
    std::string stamped(const std::string& name, const std::string& expression) {
        return make("stamped-" + name, {"-i", folder / name, "-c", "copy", "-bsf:a", "setts=ts='" + expression + "'"});
    }
    std::string toned(const std::string& name, const std::vector<std::string>& coding, double seconds = 8) {
        return make(name, join({"-f", "lavfi", "-i", tone(RATE, seconds)}, coding));
    }
};

struct Coded {
    std::string file;
    std::vector<std::string> arguments;
};

void PrintTo(const Coded& coded, std::ostream* out) {
    *out << coded.file;
}

class JitterOf : public Jitter, public testing::WithParamInterface<Coded> {};

TEST_P(JitterOf, TwentyMillisecondsBreaksNothing) {
    const auto steady = readSamples(*open(toned(GetParam().file, GetParam().arguments))->CreateAudioStream());
    const auto source = open(stamped(GetParam().file, "TS+(random(0)*2-1)*0.02/TB"));
    const auto read = readSamples(*source->CreateAudioStream());
    EXPECT_EQ(read.size(), steady.size());
    EXPECT_TRUE(breaks(read, RATE, 0.02).empty());
    for (const double time : {0.5, 4.0, 7.5})
        EXPECT_NEAR(lateness(read, RATE, time), lateness(steady, RATE, time), 1e-5) << time;
    EXPECT_TRUE(source->TakeDamageReports().empty());
    EXPECT_TRUE(notesOf(*source).empty());
}

INSTANTIATE_TEST_SUITE_P(Codings, JitterOf,
                         testing::Values(Coded{"a.webm", {"-c:a", "libopus"}}, Coded{"b.webm", {"-c:a", "libvorbis"}},
                                         Coded{"a.mkv", {"-c:a", "aac"}}, Coded{"b.mkv", {"-c:a", "ac3"}},
                                         Coded{"c.mkv", {"-c:a", "pcm_s16le"}}),
                         [](const auto& coded) {
                             std::string name = coded.param.file;
                             std::replace(name.begin(), name.end(), '.', '_');
                             return name;
                         });

TEST_F(Jitter, LeavesOnsetsWhereTheyAre) {
    FlashBeep media;
    media.frames = 250;
    media.audioCodec = "libopus";
    const std::string path = folder / "a.mkv";
    makeFlashBeep(path, media);
    const auto onset = [](const std::vector<float>& samples, std::size_t from) {
        while (std::abs(samples.at(from)) < 0.3F)
            ++from;
        return static_cast<double>(from) / RATE;
    };
    // What is packed anew without jitter has the same distance between picture and sound, which the container's clock
    // and the codec's lead decide.
    const auto steady = readSamples(*open(stamped("a.mkv", "TS"))->CreateAudioStream());
    const auto read = readSamples(*open(stamped("a.mkv", "TS+(random(0)*2-1)*0.015/TB"))->CreateAudioStream());
    for (int second = 1; second < 10; ++second) {
        const auto from = static_cast<std::size_t>(second * RATE - RATE / 2);
        EXPECT_NEAR(onset(read, from), onset(steady, from), 0.001);
    }
}

TEST_F(Jitter, AfterASeekIsAsWithoutOneToTheSample) {
    toned("a.webm", {"-c:a", "libopus"});
    const auto stream = open(stamped("a.webm", "TS+(random(0)*2-1)*0.01/TB"))->CreateAudioStream();
    const auto whole = readSamples(*stream);
    for (const double time : {2.0, 5.0, 6.5, 1.0}) {
        stream->Seek(static_cast<std::int64_t>(time * TIME_BASE), SeekMode::Exact);
        const auto read = readSamples(*stream, RATE / 5);
        EXPECT_TRUE(std::equal(read.begin(), read.end(), whole.begin() + std::lround(time * RATE))) << time;
        EXPECT_NEAR(lateness(read, RATE, 0), lateness(whole, RATE, time), 0.0015);
        EXPECT_TRUE(breaks(read, RATE, 0.02).empty());
    }
}

TEST_F(Jitter, WithARealGapIsSilentThereOnly) {
    toned("a.mkv", {"-c:a", "aac"});
    const auto source = open(stamped("a.mkv", "TS+(if(gt(N,200),0.4,0)+(random(0)*2-1)*0.01)/TB"));
    const auto read = readSamples(*source->CreateAudioStream());
    EXPECT_NEAR(static_cast<double>(read.size()) / RATE, 8.4, 0.06);
    const auto found = breaks(read, RATE, 0.02);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_NEAR(found[1] - found[0], 0.4, 0.005);
    const auto notes = notesOf(*source);
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_NE(notes[0].find("its sound has a gap of 0.4"), std::string::npos) << notes[0];
    EXPECT_TRUE(source->TakeDamageReports().empty());
}

TEST_F(Jitter, ASmallDifferenceIsSpreadAndNotCut) {
    toned("a.mkv", {"-c:a", "aac"});
    const auto source = open(stamped("a.mkv", "TS+if(gt(N,50),0.008,0)/TB"));
    const auto read = readSamples(*source->CreateAudioStream());
    EXPECT_TRUE(breaks(read, RATE, 0.02).empty());
    // 8 ms are as many periods of the tone.
    EXPECT_NEAR(lateness(read, RATE, 7.5), lateness(read, RATE, 0.5), 0.0006);
    EXPECT_NEAR(static_cast<double>(read.size()) / RATE, 8.04, 0.02);
    EXPECT_EQ(notesOf(*source).size(), 1U);
}

TEST_F(Jitter, DriftIsFollowedWithoutABreak) {
    toned("a.mkv", {"-c:a", "pcm_s16le"}, 30);
    const auto source = open(stamped("a.mkv", "TS*1.0004"));
    const auto read = readSamples(*source->CreateAudioStream());
    EXPECT_TRUE(breaks(read, RATE, 0.01).empty());
    // In 29 s time has gained 11.6 ms: it may be late by no more than some of them.
    int periods = 0;
    double before = lateness(read, RATE, 0.5);
    for (double time = 0.6; time < 29; time += 0.1) {
        const double now = lateness(read, RATE, time);
        periods += now - before < -0.0005 ? 1 : now - before > 0.0005 ? -1 : 0;
        before = now;
    }
    EXPECT_NEAR(periods * 0.001 + before, 0.0116, 0.004);
}

class Change : public Jitter {
protected:
    static void joinFiles(const std::vector<std::string>& parts, const std::string& whole) {
        std::ofstream out(whole, std::ios::binary);
        for (const std::string& part : parts)
            out << std::ifstream(part, std::ios::binary).rdbuf();
    }
    /// Three parts of two seconds, one after the other in one track.
    std::string joined(const std::string& extension, const std::vector<std::string>& coding,
                       const std::vector<std::string>& sources) {
        std::ofstream list(folder / "list.txt");
        int number = 0;
        for (const std::string& source : sources) {
            const std::string part = std::to_string(number++) + ".mka";
            make(part, join({"-f", "lavfi", "-i", source}, coding));
            list << "file " << folder / part << "\n";
        }
        list.close();
        return make("joined." + extension, {"-f", "concat", "-safe", "0", "-i", folder / "list.txt", "-c", "copy"});
    }
};

TEST_F(Change, OfTheSampleRateIsResampledWithoutABreak) {
    const auto source = open(joined("mkv", {"-c:a", "flac"}, {tone(RATE, 2), tone(44100, 2), tone(RATE, 2)}));
    const auto read = readSamples(*source->CreateAudioStream());
    EXPECT_EQ(read.size(), 6U * RATE);
    EXPECT_TRUE(breaks(read, RATE, 0.02).empty());
    for (const double time : {1.0, 3.0, 5.0})
        EXPECT_NEAR(lateness(read, RATE, time), 0, 2e-5) << time;
    const auto notes = notesOf(*source);
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_NE(notes[0].find("changes to 44100 Hz, mono"), std::string::npos) << notes[0];
    EXPECT_NE(notes[0].find("converted to 48000 Hz, mono"), std::string::npos) << notes[0];
    EXPECT_TRUE(source->TakeDamageReports().empty());
}

TEST_F(Change, OfTheChannelsIsMixedWithoutABreak) {
    const std::string wide = ",pan=stereo|c0=c0|c1=0*c0";
    const auto source =
        open(joined("mkv", {"-c:a", "flac"}, {tone(RATE, 2) + wide, tone(RATE, 2), tone(RATE, 2) + wide}));
    const auto stream = source->CreateAudioStream();
    std::size_t samples = 0;
    while (const auto block = stream->ReadAudio()) {
        EXPECT_EQ(block->GetSampleRate(), RATE);
        samples += static_cast<std::size_t>(block->GetSampleCount());
    }
    EXPECT_EQ(samples, 6U * RATE);
    const auto notes = notesOf(*source);
    ASSERT_EQ(notes.size(), 1U) << notes.back();
    EXPECT_NE(notes[0].find("changes to 48000 Hz, mono"), std::string::npos) << notes[0];
}

TEST_F(Change, ToMoreChannelsLimitsThePeaksOfTheirMix) {
    const std::string stereo = ",pan=stereo|c0=c0|c1=c0";
    const std::string loud = ",volume=2.25,pan=5.1|FL=c0|FR=c0|FC=c0|BL=c0|BR=c0";
    const auto source =
        open(joined("mkv", {"-c:a", "flac"}, {tone(RATE, 2) + stereo, tone(RATE, 2) + loud, tone(RATE, 2) + stereo}));
    const auto read = readSamples(*source->CreateAudioStream());
    ASSERT_EQ(read.size(), 6U * RATE);
    // A tone that is cut at full scale has 0.9 and more; one that is lowered to it, 0.71.
    double power = 0;
    for (int index = 5 * RATE / 2; index < 7 * RATE / 2; ++index)
        power += read[static_cast<std::size_t>(index)] * read[static_cast<std::size_t>(index)] / RATE;
    EXPECT_NEAR(std::sqrt(power), std::sqrt(0.5), 0.02);
    for (const double time : {1.0, 3.0, 5.0})
        EXPECT_NEAR(lateness(read, RATE, time), 0, 2e-5) << time;
}

TEST_F(Change, InRawSoundLosesNothing) {
    make("a.mp2", {"-f", "lavfi", "-i", tone(RATE, 3), "-c:a", "mp2", "-f", "mp2"});
    make("b.mp2", {"-f", "lavfi", "-i", tone(44100, 3), "-c:a", "mp2", "-f", "mp2"});
    joinFiles({folder / "a.mp2", folder / "b.mp2", folder / "a.mp2"}, folder / "all.mp2");
    const auto read = readSamples(*open(folder / "all.mp2")->CreateAudioStream());
    const double a = std::ceil(3.0 * RATE / 1152) * 1152;
    const double b = std::ceil(3.0 * 44100 / 1152) * 1152 * RATE / 44100;
    EXPECT_NEAR(static_cast<double>(read.size()), 2 * a + b, 1152);
    // A codec begins and ends with a break of its own.
    const double seams[] = {a / RATE, (a + b) / RATE};
    for (const double time : breaks(read, RATE, 0.05))
        EXPECT_LT(std::min(std::abs(time - seams[0]), std::abs(time - seams[1])), 0.08) << time;
}

} // namespace
} // namespace TestMedia
