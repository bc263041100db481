// SPDX-License-Identifier: GPL-3.0-or-later
// Sound that is encoded in parts beside each other: the same file whoever encodes how much of it.
#include "EncodeFixture.h"
#include "Kestra/FF/Data/DataRawFF.h"
#include "Kestra/FF/Encode/AudioEncoderCore.h"
#include "Kestra/Proc/Interrupted.h"
#include <algorithm>
#include <atomic>
#include <cmath>
#include <functional>
#include <map>
#include <numeric>
#include <thread>
#include <utility>

using namespace Fakes;
using namespace EncodeTest;
using namespace Kestra;

namespace {

using Packets = std::vector<boost::intrusive_ptr<Proc::IDataRaw>>;

constexpr std::int64_t CHUNK = 384 * 1024;
constexpr double PI = 3.14159265358979;

double Noise(std::int64_t index, int channel) {
    auto bits = static_cast<std::uint32_t>(index * 2 + channel) * 2654435761U;
    bits = (bits ^ (bits >> 15)) * 2246822519U;
    return static_cast<double>((bits ^ (bits >> 13)) & 0xFFFF) / 32768.0 - 1;
}

/// A chord that sounds on, a note twice a second that fades, a noisy beat, each in its place.
double Music(int channel, std::int64_t index) {
    const double time = static_cast<double>(index) / 48000;
    const double since = std::fmod(time, 0.5);
    const double note = 220 * std::pow(2, static_cast<double>(index / 24000 * 7 % 24) / 12);
    const double chord = std::sin(2 * PI * 330 * time) + std::sin(2 * PI * 415 * time + channel);
    return 0.08 * chord + 0.2 * std::exp(-4 * since) * std::sin(2 * PI * note * since) +
           0.15 * std::exp(-40 * since) * Noise(index, channel) + 0.002 * Noise(index + 7, channel);
}

constexpr std::int64_t LONG = 5 * CHUNK / 2 + 123;

/// Made once: it takes longer than most encoders.
AudioShape Sound(std::int64_t samples, Conf::SampleFormats format = Conf::SAMPLE_FORMAT_FLTP) {
    static const std::vector<double> made = [] {
        std::vector<double> all;
        for (std::int64_t index = 0; index < 2 * LONG; ++index)
            all.push_back(Music(static_cast<int>(index % 2), index / 2));
        return all;
    }();
    AudioShape shape;
    shape.samples = samples;
    shape.format = format;
    shape.wave = [](int channel, std::int64_t index) { return made.at(static_cast<std::size_t>(2 * index + channel)); };
    return shape;
}

Core::Property With(Core::Property description, std::int64_t workers) {
    description.SetChild(FF::AudioEncoderCore::TAG_WORKERS, workers);
    return description;
}

Packets Encode(const AudioShape& shape, const Core::Property& description, std::int64_t workers) {
    return ReadAll(*AudioEncoder(MakeAudio(shape), With(description, workers)));
}

/// As where other tracks are encoded at the same time.
Packets EncodeBesideOthers(const AudioShape& shape, const Core::Property& description) {
    const auto encoder = AudioEncoder(MakeAudio(shape), description);
    encoder->GetPacketSource()->RunBesideOthers();
    return ReadAll(*encoder);
}

/// Side data as well.
std::string BytesOf(const Proc::IDataRaw& packet) {
    std::string bytes(reinterpret_cast<const char*>(packet.GetBytes()), packet.GetSize());
    const AVPacket& inner = FF::PacketOf(packet);
    for (int index = 0; index < inner.side_data_elems; ++index)
        bytes.append(reinterpret_cast<const char*>(inner.side_data[index].data), inner.side_data[index].size);
    return bytes;
}

::testing::AssertionResult AreSame(const Packets& a, const Packets& b) {
    if (a.size() != b.size())
        return ::testing::AssertionFailure() << a.size() << " packets beside " << b.size();
    for (std::size_t index = 0; index < a.size(); ++index)
        if (BytesOf(*a[index]) != BytesOf(*b[index]) || a[index]->GetTime() != b[index]->GetTime() ||
            a[index]->GetDuration() != b[index]->GetDuration() || a[index]->GetTrimEnd() != b[index]->GetTrimEnd())
            return ::testing::AssertionFailure() << "packet " << index << " of " << a.size();
    return ::testing::AssertionSuccess();
}

struct Codec {
    const char* name;
    int frame; ///< samples in a packet
    Conf::SampleFormats format = Conf::SAMPLE_FORMAT_FLTP;
};

void PrintTo(const Codec& codec, std::ostream* stream) {
    *stream << codec.name;
}

class Chunks : public testing::TestWithParam<Codec> {
protected:
    /// AAC in its quickest way: where packets stand does not depend on how they were made.
    static Core::Property Settings() {
        auto description = Description(GetParam().name);
        if (std::string(GetParam().name) == "aac")
            Options(description).SetChild("aac_coder", std::string("fast"));
        return description;
    }
    static AudioShape Part(std::int64_t samples) { return Sound(samples, GetParam().format); }
    static std::int64_t ChunkSamples() { return CHUNK / GetParam().frame * GetParam().frame; }
    /// Two chunks and a half, by so many threads.
    static const Packets& Whole(int workers) {
        static std::map<std::pair<std::string, int>, Packets> made;
        Packets& packets = made[{GetParam().name + std::to_string(GetParam().format), workers}];
        if (packets.empty())
            packets = Encode(Part(LONG), Settings(), workers);
        return packets;
    }
};

} // namespace

