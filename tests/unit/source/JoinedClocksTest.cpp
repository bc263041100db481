// SPDX-License-Identifier: GPL-3.0-or-later
// Recordings that were put behind each other in one file, each with a clock of its own.
#include "unit/source/SourceFixture.h"
#include <algorithm>
#include <cmath>
#include <fstream>
#include <sstream>

namespace TestMedia {
namespace {

constexpr int PART_FRAMES = 75;
constexpr int PART_SAMPLES = 3 * 48000;

class JoinedClocks : public SourceTest {
protected:
    using Arguments = std::vector<std::string>;

    /// Pictures 0 to 74 and three seconds of sound that beeps from 1.0 s to 1.1 s.
    std::string makePart(const std::string& name, const Arguments& codecs) {
        const std::string beep = "aevalsrc=exprs='0.5*sin(6000*t)*between(t,1,1.1)':s=48000:d=3";
        return make(name, join(join(pictures("25", PART_FRAMES), {"-f", "lavfi", "-i", beep}), codecs));
    }
    /// The same with sound of so many seconds that begins so much after the pictures.
    std::string makeUneven(const std::string& name, double soundLater, double soundSeconds, const char* offset) {
        const std::string beep =
            "aevalsrc=exprs='0.5*sin(6000*t)*between(t,1,1.1)':s=48000:d=" + std::to_string(soundSeconds);
        const std::vector<std::string> late{"-itsoffset", std::to_string(std::max(-soundLater, 0.0))};
        return make(name, join(join(join(late, pictures("25", PART_FRAMES)),
                                    {"-itsoffset", std::to_string(std::max(soundLater, 0.0)), "-f", "lavfi", "-i", beep,
                                     "-map", "0", "-map", "1"}),
                               join(mpeg2, {"-output_ts_offset", offset})));
    }
    std::string concatenate(const std::string& name, const std::vector<std::string>& parts) {
        std::ofstream whole(folder / name, std::ios::binary);
        for (const std::string& part : parts)
            whole << std::ifstream(part, std::ios::binary).rdbuf();
        return folder / name;
    }
    /// Puts the sound in the last quarter of the first transport stream behind a quarter of the second one.
    std::string interleave(const std::string& name, const std::string& part, const std::string& next) {
        constexpr std::size_t packet = 188;
        constexpr char sound = 1; // the number of the stream ends in it
        const std::string before = bytesOf(part);
        const std::string after = bytesOf(next);
        const std::size_t from = before.size() / packet * 3 / 4 * packet;
        std::string kept = before.substr(0, from);
        std::string moved;
        for (std::size_t at = from; at < before.size(); at += packet)
            (before[at + 1] & 1 && before[at + 2] == sound ? moved : kept) += before.substr(at, packet);
        const std::size_t place = after.size() / packet / 4 * packet;
        std::ofstream(folder / name, std::ios::binary)
            << kept << after.substr(0, place) << moved << after.substr(place);
        return folder / name;
    }
    static std::string bytesOf(const std::string& path) {
        std::ostringstream bytes;
        bytes << std::ifstream(path, std::ios::binary).rdbuf();
        return bytes.str();
    }
    static std::string numbersOf(IMediaSource& source) {
        std::string numbers;
        for (const ReadPicture& picture : readPictures(*source.CreateVideoStream()))
            numbers += std::to_string(picture.number) + ' ';
        return numbers;
    }
    static std::string partsInARow(int parts) {
        std::string numbers;
        for (int index = 0; index < parts * PART_FRAMES; ++index)
            numbers += std::to_string(index % PART_FRAMES) + ' ';
        return numbers;
    }
    /// Seconds at which a beep begins.
    static std::vector<double> beeps(const std::vector<float>& samples) {
        std::vector<double> starts;
        for (std::size_t index = 0; index < samples.size(); ++index)
            if (std::abs(samples[index]) > 0.25 &&
                (starts.empty() || static_cast<double>(index) / 48000 - starts.back() > 0.5))
                starts.push_back(static_cast<double>(index) / 48000);
        return starts;
    }
    /// Seconds at which the picture is shown.
    static std::vector<double> timesOf(IMediaSource& source, int number) {
        std::vector<double> times;
        for (const ReadPicture& picture : readPictures(*source.CreateVideoStream()))
            if (picture.number == number)
                times.push_back(static_cast<double>(picture.time) / TIME_BASE);
        return times;
    }
    static int countJoints(IMediaSource& source) {
        const auto reports = source.TakeDamageReports();
        return static_cast<int>(std::count_if(reports.begin(), reports.end(), [](const auto& report) {
            return report.what.find("joined on without a gap") != std::string::npos && !report.incomplete;
        }));
    }

