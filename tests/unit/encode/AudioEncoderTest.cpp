// SPDX-License-Identifier: GPL-3.0-or-later
// Counts, places and formats of audio encoders, and the filters before them.
#include "EncodeFixture.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/IFilterFactory.h"
#include <algorithm>
#include <cmath>

using namespace Fakes;
using namespace EncodeTest;
using namespace Kestra;

namespace {

constexpr double PI = 3.14159265358979;

double Tone(std::int64_t index, int rate, double frequency) {
    return 0.5 * std::sin(2 * PI * frequency * static_cast<double>(index) / rate);
}

std::vector<std::vector<float>> Drain(Proc::IStreamAudio& stream) {
    stream.Prepare();
    std::vector<std::vector<float>> samples;
    std::int64_t place = 0;
    int rate = 0;
    while (const auto block = stream.ReadAudio()) {
        const AVFrame& frame = FF::FrameOf(*block);
        rate = frame.sample_rate;
        EXPECT_EQ(block->GetTime(), SamplesToTime(place, rate));
        EXPECT_EQ(frame.format, AV_SAMPLE_FMT_FLTP);
        samples.resize(static_cast<std::size_t>(frame.ch_layout.nb_channels));
        for (std::size_t channel = 0; channel < samples.size(); ++channel) {
            const auto* from = reinterpret_cast<const float*>(frame.extended_data[channel]);
            samples[channel].insert(samples[channel].end(), from, from + frame.nb_samples);
        }
        place += frame.nb_samples;
    }
    return samples;
}

Proc::IFilterFactory& Filters() {
    return Core::CoreManager::Instance().GetFilterFactory();
}

Conf::SampleInfo Target(int rate, std::uint32_t layout) {
    Conf::SampleInfo target;
    target.Init(Conf::SAMPLE_FORMAT_FLTP, rate, layout);
    return target;
}

} // namespace

TEST(Resampler, GivesAsManySamplesAsTheLengthHas) {
    for (const auto& [from, to] : {std::pair{44100, 48000}, std::pair{48000, 44100}, std::pair{22050, 48000},
                                   std::pair{96000, 44100}, std::pair{48000, 48000}}) {
        AudioShape shape;
        shape.rate = from;
        shape.samples = from * 2 + 77;
        const auto samples = Drain(*Filters().CreateResampler(MakeAudio(shape), Target(to, 0)));
        EXPECT_EQ(static_cast<std::int64_t>(samples.at(0).size()), MulDivRound(shape.samples, to, from));
    }
}

TEST(Resampler, KeepsSoundInItsPlace) {
    AudioShape shape;
    shape.rate = 44100;
    shape.samples = 44100;
    shape.wave = [](int, std::int64_t index) { return Tone(index, 44100, 700); };
    const auto samples = Drain(*Filters().CreateResampler(MakeAudio(shape), Target(48000, 0)));
    for (std::size_t index = 200; index < 47800; ++index)
        ASSERT_NEAR(samples.at(0).at(index), Tone(static_cast<std::int64_t>(index), 48000, 700), 0.002) << index;
}

TEST(Resampler, SeeksToTheSampleThatItWouldHaveGivenThere) {
    AudioShape shape;
    shape.rate = 44100;
    shape.samples = 44100 * 5;
    shape.wave = [](int, std::int64_t index) { return Tone(index * index / 100000, 44100, 50); };
    const auto whole = Drain(*Filters().CreateResampler(MakeAudio(shape), Target(48000, 0)));
    const auto sought = Filters().CreateResampler(MakeAudio(shape), Target(48000, 0));
    sought->Prepare();
    const std::int64_t place = 151234;
    sought->Seek(SamplesToTime(place, 48000), Proc::SeekMode::Exact);
    const auto block = sought->ReadAudio();
    ASSERT_TRUE(block);
    EXPECT_EQ(block->GetTime(), SamplesToTime(place, 48000));
    const auto* samples = reinterpret_cast<const float*>(FF::FrameOf(*block).extended_data[0]);
    for (std::int64_t index = 0; index < block->GetSampleCount(); ++index)
        ASSERT_NEAR(samples[index], whole.at(0).at(static_cast<std::size_t>(place + index)), 1e-5);
}

