// SPDX-License-Identifier: GPL-3.0-or-later
// How long clips are whose sound was coded in blocks, and where they begin.
#include "Kestra/Base/Time.h"
#include "SourceFixture.h"
#include <algorithm>
#include <cmath>
#include <fstream>
#include <sstream>

namespace TestMedia {
namespace {

struct Packaging {
    const char* extension;
    const char* codec;
    const char* rate;
};

Rate rateOf(const Packaging& packaging) {
    const std::string text = packaging.rate;
    const auto slash = text.find('/');
    return slash == std::string::npos ? Rate(std::stoll(text))
                                      : Rate(std::stoll(text.substr(0, slash)), std::stoll(text.substr(slash + 1)));
}

std::string nameOf(const testing::TestParamInfo<Packaging>& info) {
    std::string name = std::string(info.param.extension) + "_" + info.param.codec + "_" + info.param.rate;
    for (char& c : name)
        c = std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
    return name;
}

std::vector<Packaging> packagings() {
    std::vector<Packaging> all;
    const char* const rates[] = {"50", "30000/1001", "25", "60"};
    std::size_t turn = 0;
    for (const char* extension : {"mp4", "mov", "mkv", "ts"})
        for (const char* codec : {"aac", "libmp3lame", "ac3"})
            for (int count = 0; count < 2; ++count)
                all.push_back({extension, codec, rates[turn++ % 4]});
    for (const char* codec : {"libopus", "libvorbis"})
        for (const char* extension : {"mkv", "webm"})
            all.push_back({extension, codec, rates[turn++ % 4]});
    all.push_back({"mp4", "libopus", "50"});
    all.push_back({"ts", "libopus", "50"});
    all.push_back({"flv", "aac", "30"});
    return all;
}

class PackagedClip : public SourceTest, public testing::WithParamInterface<Packaging> {
protected:
    static constexpr int SAMPLE_RATE = 44100;

