// SPDX-License-Identifier: GPL-3.0-or-later
// Recordings that were cut where no keyframe is: at their start, and by edit lists.
#include "Kestra/FF/Demux/EditList.h"
#include "unit/source/SourceFixture.h"
#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>

namespace TestMedia {
namespace {

using Bytes = std::vector<unsigned char>;

Bytes readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void writeFile(const std::string& path, const Bytes& bytes, std::size_t from = 0) {
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()) + from, static_cast<std::streamsize>(bytes.size() - from));
}

void putNumber(Bytes& bytes, std::size_t place, std::uint32_t number) {
    for (int byte = 0; byte < 4; ++byte)
        bytes[place + static_cast<std::size_t>(byte)] = static_cast<unsigned char>(number >> (24 - 8 * byte));
}

/// Gives the last edit of every track that length, in ticks of the movie's clock.
void setEditLengths(const std::string& path, std::uint32_t ticks) {
    constexpr std::size_t COUNT_OFFSET = 8;
    constexpr std::size_t ENTRY_SIZE = 12;
    Bytes bytes = readFile(path);
    const std::string name = "elst";
    auto place = bytes.begin();
    int edited = 0;
    while ((place = std::search(place, bytes.end(), name.begin(), name.end())) != bytes.end()) {
        const auto at = static_cast<std::size_t>(place - bytes.begin());
        const std::size_t entries = bytes[at + COUNT_OFFSET + 3];
        putNumber(bytes, at + COUNT_OFFSET + 4 + (entries - 1) * ENTRY_SIZE, ticks);
        ++place;
        ++edited;
    }
    ASSERT_EQ(edited, 2);
    writeFile(path, bytes);
}

/// Gives the only edit of every track that beginning, in ticks of the track, and that speed.
void setEdits(const std::string& path, const std::vector<std::uint32_t>& begins, std::uint32_t speed) {
    constexpr std::size_t BEGIN_OFFSET = 16;
    Bytes bytes = readFile(path);
    const std::string name = "elst";
    auto place = bytes.begin();
    for (const std::uint32_t begin : begins) {
        place = std::search(place, bytes.end(), name.begin(), name.end());
        ASSERT_NE(place, bytes.end());
        const auto at = static_cast<std::size_t>(place++ - bytes.begin());
        ASSERT_EQ(bytes[at + 11], 1);
        putNumber(bytes, at + BEGIN_OFFSET, begin);
        putNumber(bytes, at + BEGIN_OFFSET + 4, speed);
    }
    writeFile(path, bytes);
}

class CutMedia : public SourceTest {
protected:
    static constexpr int FRAMES = 150;
    /// Six seconds; at 4 s, with picture 100, a beep begins.
    std::string makeWhole(const std::string& name, const std::vector<std::string>& codecs) {
        const std::string beep = "aevalsrc=exprs='0.5*sin(6000*t)*between(t,4,4.1)':s=48000:d=6";
        return make(name, join(join(pictures("25", FRAMES), {"-f", "lavfi", "-i", beep}), codecs));
    }
    /// From where picture 100 is shown to where the beep is heard.
    static double beepAfterPicture(IMediaSource& source) {
        double shown = -1;
        for (const ReadPicture& picture : readPictures(*source.CreateVideoStream()))
            if (picture.number == 100)
                shown = static_cast<double>(picture.time) / TIME_BASE;
        const auto sound = source.CreateAudioStream();
        const std::vector<float> samples = readSamples(*sound);
        const auto onset = std::find_if(samples.begin(), samples.end(), [](float it) { return std::abs(it) > 0.25F; });
        EXPECT_NE(onset, samples.end());
        return static_cast<double>(onset - samples.begin()) / 48000 - shown;
    }
    static std::string notesOf(IMediaSource& source) {
        std::string notes;
        for (const auto& note : source.TakeNotes())
            notes += note.what + '\n';
        return notes;
    }
};

TEST_F(CutMedia, BeginsWithTheFirstPictureThatCanBeDecoded) {
    const std::vector<std::string> h264{"-c:v", "libx264", "-g", "50", "-bf", "2", "-c:a", "mp2"};
    const std::vector<std::string> mpeg2{"-c:v", "mpeg2video", "-g", "50", "-bf", "2", "-c:a", "mp2"};
    for (const auto& codecs : {h264, mpeg2}) {
        const auto whole = open(makeWhole("whole.ts", codecs));
        writeFile(folder / "cut.ts", readFile(folder / "whole.ts"), std::size_t{188} * 101);
        const auto source = open(folder / "cut.ts");
        const auto read = readPictures(*source->CreateVideoStream());
        ASSERT_FALSE(read.empty());
        const int first = read.front().number;
        EXPECT_NEAR(first, 50, 1) << codecs[1];
        ASSERT_EQ(read.size(), static_cast<std::size_t>(FRAMES - first)) << codecs[1];
        for (int index = 0; index < FRAMES - first; ++index) {
            EXPECT_EQ(read[index].number, first + index) << codecs[1];
            EXPECT_NEAR(read[index].time, FramesToTime(index, 25), TIME_BASE / 90000) << codecs[1];
        }
        EXPECT_NEAR(beepAfterPicture(*source), beepAfterPicture(*whole), 1e-3) << codecs[1];
        EXPECT_EQ(source->GetInfo().audio->start, 0) << codecs[1];
        EXPECT_TRUE(source->TakeDamageReports().empty()) << codecs[1];
        const std::string notes = notesOf(*source);
        EXPECT_NE(notes.find("begins without a keyframe"), std::string::npos) << codecs[1];
        EXPECT_EQ(notesOf(*whole), "") << codecs[1];
    }
}