namespace {

constexpr std::uint32_t STEREO = Conf::CHANNEL_LAYOUT_STEREO;
constexpr std::uint32_t MONO = Conf::CHANNEL_LAYOUT_MONO;

/// A second in which one channel of `layout` speaks at `loudness`, mixed into `target`.
std::vector<std::vector<float>> MixOf(std::uint32_t layout, int speaking, double loudness, std::uint32_t target,
                                      std::int32_t format = Conf::SAMPLE_FORMAT_FLTP) {
    AudioShape shape;
    shape.layout = layout;
    shape.samples = 48000;
    shape.wave = [=](int channel, std::int64_t index) {
        return speaking < 0 || channel == speaking ? 2 * loudness * Tone(index, 48000, 440) : 0.0;
    };
    Conf::SampleInfo samples;
    samples.Init(format, 48000, target);
    return Drain(*Filters().CreateResampler(Filters().CreateResampler(MakeAudio(shape), samples), Target(48000, 0)));
}

double LevelOf(const std::vector<float>& samples) {
    double sum = 0;
    for (std::size_t index = 4800; index < samples.size() - 4800; ++index)
        sum += static_cast<double>(samples[index]) * samples[index];
    return std::sqrt(2 * sum / static_cast<double>(samples.size() - 9600));
}

struct Share {
    std::uint32_t from;
    int speaking;
    std::uint32_t to;
    double left;
    double right;
};

} // namespace

TEST(Resampler, MixesChannelsWithTheirUsualShares) {
    const double half = std::sqrt(0.5); // of the power
    for (const Share& share :
         {Share{Conf::CHANNEL_LAYOUT_5POINT1, 0, STEREO, 1, 0},
          Share{Conf::CHANNEL_LAYOUT_5POINT1, 2, STEREO, half, half},
          Share{Conf::CHANNEL_LAYOUT_5POINT1, 3, STEREO, 0, 0}, Share{Conf::CHANNEL_LAYOUT_5POINT1, 4, STEREO, half, 0},
          Share{Conf::CHANNEL_LAYOUT_7POINT1, 1, STEREO, 0, 1}, Share{Conf::CHANNEL_LAYOUT_7POINT1, 5, STEREO, 0, half},
          Share{Conf::CHANNEL_LAYOUT_7POINT1, 6, STEREO, half, 0}, Share{STEREO, 0, MONO, half, half},
          Share{MONO, 0, STEREO, half, half}}) {
        for (const std::int32_t format : {Conf::SAMPLE_FORMAT_FLTP, Conf::SAMPLE_FORMAT_S16}) {
            const auto mixed = MixOf(share.from, share.speaking, 0.3, share.to, format);
            EXPECT_NEAR(LevelOf(mixed.front()) / 0.3, share.left, 0.001) << share.from << ' ' << share.speaking;
            EXPECT_NEAR(LevelOf(mixed.back()) / 0.3, share.right, 0.001) << share.from << ' ' << share.speaking;
            EXPECT_EQ(mixed.front().size(), 48000U);
        }
    }
}

TEST(Resampler, LeavesAMixWithoutPeaksToTheSampleWhatItIs) {
    const auto mixed = MixOf(Conf::CHANNEL_LAYOUT_5POINT1, 2, 0.9, STEREO);
    for (std::size_t index = 0; index < 48000; ++index)
        ASSERT_NEAR(mixed[0][index], 1.8 * std::sqrt(0.5) * Tone(static_cast<std::int64_t>(index), 48000, 440), 1e-6);
}

TEST(Resampler, LimitsPeaksOfAMixInsteadOfClippingThem) {
    const auto loud = MixOf(Conf::CHANNEL_LAYOUT_5POINT1, -1, 0.7, STEREO);
    ASSERT_EQ(loud[0].size(), 48000U);
    float peak = 0;
    std::size_t flat = 0;
    for (std::size_t index = 4800; index < 43200; ++index) {
        peak = std::max(peak, std::abs(loud[0][index]));
        flat += std::abs(loud[0][index]) > 0.999F;
    }
    EXPECT_LE(peak, 1.0F);
    EXPECT_GT(peak, 0.9F);
    // A clipped tone of 1.69 is at full scale for 60 % of the time, a limited one for less than a tenth.
    EXPECT_LT(flat, 3840U);
}

TEST(Resampler, MixesAfterASeekWhatItMixesWithoutOne) {
    AudioShape shape;
    shape.layout = Conf::CHANNEL_LAYOUT_5POINT1;
    shape.samples = 48000 * 4;
    shape.wave = [](int, std::int64_t index) { return index % 48000 < 4800 ? 1.9 * Tone(index, 48000, 300) : 0.0; };
    const auto whole = Drain(*Filters().CreateResampler(MakeAudio(shape), Target(48000, STEREO)));
    const auto sought = Filters().CreateResampler(MakeAudio(shape), Target(48000, STEREO));
    sought->Prepare();
    sought->Seek(SamplesToTime(120007, 48000), Proc::SeekMode::Exact);
    const auto block = sought->ReadAudio();
    ASSERT_TRUE(block);
    EXPECT_EQ(block->GetTime(), SamplesToTime(120007, 48000));
    const auto* samples = reinterpret_cast<const float*>(FF::FrameOf(*block).extended_data[0]);
    for (std::int64_t index = 0; index < block->GetSampleCount(); ++index)
        ASSERT_NEAR(samples[index], whole.at(0).at(static_cast<std::size_t>(120007 + index)), 1e-4) << index;
}

