// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Segmenter.h"
#include "Kestra/Base/Time.h"
#include "Kestra/Proc/Interrupted.h"
#include "Kestra/Proc/PacketStream.h"
#include "fakes/streams/DecodedFile.h"
#include "fakes/streams/ExportDriver.h"
#include "fakes/streams/ScratchFolder.h"
#include "fakes/streams/SyntheticAudio.h"
#include "fakes/streams/UnalignedRaw.h"
#include <cmath>
#include <gtest/gtest.h>

using namespace Fakes;
using namespace Kestra;

namespace {

struct Cut {
    const char* container;
    const char* codec;
    bool lossless;
    std::int64_t over; ///< samples that the container cannot cut off at the end
    bool aligned;      ///< whether the encoder may begin its packets at the cut
};

void PrintTo(const Cut& cut, std::ostream* out) {
    *out << cut.container << ' ' << cut.codec << (cut.aligned ? "" : " unaligned");
}

class Cuts : public testing::TestWithParam<Cut> {};

constexpr std::int64_t FIRST = 30037;
constexpr std::int64_t COUNT = 20021;

/// A sweep: no two stretches of it are alike, so a shift of one sample shows.
double Sweep(std::int64_t index) {
    const double time = static_cast<double>(index) / 48000;
    return 0.5 * std::sin(2 * 3.14159265358979 * (300 * time + 400 * time * time));
}

/// The shift, -20 to 20 samples, at which `samples` fits the sweep from `first` on best.
int BestShift(const std::vector<float>& samples, std::int64_t first) {
    int best = 0;
    double least = 1e30;
    for (int shift = -20; shift <= 20; ++shift) {
        double error = 0;
        for (std::size_t index = 1000; index < 15000; ++index)
            error += std::abs(samples.at(index) - Sweep(first + static_cast<std::int64_t>(index) + shift));
        if (error < least) {
            least = error;
            best = shift;
        }
    }
    return best;
}

Raw Source(const Cut& cut) {
    AudioShape sound;
    sound.samples = 96000;
    sound.layout = Conf::CHANNEL_LAYOUT_MONO;
    sound.wave = [](int, std::int64_t index) { return Sweep(index); };
    auto description = Description(cut.codec);
    description.SetChild(Conf::IFormatCodec::TAG_BITRATE, std::int64_t{96000});
    const auto encoder = AudioEncoder(MakeAudio(sound), description);
    return cut.aligned ? Raw(encoder) : Raw(new UnalignedRaw(encoder));
}

} // namespace

TEST(Segment, IsInterruptedWhileItLooksForItsFirstPacket) {
    const auto source = MakeAudio({});
    const auto segment = Proc::CreateAudioSegmenter(new UnalignedRaw(AudioEncoder(source, Description("aac"))),
                                                    TIME_BASE / 2, TIME_BASE);
    source->Interrupt();
    EXPECT_THROW(segment->Prepare(), Proc::Interrupted) << "the source has not ended before the cut";
    segment->Reset();
    EXPECT_TRUE(segment->ReadRaw());
}

TEST_P(Cuts, DecodeToExactlyTheSamplesOfTheWindow) {
    const ScratchFolder folder;
    const std::string path = folder.File("out");
    const Raw raw = Source(GetParam());
    const auto segment =
        Proc::CreateAudioSegmenter(raw, SamplesToTime(FIRST, 48000), SamplesToTime(FIRST + COUNT, 48000));
    EXPECT_EQ(segment->GetDuration(), SamplesToTime(COUNT, 48000));
    *raw = *segment;
    WriteFile(path, GetParam().container, {raw});
    const DecodedFile file = Decode(path);
    const auto& samples = file.Audio().samples.at(0);
    EXPECT_GE(static_cast<std::int64_t>(samples.size()), COUNT);
    EXPECT_LE(static_cast<std::int64_t>(samples.size()), COUNT + GetParam().over);
    EXPECT_EQ(BestShift(samples, FIRST), 0);
    const double tolerance = GetParam().lossless ? 1.0 / 32768 : 0.1;
    for (std::size_t index = 0; index < static_cast<std::size_t>(COUNT); ++index)
        ASSERT_NEAR(samples[index], Sweep(FIRST + static_cast<std::int64_t>(index)), tolerance) << "sample " << index;
}

INSTANTIATE_TEST_SUITE_P(Segmenter, Cuts,
                         testing::Values(Cut{"mp4", "aac", false, 1023, true}, Cut{"mp4", "aac", false, 1023, false},
                                         Cut{"mov", "aac", false, 1023, false}, Cut{"mkv", "aac", false, 0, true},
                                         Cut{"webm", "opus", false, 0, true}, Cut{"webm", "opus", false, 0, false},
                                         Cut{"mp4", "opus", false, 960, false}, Cut{"mov", "mp3", false, 1152, false},
                                         Cut{"mp3", "mp3", false, 0, true}, Cut{"mp3", "mp3", false, 0, false},
                                         Cut{"wav", "pcm_s16le", true, 0, true},
                                         Cut{"wav", "pcm_s16le", true, 0, false},
                                         Cut{"mov", "pcm_s24le", true, 0, false}, Cut{"flac", "flac", true, 0, true},
                                         Cut{"mkv", "flac", true, 0, true}, Cut{"webm", "vorbis", false, 0, true}));

