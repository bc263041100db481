// SPDX-License-Identifier: GPL-3.0-or-later
// Decoded sound: every sample in its place, also after seeks.
#include "Kestra/FF/Demux/StillTimes.h"
#include "Kestra/Proc/Interrupted.h"
#include "unit/source/SourceFixture.h"
#include <cmath>
#include <random>

namespace TestMedia {
namespace {

constexpr int RATE = 48000;

long long numberOf(float sample) {
    return std::lround(sample * 32768.0F);
}

/// How far `part`, which begins at sample `from` of the original, is shifted against it: the lag of the best match.
int lagOf(const std::vector<float>& part, const std::vector<float>& original, long long from, int range) {
    int best = -range - 1;
    double highest = -1;
    for (int lag = -range; lag <= range; ++lag) {
        double sum = 0;
        for (std::size_t index = 0; index < part.size(); ++index) {
            const long long place = from + static_cast<long long>(index) + lag;
            if (place >= 0 && place < static_cast<long long>(original.size()))
                sum += static_cast<double>(part[index]) * original[place];
        }
        if (sum > highest) {
            highest = sum;
            best = lag;
        }
    }
    return best;
}

double difference(const std::vector<float>& a, const std::vector<float>& b, std::size_t offset) {
    double highest = 0;
    for (std::size_t index = 0; index < a.size(); ++index)
        highest = std::max<double>(highest, std::abs(a[index] - b[offset + index]));
    return highest;
}

std::vector<float> take(std::vector<float> samples, std::size_t count) {
    samples.resize(std::min(samples.size(), count));
    return samples;
}

struct Coding {
    std::string file;
    std::vector<std::string> arguments;
    int rate = RATE;
    /// What the encoder's delay comes out as, where the container cannot tell it.
    int delay = 0;
    /// How much two decodings differ: decoders add noise of their own.
    double dither = 0.02;
};

void PrintTo(const Coding& coding, std::ostream* out) {
    *out << coding.file;
}

std::string nameOf(const testing::TestParamInfo<Coding>& info) {
    std::string name = info.param.file + std::to_string(info.param.rate);
    name[name.find('.')] = '_';
    return name;
}

class LosslessSound : public SourceTest, public testing::WithParamInterface<Coding> {};

TEST_P(LosslessSound, HasEverySampleInItsPlace) {
    const int samples = 4 * GetParam().rate + 77;
    const auto source = open(make(
        GetParam().file, join({"-f", "lavfi", "-i", numberedSamples(GetParam().rate, samples)}, GetParam().arguments)));
    EXPECT_FALSE(source->GetInfo().video);
    const auto stream = source->CreateAudioStream();
    EXPECT_EQ(TimeToSamples(stream->GetDuration(), GetParam().rate), samples);
    const auto read = readSamples(*stream);
    ASSERT_EQ(read.size(), static_cast<std::size_t>(samples));
    for (int index = 0; index < samples; ++index)
        ASSERT_EQ(numberOf(read[index]), sampleValue(index)) << index;
}

TEST_P(LosslessSound, IsFoundToTheSampleByASeek) {
    const int samples = 4 * GetParam().rate + 77;
    const auto stream =
        open(make(GetParam().file,
                  join({"-f", "lavfi", "-i", numberedSamples(GetParam().rate, samples)}, GetParam().arguments)))
            ->CreateAudioStream();
    std::mt19937 random(7);
    for (int round = 0; round < 30; ++round) {
        const long long number = random() % samples;
        stream->Seek(Kestra::SamplesToTime(number, GetParam().rate), SeekMode::Exact);
        const auto read = readSamples(*stream, 100);
        ASSERT_FALSE(read.empty());
        ASSERT_EQ(numberOf(read[0]), sampleValue(number)) << "seek to " << number;
        ASSERT_EQ(numberOf(read.back()), sampleValue(number + static_cast<long long>(read.size()) - 1));
    }
}

INSTANTIATE_TEST_SUITE_P(Codings, LosslessSound,
                         testing::Values(Coding{"a.wav", {}}, Coding{"a.wav", {}, 44100}, Coding{"a.flac", {}},
                                         Coding{"a.flac", {}, 44100}, Coding{"a.mov", {"-c:a", "pcm_s16le"}},
                                         Coding{"b.mkv", {"-c:a", "flac"}}, Coding{"c.mkv", {"-c:a", "pcm_s16le"}},
                                         Coding{"d.mkv", {"-c:a", "pcm_s16le"}, 44100},
                                         Coding{"a.m4a", {"-c:a", "alac"}, 44100}, Coding{"a.aiff", {}}),
                         nameOf);

class LossySound : public SourceTest, public testing::WithParamInterface<Coding> {
protected:
    static constexpr double SECONDS = 5;