TEST_F(CutMedia, SoundsAfterASeekAsReadingThroughSounds) {
    makeWhole("whole.ts", {"-c:v", "mpeg2video", "-g", "50", "-c:a", "mp2"});
    writeFile(folder / "cut.ts", readFile(folder / "whole.ts"), std::size_t{188} * 101);
    const auto source = open(folder / "cut.ts");
    const std::vector<float> all = readSamples(*source->CreateAudioStream());
    const auto stream = source->CreateAudioStream();
    for (const int sample : {95900, 100, 48000, 96500}) {
        stream->Seek(Kestra::SamplesToTime(sample, 48000), SeekMode::Exact);
        const std::vector<float> found = readSamples(*stream, 1000);
        ASSERT_GE(found.size(), 1000U);
        for (std::size_t index = 0; index < 1000; ++index)
            ASSERT_NEAR(found[index], all[static_cast<std::size_t>(sample) + index], 1e-3) << sample;
    }
}

TEST_F(CutMedia, ByAnEditListThatEndsBetweenKeyframesIsWhole) {
    const std::string path = makeWhole("a.mp4", {"-c:v", "libx264", "-g", "250", "-bf", "2", "-c:a", "aac"});
    setEditLengths(path, 3320);
    const auto source = open(path);
    const auto read = readPictures(*source->CreateVideoStream());
    ASSERT_EQ(read.size(), 83U);
    EXPECT_EQ(read.back().number, 82);
    EXPECT_EQ(source->GetInfo().video->duration, FramesToTime(83, 25));
    EXPECT_TRUE(source->TakeDamageReports().empty());
}

TEST_F(CutMedia, ByAnEditListThatPromisesMoreThanFollowsItsStartIsWhole) {
    const std::string whole = makeWhole("a.mp4", {"-c:v", "libx264", "-g", "250", "-bf", "2", "-c:a", "aac"});
    const std::string path = make("b.mp4", {"-ss", "2.6", "-i", whole, "-c", "copy"});
    setEditLengths(path, 60000);
    const auto source = open(path);
    const auto read = readPictures(*source->CreateVideoStream());
    ASSERT_EQ(read.size(), 85U);
    EXPECT_EQ(read.front().number, 65);
    EXPECT_EQ(read.back().number, 149);
    EXPECT_TRUE(source->TakeDamageReports().empty());
}

TEST_F(CutMedia, ByAnEditListThatWaitsAtItsStartIsWhole) {
    const std::string whole = makeWhole("a.mp4", {"-c:v", "libx264", "-g", "250", "-bf", "2", "-c:a", "aac"});
    const std::string path = make("b.mp4", {"-itsoffset", "1.4", "-i", whole, "-c", "copy"});
    setEditLengths(path, 4000);
    const auto source = open(path);
    const auto read = readPictures(*source->CreateVideoStream());
    ASSERT_EQ(read.size(), 100U);
    EXPECT_EQ(read.back().number, 99);
    EXPECT_TRUE(source->TakeDamageReports().empty());
}

TEST_F(CutMedia, ByAnEditListThatBeginsWithinAPictureIsInStep) {
    const std::string whole = makeWhole("a.mp4", {"-c:v", "libx264", "-g", "50", "-bf", "3", "-c:a", "aac"});
    const double expected = beepAfterPicture(*open(whole));
    for (const char* from : {"2.361", "2.37", "2.385", "2.3999", "2.36"}) {
        const auto source = open(make(std::string("b") + from + ".mp4", {"-ss", from, "-i", whole, "-c", "copy"}));
        EXPECT_NEAR(beepAfterPicture(*source), expected, 2e-3) << from;
        const auto read = readPictures(*source->CreateVideoStream());
        ASSERT_FALSE(read.empty()) << from;
        for (std::size_t index = 0; index < read.size(); ++index) {
            EXPECT_EQ(read[index].number, read[0].number + static_cast<int>(index)) << from;
            EXPECT_NEAR(read[index].time, FramesToTime(static_cast<int>(index), 25), TIME_BASE / 1000) << from;
        }
        EXPECT_EQ(notesOf(*source), "") << from;
    }
}