    const Arguments h264{"-c:v", "libx264", "-g", "20", "-bf", "2", "-c:a", "mp2", "-b:a", "192k"};
    const Arguments mpeg2{"-c:v", "mpeg2video", "-g", "15", "-bf", "2", "-c:a", "mp2", "-b:a", "192k"};
};

TEST_F(JoinedClocks, GiveEveryPictureOfEveryPart) {
    const std::vector<std::pair<std::string, Arguments>> kinds{{".ts", h264}, {".ts", mpeg2}, {".mpg", mpeg2}};
    for (const auto& [ending, codecs] : kinds) {
        const std::string part = makePart("part" + ending, codecs);
        const auto source = open(concatenate("all" + ending, {part, part, part}));
        EXPECT_EQ(numbersOf(*source), partsInARow(3)) << ending << codecs[1];
        EXPECT_EQ(countJoints(*source), 2) << ending << codecs[1];
    }
}

TEST_F(JoinedClocks, KeepSoundInStepInEveryPart) {
    for (const Arguments& codecs : {h264, mpeg2}) {
        const std::string part = makePart("part.ts", codecs);
        const auto source = open(concatenate("all.ts", {part, part, part}));
        const auto audio = source->CreateAudioStream();
        const std::vector<double> sounds = beeps(readSamples(*audio));
        const std::vector<double> flashes = timesOf(*source, 25);
        ASSERT_EQ(sounds.size(), 3U);
        ASSERT_EQ(flashes.size(), 3U);
        for (std::size_t index = 0; index < 3; ++index)
            EXPECT_NEAR(sounds[index] - flashes[index], sounds[0] - flashes[0], 0.013) << index;
    }
}

TEST_F(JoinedClocks, ShowAfterASeekWhatReadingThroughShows) {
    for (const char* ending : {".ts", ".mpg"}) {
        const std::string part = makePart(std::string("part") + ending, mpeg2);
        const auto source = open(concatenate(std::string("all") + ending, {part, part, part}));
        const auto stream = source->CreateVideoStream();
        const std::vector<ReadPicture> all = readPictures(*stream);
        ASSERT_EQ(all.size(), 3U * PART_FRAMES);
        for (const std::size_t index : {224, 3, 150, 74, 75, 76, 149, 148, 99, 160, 90, 200, 30}) {
            stream->Seek(all[index].time, SeekMode::Exact);
            const auto found = readPictures(*stream, 1);
            ASSERT_EQ(found.size(), 1U) << ending << index;
            EXPECT_EQ(found[0].number, all[index].number) << ending << index;
            EXPECT_EQ(found[0].time, all[index].time) << ending << index;
        }
    }
}

TEST_F(JoinedClocks, SoundAfterASeekAsReadingThroughSounds) {
    const Arguments tone{"-c:v", "mpeg2video", "-c:a", "mp2", "-b:a", "192k"};
    const std::string part =
        make("part.ts", join(join(pictures("25", PART_FRAMES), {"-f", "lavfi", "-i", noise(48000, 3)}), tone));
    const auto source = open(concatenate("all.ts", {part, part, part}));
    const std::vector<float> all = readSamples(*source->CreateAudioStream());
    const auto stream = source->CreateAudioStream();
    for (const int sample : {400000, 150000, 144500, 260000, 300500, 20000}) {
        stream->Seek(Kestra::SamplesToTime(sample, 48000), SeekMode::Exact);
        const std::vector<float> found = readSamples(*stream, 2000);
        ASSERT_GE(found.size(), 2000U);
        double worst = 0;
        for (std::size_t index = 0; index < 2000; ++index)
            worst = std::max(worst, static_cast<double>(std::abs(found[index] - all[sample + index])));
        EXPECT_LT(worst, 1e-3) << sample;
    }
}

TEST_F(JoinedClocks, AreJoinedWhereTimeJumpsAhead) {
    const std::string part = makePart("part.ts", h264);
    const std::string later = makePart("later.ts", join(h264, {"-output_ts_offset", "300"}));
    const auto source = open(concatenate("all.ts", {part, later}));
    EXPECT_EQ(numbersOf(*source), partsInARow(2));
    EXPECT_EQ(source->GetInfo().video->duration, FramesToTime(std::int64_t{2} * PART_FRAMES, Rate(25)));
    const auto reports = source->TakeDamageReports();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_NE(reports[0].what.find("Timestamps jump by 296.9"), std::string::npos) << reports[0].what;
    EXPECT_NEAR(static_cast<double>(reports[0].time) / TIME_BASE, 3.0, 0.1);
}

TEST_F(JoinedClocks, KeepAShortGapAsTheRecordingHasIt) {
    const std::string part = makePart("part.ts", h264);
    const std::string later = makePart("later.ts", join(h264, {"-output_ts_offset", "5"}));
    const auto source = open(concatenate("all.ts", {part, later}));
    EXPECT_EQ(countJoints(*source), 0);
    // The second part begins when it would without the first.
    EXPECT_NEAR(static_cast<double>(source->GetInfo().video->duration) / TIME_BASE, 8.0, 0.1);
}

TEST_F(JoinedClocks, OfARecordingWhoseSoundBeginsLaterStayInStep) {
    // Back and ahead; the second one goes on behind where its sound begins, or has no pictures left there.
    const std::string part = makeUneven("part.ts", 0, 3, "100");
    for (const char* offset : {"20", "300"})
        for (const double later : {2.4, 3.6, 4.0}) {
            SCOPED_TRACE(std::string(offset) + " s, " + std::to_string(later) + " s later");
            const auto source = open(concatenate("all.ts", {part, makeUneven("later.ts", later, 2, offset)}));
            EXPECT_EQ(numbersOf(*source), partsInARow(2));
            const std::vector<double> sounds = beeps(readSamples(*source->CreateAudioStream()));
            ASSERT_EQ(sounds.size(), 2U);
            EXPECT_NEAR(sounds[1] - timesOf(*source, 0)[1], sounds[0] + later, 0.02);
            EXPECT_NEAR(static_cast<double>(source->GetInfo().duration) / TIME_BASE, 3 + later + 2, 0.03);
            EXPECT_EQ(countJoints(*source), 1);
        }
}

TEST_F(JoinedClocks, OfARecordingWhoseSoundBeginsLaterStayInStepWhereTheyAreMixed) {
    const std::string part = makeUneven("part.ts", 0, 3, "100");
    const auto source = open(interleave("all.ts", part, makeUneven("later.ts", 3.6, 2, "20")));
    EXPECT_EQ(numbersOf(*source), partsInARow(2));
    const std::vector<double> sounds = beeps(readSamples(*source->CreateAudioStream()));
    ASSERT_EQ(sounds.size(), 2U);
    EXPECT_NEAR(sounds[1] - timesOf(*source, 0)[1], sounds[0] + 3.6, 0.02);
    EXPECT_EQ(countJoints(*source), 1);
}

TEST_F(JoinedClocks, LoseNoSoundThatOutlastsItsPictureOrBeginsBeforeIt) {
    struct {
        const char* name;
        double seconds; // of the first one's sound
        double later;   // the second one's sound
    } const cases[] = {{"outlasts", 8, 0}, {"leads", 3, -5}};
    for (const auto& [name, seconds, later] : cases) {
        SCOPED_TRACE(name);
        const auto source = open(
            concatenate("all.ts", {makeUneven("part.ts", 0, seconds, "100"), makeUneven("later.ts", later, 8, "20")}));
        EXPECT_EQ(numbersOf(*source), partsInARow(2));
        const std::vector<double> sounds = beeps(readSamples(*source->CreateAudioStream()));
        ASSERT_EQ(sounds.size(), 2U);
        EXPECT_NEAR(sounds[1] - sounds[0], seconds, 0.05);
        EXPECT_NEAR(timesOf(*source, 25)[1] - sounds[1], -later, 0.05);
        const auto reports = source->TakeDamageReports();
        ASSERT_EQ(reports.size(), 1U);
        EXPECT_NE(reports[0].what.find("joined on with the picture held for "), std::string::npos) << reports[0].what;
        EXPECT_NE(reports[0].what.find("s, in which its sound goes on"), std::string::npos) << reports[0].what;
    }
}

TEST_F(JoinedClocks, AreJoinedAroundOneWithoutSound) {
    const std::string part = makePart("part.ts", mpeg2);
    const std::string silent = make("silent.ts", join(pictures("25", PART_FRAMES), {"-c:v", "mpeg2video", "-g", "15"}));
    const auto source = open(concatenate("all.ts", {part, silent, part}));
    EXPECT_EQ(numbersOf(*source), partsInARow(3));
    const std::vector<double> sounds = beeps(readSamples(*source->CreateAudioStream()));
    ASSERT_EQ(sounds.size(), 2U);
    EXPECT_NEAR(sounds[1] - sounds[0], 6, 0.02);
    EXPECT_EQ(countJoints(*source), 2);
}

TEST_F(JoinedClocks, TellAClockThatWasSetBackAsThat) {
    const auto source =
        open(concatenate("all.ts", {makeUneven("part.ts", 0, 3, "100"), makeUneven("next.ts", 0, 3, "20")}));
    const auto reports = source->TakeDamageReports();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_NE(reports[0].what.find("Timestamps jump by -83.0"), std::string::npos) << reports[0].what;
}

TEST_F(JoinedClocks, OfSoundAloneGiveEverySample) {
    const std::string part =
        make("part.ogg", {"-f", "lavfi", "-i", numberedSamples(48000, PART_SAMPLES), "-c:a", "flac"});
    const auto source = open(concatenate("all.ogg", {part, part}));
    const std::vector<float> samples = readSamples(*source->CreateAudioStream());
    ASSERT_EQ(samples.size(), 2U * PART_SAMPLES);
    for (int index = 0; index < 2 * PART_SAMPLES; ++index)
        ASSERT_NEAR(samples[static_cast<std::size_t>(index)] * 32768, sampleValue(index % PART_SAMPLES), 0.5) << index;
    EXPECT_EQ(countJoints(*source), 1);
}

/// What the last block of a link of Vorbis is to be cut by is not handed out.
struct Chain {
    const char* codec;
    int first, second; ///< sample rates
    double exactTo;    ///< seconds
};

class ChainedOgg : public JoinedClocks, public testing::WithParamInterface<Chain> {};

TEST_P(ChainedOgg, WithLinksOfAnotherSampleRateBeepsInStepAndLastsAsLongAsThey) {
    const Chain& chain = GetParam();
    const auto part = [&](const std::string& name, int rate) {
        const std::string beep = "aevalsrc=exprs='0.5*sin(6000*t)*between(t,1,1.1)':d=3:s=" + std::to_string(rate);
        return make(name, {"-f", "lavfi", "-i", beep, "-c:a", chain.codec});
    };
    const auto source = open(
        concatenate("all.ogg", {part("a.ogg", chain.first), part("b.ogg", chain.second), part("c.ogg", chain.first)}));
    const auto samples = readSamples(*source->CreateAudioStream());
    const double rate = chain.first;
    EXPECT_NEAR(static_cast<double>(samples.size()) / rate, 9.0, chain.exactTo);
    std::vector<double> starts;
    for (std::size_t index = 0; index < samples.size(); ++index) {
        const double time = static_cast<double>(index) / rate;
        if (std::abs(samples[index]) > 0.25 && (starts.empty() || time - starts.back() > 0.5))
            starts.push_back(time);
    }
    ASSERT_EQ(starts.size(), 3U);
    for (std::size_t link = 0; link < starts.size(); ++link)
        EXPECT_NEAR(starts[link], 1.0 + 3.0 * static_cast<double>(link), chain.exactTo + 0.001);
    for (const auto& note : source->TakeNotes())
        EXPECT_EQ(note.what.find("gap"), std::string::npos) << note.what;
}

INSTANTIATE_TEST_SUITE_P(Of, ChainedOgg,
                         testing::Values(Chain{"libvorbis", 44100, 48000, 0.04}, Chain{"libvorbis", 48000, 22050, 0.04},
                                         Chain{"flac", 44100, 48000, 0.0001}, Chain{"flac", 48000, 32000, 0.0001}));

TEST_F(JoinedClocks, AreNotReportedForOneRecording) {
    for (const char* ending : {".ts", ".mpg"}) {
        const auto source = open(makePart(std::string("part") + ending, h264));
        EXPECT_EQ(numbersOf(*source), partsInARow(1));
        EXPECT_TRUE(source->TakeDamageReports().empty()) << ending;
    }
}

} // namespace
} // namespace TestMedia