    std::string makeClip(int frames) {
        const bool opus = std::string(GetParam().codec) == "libopus";
        const int sampleRate = opus ? 48000 : SAMPLE_RATE;
        const auto samples = std::llround(frames / boost::rational_cast<double>(rateOf(GetParam())) * sampleRate);
        const bool webm = std::string(GetParam().extension) == "webm";
        return make(std::string("a.") + GetParam().extension,
                    join(pictures(GetParam().rate, frames),
                         {"-f", "lavfi", "-i",
                          "sine=r=" + std::to_string(sampleRate) + ",atrim=end_sample=" + std::to_string(samples),
                          "-c:v", webm ? "libvpx" : "libx264", "-c:a", GetParam().codec}));
    }
};

TEST_P(PackagedClip, IsAsLongAsItsPictureAndBeginsWithIt) {
    constexpr int FRAMES = 97;
    const auto source = open(makeClip(FRAMES));
    ASSERT_TRUE(source->GetInfo().video && source->GetInfo().audio);
    EXPECT_EQ(source->GetInfo().video->frameRate, rateOf(GetParam()));
    EXPECT_EQ(source->GetInfo().video->start, 0);
    EXPECT_EQ(source->GetInfo().duration, FramesToTime(FRAMES, rateOf(GetParam())));
    EXPECT_EQ(readPictures(*source->CreateVideoStream()).size(), FRAMES);
    EXPECT_TRUE(source->TakeNotes().empty());
}

INSTANTIATE_TEST_SUITE_P(Packagings, PackagedClip, testing::ValuesIn(packagings()), nameOf);

class ClipLength : public SourceTest {
protected:
    std::string makeClip(const char* name, int frames, double soundSeconds, std::vector<std::string> more = {}) {
        return make(name, join(join(pictures("25", frames),
                                    {"-f", "lavfi", "-i", "sine=r=48000:d=" + std::to_string(soundSeconds), "-c:v",
                                     "libx264", "-c:a", "aac"}),
                               std::move(more)));
    }
};

TEST_F(ClipLength, OfSoundThatReallyGoesOnStays) {
    const auto source = open(makeClip("a.mp4", 50, 2.5));
    EXPECT_NEAR(source->GetInfo().duration, TIME_BASE * 5 / 2, TIME_BASE / 1000);
}

TEST_F(ClipLength, OfWavPackThatGoesOnForLessThanABlockStays) {
    // Its blocks last a second, and end with the sound.
    const auto source = open(make("a.mkv", join(pictures("25", 50), {"-f", "lavfi", "-i", "sine=r=48000:d=2.3", "-c:v",
                                                                     "ffv1", "-c:a", "wavpack"})));
    EXPECT_NEAR(source->GetInfo().duration, TIME_BASE * 23 / 10, TIME_BASE / 1000);
}

TEST_F(ClipLength, OfPicturesThatGoOnStays) {
    const auto source = open(makeClip("a.mp4", 50, 1.5));
    EXPECT_EQ(source->GetInfo().duration, 2 * TIME_BASE);
}

TEST_F(ClipLength, OfSoundAloneIsWhatWasPutIn) {
    const auto source = open(make("a.m4a", {"-f", "lavfi", "-i", "sine=r=48000:d=1.25", "-c:a", "aac"}));
    EXPECT_EQ(source->GetInfo().duration, Kestra::SamplesToTime(60000, 48000));
}

TEST_F(ClipLength, OfAacInLoasThatBeginsQuietlyIsThatOfAllBlocks) {
    const std::string sound = "aevalsrc='if(lt(t,3),0,0.3*random(0))':s=48000:d=5";
    const std::string path = make("a.latm", {"-f", "lavfi", "-i", sound, "-c:a", "aac", "-f", "latm"});
    const auto whole = readSamples(*open(make("a.wav", {"-i", path}))->CreateAudioStream());
    const auto source = open(path);
    const auto stream = source->CreateAudioStream();
    const auto read = readSamples(*stream);
    ASSERT_EQ(read.size(), whole.size());
    stream->Seek(4 * TIME_BASE, SeekMode::Exact);
    const auto found = readSamples(*stream, 5000);
    ASSERT_GE(found.size(), 5000U);
    for (std::size_t index = 0; index < whole.size(); ++index)
        ASSERT_NEAR(read[index], whole[index], 1e-3) << index;
    for (std::size_t index = 0; index < 5000; ++index)
        ASSERT_NEAR(found[index], whole[4 * 48000 + index], 1e-3) << index;
    EXPECT_TRUE(source->TakeDamageReports().empty());
}

TEST_F(ClipLength, OfSoundInBlocksIsThatOfAllBlocks) {
    // As long as whole blocks; what the header says of bytes a second is wrong in the second one.
    for (const auto& [name, codec] :
         {std::pair("a.wav", "adpcm_ima_wav"), std::pair("b.wav", "adpcm_ms"), std::pair("a.wma", "wmav2")}) {
        const std::string file =
            make(name, {"-f", "lavfi", "-i", noise(22050, 9), "-c:a", codec, "-block_size", "1024"});
        const std::string plain = make(std::string(name) + ".wav", {"-i", file});
        const auto whole = readSamples(*open(plain)->CreateAudioStream());
        const auto source = open(file);
        const auto stream = source->CreateAudioStream();
        const auto read = readSamples(*stream);
        EXPECT_EQ(read.size(), whole.size()) << name;
        stream->Seek(7 * TIME_BASE, SeekMode::Exact);
        const auto found = readSamples(*stream, 5000);
        ASSERT_GE(found.size(), 5000U) << name;
        for (std::size_t index = 0; index < found.size(); ++index)
            ASSERT_NEAR(found[index], read[7 * 22050 + index], 1e-3) << name << index;
        EXPECT_TRUE(source->TakeDamageReports().empty()) << name;
    }
}

TEST_F(ClipLength, OfReorderedPicturesWithoutAContainerIsThatOfAllOfThem) {
    constexpr int FRAMES = 53;
    for (const auto& [name, codec] : {std::pair("a.h264", "libx264"), std::pair("a.hevc", "libx265")}) {
        const auto source = open(make(name, join(pictures("30000/1001", FRAMES), {"-c:v", codec, "-g", "20"})));
        EXPECT_EQ(source->GetInfo().video->frameRate, Rate(30000, 1001)) << name;
        EXPECT_EQ(source->GetInfo().duration, FramesToTime(FRAMES, Rate(30000, 1001))) << name;
        const auto stream = source->CreateVideoStream();
        const auto read = readPictures(*stream);
        ASSERT_EQ(read.size(), FRAMES) << name;
        for (int index = 0; index < FRAMES; ++index)
            ASSERT_EQ(read[static_cast<std::size_t>(index)].number, index) << name;
        for (const int index : {41, 7, 0, 52}) {
            stream->Seek(read[static_cast<std::size_t>(index)].time, SeekMode::Exact);
            const auto found = readPictures(*stream, 1);
            ASSERT_EQ(found.size(), 1U) << name << index;
            EXPECT_EQ(found[0].number, index) << name;
        }
        EXPECT_TRUE(source->TakeDamageReports().empty()) << name;
    }
}

TEST_F(ClipLength, KeepsARealLeadOfTheSoundOnTheGridOfThePictures) {
    // 310 ms are no whole number of frames.
    const std::string picture = make("picture.mkv", join(pictures("25", 50), {"-c:v", "libx264", "-bf", "0"}));
    const std::string sound = make("sound.wav", {"-f", "lavfi", "-i", "sine=r=48000:d=2.31"});
    const auto source = open(make("a.mkv", {"-itsoffset", "0.31", "-i", picture, "-i", sound, "-c", "copy"}));
    EXPECT_EQ(source->GetInfo().video->start, FramesToTime(8, 25));
    EXPECT_NEAR(source->GetInfo().audio->start, TIME_BASE / 100, TIME_BASE / 1000);
    const auto read = readPictures(*source->CreateVideoStream());
    ASSERT_EQ(read.size(), 50U);
    for (std::size_t index = 1; index < read.size(); ++index)
        EXPECT_NEAR(read[index].time, FramesToTime(8 + static_cast<int>(index), 25), TIME_BASE / 1000);
}

struct Writing {
    Rate rate;
    const char* reordered;
    const char* flags;
};

class FragmentedClip : public SourceTest {
protected:
    static constexpr int FRAMES = 100;