    void SetUp() override {
        const int rate = GetParam().rate;
        const std::string plain = make("plain.wav", {"-f", "lavfi", "-i", noise(rate, SECONDS)});
        original = readSamples(*open(plain)->CreateAudioStream());
        media = make(GetParam().file, join({"-i", plain}, GetParam().arguments));
    }

    std::vector<float> original;
    std::string media;
};

TEST_P(LossySound, IsNeitherShiftedNorLengthened) {
    const auto stream = open(media)->CreateAudioStream();
    const auto read = readSamples(*stream);
    EXPECT_EQ(static_cast<std::int64_t>(read.size()), TimeToSamples(stream->GetDuration(), GetParam().rate));
    EXPECT_EQ(lagOf(take(read, 20000), original, -GetParam().delay, 60), 0);
    EXPECT_EQ(lagOf({read.begin() + 4 * GetParam().rate, read.begin() + 4 * GetParam().rate + 20000}, original,
                    4 * GetParam().rate - GetParam().delay, 60),
              0);
    // Codecs that cannot store an end leave no more than the padding of their last block.
    const std::size_t millisecond = static_cast<std::size_t>(GetParam().rate) / 1000 + 1;
    EXPECT_GE(read.size() + millisecond, original.size());
    EXPECT_LT(read.size(), original.size() + 2400);
}

TEST_P(LossySound, IsTheSameAfterASeekAsWhenReadFromTheStart) {
    const auto source = open(media);
    const auto whole = readSamples(*source->CreateAudioStream());
    const auto stream = source->CreateAudioStream();
    std::mt19937 random(3);
    for (int round = 0; round < 25; ++round) {
        const long long number = random() % (whole.size() - 3000);
        stream->Seek(Kestra::SamplesToTime(number, GetParam().rate), SeekMode::Exact);
        const auto read = take(readSamples(*stream, 3000), 3000);
        ASSERT_EQ(lagOf(read, whole, number, 50), 0) << "seek to " << number;
        ASSERT_LT(difference(read, whole, static_cast<std::size_t>(number)), GetParam().dither) << "seek to " << number;
    }
}

const std::vector<std::string> AAC{"-c:a", "aac", "-aac_pns", "0"};

INSTANTIATE_TEST_SUITE_P(Codings, LossySound,
                         testing::Values(Coding{"a.mp4", AAC}, Coding{"a.mp4", AAC, 44100},
                                         Coding{"a.mkv", AAC, RATE, 1024}, Coding{"b.mkv", AAC, 44100, 1024},
                                         Coding{"a.webm", {"-c:a", "libopus"}}, Coding{"a.ogg", {"-c:a", "libvorbis"}},
                                         Coding{"b.webm", {"-c:a", "libvorbis"}, 44100},
                                         Coding{"a.opus", {"-c:a", "libopus"}}, Coding{"a.mp3", {"-c:a", "libmp3lame"}},
                                         Coding{"a.mp3", {"-c:a", "libmp3lame"}, 44100},
                                         Coding{"a.ac3", {"-c:a", "ac3"}, RATE, 256, 0.2}),
                         nameOf);

class Sound : public SourceTest {};

TEST_F(Sound, OfATransportStreamKeepsItsPlaceBesideThePicture) {
    // A transport stream does not tell the encoder's delay, so only what it does tell can be kept.
    const auto source = open(make("a.ts", {"-f", "lavfi", "-i", numberedPictures("25", 100), "-f", "lavfi", "-i",
                                           noise(44100, 4), "-c:v", "libx264", "-c:a", "mp2"}));
    const auto whole = readSamples(*source->CreateAudioStream());
    const auto stream = source->CreateAudioStream();
    std::mt19937 random(3);
    for (int round = 0; round < 20; ++round) {
        const long long number = random() % (whole.size() - 3000);
        stream->Seek(Kestra::SamplesToTime(number, 44100), SeekMode::Exact);
        const auto read = take(readSamples(*stream, 3000), 3000);
        ASSERT_LT(difference(read, whole, static_cast<std::size_t>(number)), 0.02) << "seek to " << number;
    }
}

TEST_F(Sound, ThatBeginsLateFollowsSilence) {
    for (const char* name : {"a.mkv", "a.mp4"}) {
        const auto source =
            open(make(name, {"-f", "lavfi", "-i", numberedPictures("25", 50), "-itsoffset", "0.5", "-f", "lavfi", "-i",
                             numberedSamples(RATE, RATE), "-map", "0", "-map", "1", "-c:a", "flac", "-strict", "-2"}));
        EXPECT_EQ(source->GetInfo().audio->start, TIME_BASE / 2) << name;
        const auto read = readSamples(*source->CreateAudioStream());
        ASSERT_EQ(read.size(), static_cast<std::size_t>(RATE + RATE / 2)) << name;
        for (int index = 0; index < RATE / 2; ++index)
            ASSERT_EQ(read[index], 0) << name << " " << index;
        for (int index = 0; index < RATE; ++index)
            ASSERT_EQ(numberOf(read[RATE / 2 + index]), sampleValue(index)) << name << " " << index;
    }
}

TEST_F(Sound, WithAGapInItsTimestampsIsFilledWithSilence) {
    const std::string input = numberedSamples(RATE, 2 * RATE) + ",asetpts='PTS+if(gte(N,48000),24000,0)'";
    const auto source = open(make("a.mkv", {"-f", "lavfi", "-i", input, "-c:a", "pcm_s16le"}));
    const auto read = readSamples(*source->CreateAudioStream());
    EXPECT_NEAR(static_cast<double>(read.size()), 2.5 * RATE, 1100);
    // To the millisecond of the container's clock.
    const long long behind = (sampleValue(2 * RATE - 1) - numberOf(read.back())) / 7;
    EXPECT_GE(behind, 0);
    EXPECT_LE(behind, RATE / 1000);
    EXPECT_TRUE(source->TakeDamageReports().empty());
    const auto notes = source->TakeNotes();
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0].what, "its sound has a gap of 0.500 s at 1.003 s, filled with silence");
}

