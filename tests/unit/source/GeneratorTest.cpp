// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures and sound that are made: what they show, how loud they are, and that reading may begin anywhere.
#include "Kestra/FF/Data/DataAudioFF.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include "unit/source/SourceFixture.h"
#include <cmath>
#include <limits>
#include <stdexcept>

namespace TestMedia {
namespace {

using Kestra::Proc::SettingsGenerator;
using Kind = SettingsGenerator::Kind;

SettingsGenerator picture(Kind kind, std::uint32_t width, std::uint32_t height) {
    SettingsGenerator settings;
    settings.kind = kind;
    settings.frame = {width, height, 0, 0};
    settings.frameRate = Rate(30000, 1001);
    settings.duration = FramesToTime(50, settings.frameRate);
    return settings;
}

SettingsGenerator sound(Kind kind, std::uint32_t layout = Kestra::Conf::CHANNEL_LAYOUT_STEREO) {
    SettingsGenerator settings;
    settings.kind = kind;
    settings.channelLayout = layout;
    settings.duration = TIME_BASE;
    return settings;
}

intrusive_ptr<IMediaSource> create(const SettingsGenerator& settings) {
    return Kestra::Core::CoreManager::Instance().GetSourceFactory().CreateGenerator(settings);
}

struct Pixel {
    int luma, blue, red;
};

Pixel pixelAt(const Kestra::Proc::IDataVideo& data, double across, double down) {
    const AVFrame& frame = Kestra::FF::FrameOf(data);
    const int x = static_cast<int>(across * frame.width);
    const int y = static_cast<int>(down * frame.height);
    return {frame.data[0][y * frame.linesize[0] + x], frame.data[1][y / 2 * frame.linesize[1] + x / 2],
            frame.data[2][y / 2 * frame.linesize[2] + x / 2]};
}

void expectPixel(const Pixel& seen, const Pixel& wanted, const char* what) {
    EXPECT_NEAR(seen.luma, wanted.luma, 1) << what;
    EXPECT_NEAR(seen.blue, wanted.blue, 1) << what;
    EXPECT_NEAR(seen.red, wanted.red, 1) << what;
}

TEST(Generator, GivesOnePictureForEveryPeriod) {
    const auto source = create(picture(Kind::Colour, 64, 36));
    EXPECT_TRUE(source->GetPath().IsEmpty());
    const auto& info = *source->GetInfo().video;
    EXPECT_FALSE(info.stillPicture);
    EXPECT_FALSE(source->GetInfo().audio);
    EXPECT_EQ(info.duration, FramesToTime(50, Rate(30000, 1001)));
    const auto stream = source->CreateVideoStream();
    const std::uint8_t* pixels = nullptr;
    for (int index = 0; index < 50; ++index) {
        const auto frame = stream->ReadVideo();
        ASSERT_TRUE(frame);
        EXPECT_EQ(frame->GetTime(), FramesToTime(index, info.frameRate));
        EXPECT_EQ(frame->GetDuration(), FramesToTime(index + 1, info.frameRate) - frame->GetTime());
        EXPECT_EQ(frame->GetFrameInfo(), info.frame);
        const std::uint8_t* const own = Kestra::FF::FrameOf(*frame).data[0];
        EXPECT_TRUE(!pixels || own == pixels) << "frame " << index << " has pixels of its own";
        pixels = own;
    }
    EXPECT_FALSE(stream->ReadVideo());
    stream->Seek(FramesToTime(17, info.frameRate) + 3, SeekMode::Exact);
    EXPECT_EQ(stream->ReadVideo()->GetTime(), FramesToTime(17, info.frameRate));
}

TEST(Generator, MakesColoursByTheMatrixOfTheirSize) {
    // R', G', B' and Y', Cb, Cr of BT.709 and BT.601.
    struct Row {
        double red, green, blue;
        Pixel high, standard;
    };
    for (const Row& row :
         {Row{0, 0, 0, {16, 128, 128}, {16, 128, 128}}, Row{1, 1, 1, {235, 128, 128}, {235, 128, 128}},
          Row{1, 0, 0, {63, 102, 240}, {81, 90, 240}}, Row{0, 1, 0, {173, 42, 26}, {145, 54, 34}},
          Row{0, 0, 1, {32, 240, 118}, {41, 240, 110}}, Row{0.5, 0.5, 0.5, {126, 128, 128}, {126, 128, 128}}})
        for (const bool high : {true, false}) {
            auto settings = picture(Kind::Colour, high ? 1280 : 720, high ? 720 : 576);
            settings.red = row.red;
            settings.green = row.green;
            settings.blue = row.blue;
            const auto source = create(settings);
            EXPECT_EQ(source->GetInfo().video->colour.matrix == AVCOL_SPC_BT709, high);
            EXPECT_EQ(source->GetInfo().video->colour.range, 1);
            const auto frame = source->CreateVideoStream()->ReadVideo();
            const Pixel wanted = high ? row.high : row.standard;
            for (const double place : {0.0, 0.5, 0.999}) {
                const Pixel seen = pixelAt(*frame, place, place);
                EXPECT_EQ(seen.luma, wanted.luma) << row.red << row.green << row.blue << high;
                EXPECT_EQ(seen.blue, wanted.blue) << row.red << row.green << row.blue << high;
                EXPECT_EQ(seen.red, wanted.red) << row.red << row.green << row.blue << high;
            }
        }
}

TEST(Generator, DrawsBarsOfTheStandardThatIsOfItsSize) {
    const auto high = create(picture(Kind::Bars, 1920, 1080))->CreateVideoStream()->ReadVideo();
    // RP 219: a side of 40 % grey, then 75 % white, yellow, cyan, green, magenta, red, blue.
    expectPixel(pixelAt(*high, 0.05, 0.3), {104, 128, 128}, "grey");
    expectPixel(pixelAt(*high, 0.19, 0.3), {180, 128, 128}, "white");
    expectPixel(pixelAt(*high, 0.28, 0.3), {168, 44, 136}, "yellow");
    expectPixel(pixelAt(*high, 0.82, 0.3), {28, 212, 120}, "blue");
    expectPixel(pixelAt(*high, 0.95, 0.3), {104, 128, 128}, "grey");
    const auto low = create(picture(Kind::Bars, 720, 480))->CreateVideoStream()->ReadVideo();
    // EG 1 of BT.601: 75 % white at the left edge, blue at the right one.
    expectPixel(pixelAt(*low, 0.05, 0.3), {180, 128, 128}, "white");
    expectPixel(pixelAt(*low, 0.21, 0.3), {162, 44, 142}, "yellow");
    expectPixel(pixelAt(*low, 0.95, 0.3), {35, 212, 114}, "blue");
    auto wide = picture(Kind::Bars, 720, 480);
    wide.frame.aspectNumerator = 16;
    wide.frame.aspectDenominator = 9;
    const auto shaped = create(wide)->CreateVideoStream()->ReadVideo();
    EXPECT_EQ(shaped->GetFrameInfo(), wide.frame);
    EXPECT_EQ(Kestra::FF::FrameOf(*shaped).colorspace, AVCOL_SPC_SMPTE170M);
    EXPECT_EQ(Kestra::FF::FrameOf(*high).colorspace, AVCOL_SPC_BT709);
}

TEST(Generator, MakesPicturesOfAnySize) {
    for (const Kind kind : {Kind::Bars, Kind::Colour})
        for (const auto& [width, height] : {std::pair{2U, 2U}, {15U, 9U}, {4096U, 2160U}}) {
            const auto frame = create(picture(kind, width, height))->CreateVideoStream()->ReadVideo();
            EXPECT_EQ(frame->GetFrameInfo().width, width);
            EXPECT_EQ(frame->GetFrameInfo().height, height);
        }
}

TEST(Generator, SoundsATone20DbBelowFullScale) {
    auto settings = sound(Kind::Tone);
    settings.frequency = 441.7;
    const auto source = create(settings);
    const auto& info = *source->GetInfo().audio;
    EXPECT_EQ(info.sampleFormat, Kestra::Conf::SAMPLE_FORMAT_FLTP);
    EXPECT_EQ(info.channels, 2);
    EXPECT_FALSE(source->GetInfo().video);
    const std::vector<float> samples = readSamples(*source->CreateAudioStream());
    ASSERT_EQ(samples.size(), 48000U);
    double power = 0;
    for (std::size_t index = 0; index < samples.size(); ++index) {
        ASSERT_NEAR(samples[index], 0.1 * std::sin(2 * M_PI * 441.7 * static_cast<double>(index) / 48000), 1e-6)
            << index;
        power += samples[index] * samples[index] / 48000.0;
    }
    // A sine of full scale has a power of a half.
    EXPECT_NEAR(10 * std::log10(2 * power), -20, 0.01);
}

TEST(Generator, HasTheSamePhaseWhereverReadingBegins) {
    auto settings = sound(Kind::Tone, Kestra::Conf::CHANNEL_LAYOUT_5POINT1);
    settings.frequency = 997;
    const auto stream = create(settings)->CreateAudioStream();
    const std::vector<float> all = readSamples(*stream);
    for (const long long begin : {40001LL, 1LL, 4096LL, 0LL}) {
        stream->Seek(Kestra::SamplesToTime(begin, 48000), SeekMode::Exact);
        const auto block = stream->ReadAudio();
        EXPECT_EQ(block->GetTime(), Kestra::SamplesToTime(begin, 48000));
        const AVFrame& frame = Kestra::FF::FrameOf(*block);
        ASSERT_EQ(frame.ch_layout.nb_channels, 6);
        for (int channel = 0; channel < 6; ++channel)
            for (int index = 0; index < frame.nb_samples; ++index)
                ASSERT_EQ(reinterpret_cast<const float*>(frame.extended_data[channel])[index],
                          all[static_cast<std::size_t>(begin + index)]);
    }
}

TEST(Generator, MakesSilenceAsLongAsItIsOrdered) {
    auto settings = sound(Kind::Silence, Kestra::Conf::CHANNEL_LAYOUT_MONO);
    settings.duration = TIME_BASE / 3;
    const std::vector<float> samples = readSamples(*create(settings)->CreateAudioStream());
    EXPECT_EQ(samples, std::vector<float>(16000, 0.0F));
}

TEST(Generator, SaysWhatItDoesNotMake) {
    EXPECT_THROW(create(sound(Kind::Tone))->CreateVideoStream(), Kestra::Proc::ProcException);
    EXPECT_THROW(create(picture(Kind::Bars, 64, 64))->CreateAudioStream(), Kestra::Proc::ProcException);
    EXPECT_THROW(create(picture(Kind::Colour, 0, 64)), std::invalid_argument);
    EXPECT_THROW(create(sound(Kind::Silence, 0)), std::invalid_argument);
    auto shrill = sound(Kind::Tone);
    shrill.frequency = 24000;
    EXPECT_THROW(create(shrill), std::invalid_argument);
    auto colourless = picture(Kind::Colour, 64, 64);
    colourless.green = std::numeric_limits<double>::quiet_NaN();
    EXPECT_THROW(create(colourless), std::invalid_argument);
    auto backwards = sound(Kind::Silence);
    backwards.duration = -1;
    EXPECT_THROW(create(backwards), std::invalid_argument);
}

TEST(Generator, TellsEachNoteOnceAndOfNoFile) {
    const auto source = create(sound(Kind::Silence));
    source->Note("one");
    source->Note("two");
    EXPECT_EQ(source->TakeNotes().size(), 2U);
    source->Note("one");
    EXPECT_TRUE(source->TakeNotes().empty());
}

} // namespace
} // namespace TestMedia