TEST_P(Chunks, GiveTheSamePacketsWithOneTwoAndEightThreads) {
    EXPECT_TRUE(AreSame(Whole(2), Encode(Part(LONG), Settings(), 1)));
    EXPECT_TRUE(AreSame(Whole(2), Encode(Part(LONG), Settings(), 8)));
}

TEST_P(Chunks, GiveThePacketsTheirTimesInTheWholeSoundAtItsBitrate) {
    ASSERT_EQ(Whole(2).size(), Whole(0).size());
    double bytes = 0;
    for (std::size_t index = 0; index < Whole(0).size(); ++index) {
        const Proc::IDataRaw& packet = *Whole(2)[index];
        const Proc::IDataRaw& wanted = *Whole(0)[index];
        ASSERT_EQ(packet.GetTime(), wanted.GetTime()) << index;
        ASSERT_EQ(packet.GetDecodeTime(), wanted.GetDecodeTime()) << index;
        ASSERT_EQ(packet.GetDuration(), wanted.GetDuration()) << index;
        ASSERT_EQ(packet.GetTrimEnd(), wanted.GetTrimEnd()) << index;
        bytes += static_cast<double>(packet.GetSize());
    }
    const auto add = [](double sum, const auto& packet) { return sum + static_cast<double>(packet->GetSize()); };
    EXPECT_NEAR(bytes / std::accumulate(Whole(0).begin(), Whole(0).end(), 0.0, add), 1, 0.01);
}

TEST_P(Chunks, BeginWithTheEncodersOwnPackets) {
    const std::int64_t end = SamplesToTime(ChunkSamples() - 2 * GetParam().frame, 48000);
    for (std::size_t index = 0; Whole(0)[index]->GetTime() < end; ++index)
        ASSERT_EQ(BytesOf(*Whole(2).at(index)), BytesOf(*Whole(0)[index])) << index;
}

TEST_P(Chunks, OfSoundThatIsNotLongerThanOneAreTheEncodersOwnPackets) {
    for (const std::int64_t samples : {std::int64_t{0}, std::int64_t{1}, std::int64_t{5000}, ChunkSamples()})
        EXPECT_TRUE(AreSame(Encode(Part(samples), Settings(), 2), Encode(Part(samples), Settings(), 0))) << samples;
}

TEST_P(Chunks, EndWhereTheSoundEndsHoweverLittleFollowsTheLastSeam) {
    for (const int over : {1, GetParam().frame, GetParam().frame + 1, 3 * GetParam().frame - 1}) {
        const std::int64_t samples = ChunkSamples() + over;
        const Packets packets = Encode(Part(samples), Settings(), 2);
        std::int64_t end = 0;
        for (const auto& packet : packets) {
            ASSERT_TRUE(end == 0 || packet->GetTime() == end || packet->GetSize() == 0) << over;
            end = packet->GetTime() + packet->GetDuration();
        }
        end -= packets.back()->GetTrimEnd();
        EXPECT_EQ(end, SamplesToTime(samples, 48000)) << over;
    }
}