TEST_F(Sound, OfEveryUsualLayoutIsDescribed) {
    const auto source = open(
        make("a.mkv", {"-f", "lavfi", "-i", "anoisesrc=r=48000:d=1,aformat=channel_layouts=5.1", "-c:a", "libopus"}));
    EXPECT_EQ(source->GetInfo().audio->channels, 6);
    EXPECT_EQ(source->GetInfo().audio->channelLayout, Kestra::Conf::CHANNEL_LAYOUT_5POINT1);
    boost::intrusive_ptr<Kestra::Conf::IFormatCodecAudio> format;
    source->CreateAudioStream()->GetAudioFormat(format);
    EXPECT_EQ(format->GetSampleRate(), 48000);
    EXPECT_EQ(format->GetChannelLayout(), std::uint32_t{Kestra::Conf::CHANNEL_LAYOUT_5POINT1});
}

TEST_F(Sound, IsTheSameWhenItIsReadASecondTime) {
    for (const auto& [name, codec] :
         {std::pair("a.webm", "libopus"), std::pair("a.opus", "libopus"), std::pair("a.mka", "aac"),
          std::pair("a.m4a", "aac"), std::pair("a.mp3", "libmp3lame"), std::pair("a.ts", "mp2")}) {
        const auto source = open(make(name, {"-f", "lavfi", "-i", noise(48000, 1), "-c:a", codec}));
        const auto stream = source->CreateAudioStream();
        const std::vector<float> first = readSamples(*stream);
        stream->Reset();
        EXPECT_EQ(readSamples(*stream), first) << name;
    }
}

