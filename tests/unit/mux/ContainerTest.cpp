// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/streams/DecodedFile.h"
#include "fakes/streams/ExportDriver.h"
#include "fakes/streams/ScratchFolder.h"
#include "fakes/streams/SyntheticAudio.h"
#include "fakes/streams/SyntheticVideo.h"
#include <cmath>
#include <fstream>
#include <gtest/gtest.h>

using namespace Fakes;
using Kestra::Core::Property;

namespace {

struct Pairing {
    const char* container;
    const char* video;
    const char* audio;
};

void PrintTo(const Pairing& pairing, std::ostream* out) {
    *out << pairing.container << ' ' << pairing.video << ' ' << pairing.audio;
}

class Containers : public testing::TestWithParam<Pairing> {};

/// One loud sample on silence, so that its place can be found again.
double Click(std::int64_t at, std::int64_t index) {
    return index == at ? 0.9 : 0.0;
}

std::int64_t LoudestSample(const std::vector<float>& samples) {
    std::size_t loudest = 0;
    for (std::size_t index = 0; index < samples.size(); ++index)
        if (std::abs(samples[index]) > std::abs(samples[loudest]))
            loudest = index;
    return static_cast<std::int64_t>(loudest);
}

} // namespace

TEST_P(Containers, HoldEveryFrameAndTheExactLength) {
    const ScratchFolder folder;
    const std::string path = folder.File("out");
    VideoShape pictures;
    pictures.rate = {30000, 1001};
    pictures.frames = 47;
    AudioShape sound;
    sound.samples = 75275; // 47 frames, rounded to samples
    sound.wave = [](int, std::int64_t index) { return 0.3 * std::sin(static_cast<double>(index) * 0.05); };
    WriteFile(path, GetParam().container,
              {VideoEncoder(MakeVideo(pictures), Description(GetParam().video)),
               AudioEncoder(MakeAudio(sound), Description(GetParam().audio))});
    const DecodedFile file = Decode(path);
    EXPECT_EQ(file.Video().pictures.size(), 47U);
    EXPECT_NEAR(file.seconds, 47 * 1001.0 / 30000, 0.0015);
    EXPECT_EQ(file.Video().parameters->codec_id, avcodec_descriptor_get_by_name(GetParam().video)->id);
    EXPECT_GE(file.Audio().samples.at(0).size(), 75275U);
    EXPECT_LE(file.Audio().samples.at(0).size(), 75275U + 2048U);
    EXPECT_EQ(file.encoder.rfind("EditorExport", 0), 0U) << file.encoder;
}

TEST_P(Containers, KeepSoundInPlaceToTheSample) {
    const ScratchFolder folder;
    const std::string path = folder.File("out");
    VideoShape pictures;
    AudioShape sound;
    sound.wave = [](int, std::int64_t index) { return Click(20011, index); };
    WriteFile(path, GetParam().container,
              {VideoEncoder(MakeVideo(pictures), Description(GetParam().video)),
               AudioEncoder(MakeAudio(sound), Description(GetParam().audio))});
    const DecodedFile file = Decode(path);
    EXPECT_NEAR(static_cast<double>(LoudestSample(file.Audio().samples.at(0))), 20011, 2);
}

INSTANTIATE_TEST_SUITE_P(Export, Containers,
                         testing::Values(Pairing{"mp4", "h264", "aac"}, Pairing{"mov", "h264", "aac"},
                                         Pairing{"mkv", "h264", "aac"}, Pairing{"webm", "vp9", "opus"},
                                         Pairing{"mp4", "hevc", "aac"}, Pairing{"mov", "prores", "pcm_s16le"},
                                         Pairing{"mkv", "ffv1", "flac"}, Pairing{"mp4", "mpeg4", "mp3"},
                                         Pairing{"webm", "vp9", "vorbis"}, Pairing{"mp4", "av1", "opus"}));

namespace {

struct SoundFile {
    const char* container;
    const char* codec;
    std::int64_t tolerance; ///< samples that the reader may leave at the end; Matroska's times are rounded to 1 ms
};

void PrintTo(const SoundFile& file, std::ostream* out) {
    *out << file.container << ' ' << file.codec;
}

class SoundFiles : public testing::TestWithParam<SoundFile> {};

} // namespace