TEST_P(Chunks, DoNotDependOnTheBlocksThatTheSoundComesIn) {
    AudioShape sound = Part(LONG);
    sound.block = 333;
    sound.durationKnown = false;
    EXPECT_TRUE(AreSame(Whole(2), Encode(sound, Settings(), 2)));
    sound.block = 65536;
    EXPECT_TRUE(AreSame(Whole(2), Encode(sound, Settings(), 2)));
}

TEST_P(Chunks, AreNotMadeBesideOtherTracks) {
    EXPECT_TRUE(AreSame(Whole(0), EncodeBesideOthers(Part(LONG), Settings())));
}

TEST_P(Chunks, AreNotWaitedForBesideOtherTracks) {
    AudioShape sound = Part(LONG);
    std::atomic<std::int64_t> heard{0};
    sound.wave = [&heard, wave = sound.wave](int channel, std::int64_t index) {
        heard = std::max(heard.load(), index);
        return wave(channel, index);
    };
    const auto encoder = AudioEncoder(MakeAudio(sound), Settings());
    encoder->GetPacketSource()->RunBesideOthers();
    ASSERT_TRUE(encoder->ReadRaw());
    // A burst of 32 packets, and what is read ahead of it.
    EXPECT_LT(heard, 32 * GetParam().frame + CHUNK / 4);
}

TEST_P(Chunks, AreNotMadeBesideOtherTracksAfterAResetEither) {
    const auto encoder = AudioEncoder(MakeAudio(Part(LONG)), Settings());
    encoder->GetPacketSource()->RunBesideOthers();
    for (int packets = 0; packets < 100; ++packets)
        ASSERT_TRUE(encoder->ReadRaw());
    encoder->Reset();
    EXPECT_TRUE(AreSame(ReadAll(*encoder), Whole(0)));
}

/// [start, end) of the sound, in samples, around the first seam.
TEST_P(Chunks, OfARangeAreTheSameWithOneTwoAndEightThreads) {
    constexpr std::int64_t START = CHUNK / 2 + 77;
    const auto cut = [](std::int64_t workers) {
        const auto encoder = AudioEncoder(MakeAudio(Part(LONG)), With(Settings(), workers));
        encoder->GetPacketSource()->AlignTo(SamplesToTime(START, 48000), SamplesToTime(START + 3 * CHUNK / 2, 48000));
        return ReadAll(*encoder);
    };
    const Packets packets = cut(2);
    EXPECT_GE(packets.size(), static_cast<std::size_t>(3 * CHUNK / 2 / GetParam().frame));
    EXPECT_TRUE(AreSame(packets, cut(1)));
    EXPECT_TRUE(AreSame(packets, cut(8)));
}

TEST_P(Chunks, AreTheSameAfterAReset) {
    const auto encoder = AudioEncoder(MakeAudio(Part(LONG)), With(Settings(), 2));
    encoder->Prepare();
    for (int packets = 0; packets < 100; ++packets)
        ASSERT_TRUE(encoder->ReadRaw());
    encoder->Reset();
    EXPECT_TRUE(AreSame(ReadAll(*encoder), Whole(2)));
}

INSTANTIATE_TEST_SUITE_P(Encoders, Chunks,
                         testing::Values(Codec{"aac", 1024}, Codec{"opus", 960}, Codec{"ac3", 1536},
                                         Codec{"flac", 4608, Conf::SAMPLE_FORMAT_S16},
                                         Codec{"alac", 4096, Conf::SAMPLE_FORMAT_S16}));

/// By the coder that takes its time, which settles elsewhere.
TEST(AacOfPresets, IsTheSameWithOneTwoAndEightThreads) {
    AudioShape sound = Sound(CHUNK + CHUNK / 4);
    sound.layout = Conf::CHANNEL_LAYOUT_MONO;
    const Packets packets = Encode(sound, Description("aac"), 2);
    EXPECT_TRUE(AreSame(packets, Encode(sound, Description("aac"), 1)));
    EXPECT_TRUE(AreSame(packets, Encode(sound, Description("aac"), 8)));
}

namespace {

class WholePackets : public Chunks {};

} // namespace

TEST_P(WholePackets, AreThoseOfOneEncoder) {
    EXPECT_TRUE(AreSame(Whole(2), Whole(0)));
}

INSTANTIATE_TEST_SUITE_P(Encoders, WholePackets,
                         testing::Values(Codec{"ac3", 1536}, Codec{"flac", 4608, Conf::SAMPLE_FORMAT_S16},
                                         Codec{"flac", 4608, Conf::SAMPLE_FORMAT_S32},
                                         Codec{"alac", 4096, Conf::SAMPLE_FORMAT_S16}));

