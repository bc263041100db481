// SPDX-License-Identifier: GPL-3.0-or-later
// Files that end before their container does.
#include "Kestra/FF/Demux/ContainerEnd.h"
#include "Kestra/FF/Demux/FileBytes.h"
#include "unit/source/SourceFixture.h"
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <utility>

namespace TestMedia {
namespace {

struct Kind {
    std::string file;
    std::vector<std::string> arguments;
    bool pictures = false;
};

void PrintTo(const Kind& kind, std::ostream* out) {
    *out << kind.file;
}

std::string nameOf(const testing::TestParamInfo<Kind>& kind) {
    std::string name = kind.param.file;
    std::replace(name.begin(), name.end(), '.', '_');
    return name;
}

class CutOff : public SourceTest {
protected:
    std::string makeKind(const Kind& kind) {
        const std::vector<std::string> sound{"-f", "lavfi", "-i", noise(48000, 5)};
        const std::vector<std::string> picture{"-f", "lavfi", "-i", "testsrc2=s=160x120:r=25:d=5"};
        return make(kind.file, join(kind.pictures ? join(sound, picture) : sound, kind.arguments));
    }
    static void cut(const std::string& path, double part) {
        std::filesystem::resize_file(path, static_cast<std::uintmax_t>(std::filesystem::file_size(path) * part));
    }
    static bool isIncomplete(const std::vector<Kestra::Proc::DamageReport>& reports) {
        return std::any_of(reports.begin(), reports.end(), [](const auto& report) { return report.incomplete; });
    }
};

class CutOffThatTells : public CutOff, public testing::WithParamInterface<Kind> {};

TEST_P(CutOffThatTells, IsIncompleteFromItsRealEndOn) {
    const std::string whole = makeKind(GetParam());
    const std::string path = folder / ("cut-" + GetParam().file);
    for (const double part : {0.31, 0.6, 0.95}) {
        std::filesystem::copy_file(whole, path, std::filesystem::copy_options::overwrite_existing);
        cut(path, part);
        const auto source = open(path);
        const auto reports = source->TakeDamageReports();
        ASSERT_TRUE(isIncomplete(reports)) << part;
        EXPECT_EQ(reports.front().time, source->GetInfo().duration) << part;
        EXPECT_LT(source->GetInfo().duration, 5 * TIME_BASE) << part;
    }
}

TEST_P(CutOffThatTells, IsNotSaidOfTheWholeFile) {
    const auto source = open(makeKind(GetParam()));
    EXPECT_TRUE(source->TakeDamageReports().empty());
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, CutOffThatTells,
    testing::Values(Kind{"a.wav", {}}, Kind{"rf64.wav", {"-rf64", "always"}}, Kind{"a.w64", {}}, Kind{"a.aiff", {}},
                    Kind{"a.au", {}}, Kind{"a.caf", {"-c:a", "pcm_s16be"}}, Kind{"a.flac", {}},
                    Kind{"a.mp3", {"-c:a", "libmp3lame"}},
                    Kind{"a.ogg", {"-c:a", "libvorbis", "-page_duration", "200000"}},
                    Kind{"a.opus", {"-c:a", "libopus"}}, Kind{"a.mka", {"-c:a", "aac"}},
                    Kind{"a.webm", {"-c:a", "libopus"}}, Kind{"a.m4a", {"-c:a", "aac", "-movflags", "+faststart"}},
                    Kind{"fragmented.mp4",
                         {"-c:v", "mpeg4", "-c:a", "aac", "-movflags", "frag_keyframe+empty_moov", "-g", "5"},
                         true},
                    Kind{"a.avi", {"-c:v", "mpeg4", "-c:a", "libmp3lame"}, true}),
    nameOf);

TEST_F(CutOff, WhereNothingTellsTheEndIsTakenAsItIs) {
    for (const Kind& kind : {Kind{"a.aac", {"-c:a", "aac"}}, Kind{"a.ac3", {"-c:a", "ac3"}},
                             Kind{"a.ts", {"-c:a", "mp2"}}, Kind{"a.mpg", {"-c:a", "mp2"}}}) {
        const std::string path = makeKind(kind);
        cut(path, 0.6);
        const auto source = open(path);
        EXPECT_FALSE(isIncomplete(source->TakeDamageReports())) << kind.file;
        EXPECT_NEAR(static_cast<double>(source->GetInfo().duration) / TIME_BASE, 3, 0.2) << kind.file;
    }
}

TEST_F(CutOff, BehindTheFirstOfSeveralFilesInOneIsIncomplete) {
    for (const Kind& kind : {Kind{"a.flac", {}}, Kind{"a.wav", {}}, Kind{"a.aiff", {}}, Kind{"a.mka", {"-c:a", "flac"}},
                             Kind{"a.m4a", {"-c:a", "alac"}}, Kind{"a.au", {}}, Kind{"a.w64", {}}, Kind{"a.caf", {}},
                             Kind{"a.tta", {}}, Kind{"a.wv", {}}, Kind{"a.flv", {"-c:v", "flv", "-c:a", "aac"}, true},
                             Kind{"a.mxf", {"-c:v", "mpeg2video", "-c:a", "pcm_s16le", "-ar", "48000"}, true},
                             Kind{"a.wmv", {"-c:v", "wmv2", "-c:a", "wmav2"}, true}}) {
        const std::string part = makeKind(kind);
        const std::string two = folder / ("two-" + kind.file);
        std::ofstream(two, std::ios::binary)
            << std::ifstream(part, std::ios::binary).rdbuf() << std::ifstream(part, std::ios::binary).rdbuf();
        const auto first = open(part);
        EXPECT_FALSE(isIncomplete(first->TakeDamageReports())) << kind.file;
        const auto source = open(two);
        const auto reports = source->TakeDamageReports();
        ASSERT_EQ(reports.size(), 1U) << kind.file;
        EXPECT_TRUE(reports[0].incomplete) << kind.file;
        EXPECT_NE(reports[0].what.find("another file of its kind"), std::string::npos) << reports[0].what;
        EXPECT_EQ(reports[0].time, first->GetInfo().duration) << kind.file;
        EXPECT_EQ(source->GetInfo().duration, first->GetInfo().duration) << kind.file;
        // Up to there it is what the first one is.
        EXPECT_EQ(readSamples(*source->CreateAudioStream()), readSamples(*first->CreateAudioStream())) << kind.file;
        EXPECT_TRUE(source->TakeDamageReports().empty()) << kind.file;
    }
}

TEST_F(CutOff, IsNotSaidOfWavPackThatEndsWithACheckSum) {
    const std::string path = makeKind({"a.wv", {}});
    const auto samples = readSamples(*open(path)->CreateAudioStream());
    // A block of no samples, whose place is 0: what its own encoder puts behind the others, with what it is told to.
    std::string block("wvpk\x2a\0\0\0\x10\x04", 10);
    block += std::string(22, '\0') + std::string("\x26\x08", 2) + std::string(16, 'm');
    std::ofstream(path, std::ios::binary | std::ios::app) << block;
    const auto source = open(path);
    EXPECT_TRUE(source->TakeDamageReports().empty());
    EXPECT_EQ(readSamples(*source->CreateAudioStream()), samples);
    // Another file behind it is still seen.
    const std::string two = folder / "two.wv";
    std::ofstream(two, std::ios::binary) << std::ifstream(path, std::ios::binary).rdbuf()
                                         << std::ifstream(path, std::ios::binary).rdbuf();
    EXPECT_TRUE(isIncomplete(open(two)->TakeDamageReports()));
}

TEST_F(CutOff, AfterTheMediaIsAWarningOnly) {
    const std::string path = makeKind({"a.mkv", {"-c:a", "flac"}});
    // The index is its last element.
    std::filesystem::resize_file(path, std::filesystem::file_size(path) - 3);
    const auto reports = open(path)->TakeDamageReports();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_FALSE(reports[0].incomplete);
    EXPECT_NE(reports[0].what.find("3 bytes are missing"), std::string::npos) << reports[0].what;
}

TEST_F(CutOff, IsNotSaidWhereASoundThatWasNotChosenIsTheLongest) {
    const std::string path = make("a.mkv", {"-f", "lavfi", "-i", "sine=r=48000:d=1", "-f", "lavfi", "-i",
                                            "sine=r=48000:d=3", "-map", "0", "-map", "1", "-c:a", "flac"});
    EXPECT_TRUE(openWith(path, {0, {}})->TakeDamageReports().empty());
    EXPECT_TRUE(openWith(path, {1, {}})->TakeDamageReports().empty());
    cut(path, 0.6);
    EXPECT_TRUE(isIncomplete(openWith(path, {0, {}})->TakeDamageReports())) << "it still is where bytes are missing";
}

TEST_F(CutOff, WithinAPacketOfATransportStreamIsAWarning) {
    for (const Kind& kind : {Kind{"a.ts", {"-c:a", "mp2"}}, Kind{"a.m2ts", {"-c:a", "mp2"}}}) {
        const std::string path = makeKind(kind);
        EXPECT_TRUE(open(path)->TakeDamageReports().empty()) << kind.file;
        std::filesystem::resize_file(path, std::filesystem::file_size(path) - 1000);
        const auto reports = open(path)->TakeDamageReports();
        ASSERT_EQ(reports.size(), 1U) << kind.file;
        EXPECT_FALSE(reports[0].incomplete) << kind.file;
        EXPECT_NE(reports[0].what.find("ends within a packet"), std::string::npos) << reports[0].what;
    }
}

TEST_F(CutOff, AtTheLastPageIsAWarning) {
    const std::string path = makeKind({"a.ogg", {"-c:a", "libvorbis", "-page_duration", "200000"}});
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    const std::string whole = text.str();
    const std::size_t last = whole.rfind("OggS");
    ASSERT_NE(last, std::string::npos);
    std::filesystem::resize_file(path, last);
    const auto reports = open(path)->TakeDamageReports();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_FALSE(reports[0].incomplete);
    EXPECT_NE(reports[0].what.find("no last page"), std::string::npos) << reports[0].what;
}

TEST_F(CutOff, IsNotSaidOfASizeThatWasNotKnownWhenTheFileWasBegun) {
    for (const auto& [kind, codec] : {std::pair{"wav", "pcm_s16le"}, std::pair{"au", "pcm_s16be"},
                                      std::pair{"webm", "libopus"}, std::pair{"matroska", "pcm_s16le"}}) {
        // What is written into a pipe cannot be corrected at the end.
        const std::string path = folder / "streamed";
        const std::string command = std::string("ffmpeg -v error -f lavfi -i sine=r=48000:d=1 -c:a ") + codec + " -f " +
                                    kind + " - > '" + path + "'";
        ASSERT_EQ(std::system(command.c_str()), 0) << kind;
        const auto source = open(path);
        EXPECT_TRUE(source->TakeDamageReports().empty()) << kind;
        EXPECT_GE(source->GetInfo().duration, TIME_BASE) << kind;
    }
}

TEST_F(CutOff, IsNotSaidOfALengthThatLibavReckonsFromTheBeginning) {
    // Of silence, which takes next to nothing, so that all the rest of the file seems to last for many times as long.
    const std::string sound = "aevalsrc='if(lt(t,4),0,0.3*random(0))':s=48000:d=6";
    const std::vector<Kind> kinds{{"a.aac", {"-c:a", "aac", "-b:a", "160k"}},
                                  {"a.mp3", {"-c:a", "libmp3lame", "-q:a", "2", "-write_xing", "0"}}};
    for (const Kind& kind : kinds) {
        const auto source = open(make(kind.file, join({"-f", "lavfi", "-i", sound}, kind.arguments)));
        EXPECT_TRUE(source->TakeDamageReports().empty()) << kind.file;
        EXPECT_NEAR(static_cast<double>(source->GetInfo().duration) / TIME_BASE, 6, 0.1) << kind.file;
    }
}

TEST_F(CutOff, IsNotLookedForOnceInterrupted) {
    std::atomic<bool> interrupted{false};
    for (const Kind& kind : {Kind{"a.wav", {}}, Kind{"a.mp4", {"-c:a", "aac"}}}) {
        const std::string path = makeKind(kind);
        const std::string format = kind.file == "a.wav" ? "wav" : "mov,mp4,m4a,3gp,3g2,mj2";
        cut(path, 0.5);
        interrupted = false;
        EXPECT_GT(Kestra::FF::FindContainerEnd(ioPath(path), format, interrupted).missing, 0) << format;
        interrupted = true;
        EXPECT_EQ(Kestra::FF::FindContainerEnd(ioPath(path), format, interrupted).missing, 0) << format;
    }
}

TEST_F(CutOff, IsLookedForInAFileThatEndsWhenItIsInterrupted) {
    std::atomic<bool> interrupted{false};
    std::ofstream(folder / "a.bin") << "RIFF";
    Kestra::FF::FileBytes bytes(folder / "a.bin", interrupted);
    EXPECT_EQ(bytes.Name(0), "RIFF");
    EXPECT_EQ(bytes.GetSize(), 4);
    interrupted = true;
    EXPECT_EQ(bytes.Name(0), std::string(4, '\0'));
    EXPECT_EQ(bytes.GetSize(), 0);
}

} // namespace
} // namespace TestMedia