TEST_F(Sound, WhoseClockStandsStillFollowsOn) {
    const std::vector<std::string> atOnce{"-bsf:a", "setts=ts=0"};
    const std::vector<std::pair<std::string, std::vector<std::string>>> kinds{
        {"a.rm", {"-c:a", "real_144", "-ar", "8000"}},
        {"a.mka", join({"-c:a", "mp2", "-ar", "48000"}, atOnce)},
        {"a.flv", join({"-c:a", "pcm_s16le", "-ar", "44100"}, atOnce)}};
    for (const auto& [name, coding] : kinds) {
        SCOPED_TRACE(name);
        const std::string path = make(name, join({"-f", "lavfi", "-i", noise(8000, 6)}, coding));
        const auto source = open(path);
        const auto all = readSamples(*source->CreateAudioStream());
        // What libav gives of all packets, one after the other.
        const auto plain = readSamples(*open(make(name + ".wav", {"-i", path}))->CreateAudioStream());
        ASSERT_EQ(all.size(), plain.size());
        EXPECT_LT(difference(all, plain, 0), 1e-3);
        const int rate = source->GetInfo().audio->sampleRate;
        const auto stream = source->CreateAudioStream();
        for (const int second : {4, 1, 5}) {
            stream->Seek(second * TIME_BASE, SeekMode::Exact);
            const auto found = take(readSamples(*stream, 3000), 3000);
            EXPECT_LT(difference(found, all, static_cast<std::size_t>(second) * rate), 1e-3) << second;
        }
        const auto notes = source->TakeNotes();
        ASSERT_EQ(notes.size(), 1U);
        EXPECT_EQ(notes[0].what, "many packets of its sound have one time; they follow each other");
        EXPECT_TRUE(source->TakeDamageReports().empty());
    }
}

TEST_F(Sound, WhosePacketsHaveOneTimeOrNoneComesInTheOrderOfTheFile) {
    const std::unique_ptr<AVFormatContext, void (*)(AVFormatContext*)> file(avformat_alloc_context(),
                                                                            avformat_free_context);
    AVStream& stream = *avformat_new_stream(file.get(), nullptr);
    stream.codecpar->codec_type = AVMEDIA_TYPE_AUDIO;
    stream.time_base = {1, 1000};
    Kestra::FF::StillTimes times;
    int pushed = 0;
    for (const std::int64_t time :
         {std::int64_t{0}, std::int64_t{0}, std::int64_t{0}, AV_NOPTS_VALUE, std::int64_t{40}, std::int64_t{40}}) {
        Kestra::FF::PacketHandle packet = Kestra::FF::MakePacket();
        packet->pts = packet->dts = time;
        packet->duration = 10;
        packet->pos = pushed++;
        times.Push(std::move(packet), stream);
    }
    times.End();
    const Kestra::FF::PacketHandle packet = Kestra::FF::MakePacket();
    for (int number = 0; number < pushed; ++number) {
        ASSERT_TRUE(times.Pop(*packet)) << number;
        EXPECT_EQ(packet->pos, number);
    }
}

TEST_F(Sound, ThatHasNoPlaceInItsTimestampsIsToldToBeLost) {
    // Each time is a tick or two after the one before.
    const auto source =
        open(make("a.ts", {"-f", "lavfi", "-i", noise(48000, 3), "-c:a", "mp2", "-bsf:a", "setts=ts=0"}));
    const auto reports = source->TakeDamageReports();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].what,
              "Its sound lasts for 3.000 s, but its timestamps only for 0.049 s; the rest is left out");
}

TEST_F(Sound, IsInterruptedUntilReset) {
    const auto stream = open(make("a.wav", {"-f", "lavfi", "-i", numberedSamples(RATE, RATE)}))->CreateAudioStream();
    EXPECT_TRUE(stream->ReadAudio());
    stream->Interrupt();
    EXPECT_THROW(stream->ReadAudio(), Kestra::Proc::Interrupted);
    stream->Reset();
    EXPECT_EQ(readSamples(*stream).size(), static_cast<std::size_t>(RATE));
    EXPECT_FALSE(stream->ReadAudio());
}

} // namespace
} // namespace TestMedia