    /// A film of as many frames whose tone begins after a second.
    std::string write(const Writing& writing, const std::vector<std::string>& more = {}) {
        const bool isPal = writing.rate == 25;
        const std::string tone =
            std::string("aevalsrc=exprs='0.5*sin(6000*t)*gte(t,1)':s=48000:d=") + (isPal ? "4" : "3.3");
        return make("a.mp4", join(join(pictures(isPal ? "25" : "30000/1001", FRAMES),
                                       {"-f", "lavfi", "-i", tone, "-c:v", "libx264", "-bf", writing.reordered, "-g",
                                        "25", "-c:a", "aac", "-movflags", writing.flags}),
                                  join(more, {"-y"})));
    }
    static void expectWholeAndInStep(const boost::intrusive_ptr<Kestra::Proc::IMediaSource>& source, Rate rate) {
        const auto read = readPictures(*source->CreateVideoStream());
        ASSERT_EQ(read.size(), static_cast<std::size_t>(FRAMES));
        for (int index = 0; index < FRAMES; ++index)
            EXPECT_NEAR(read[static_cast<std::size_t>(index)].time, FramesToTime(index, rate), TIME_BASE / 1000);
        EXPECT_NEAR(source->GetInfo().duration, FramesToTime(FRAMES, rate), TIME_BASE / 1000);
        const auto samples = readSamples(*source->CreateAudioStream());
        const auto begin =
            std::find_if(samples.begin(), samples.end(), [](float sample) { return std::abs(sample) > 0.25F; });
        EXPECT_NEAR(static_cast<double>(begin - samples.begin()), 48000, 96);
    }
};

TEST_F(FragmentedClip, IsNoLongerAndInStepWhereItsWriterPutsWhatTheCodecNeedsInFront) {
    for (const Writing& writing :
         {Writing{25, "0", "empty_moov+frag_keyframe"}, Writing{{30000, 1001}, "2", "empty_moov+frag_keyframe"},
          Writing{25, "0", "frag_keyframe"}}) {
        SCOPED_TRACE(std::string(writing.reordered) + writing.flags);
        const auto source = open(write(writing));
        expectWholeAndInStep(source, writing.rate);
        EXPECT_TRUE(source->TakeNotes().empty());
    }
}

TEST_F(FragmentedClip, IsInStepWhereItsWriterLetsEverythingBeginAtTheStart) {
    for (const Writing& writing : {Writing{25, "0", "cmaf+frag_keyframe"}, Writing{25, "2", "cmaf+frag_keyframe"},
                                   Writing{{30000, 1001}, "2", "cmaf+frag_every_frame"},
                                   Writing{{30000, 1001}, "2", "empty_moov+frag_keyframe+negative_cts_offsets"}}) {
        SCOPED_TRACE(std::string(writing.reordered) + writing.flags);
        const auto source = open(write(writing));
        expectWholeAndInStep(source, writing.rate);
        const auto notes = source->TakeNotes();
        ASSERT_EQ(notes.size(), 1U);
        EXPECT_EQ(notes[0].what, "the file does not say what the sound's encoder put in front: 0.021 s are taken for "
                                 "that, and left out");
    }
}

TEST_F(FragmentedClip, IsInStepWhereEditListsTellWhereItBegins) {
    const std::string path = write({25, "2", "frag_keyframe+delay_moov+negative_cts_offsets"});
    const auto expectSo = [&] {
        const auto source = open(path);
        expectWholeAndInStep(source, 25);
        EXPECT_TRUE(source->TakeNotes().empty());
    };
    expectSo();
    // Most writers let pictures begin at the start, which takes no list, and only audio has one.
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    std::string changed = bytes.str();
    changed.replace(changed.find("edts"), 4, "free");
    std::ofstream(path, std::ios::binary) << changed;
    expectSo();
}

TEST_F(FragmentedClip, IsInStepWhereItsWriterLeavesTheFirstSoundInFrontOfReorderedPictures) {
    for (const char* codec : {"libmp3lame", "ac3", "flac", "libopus"}) {
        SCOPED_TRACE(codec);
        const auto source = open(write({25, "2", "frag_keyframe"}, {"-c:a", codec, "-strict", "-2"}));
        expectWholeAndInStep(source, 25);
        EXPECT_TRUE(source->TakeNotes().empty());
    }
}

TEST_F(FragmentedClip, OfOpusIsInStepAsItTellsWhatItsEncoderPutInFront) {
    for (const char* flags : {"frag_keyframe", "cmaf+frag_keyframe"}) {
        SCOPED_TRACE(flags);
        const auto source = open(write({25, "0", flags}, {"-c:a", "libopus", "-strict", "-2"}));
        expectWholeAndInStep(source, 25);
        EXPECT_TRUE(source->TakeNotes().empty());
    }
}

TEST_F(FragmentedClip, OfUnknownOriginThatLetsEverythingBeginAtTheStartIsToldOf) {
    // Without the writer's name.
    const auto source = open(write({25, "2", "cmaf+frag_keyframe"}, {"-fflags", "+bitexact"}));
    const auto read = readPictures(*source->CreateVideoStream());
    ASSERT_EQ(read.size(), static_cast<std::size_t>(FRAMES));
    EXPECT_EQ(read[0].time, 0);
    const auto notes = source->TakeNotes();
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0].what,
              "the file does not say what the sound's encoder put in front: the sound may be up to 0.044 s late");
}