TEST(DurationTrimmer, CutsWhatIsOverAndFillsWhatIsMissing) {
    AudioShape shape;
    shape.samples = 10000;
    shape.wave = [](int, std::int64_t) { return 0.5; };
    for (const std::int64_t wanted : {std::int64_t{7777}, std::int64_t{10000}, std::int64_t{23456}}) {
        Proc::SettingsFilterDurationTrimmer settings;
        settings.SetDuration(SamplesToTime(wanted, 48000));
        const auto samples = Drain(*Filters().CreateDurationTrimmer(MakeAudio(shape), settings));
        ASSERT_EQ(static_cast<std::int64_t>(samples.at(0).size()), wanted);
        EXPECT_EQ(samples[0].back(), wanted > 10000 ? 0.0F : 0.5F);
        EXPECT_EQ(samples[0].front(), 0.5F);
    }
}

TEST(DurationTrimmer, TrimsFurtherTracksAlike) {
    AudioShape shape;
    shape.samples = 10000;
    AudioShape shorter;
    shorter.samples = 4000;
    shorter.wave = [](int, std::int64_t) { return 0.25; };
    Proc::SettingsFilterDurationTrimmer settings;
    settings.SetDuration(SamplesToTime(7777, 48000));
    const auto trimmed = Filters().CreateDurationTrimmer(MakeSounds({MakeAudio(shape), MakeAudio(shorter)}), settings);
    const auto further = trimmed->GetFurtherTracks();
    ASSERT_EQ(further.size(), 1U);
    EXPECT_EQ(further[0]->GetDuration(), trimmed->GetDuration());
    const auto samples = Drain(*further[0]);
    ASSERT_EQ(samples.at(0).size(), 7777U);
    EXPECT_EQ(samples[0][3999], 0.25F);
    EXPECT_EQ(samples[0][4000], 0.0F);
}

TEST(AudioEncoder, HasOneForEachFurtherTrackWithTheSameSettings) {
    const auto encoder = AudioEncoder(MakeSounds({MakeAudio({}), MakeAudio({}), MakeAudio({})}), Description("aac"));
    Core::Property settings;
    settings.SetChild(Conf::IFormatCodec::TAG_BITRATE, std::int64_t{64000});
    encoder->Initialize(settings);
    const auto further = encoder->GetPacketSource()->GetFurtherTracks();
    ASSERT_EQ(further.size(), 2U);
    for (const auto& track : further) {
        boost::intrusive_ptr<Conf::IFormatCodec> format;
        track->GetFormat(format);
        const Core::Property told = format->GetProperty();
        EXPECT_EQ(told[Conf::IFormatCodec::TAG_BITRATE].GetInt64(), 64000);
        std::int64_t length = 0;
        while (const auto packet = track->ReadPacket())
            length = std::max(length, packet->GetTime() + packet->GetDuration() - packet->GetTrimEnd());
        EXPECT_EQ(length, TIME_BASE) << "each is read by itself";
    }
}

TEST(Silence, HasTheLengthAndFormatOrdered) {
    auto format = Conf::IFormatCodecAudio::Create();
    format->SetSampleRate(44100);
    format->SetChannelLayout(Conf::CHANNEL_LAYOUT_MONO);
    format->SetSampleFormat(Conf::SAMPLE_FORMAT_FLTP);
    const auto samples = Drain(*Filters().CreateSilence(format, SamplesToTime(12345, 44100)));
    ASSERT_EQ(samples.size(), 1U);
    EXPECT_EQ(samples[0].size(), 12345U);
    for (const float sample : samples[0])
        ASSERT_EQ(sample, 0.0F);
}

namespace {

class AudioCodecs : public testing::TestWithParam<const char*> {};

} // namespace

TEST_P(AudioCodecs, GiveExactlyTheSamplesOfTheStream) {
    AudioShape shape;
    shape.samples = 40961;
    const auto encoder = AudioEncoder(MakeAudio(shape), Description(GetParam()));
    const auto packets = ReadAll(*encoder);
    std::int64_t end = 0;
    for (const auto& packet : packets)
        if (packet->GetSize() > 0)
            end = packet->GetTime() + packet->GetDuration() - packet->GetTrimEnd();
    EXPECT_EQ(end, SamplesToTime(40961, 48000));
    EXPECT_LE(packets.front()->GetTime(), 0);
    EXPECT_EQ(encoder->GetPosition(), end);
    EXPECT_EQ(encoder->GetDuration(), end);
}

