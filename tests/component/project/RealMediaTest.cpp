// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorProject/ExportWindow.h"
#include "Kestra/Base/Time.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/FF/Data/DataAudioFF.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "Kestra/Proc/Interrupted.h"
#include "Render/Streams.h"
#include "support/FlashBeep.h"
#include <chrono>
#include <cmath>
#include <filesystem>
#include <future>
#include <gtest/gtest.h>
#include <utility>

namespace Project::Tests {
namespace {

using TestMedia::FlashBeep;
using Rate = boost::rational<long long>;
using Pictures = boost::intrusive_ptr<Kestra::Proc::IStreamVideo>;
using Sound = boost::intrusive_ptr<Kestra::Proc::IStreamAudio>;

double meanLuma(const Kestra::Proc::IDataVideo& picture) {
    const AVFrame& frame = Kestra::FF::FrameOf(picture);
    // The middle, which bars do not reach.
    double sum = 0;
    int count = 0;
    for (int y = frame.height * 3 / 8; y < frame.height * 5 / 8; ++y)
        for (int x = frame.width * 3 / 8; x < frame.width * 5 / 8; ++x, ++count)
            sum += frame.data[0][y * frame.linesize[0] + x];
    return sum / count;
}

class RealMediaTest : public ::testing::Test {
protected:
    std::string make(const std::string& name, const FlashBeep& media) {
        makeFlashBeep(folder / name, media);
        paths.emplace_back(folder / name);
        return folder / name;
    }
    Render::Sequence open() { return Render::Sequence::ofFiles(paths); }

    /// A rate of 0 means no pictures.
    static ExportWindow window(const Render::Sequence& line, const Types::Range& range, const Rate& rate) {
        const auto grid = rate > 0 ? std::optional(Kestra::FrameGrid(rate)) : std::nullopt;
        return ExportWindow(range, line.document->duration(), grid);
    }
    static Pictures pictures(const Render::Sequence& line, const Rate& rate, Types::Range range = {},
                             Kestra::Conf::FrameInfo frame = {320, 180, 16, 9}) {
        const Pictures stream = Render::createPictureStream(line, window(line, range, rate), frame);
        return Kestra::Core::CoreManager::Instance().GetFilterFactory().CreateReadAhead(stream, 4);
    }
    static Sound sound(const Render::Sequence& line, int sampleRate, const Rate& pictureRate, Types::Range range = {}) {
        Kestra::Conf::SampleInfo format;
        format.Init(Kestra::Conf::SAMPLE_FORMAT_FLT, sampleRate, Kestra::Conf::CHANNEL_LAYOUT_STEREO);
        return Render::createSoundStream(line, window(line, range, pictureRate), format);
    }
    /// Numbers modulo 16, -1 for flashes; checks times and sizes.
    static std::vector<int> numbers(const Pictures& stream, const Rate& rate) {
        std::vector<int> found;
        while (const auto picture = stream->ReadVideo()) {
            EXPECT_EQ(picture->GetTime(), Kestra::FramesToTime(static_cast<std::int64_t>(found.size()), rate));
            EXPECT_EQ(picture->GetFrameInfo().width, 320U);
            EXPECT_EQ(picture->GetFrameInfo().height, 180U);
            found.push_back(TestMedia::numberOfLuma(meanLuma(*picture)));
        }
        return found;
    }
    struct Heard {
        std::int64_t samples = 0;
        std::vector<std::int64_t> onsets;
    };
    static Heard listen(const Sound& stream) {
        Heard heard;
        std::int64_t lastLoud = -1000000;
        bool armed = false;
        while (const auto block = stream->ReadAudio()) {
            const AVFrame& frame = Kestra::FF::FrameOf(*block);
            EXPECT_EQ(frame.format, AV_SAMPLE_FMT_FLT);
            const auto* values = reinterpret_cast<const float*>(frame.data[0]);
            for (int i = 0; i < frame.nb_samples; ++i, ++heard.samples) {
                const float level = std::abs(values[2 * i]);
                if (level > 0.05F) {
                    // A resampler rings before it rises.
                    armed = armed || heard.samples - lastLoud > frame.sample_rate / 50;
                    lastLoud = heard.samples;
                }
                if (level > 0.3F && std::exchange(armed, false))
                    heard.onsets.push_back(heard.samples);
            }
        }
        return heard;
    }
    static std::vector<int> flashesOf(const std::vector<int>& found) {
        std::vector<int> flashes;
        for (int i = 0; i < static_cast<int>(found.size()); ++i)
            if (found[i] == -1 && (i == 0 || found[i - 1] != -1))
                flashes.push_back(i);
        return flashes;
    }
    /// Every flash has its beep: sound minus picture in samples is at most `tolerance`.
    static void expectInStep(const std::vector<int>& found, const Rate& rate, const Heard& heard, int sampleRate,
                             int tolerance) {
        const std::vector<int> flashes = flashesOf(found);
        ASSERT_EQ(flashes.size(), heard.onsets.size());
        for (std::size_t i = 0; i < flashes.size(); ++i) {
            const std::int64_t seen = Kestra::TimeToSamples(Kestra::FramesToTime(flashes[i], rate), sampleRate);
            EXPECT_LE(std::abs(heard.onsets[i] - seen), tolerance) << "event " << i << " at frame " << flashes[i];
        }
    }

