// SPDX-License-Identifier: GPL-3.0-or-later
// Real files with real oddities, where they are at hand: EDITOR_EXPORT_SAMPLE_MEDIA, or ../shared/media.
#include "Kestra/FF/Data/DataVideoFF.h"
#include "unit/source/SourceFixture.h"
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <map>
#include <random>

namespace TestMedia {
namespace {

namespace fs = std::filesystem;

std::string sampleFolder() {
    if (const char* named = std::getenv("EDITOR_EXPORT_SAMPLE_MEDIA"))
        return named;
    const fs::path beside = fs::path(EDITOR_EXPORT_SOURCE_DIR) / ".." / "shared" / "media";
    return fs::is_directory(beside) ? beside.string() : std::string();
}

std::vector<std::string> sampleFiles() {
    std::vector<std::string> files;
    const std::string folder = sampleFolder();
    if (!folder.empty())
        for (const auto& entry : fs::directory_iterator(folder))
            if (entry.path().extension() != ".md" && entry.path().extension() != ".tsv")
                files.push_back(entry.path().filename().string());
    std::sort(files.begin(), files.end());
    return files;
}

std::uint64_t fingerprint(const Kestra::Proc::IDataVideo& picture) {
    const AVFrame& frame = Kestra::FF::FrameOf(picture);
    std::uint64_t sum = 1469598103934665603ULL;
    const auto add = [&sum](std::uint64_t value) { sum = (sum ^ value ^ sum >> 29) * 1099511628211ULL; };
    for (int y = 0; y < frame.height; ++y) {
        const std::uint8_t* row = frame.data[0] + static_cast<std::ptrdiff_t>(y) * frame.linesize[0];
        int x = 0;
        for (std::uint64_t eight = 0; x + 8 <= frame.width; x += 8) {
            std::memcpy(&eight, row + x, sizeof eight);
            add(eight);
        }
        for (; x < frame.width; ++x)
            add(row[x]);
    }
    return sum;
}

struct Shown {
    std::int64_t time;
    std::int64_t duration;
    std::uint64_t print;
};

/// The pictures of a file from its start to its end.
struct ReadThrough {
    std::vector<Shown> shown;
    std::int64_t duration = 0; ///< as the stream says behind the last one
};

class SampleMedia : public testing::TestWithParam<std::string> {
protected:
    static std::string path() { return sampleFolder() + "/" + GetParam(); }
    /// Both tests of the pictures need it, and for some files it takes seconds.
    static const ReadThrough& readThrough() {
        static std::map<std::string, ReadThrough> all;
        const auto [place, isNew] = all.try_emplace(path());
        if (isNew) {
            const auto stream = open(path())->CreateVideoStream();
            while (const auto picture = stream->ReadVideo())
                place->second.shown.push_back({picture->GetTime(), picture->GetDuration(), fingerprint(*picture)});
            place->second.duration = stream->GetDuration();
        }
        return place->second;
    }
};

TEST_P(SampleMedia, StreamsAreContiguousAndAsLongAsTheySay) {
    const auto source = open(path());
    ASSERT_GT(source->GetInfo().duration, 0);
    std::int64_t longest = 0;
    if (source->GetInfo().video) {
        std::int64_t end = 0;
        for (const Shown& picture : readThrough().shown) {
            ASSERT_EQ(picture.time, end);
            ASSERT_GT(picture.duration, 0);
            end += picture.duration;
        }
        EXPECT_EQ(end, readThrough().duration);
        longest = end;
    }
    if (source->GetInfo().audio) {
        const auto stream = source->CreateAudioStream();
        const auto samples = static_cast<std::int64_t>(readSamples(*stream).size());
        EXPECT_EQ(samples, TimeToSamples(stream->GetDuration(), source->GetInfo().audio->sampleRate));
        longest = std::max(longest, stream->GetDuration());
    }
    EXPECT_EQ(source->GetInfo().duration, longest);
}

TEST_P(SampleMedia, SeeksShowWhatReadingThroughShows) {
    const auto source = open(path());
    if (!source->GetInfo().video)
        GTEST_SKIP() << "no picture";
    const std::vector<Shown>& shown = readThrough().shown;
    const std::size_t count = std::min<std::size_t>(shown.size(), 1500);
    const auto stream = source->CreateVideoStream();
    std::mt19937 random(1);
    for (int round = 0; round < 12; ++round) {
        const std::size_t index = random() % count;
        const Shown& wanted = shown[index];
        stream->Seek(wanted.time + wanted.duration / 2, SeekMode::Exact);
        const auto picture = stream->ReadVideo();
        ASSERT_TRUE(picture) << index;
        ASSERT_EQ(picture->GetTime(), wanted.time) << index;
        ASSERT_EQ(fingerprint(*picture), wanted.print) << index;
    }
}

TEST_P(SampleMedia, SoundAfterASeekIsThatOfReadingThrough) {
    const auto source = open(path());
    if (!source->GetInfo().audio)
        GTEST_SKIP() << "no sound";
    const int rate = source->GetInfo().audio->sampleRate;
    const auto whole = readSamples(*source->CreateAudioStream(), 60LL * rate);
    const auto stream = source->CreateAudioStream();
    std::mt19937 random(2);
    for (int round = 0; round < 12; ++round) {
        const std::size_t number = random() % (whole.size() - 2000);
        stream->Seek(Kestra::SamplesToTime(static_cast<std::int64_t>(number), rate), SeekMode::Exact);
        const auto read = readSamples(*stream, 1000);
        ASSERT_GE(read.size(), 1000U);
        double difference = 0;
        double energy = 1e-4;
        for (std::size_t index = 0; index < 1000; ++index) {
            difference += std::pow(read[index] - whole[number + index], 2);
            energy += std::pow(whole[number + index], 2);
        }
        // Decoders fill some bands with noise of their own.
        EXPECT_LT(difference, energy * 0.2) << "sample " << number;
    }
}

INSTANTIATE_TEST_SUITE_P(Files, SampleMedia, testing::ValuesIn(sampleFiles()),
                         [](const testing::TestParamInfo<std::string>& file) {
                             std::string name = file.param;
                             for (char& character : name)
                                 if (!std::isalnum(static_cast<unsigned char>(character)))
                                     character = '_';
                             return name;
                         });
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(SampleMedia);

class NamedSample : public testing::Test {
protected:
    /// Skips the test when the file is not at hand.
    boost::intrusive_ptr<IMediaSource> sample(const std::string& name) {
        const std::string file = sampleFolder() + "/" + name;
        return !sampleFolder().empty() && fs::exists(file) ? open(file) : nullptr;
    }
};

#define REQUIRE_SAMPLE(source, name)                                                                                   \
    const auto source = sample(name);                                                                                  \
    if (!(source))                                                                                                     \
    GTEST_SKIP() << "the sample is not at hand"

TEST_F(NamedSample, ThatBeginsAtTenSecondsBeginsAtZero) {
    REQUIRE_SAMPLE(source, "11_bbb_800x640_768kbps_30fps_avc_2b_firstpts_10_sec.mp4");
    EXPECT_EQ(source->GetInfo().duration, 4 * TIME_BASE);
    EXPECT_EQ(source->GetInfo().video->frame, (Kestra::Conf::FrameInfo{800, 640, 1137, 640}));
}

TEST_F(NamedSample, WhosePictureIsOneSecondLateHoldsItsFirstFrame) {
    REQUIRE_SAMPLE(source, "10_edit_list_positive_shift.mp4");
    const auto picture = source->CreateVideoStream()->ReadVideo();
    EXPECT_EQ(picture->GetTime(), 0);
    EXPECT_EQ(picture->GetDuration(), TIME_BASE + FramesToTime(1, 30));
}

TEST_F(NamedSample, ThatEndsEarlySaysSo) {
    REQUIRE_SAMPLE(source, "40_fixture2.mkv");
    EXPECT_LT(source->GetInfo().duration, 2 * TIME_BASE);
    const auto reports = source->TakeDamageReports();
    ASSERT_FALSE(reports.empty());
    EXPECT_NE(reports[0].what.find("1132"), std::string::npos);
}

TEST_F(NamedSample, OfAPhoneIsUpright) {
    REQUIRE_SAMPLE(source, "13_portrait.MOV");
    EXPECT_EQ(source->GetInfo().video->rotation, 90);
    EXPECT_EQ(source->GetInfo().video->frame.width, 320U);
    EXPECT_EQ(source->GetInfo().video->frame.height, 568U);
}

TEST_F(NamedSample, WithAlphaBesideItsBlocksKeepsIt) {
    REQUIRE_SAMPLE(source, "26_transparency.webm");
    EXPECT_EQ(source->CreateVideoStream()->ReadVideo()->GetPixelFormat(), Kestra::Conf::PixelFormat::YUVA420P);
}

} // namespace
} // namespace TestMedia
