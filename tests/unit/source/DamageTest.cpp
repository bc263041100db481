// SPDX-License-Identifier: GPL-3.0-or-later
// Files that are cut off or spoilt: read as far as they go, and told of.
#include "unit/source/SourceFixture.h"
#include <algorithm>
#include <filesystem>
#include <fstream>

namespace TestMedia {
namespace {

class Damage : public SourceTest {
protected:
    std::string makeMedia(const std::string& name, const std::vector<std::string>& more = {}) {
        return make(name, join({"-f", "lavfi", "-i", "testsrc2=s=320x240:r=25:d=6", "-f", "lavfi", "-i",
                                numberedSamples(48000, 6 * 48000), "-c:v", "libx264", "-g", "25", "-bf", "2", "-c:a",
                                "flac", "-strict", "-2"},
                               more));
    }
    static void cut(const std::string& path, double part) {
        std::filesystem::resize_file(path, static_cast<std::uintmax_t>(std::filesystem::file_size(path) * part));
    }
    static void spoil(const std::string& path, double at, std::size_t bytes) {
        std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
        file.seekp(static_cast<std::streamoff>(std::filesystem::file_size(path) * at));
        for (std::size_t index = 0; index < bytes; ++index)
            file.put(static_cast<char>(index * 151 + 7));
    }
    static bool mentions(const std::vector<Kestra::Proc::DamageReport>& reports, const std::string& words) {
        return std::any_of(reports.begin(), reports.end(),
                           [&](const auto& report) { return report.what.find(words) != std::string::npos; });
    }
    /// Frames and samples add up to what the streams announce.
    static void expectWholeStreams(IMediaSource& source) {
        const auto video = source.CreateVideoStream();
        std::int64_t end = 0;
        while (const auto picture = video->ReadVideo()) {
            ASSERT_EQ(picture->GetTime(), end);
            ASSERT_GT(picture->GetDuration(), 0);
            end += picture->GetDuration();
        }
        EXPECT_EQ(end, video->GetDuration());
        const auto audio = source.CreateAudioStream();
        EXPECT_EQ(static_cast<std::int64_t>(readSamples(*audio).size()), TimeToSamples(audio->GetDuration(), 48000));
    }
};

TEST_F(Damage, OfAFileThatWasCutOffIsToldWithItsRealEnd) {
    for (const char* name : {"a.mkv", "a.mp4"}) {
        const std::string path = makeMedia(name, {"-movflags", "+faststart"});
        cut(path, 0.5);
        const auto source = open(path);
        EXPECT_LT(source->GetInfo().duration, 5 * TIME_BASE) << name;
        EXPECT_GT(source->GetInfo().duration, TIME_BASE) << name;
        const auto reports = source->TakeDamageReports();
        ASSERT_TRUE(mentions(reports, "its header claims 6.0")) << name;
        EXPECT_EQ(reports.front().path.ToUtf8(), path);
        EXPECT_EQ(reports.front().time, source->GetInfo().duration);
        expectWholeStreams(*source);
        EXPECT_TRUE(source->TakeDamageReports().size() < 10);
    }
}

TEST_F(Damage, WithinAFileIsConcealedAndReportedWithItsTime) {
    for (const char* name : {"a.mkv", "a.mp4"}) {
        const std::string path = makeMedia(name);
        spoil(path, 0.5, 3000);
        const auto source = open(path);
        expectWholeStreams(*source);
        const auto reports = source->TakeDamageReports();
        ASSERT_FALSE(reports.empty()) << name;
        for (const auto& report : reports) {
            EXPECT_GT(report.time, TIME_BASE) << name << " " << report.what;
            EXPECT_LT(report.time, 5 * TIME_BASE) << name << " " << report.what;
        }
        EXPECT_TRUE(source->TakeDamageReports().empty());
    }
}

// The decoder tells in the words of a failed allocation that its list of frames is full of those that are missing.
TEST_F(Damage, ThatFillsTheListOfAnHevcDecoderWithLostFramesIsNoWantOfMemory) {
    const std::string whole =
        make("whole.mkv", {"-f", "lavfi", "-i", "testsrc2=s=128x96:r=25:d=6", "-c:v", "libx265", "-x265-params",
                           "log-level=none:keyint=250:min-keyint=250:scenecut=0:bframes=2:b-adapt=0:ref=16:"
                           "allow-non-conformance=1"});
    const std::string lossy = make(
        "lossy.mkv", {"-i", whole, "-c", "copy", "-bsf:v", "noise=amount=0:drop='between(n,60,84)+between(n,86,110)'"});
    const auto source = open(lossy);
    const auto video = source->CreateVideoStream();
    int frames = 0;
    while (video->ReadVideo())
        ++frames;
    EXPECT_GT(frames, 60);
    EXPECT_FALSE(source->TakeDamageReports().empty());
}

TEST_F(Damage, IsNotReportedForWholeFiles) {
    const auto source = open(makeMedia("a.mp4"));
    expectWholeStreams(*source);
    EXPECT_TRUE(source->TakeDamageReports().empty());
}

TEST_F(Damage, BeforeTheTargetOfASeekIsNotReported) {
    const auto source = open(make(
        "a.ts", {"-f", "lavfi", "-i", "testsrc2=s=320x240:r=25:d=6", "-c:v", "mpeg2video", "-g", "15", "-bf", "2"}));
    const auto stream = source->CreateVideoStream();
    for (const int second : {4, 1, 5, 3}) {
        stream->Seek(second * TIME_BASE, SeekMode::Exact);
        EXPECT_TRUE(stream->ReadVideo());
    }
    EXPECT_TRUE(source->TakeDamageReports().empty());
}

} // namespace
} // namespace TestMedia