    TestMedia::Folder folder;
    std::vector<Kestra::ioPath> paths;
};

FlashBeep clip(int frames, const Rate& rate = 25, int sampleRate = 48000) {
    FlashBeep media;
    media.frames = frames;
    media.rate = rate;
    media.period = 20;
    media.sampleRate = sampleRate;
    return media;
}

/// What clip(frames) shows from frame `first` on.
std::vector<int> shown(int first, int count) {
    std::vector<int> all;
    for (int n = first; n < first + count; ++n)
        all.push_back(n % 20 < 2 ? -1 : n % 16);
    return all;
}

std::vector<int> joined(std::initializer_list<std::vector<int>> parts) {
    std::vector<int> all;
    for (const std::vector<int>& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

TEST_F(RealMediaTest, EveryFrameOfASequenceComesOnceAndInStep) {
    make("a.mov", clip(60));
    make("b.mkv", clip(47));
    make("c.mov", clip(33));
    const auto line = open();
    const std::vector<int> found = numbers(pictures(line, 25), 25);
    EXPECT_EQ(found, joined({shown(0, 60), shown(0, 47), shown(0, 33)}));
    const Heard heard = listen(sound(line, 48000, 25));
    EXPECT_EQ(heard.samples, 140 * 1920);
    expectInStep(found, 25, heard, 48000, 0);
}

TEST_F(RealMediaTest, ARangeFromThePeriodsMiddleLosesNothing) {
    make("a.mov", clip(60));
    make("b.mov", clip(60));
    const auto line = open();
    const Types::Range range{KTime(1013), KTime(3907)};
    const std::vector<int> found = numbers(pictures(line, 25, range), 25);
    EXPECT_EQ(found, joined({shown(25, 35), shown(0, 38)}));
    const Heard heard = listen(sound(line, 48000, 25, range));
    EXPECT_EQ(heard.samples, 48 * 2907);
    expectInStep(found, 25, heard, 48000, 0);
}

TEST_F(RealMediaTest, InterframeCodecsAreCutToTheFrame) {
    FlashBeep media = clip(100);
    media.more = {"-g", "100", "-bf", "3", "-preset", "medium"};
    media.audioCodec = "aac";
    make("a.mp4", media);
    const auto line = open();
    for (const int first : {1, 37, 62, 99}) {
        const Types::Range range{KTime(first * 40), KTime(4000)};
        EXPECT_EQ(numbers(pictures(line, 25, range), 25), shown(first, 100 - first)) << first;
    }
}

TEST_F(RealMediaTest, MixedSizesRatesAndSampleRatesStayInStep) {
    make("a.mov", clip(60));
    FlashBeep other = clip(61, {30000, 1001}, 44100);
    other.width = 200;
    other.height = 200;
    make("b.mov", other);
    make("c.mov", clip(50, 50, 32000));
    make("d.mov", clip(48, 24, 96000));
    const auto line = open();
    for (const Rate& rate : {Rate(25), Rate(30000, 1001), Rate(60)}) {
        const std::vector<int> found = numbers(pictures(line, rate), rate);
        const ExportWindow part = window(line, {}, rate);
        EXPECT_EQ(static_cast<std::int64_t>(found.size()), part.frames().Value());
        const Heard heard = listen(sound(line, 48000, rate));
        EXPECT_EQ(heard.samples, part.samples(Kestra::SampleGrid(48000)).Value());
        // The flash moves to the nearest output frame; the resampled beep rises within some samples.
        const int halfFrame = static_cast<int>(boost::rational_cast<double>(24000 / rate)) + 16;
        expectInStep(found, rate, heard, 48000, halfFrame);
    }
}

TEST_F(RealMediaTest, AVariableRateKeepsItsTimes) {
    FlashBeep media = clip(100);
    media.variableFrameRate = true;
    make("a.mov", media);
    const auto line = open();
    const std::vector<int> found = numbers(pictures(line, 25), 25);
    EXPECT_EQ(found.size(), 100U);
    expectInStep(found, 25, listen(sound(line, 48000, 25)), 48000, 0);
}

TEST_F(RealMediaTest, ClipsWithoutPictureOrSoundAreBlackOrSilent) {
    FlashBeep mute = clip(50);
    mute.sampleRate = 0;
    make("mute.mkv", mute);
    FlashBeep blind = clip(0);
    blind.samples = 48000;
    make("blind.wav", blind);
    make("both.mov", clip(20));
    const auto line = open();
    EXPECT_EQ(line.document->duration().Value(), Kestra::FramesToTime(95, 25));
    const Pictures stream = pictures(line, 25);
    int frame = 0;
    while (const auto picture = stream->ReadVideo()) {
        if (frame >= 50 && frame < 75)
            EXPECT_NEAR(meanLuma(*picture), 16, 1) << frame;
        else
            EXPECT_GT(meanLuma(*picture), 30) << frame;
        ++frame;
    }
    EXPECT_EQ(frame, 95);
    const Heard heard = listen(sound(line, 48000, 25));
    EXPECT_EQ(heard.samples, 95 * 1920);
    // The sound alone has a beep every 0.8 s, the last clip one at its start.
    EXPECT_EQ(heard.onsets, (std::vector<std::int64_t>{96000, 96000 + 38400, 96000 + 48000}));
}

TEST_F(RealMediaTest, ASecondPassReadsTheSame) {
    make("a.mov", clip(60));
    make("b.mov", clip(30, 24));
    const Pictures stream = pictures(open(), 30);
    const std::vector<int> first = numbers(stream, 30);
    stream->Reset();
    EXPECT_EQ(numbers(stream, 30), first);
    stream->Reset();
    stream->ReadVideo();
    stream->Interrupt();
    stream->Reset();
    EXPECT_EQ(numbers(stream, 30), first);
}

TEST_F(RealMediaTest, APreferredPixelFormatHoldsOverAllClips) {
    FlashBeep deep = clip(10);
    deep.pixelFormat = "yuv420p10le";
    deep.videoCodec = "ffv1";
    make("a.mkv", deep);
    make("b.mov", clip(10));
    const Pictures stream = pictures(open(), 25);
    const auto preferred = Kestra::Conf::IFormatCodecVideo::Create();
    preferred->SetPixelFormat(Kestra::Conf::PixelFormat::YUV420P);
    stream->PreferFormat(*preferred);
    int count = 0;
    for (; const auto picture = stream->ReadVideo(); ++count)
        EXPECT_EQ(picture->GetPixelFormat(), Kestra::Conf::PixelFormat::YUV420P);
    EXPECT_EQ(count, 20);
}

TEST_F(RealMediaTest, AThousandClipsOfOneFileKeepFewFilesOpen) {
    make("a.mov", clip(2));
    paths.assign(1000, paths.front());
    const auto line = open();
    const auto openFiles = [] { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); };
    const auto before = openFiles();
    const Pictures stream = pictures(line, 25);
    int frames = 0;
    auto most = before;
    while (stream->ReadVideo())
        if (++frames % 100 == 0)
            most = std::max(most, openFiles());
    EXPECT_EQ(frames, 2000);
    EXPECT_LE(most, before + 8);
    EXPECT_EQ(listen(sound(line, 48000, 25)).samples, 2000 * 1920);
}

TEST_F(RealMediaTest, AnInterruptEndsReadsPromptly) {
    FlashBeep big = clip(100);
    big.width = 1280;
    big.height = 720;
    make("a.mov", big);
    paths.assign(50, paths.front());
    const Pictures stream = pictures(open(), 25, {}, {1920, 1080, 16, 9});
    auto reader = std::async(std::launch::async, [&] {
        while (stream->ReadVideo()) {
        }
    });
    EXPECT_EQ(reader.wait_for(std::chrono::milliseconds(300)), std::future_status::timeout);
    const auto begin = std::chrono::steady_clock::now();
    stream->Interrupt();
    ASSERT_EQ(reader.wait_for(std::chrono::seconds(20)), std::future_status::ready);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(2));
    EXPECT_THROW(reader.get(), Kestra::Proc::Interrupted);
}

TEST_F(RealMediaTest, AFileThatVanishesAfterOpeningIsAnError) {
    make("a.mov", clip(10));
    const std::string second = make("b.mov", clip(10));
    const Pictures stream = pictures(open(), 25);
    std::filesystem::remove(second);
    try {
        while (stream->ReadVideo()) {
        }
        FAIL() << "ended as if all were well";
    } catch (const std::exception& error) {
        EXPECT_NE(std::string(error.what()).find("b.mov"), std::string::npos) << error.what();
    }
}

} // namespace
} // namespace Project::Tests