TEST_P(AudioCodecs, TakeWhatTheyDoNotSupportInTheNearestForm) {
    AudioShape shape;
    shape.rate = 44100;
    shape.samples = 44100;
    shape.layout = Conf::CHANNEL_LAYOUT_7POINT1;
    shape.format = Conf::SAMPLE_FORMAT_S16;
    const auto encoder = AudioEncoder(MakeAudio(shape), Description(GetParam()));
    EXPECT_GT(ReadAll(*encoder).size(), 1U);
    boost::intrusive_ptr<Conf::IFormatCodec> format;
    encoder->GetFormatCodec(format);
    const auto* sound = dynamic_cast<const Conf::IFormatCodecAudio*>(format.get());
    ASSERT_NE(sound, nullptr);
    EXPECT_EQ(sound->GetSampleRate(), std::string(GetParam()) == "opus" ? 48000 : 44100);
}

TEST_P(AudioCodecs, EncodeAnEmptyStreamToNoSound) {
    AudioShape shape;
    shape.samples = 0;
    for (const auto& packet : ReadAll(*AudioEncoder(MakeAudio(shape), Description(GetParam()))))
        EXPECT_EQ(packet->GetSize(), 0U);
}

TEST_P(AudioCodecs, EncodeEverySampleAlsoWhereTheLastBlockIsFull) {
    for (const int samples : {4 * 1536, 4 * 1536 - 100, 4 * 1536 + 1, 6 * 1152, 6 * 1024, 7 * 960}) {
        for (const bool known : {true, false}) {
            AudioShape shape;
            shape.samples = samples;
            shape.durationKnown = known;
            const auto packets = ReadAll(*AudioEncoder(MakeAudio(shape), Description(GetParam())));
            const auto& last = *packets.back();
            const std::int64_t end = last.GetTime() + last.GetDuration() - last.GetTrimEnd();
            EXPECT_NEAR(static_cast<double>(end), static_cast<double>(SamplesToTime(samples, 48000)), 10.0)
                << samples << known;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Encoders, AudioCodecs,
                         testing::Values("aac", "opus", "mp3", "flac", "pcm_s16le", "pcm_s24le", "vorbis", "alac",
                                         "ac3"));

TEST(AudioEncoder, TakesAStreamOfUnknownLengthToItsEnd) {
    AudioShape shape;
    shape.samples = 30000;
    shape.durationKnown = false;
    const auto packets = ReadAll(*AudioEncoder(MakeAudio(shape), Description("pcm_s16le")));
    EXPECT_EQ(packets.back()->GetTime() + packets.back()->GetDuration(), SamplesToTime(30000, 48000));
}

TEST(AudioEncoder, ReadsNothingThatLiesBehindItsEnd) {
    constexpr std::int64_t end = 3000;
    AudioShape shape;
    shape.samples = 10'000;
    shape.wave = [](int, std::int64_t index) {
        return index < end ? 0.1 : throw std::runtime_error("sample " + std::to_string(index));
    };
    const auto encoder = AudioEncoder(MakeAudio(shape), Description("pcm_s16le"));
    encoder->GetPacketSource()->AlignTo(0, SamplesToTime(end, 48000));
    const auto packets = ReadAll(*encoder);
    EXPECT_EQ(packets.back()->GetTime() + packets.back()->GetDuration(), SamplesToTime(end, 48000));
}

TEST(AudioEncoder, RefusesAnUnknownOptionByName) {
    auto description = Description("aac");
    Options(description).SetChild("aac_codr", std::string("twoloop"));
    const auto failure = Failure([&] { AudioEncoder(MakeAudio({}), description)->Prepare(); });
    EXPECT_EQ(failure.GetCode(), Proc::TranscodingError::CodecRefused);
    EXPECT_NE(failure.GetDescription().find("aac_codr"), std::string::npos) << failure.GetDescription();
}

TEST(AudioEncoder, KeepsChannelsApart) {
    const ScratchFolder folder;
    AudioShape shape;
    shape.layout = Conf::CHANNEL_LAYOUT_5POINT1;
    shape.wave = [](int channel, std::int64_t) { return 0.1 * (channel + 1); };
    WriteFile(folder.File("out.wav"), "wav", {AudioEncoder(MakeAudio(shape), Description("pcm_s24le"))});
    const DecodedFile file = Decode(folder.File("out.wav"));
    ASSERT_EQ(file.Audio().samples.size(), 6U);
    for (std::size_t channel = 0; channel < 6; ++channel)
        EXPECT_NEAR(file.Audio().samples[channel].at(20000), 0.1 * static_cast<double>(channel + 1), 1e-4);
}