namespace {

using Wave = std::function<double(int channel, std::int64_t index)>;

/// Error of the decoded file in [start, end) of both channels, as power.
double ErrorIn(const DecodedFile& file, const Wave& wave, std::int64_t start, std::int64_t end) {
    double sum = 0;
    for (int channel = 0; channel < 2; ++channel)
        for (std::int64_t index = start; index < end; ++index) {
            const double error =
                static_cast<double>(
                    file.Audio().samples.at(static_cast<std::size_t>(channel)).at(static_cast<std::size_t>(index))) -
                wave(channel, index);
            sum += error * error;
        }
    return sum;
}

DecodedFile Decoded(const AudioShape& sound, const Core::Property& description, std::int64_t workers,
                    const std::string& container) {
    const ScratchFolder folder;
    const std::string path = folder.File("out." + container);
    WriteFile(path, container, {AudioEncoder(MakeAudio(sound), With(description, workers))});
    return Decode(path);
}

double Sweep(int channel, std::int64_t index) {
    const double time = static_cast<double>(index) / 48000;
    return 0.5 * std::sin(2 * PI * (channel == 0 ? 20 * time + 300 * time * time : 9000 * time - 300 * time * time));
}

double Pink(int channel, std::int64_t index) {
    double sum = 0;
    for (int octave = 0; octave < 8; ++octave)
        sum += Noise((index >> octave) + 77777 * octave, channel);
    return 0.05 * sum;
}

struct Seam {
    const char* codec;
    const char* container;
    int frame;
    Wave wave;
    const char* what;
};

void PrintTo(const Seam& seam, std::ostream* stream) {
    *stream << seam.codec << ", " << seam.what;
}

class Seams : public testing::TestWithParam<Seam> {};

} // namespace

TEST_P(Seams, AreNoNoisierThanWhatOneEncoderMakesOfThem) {
    const Seam& seam = GetParam();
    AudioShape sound = Sound(5 * CHUNK / 4);
    sound.wave = seam.wave;
    const DecodedFile chunks = Decoded(sound, Description(seam.codec), 2, seam.container);
    const DecodedFile whole = Decoded(sound, Description(seam.codec), 0, seam.container);
    ASSERT_EQ(chunks.Audio().samples.at(0).size(), static_cast<std::size_t>(sound.samples));
    const std::int64_t place = CHUNK / seam.frame * seam.frame;
    const auto ratio = [&](std::int64_t start, std::int64_t end) {
        return 10 * std::log10(ErrorIn(chunks, seam.wave, start, end) / ErrorIn(whole, seam.wave, start, end));
    };
    EXPECT_LT(ratio(place - 4 * seam.frame, place + 4 * seam.frame), 0.7);
    EXPECT_LT(ratio(place, sound.samples), 0.7);
    EXPECT_NEAR(ratio(0, place - 4 * seam.frame), 0, 1e-6);
}

INSTANTIATE_TEST_SUITE_P(Encoders, Seams,
                         testing::Values(Seam{"aac", "m4a", 1024, Music, "music"},
                                         Seam{"aac", "m4a", 1024, Sweep, "sweep"},
                                         Seam{"aac", "m4a", 1024, Pink, "noise"},
                                         Seam{"opus", "mkv", 960, Music, "music"},
                                         Seam{"opus", "mkv", 960, Pink, "noise"}));

TEST(FlacChunks, DecodeToTheSourceUnderTheChecksumOfAllOfIt) {
    const ScratchFolder folder;
    const std::string path = folder.File("out.flac");
    WriteFile(path, "flac",
              {AudioEncoder(MakeAudio(Sound(LONG, Conf::SAMPLE_FORMAT_S16)), With(Description("flac"), 2))});
    const DecodedFile file = Decode(path);
    ASSERT_EQ(file.Audio().samples.at(1).size(), static_cast<std::size_t>(LONG));
    const AudioShape source = Sound(LONG);
    for (std::int64_t index = 0; index < LONG; ++index)
        ASSERT_EQ(file.Audio().samples[1][static_cast<std::size_t>(index)],
                  static_cast<float>(std::lround(source.wave(1, index) * 32768)) / 32768.0F)
            << index;
}