TEST_P(SoundFiles, HoldEverySampleInItsPlace) {
    const ScratchFolder folder;
    const std::string path = folder.File("out");
    AudioShape sound;
    sound.samples = 50021;
    sound.wave = [](int, std::int64_t index) { return Click(20011, index); };
    WriteFile(path, GetParam().container, {AudioEncoder(MakeAudio(sound), Description(GetParam().codec))});
    const DecodedFile file = Decode(path);
    const auto count = static_cast<std::int64_t>(file.Audio().samples.at(0).size());
    EXPECT_GE(count, 50021);
    EXPECT_LE(count, 50021 + GetParam().tolerance);
    EXPECT_NEAR(static_cast<double>(LoudestSample(file.Audio().samples.at(0))), 20011, 2);
}

INSTANTIATE_TEST_SUITE_P(Export, SoundFiles,
                         testing::Values(SoundFile{"wav", "pcm_s16le", 0}, SoundFile{"wav", "pcm_s24le", 0},
                                         SoundFile{"flac", "flac", 0}, SoundFile{"mp3", "mp3", 0},
                                         SoundFile{"webm", "opus", 0}, SoundFile{"webm", "vorbis", 0},
                                         SoundFile{"m4a", "aac", 1024}, SoundFile{"mkv", "opus", 0},
                                         SoundFile{"mkv", "mp3", 2}, SoundFile{"mp4", "flac", 0}));

namespace {

std::string ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::uint32_t NumberAt(const std::string& bytes, std::size_t at) {
    std::uint32_t number = 0;
    for (std::size_t index = 0; index < 4; ++index)
        number = number << 8 | static_cast<std::uint8_t>(bytes.at(at + index));
    return number;
}

} // namespace

TEST(Muxer, PutsTheIndexBeforeTheMediaInMp4) {
    const ScratchFolder folder;
    const std::string path = folder.File("out.mp4");
    WriteFile(path, "mp4", {VideoEncoder(MakeVideo({}), Description("h264"))});
    const std::string bytes = ReadFile(path);
    ASSERT_NE(bytes.find("moov"), std::string::npos);
    EXPECT_LT(bytes.find("moov"), bytes.find("mdat"));
}

TEST(Muxer, CountsTheLengthOfAMovieExactly) {
    const ScratchFolder folder;
    const std::string path = folder.File("out.mp4");
    VideoShape pictures;
    pictures.rate = {30000, 1001};
    pictures.frames = 47;
    WriteFile(path, "mp4", {VideoEncoder(MakeVideo(pictures), Description("h264"))});
    const std::string bytes = ReadFile(path);
    const std::size_t header = bytes.find("mvhd");
    ASSERT_NE(header, std::string::npos);
    const std::uint64_t timescale = NumberAt(bytes, header + 16);
    const std::uint64_t duration = NumberAt(bytes, header + 20);
    EXPECT_EQ(duration * 30000, std::uint64_t{47} * 1001 * timescale);
}

TEST(Muxer, KeepsTheTagOfAProResProfile) {
    const ScratchFolder folder;
    const std::pair<const char*, std::uint32_t> profiles[] = {{"proxy", MKTAG('a', 'p', 'c', 'o')},
                                                              {"hq", MKTAG('a', 'p', 'c', 'h')}};
    for (const auto& [profile, tag] : profiles) {
        auto description = Description("prores");
        description.SetChild(Kestra::Conf::IFormatCodec::TAG_PROFILE, std::string(profile));
        WriteFile(folder.File("out.mov"), "mov", {VideoEncoder(MakeVideo({}), description)});
        EXPECT_EQ(Decode(folder.File("out.mov")).Video().parameters->codec_tag, tag) << profile;
    }
}

TEST(Muxer, TagsHevcSoThatItsHeaderIsTheContainers) {
    const ScratchFolder folder;
    const std::string path = folder.File("out.mp4");
    WriteFile(path, "mp4", {VideoEncoder(MakeVideo({}), Description("hevc"))});
    EXPECT_EQ(Decode(path).Video().parameters->codec_tag, static_cast<std::uint32_t>(MKTAG('h', 'v', 'c', '1')));
}