TEST_F(CutMedia, ByAnEditListThatBeginsWithinAPictureFarIntoTheFileIsInStep) {
    constexpr int frames = 400;
    const std::string beep = "aevalsrc=exprs='0.5*sin(6000*t)*between(t,14,14.1)':s=48000:d=16";
    const std::string path = make("a.mov", join(join(pictures("25", frames), {"-f", "lavfi", "-i", beep}),
                                                {"-c:v", "libx264", "-g", "50", "-bf", "2", "-c:a", "pcm_s16le"}));
    // Both begin at 13.013 s, which is behind picture 325 and its keyframe.
    setEdits(path, {13013 * 12800 / 1000 + 1024, 13013 * 48}, 0x10000);
    const auto source = open(path);
    double shown = -1;
    for (const ReadPicture& picture : readPictures(*source->CreateVideoStream()))
        if (picture.number == 350)
            shown = static_cast<double>(picture.time) / TIME_BASE;
    const std::vector<float> samples = readSamples(*source->CreateAudioStream());
    const auto onset = std::find_if(samples.begin(), samples.end(), [](float it) { return std::abs(it) > 0.25F; });
    EXPECT_NEAR(static_cast<double>(onset - samples.begin()) / 48000, shown, 2e-3);
}

TEST_F(CutMedia, ByAnEditListThatChangesTheSpeedOrPausesIsToldOf) {
    const std::string path = makeWhole("a.mov", {"-c:v", "mjpeg", "-c:a", "pcm_s16le"});
    EXPECT_EQ(notesOf(*open(path)), "");
    for (const std::uint32_t speed : {0x20000U, 0x8000U, 0U}) {
        setEdits(path, {0, 0}, speed);
        const std::string notes = notesOf(*open(path));
        EXPECT_NE(notes.find("its edit list changes the speed of its picture"), std::string::npos) << speed << notes;
        EXPECT_NE(notes.find("its edit list changes the speed of its sound"), std::string::npos) << speed << notes;
    }
}

TEST_F(CutMedia, ByAnEditListIsReadWithItsWaitAndItsPauses) {
    const auto number = [](std::uint32_t value) {
        std::string text;
        for (int shift = 24; shift >= 0; shift -= 8)
            text += static_cast<char>(value >> shift);
        return text;
    };
    const auto box = [&](const std::string& name, const std::string& content) {
        return number(static_cast<std::uint32_t>(content.size() + 8)) + name + content;
    };
    const std::string zeros(12, '\0');
    const std::string usual = number(0x10000);
    const std::string none = number(0xFFFFFFFF);
    struct {
        std::vector<std::string> edits; // length in thousandths, begin, speed
        bool pauses;
    } const cases[] = {
        {{number(500) + none + usual, number(1000) + number(90) + usual}, false},
        {{number(500) + none + usual, number(1000) + number(90) + usual, number(1000) + none + usual}, false},
        {{number(500) + none + usual, number(1000) + number(90) + usual, number(1000) + none + usual,
          number(10) + number(0) + usual},
         true},
    };
    for (const auto& [edits, pauses] : cases) {
        std::string list = number(0) + number(static_cast<std::uint32_t>(edits.size()));
        for (const std::string& edit : edits)
            list += edit;
        const std::string track = box("tkhd", zeros + number(7)) + box("edts", box("elst", list));
        std::ofstream(folder / "a.mov", std::ios::binary)
            << box("moov", box("mvhd", zeros + number(1000)) + box("trak", track));
        std::atomic<bool> interrupted{false};
        const Kestra::FF::EditList found = Kestra::FF::FindEditList(ioPath(folder / "a.mov"), 7, interrupted);
        EXPECT_EQ(found.mediaTime, 90);
        EXPECT_EQ(found.wait, TIME_BASE / 2);
        EXPECT_EQ(found.pauses, pauses) << edits.size();
        EXPECT_FALSE(found.changesSpeed);
        EXPECT_EQ(Kestra::FF::FindEditList(ioPath(folder / "a.mov"), 8, interrupted).mediaTime, -1);
    }
}

TEST_F(CutMedia, ThatLostItsEndIsStillIncompleteThoughAnEditListCutsIt) {
    const std::string path =
        make("a.mp4", {"-f", "lavfi", "-i", "testsrc2=s=320x240:r=25:d=6", "-f", "lavfi", "-i", noise(48000, 6), "-c:v",
                       "libx264", "-g", "250", "-bf", "2", "-c:a", "aac", "-movflags", "+faststart"});
    setEditLengths(path, 5000);
    Bytes bytes = readFile(path);
    bytes.resize(bytes.size() / 2);
    writeFile(path, bytes);
    const auto reports = open(path)->TakeDamageReports();
    EXPECT_TRUE(std::any_of(reports.begin(), reports.end(), [](const auto& report) { return report.incomplete; }));
}

} // namespace
} // namespace TestMedia