TEST_F(FragmentedClip, OfAFragmentForEachFrameKeepsItsSoundWhole) {
    // Its writer gives some packets of sound the time of the one behind them.
    const std::string tone = "aevalsrc=exprs='0.5*sin(6000*t)':s=48000:d=4";
    struct Kind {
        const char* codec;
        const char* flags;
    };
    for (const auto& [codec, flags] : {Kind{"aac", "cmaf+frag_every_frame"},
                                       {"aac", "frag_every_frame+empty_moov"},
                                       {"flac", "frag_every_frame+empty_moov"}}) {
        SCOPED_TRACE(std::string(codec) + flags);
        const auto source =
            open(make("a.mp4", join(pictures("25", 100), {"-f", "lavfi", "-i", tone, "-c:v", "libx264", "-bf", "0",
                                                          "-c:a", codec, "-strict", "-2", "-movflags", flags, "-y"})));
        const auto stream = source->CreateAudioStream();
        const auto samples = readSamples(*stream);
        EXPECT_NEAR(static_cast<double>(samples.size()), 4 * 48000, 2048);
        const auto isHeard = [](float sample) { return std::abs(sample) > 0.25F; };
        const auto end = samples.end() - 2048; // where the codec ends
        for (auto at = std::find_if(samples.begin(), samples.end(), isHeard); at < end;) {
            const auto next = std::find_if(at + 1, samples.end(), isHeard);
            ASSERT_LT(next - at, 48) << static_cast<double>(at - samples.begin()) / 48000;
            at = next;
        }
        EXPECT_EQ(source->TakeNotes().size(), flags[0] == 'c' ? 1U : 0U); // what cmaf does not say
        // From within them it sounds as when it is read from the start, unless they are so long that the first of them
        // lies before what a seek listens to.
        if (std::string(codec) == "flac")
            continue;
        stream->Seek(3 * TIME_BASE, SeekMode::Exact);
        const auto sought = readSamples(*stream, 24000);
        ASSERT_GE(sought.size(), 24000U);
        for (std::size_t index = 0; index < 24000; ++index)
            ASSERT_NEAR(sought[index], samples[3 * 48000 + index], 0.01) << index;
    }
}

} // namespace
} // namespace TestMedia