namespace {

boost::intrusive_ptr<Proc::IStreamAudio> SweepOf(double loudness) {
    AudioShape sound;
    sound.samples = 96000;
    sound.layout = Conf::CHANNEL_LAYOUT_MONO;
    sound.wave = [loudness](int, std::int64_t index) { return loudness * Sweep(index); };
    return MakeAudio(sound);
}

} // namespace

TEST(AudioSegmenter, CutsFurtherTracksLikewise) {
    const ScratchFolder folder;
    const std::string path = folder.File("out");
    const auto encoder = AudioEncoder(MakeSounds({SweepOf(1), SweepOf(0.5), SweepOf(0.25)}), Description("pcm_s16le"));
    static_cast<Proc::IStreamRaw&>(*encoder) =
        *Proc::CreateAudioSegmenter(encoder, SamplesToTime(FIRST, 48000), SamplesToTime(FIRST + COUNT, 48000));
    std::vector<Raw> tracks{encoder};
    for (const auto& track : encoder->GetPacketSource()->GetFurtherTracks())
        tracks.emplace_back(new Proc::PacketStream(track));
    ASSERT_EQ(tracks.size(), 3U);
    WriteFile(path, "mkv", tracks);
    const DecodedFile file = Decode(path);
    ASSERT_EQ(file.tracks.size(), 3U);
    double loudness = 1;
    for (const DecodedTrack& track : file.tracks) {
        ASSERT_EQ(track.samples.at(0).size(), static_cast<std::size_t>(COUNT));
        for (std::size_t index = 0; index < static_cast<std::size_t>(COUNT); ++index)
            ASSERT_NEAR(track.samples[0][index], loudness * Sweep(FIRST + static_cast<std::int64_t>(index)), 1e-4);
        loudness /= 2;
    }
}

TEST(AudioSegmenter, HoldsNoCycleWhenAssignedOntoItsOwnStream) {
    const auto sound = MakeAudio({});
    {
        const auto encoder = AudioEncoder(sound, Description("aac"));
        const auto segment = Proc::CreateAudioSegmenter(encoder, 0, TIME_BASE / 2);
        static_cast<Proc::IStreamRaw&>(*encoder) = *segment;
        EXPECT_GT(ReadAll(*encoder).size(), 0U);
    }
    EXPECT_EQ(sound->GetRefCount(), 1);
}

TEST(AudioSegmenter, ReadsNoMoreThanTheWindowNeeds) {
    AudioShape shape;
    shape.samples = 48000 * 60;
    const auto sound = MakeAudio(shape);
    const auto encoder = AudioEncoder(sound, Description("aac"));
    const auto segment = Proc::CreateAudioSegmenter(encoder, 50 * TIME_BASE, 51 * TIME_BASE);
    EXPECT_GT(ReadAll(*segment).size(), 40U);
    EXPECT_LT(sound->GetSamplesRead(), 48000 * 5);
}

TEST(AudioSegmenter, CutsASourceThatCannotSeek) {
    AudioShape shape;
    shape.samples = 96000;
    shape.seekable = false;
    shape.wave = [](int, std::int64_t index) { return Sweep(index); };
    const auto encoder = AudioEncoder(MakeAudio(shape), Description("pcm_s16le"));
    const auto segment =
        Proc::CreateAudioSegmenter(encoder, SamplesToTime(FIRST, 48000), SamplesToTime(FIRST + COUNT, 48000));
    const auto packets = ReadAll(*segment);
    ASSERT_FALSE(packets.empty());
    EXPECT_EQ(packets.front()->GetTime(), 0);
    EXPECT_EQ(packets.back()->GetTime() + packets.back()->GetDuration(), SamplesToTime(COUNT, 48000));
    const auto* first = reinterpret_cast<const std::int16_t*>(packets.front()->GetBytes());
    EXPECT_NEAR(first[0] / 32768.0, Sweep(FIRST), 1.0 / 32768);
}

TEST(AudioSegmenter, ThrowsForAnEmptyWindow) {
    const auto encoder = AudioEncoder(MakeAudio({}), Description("aac"));
    EXPECT_THROW(Proc::CreateAudioSegmenter(encoder, 5, 5), std::invalid_argument);
    EXPECT_THROW(Proc::CreateAudioSegmenter(encoder, -1, 5), std::invalid_argument);
    EXPECT_THROW(Proc::CreateAudioSegmenter(nullptr, 0, 5), std::invalid_argument);
}