TEST(ChunkedEncoder, TakesRatesAndLayoutsOfEveryKind) {
    struct Kind {
        const char* codec;
        int rate;
        std::uint32_t layout;
    };
    for (const Kind& kind :
         {Kind{"aac", 8000, Conf::CHANNEL_LAYOUT_MONO}, Kind{"aac", 96000, Conf::CHANNEL_LAYOUT_5POINT1},
          Kind{"flac", 192000, Conf::CHANNEL_LAYOUT_5POINT1}, Kind{"alac", 44100, Conf::CHANNEL_LAYOUT_MONO},
          Kind{"ac3", 44100, Conf::CHANNEL_LAYOUT_5POINT1}}) {
        AudioShape sound;
        sound.rate = kind.rate;
        sound.layout = kind.layout;
        sound.samples = CHUNK + 9000;
        sound.wave = [](int channel, std::int64_t index) {
            return 0.02 * (channel + 1) * static_cast<double>(index % 100) / 100;
        };
        auto description = Description(kind.codec);
        if (std::string(kind.codec) == "aac")
            Options(description).SetChild("aac_coder", std::string("fast"));
        const Packets packets = Encode(sound, description, 2);
        const Packets whole = Encode(sound, description, 0);
        ASSERT_EQ(packets.size(), whole.size()) << kind.codec << kind.rate;
        for (std::size_t index = 0; index < whole.size(); ++index)
            ASSERT_EQ(packets[index]->GetTime(), whole[index]->GetTime()) << kind.codec << kind.rate << ' ' << index;
        EXPECT_EQ(packets.back()->GetTrimEnd(), whole.back()->GetTrimEnd()) << kind.codec << kind.rate;
    }
}

TEST(ChunkedEncoder, LeavesToOneEncoderWhatHangsTogether) {
    auto predicting = Description("aac");
    Options(predicting).SetChild("aac_pred", std::int64_t{1});
    auto speech = Description("opus");
    speech.SetChild(Conf::IFormatCodec::TAG_BITRATE, std::int64_t{24000});
    for (const Core::Property& description : {Description("mp3"), speech, predicting})
        EXPECT_TRUE(
            AreSame(Encode(Sound(CHUNK + 50000), description, 2), Encode(Sound(CHUNK + 50000), description, 0)));
}

TEST(ChunkedEncoder, FailsWithTheReasonOfTheThreadThatFailed) {
    AudioShape sound = Sound(LONG);
    sound.wave = [](int, std::int64_t index) { return index == 2 * CHUNK + 20000 ? std::nan("") : 0.1; };
    const auto encoder = AudioEncoder(MakeAudio(sound), With(Description("aac"), 2));
    std::int64_t end = 0;
    const auto failure = Failure([&] {
        while (const auto packet = encoder->ReadRaw())
            end = packet->GetTime() + packet->GetDuration();
    });
    const auto alone = Failure([&] { Encode(sound, Description("aac"), 0); });
    EXPECT_EQ(failure.GetCode(), alone.GetCode());
    EXPECT_EQ(failure.GetDescription(), alone.GetDescription());
    EXPECT_EQ(end, SamplesToTime(2 * CHUNK - 1024, 48000)); // what was whole came
}

TEST(ChunkedEncoder, ComesOutOfItsReadWhereItIsInterrupted) {
    AudioShape endless = Sound(LONG);
    endless.samples = std::int64_t{1} << 40;
    endless.durationKnown = false;
    endless.wave = nullptr;
    const auto encoder = AudioEncoder(MakeAudio(endless), With(Description("flac"), 2));
    for (int packets = 0; packets < 200; ++packets)
        ASSERT_TRUE(encoder->ReadRaw());
    std::thread interrupter([&] { encoder->Interrupt(); });
    const auto readOn = [&] {
        while (encoder->ReadRaw())
            ;
    };
    EXPECT_THROW(readOn(), Proc::Interrupted);
    interrupter.join();
}

TEST(ChunkedEncoder, IsLetGoOfWhileItsThreadsEncode) {
    for (int packets = 0; packets < 3; ++packets) {
        const auto sound = MakeAudio(Sound(LONG));
        {
            const auto encoder = AudioEncoder(sound, With(Description("aac"), 8));
            for (int count = 0; count <= packets; ++count)
                ASSERT_TRUE(encoder->ReadRaw());
        }
        EXPECT_EQ(sound->GetRefCount(), 1) << "somebody still reads it";
    }
}
