// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Interrupted.h"
#include "fakes/project/RenderFixture.h"
#include <future>
#include <map>
#include <utility>

namespace Project::Tests {
namespace {

using Kestra::Proc::SeekMode;

class SoundStreamTest : public RenderFixture {};

Contents clip(int frames, std::int64_t samples, int sampleRate = 48000, const Rate& rate = 25) {
    Contents contents;
    contents.frames = frames;
    contents.rate = rate;
    contents.samples = samples;
    contents.sampleRate = sampleRate;
    return contents;
}

TEST_F(SoundStreamTest, EverySampleOfEqualClipsComesOnce) {
    const auto line = timeline({clip(25, 48000), clip(50, 96000)});
    EXPECT_EQ(runs(sound(line, 48000, 25), 48000), (std::vector<Stretch>{{1, 0, 0, 48000}, {2, 48000, 0, 96000}}));
}

TEST_F(SoundStreamTest, SoundThatEndsBeforeItsClipIsFollowedBySilence) {
    const auto line = timeline({clip(50, 48000), clip(25, 0), clip(25, 48000)});
    EXPECT_EQ(runs(sound(line, 48000, 25), 48000),
              (std::vector<Stretch>{{1, 0, 0, 48000}, {Fakes::SILENCE, 48000, 0, 96000}, {3, 144000, 0, 48000}}));
}

TEST_F(SoundStreamTest, SoundWithoutPicturesJoinsWithoutGap) {
    const auto line = timeline({clip(0, 44101, 44100), clip(0, 44103, 44100), clip(0, 7, 44100)});
    EXPECT_EQ(runs(sound(line, 44100, 25), 44100),
              (std::vector<Stretch>{{1, 0, 0, 44101}, {2, 44101, 0, 44103}, {3, 88204, 0, 7}}));
}

TEST_F(SoundStreamTest, SoundBeginsWithTheFirstFrameOfItsClip) {
    // 700 samples longer than their pictures: clips begin on frames 50, 101 and 151 of 1920 samples.
    const auto line = timeline({clip(50, 96700), clip(50, 96700), clip(50, 96700), clip(50, 96000)});
    const std::vector<Stretch> found = runs(sound(line, 48000, 25), 48000);
    EXPECT_EQ(found, (std::vector<Stretch>{{1, 0, 0, 96000},
                                           {2, 96000, 0, 96700},
                                           {Fakes::SILENCE, 192700, 0, 1220},
                                           {3, 193920, 0, 96000},
                                           {4, 289920, 0, 96000},
                                           {Fakes::SILENCE, 385920, 0, 180}}));
}

TEST_F(SoundStreamTest, AnExportWithoutPicturesKeepsTheExactStarts) {
    const auto line = timeline({clip(50, 96700), clip(50, 96000)});
    EXPECT_EQ(runs(sound(line, 48000, 0), 48000), (std::vector<Stretch>{{1, 0, 0, 96700}, {2, 96700, 0, 96000}}));
}

TEST_F(SoundStreamTest, ARangeCutsToTheSampleWhereThePictureIsCut) {
    const auto line = timeline({clip(100, 192000), clip(100, 192000)});
    // 3.413 s is nearest to frame 85, that is 3.4 s.
    EXPECT_EQ(runs(sound(line, 48000, 25, milliseconds(3413, 7001)), 48000),
              (std::vector<Stretch>{{1, 0, 163200, 28800}, {2, 28800, 0, 144048}}));
    EXPECT_EQ(runs(sound(line, 48000, 0, milliseconds(3413, 3414)), 48000), (std::vector<Stretch>{{1, 0, 163824, 48}}));
}

TEST_F(SoundStreamTest, ClipsOfOneMediumHandItsDecoderOn) {
    const auto paths = put({clip(0, 4800)});
    const auto line = Render::Sequence::ofFiles({paths[0], paths[0], paths[0]});
    const int before = media->streams().created;
    EXPECT_EQ(runs(sound(line, 48000, 0), 48000),
              (std::vector<Stretch>{{1, 0, 0, 4800}, {1, 4800, 0, 4800}, {1, 9600, 0, 4800}}));
    EXPECT_EQ(media->streams().created - before, 1);
}

TEST_F(SoundStreamTest, OddLengthsDoNotAddUpToADrift) {
    // 1/30 s and a bit: 1470.03 samples at 44.1 kHz each.
    Contents odd = clip(0, 1471, 44130);
    const auto line = timeline(std::vector<Contents>(1000, odd));
    const std::vector<Stretch> found = runs(sound(line, 44100, 0), 44100);
    EXPECT_EQ(total(found), Kestra::TimeToSamples(line.document->duration().Value(), 44100));
    std::int64_t place = -1;
    for (const Stretch& run : found) {
        if (run.id == Fakes::SILENCE)
            continue;
        EXPECT_EQ(run.place, Kestra::TimeToSamples(startOf(line, run.id - 1), 44100));
        EXPECT_GT(run.place, place);
        place = run.place;
    }
    EXPECT_EQ(place, Kestra::TimeToSamples(startOf(line, 999), 44100));
}

TEST_F(SoundStreamTest, ClipsOfAnyRateHaveTheOutputsRate) {
    const auto line = timeline({clip(0, 44100, 44100), clip(0, 8000, 8000), clip(0, 96000, 96000)});
    EXPECT_EQ(runs(sound(line, 48000, 0), 48000),
              (std::vector<Stretch>{{1, 0, 0, 48000}, {2, 48000, 0, 48000}, {3, 96000, 0, 48000}}));
}

TEST_F(SoundStreamTest, ResetReadsTheSameAgain) {
    const Sound stream = sound(timeline({clip(50, 90000), clip(50, 96000)}), 48000, 25, milliseconds(700, 3333));
    const std::vector<Stretch> first = runs(stream, 48000);
    stream->Reset();
    EXPECT_EQ(runs(stream, 48000), first);
    stream->Reset();
    stream->ReadAudio();
    stream->Interrupt();
    EXPECT_THROW(stream->ReadAudio(), Kestra::Proc::Interrupted);
    stream->Reset();
    EXPECT_EQ(runs(stream, 48000), first);
}

TEST_F(SoundStreamTest, AnInterruptionIsNoEndOfAClipThatSilenceFollows) {
    const Sound stream = sound(timeline({clip(50, 20000), clip(50, 96000)}), 48000, 25);
    for (int block = 0; block < 3; ++block)
        EXPECT_TRUE(stream->ReadAudio());
    stream->Interrupt();
    EXPECT_THROW(stream->ReadAudio(), Kestra::Proc::Interrupted);
    EXPECT_EQ(stream->GetPosition(), Kestra::SamplesToTime(3 * 1024, 48000));
}

TEST_F(SoundStreamTest, OpensNoClipOnceInterrupted) {
    const Sound stream = sound(timeline({clip(50, 96000), clip(50, 96000)}), 48000, 25);
    stream->ReadAudio();
    stream->Interrupt();
    stream->Seek(Kestra::SamplesToTime(100000, 48000), SeekMode::Exact);
    EXPECT_THROW(stream->ReadAudio(), Kestra::Proc::Interrupted);
    EXPECT_EQ(media->streams().alive, 0);
}

TEST_F(SoundStreamTest, SeekLandsOnTheSample) {
    const Sound stream = sound(timeline({clip(50, 96000), clip(50, 96000)}), 48000, 25);
    stream->Seek(Kestra::SamplesToTime(100001, 48000), SeekMode::Exact);
    EXPECT_EQ(stream->GetPosition(), Kestra::SamplesToTime(100001, 48000));
    const auto block = stream->ReadAudio();
    EXPECT_EQ(block->GetTime(), Kestra::SamplesToTime(100001, 48000));
    EXPECT_EQ(dynamic_cast<const Fakes::TaggedBlock&>(*block).GetFirst(), 4001);
}

TEST_F(SoundStreamTest, APreferredSampleFormatHoldsForAllClips) {
    const Sound stream = sound(timeline({clip(50, 96000)}), 48000, 25);
    const auto preferred = Kestra::Conf::IFormatCodecAudio::Create();
    preferred->SetSampleFormat(Kestra::Conf::SAMPLE_FORMAT_S32);
    preferred->SetSampleRate(8000);
    stream->PreferFormat(*preferred);
    boost::intrusive_ptr<Kestra::Conf::IFormatCodecAudio> format;
    stream->GetAudioFormat(format);
    EXPECT_EQ(format->GetSampleFormat(), Kestra::Conf::SAMPLE_FORMAT_S32);
    EXPECT_EQ(format->GetSampleRate(), 48000) << "the rate is as ordered";
}

TEST_F(SoundStreamTest, PictureAndSoundOfEveryClipBeginTogether) {
    std::vector<Contents> contents;
    for (int i = 0; i < 60; ++i)
        contents.push_back(clip(20 + i, (20 + i) * 1600 + i * 37, 48000, {30000, 1001}));
    const auto line = timeline(contents);
    for (const Rate& rate : {Rate(25), Rate(30000, 1001), Rate(24000, 1001), Rate(60)}) {
        const Types::Range cut = milliseconds(777, 40001);
        const ExportWindow part = window(line, cut, rate);
        const Kestra::FrameGrid frames(rate);
        const Kestra::SampleGrid samples(48000);
        // Each clip's first frame that is seen, and its first sample that is heard.
        std::map<int, std::pair<std::int64_t, std::int64_t>> seen, heard;
        const std::vector<int> shown = numbers(pictures(line, rate, cut), rate);
        for (std::size_t i = 0; i < shown.size(); ++i)
            seen.emplace(shown[i] / 100000, std::pair(std::int64_t(i), std::int64_t(shown[i] % 100000)));
        for (const Stretch& run : runs(sound(line, 48000, rate, cut), 48000))
            if (run.id != Fakes::SILENCE)
                heard.emplace(run.id, std::pair(run.place, run.first));
        // Within the last half frame of the range a clip may be heard that is not seen any more.
        ASSERT_LE(heard.size() - seen.size(), 1U);
        for (const auto& [id, first] : seen) {
            if (first.second > 0) // it began before the range, or in a period whose middle shows a later frame
                continue;
            EXPECT_EQ(heard.at(id).first, samples.Nearest(frames.Begin(Kestra::FrameIndex(first.first))).Value());
            EXPECT_EQ(heard.at(id).second, 0);
        }
        EXPECT_EQ(static_cast<std::int64_t>(shown.size()), part.frames().Value());
        ASSERT_GT(seen.size(), 20U);
    }
}

} // namespace
} // namespace Project::Tests
