// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/ExpectedFile.h"
#include "Kestra/Base/Time.h"
#include "Kestra/Proc/ProcessingError.h"
#include <functional>
#include <gtest/gtest.h>

using ExportCore::ExpectedFile;
using Kestra::TIME_BASE;
using Kestra::Proc::CheckedFile;
using Kestra::Proc::CheckedStream;

namespace {

class Verdict : public ::testing::Test {
protected:
    Verdict() {
        expected.hasVideo = expected.hasAudio = true;
        expected.frames = 100;
        expected.videoDuration = expected.audioDuration = 4 * TIME_BASE;
        CheckedStream video;
        video.kind = CheckedStream::Kind::Video;
        video.codec = "h264";
        video.packets = 100;
        video.end = 4 * TIME_BASE;
        video.colour = {1, 1, 1, 1};
        CheckedStream audio;
        audio.kind = CheckedStream::Kind::Audio;
        audio.codec = "aac";
        audio.end = 4 * TIME_BASE;
        audio.sampleRate = 48000;
        file.streams = {video, audio};
    }

    CheckedStream& video() { return file.streams[0]; }
    CheckedStream& audio() { return file.streams[1]; }
    std::string fault() const {
        try {
            expected.require(file);
            return {};
        } catch (const std::exception& error) {
            EXPECT_EQ(
                Kestra::Proc::ProcessingError::MakeProcessingErrorFromException(std::current_exception()).GetCode(),
                Kestra::Proc::TranscodingError::OutputFailed);
            return error.what();
        }
    }
    bool blames(const char* what) const { return fault().find(what) != std::string::npos; }

    ExpectedFile expected;
    CheckedFile file;
};

TEST_F(Verdict, ARightFilePasses) {
    EXPECT_EQ(fault(), "");
}

TEST_F(Verdict, OneFrameTooFewOrTooManyIsFound) {
    video().packets = 99;
    EXPECT_TRUE(blames("99 pictures instead of 100"));
    video().packets = 101;
    EXPECT_TRUE(blames("101 pictures instead of 100"));
}

TEST_F(Verdict, ABrokenPromiseIsFound) {
    expected.programme.container = "mp4";
    expected.programme.programme.title = "A film";
    EXPECT_TRUE(blames("it does not have its title"));
    file.programme.title = "A film";
    EXPECT_TRUE(blames("its pictures are not marked as what players begin with"));
    for (CheckedStream& stream : file.streams)
        stream.isDefault = true;
    EXPECT_EQ(fault(), "");
}

TEST_F(Verdict, AMissingTrackIsFound) {
    const CheckedFile whole = file;
    file.streams = {whole.streams[0]};
    EXPECT_TRUE(blames("no sound"));
    file.streams = {whole.streams[1]};
    EXPECT_TRUE(blames("no picture"));
}

TEST_F(Verdict, AFurtherSoundThatIsMissingShortOrLateIsFound) {
    expected.furtherSounds = 1;
    EXPECT_TRUE(blames("1 sound tracks instead of 2"));
    file.streams.push_back(audio());
    EXPECT_EQ(fault(), "");
    CheckedStream& second = file.streams[2];
    second.end = 3 * TIME_BASE;
    EXPECT_TRUE(blames("sound track 2 lasts 00:00:03.000 instead of 00:00:04.000"));
    second.start = TIME_BASE / 2;
    second.end = 4 * TIME_BASE + TIME_BASE / 2;
    EXPECT_TRUE(blames("its picture begins at 00:00:00.000 and its sound track 2 at 00:00:00.500"));
    expected.hasVideo = false;
    file.streams.erase(file.streams.begin());
    EXPECT_TRUE(blames("its sound begins at 00:00:00.000 and its sound track 2 at 00:00:00.500"));
}

TEST_F(Verdict, ATrackThatNobodyOrderedIsFound) {
    expected.hasVideo = false;
    EXPECT_TRUE(blames("not asked for"));
}

TEST_F(Verdict, ShortSoundIsFound) {
    audio().end = 4 * TIME_BASE - TIME_BASE / 5;
    EXPECT_TRUE(blames("sound lasts 00:00:03.800 instead of 00:00:04.000"));
}

TEST_F(Verdict, SoundThatIsALittleShortIsFound) {
    audio().end = 4 * TIME_BASE - TIME_BASE / 100;
    EXPECT_TRUE(blames("sound lasts 00:00:03.990 instead of 00:00:04.000"));
}

TEST_F(Verdict, SoundThatBeginsApartFromThePictureIsFound) {
    audio().start += TIME_BASE / 50;
    audio().end += TIME_BASE / 50;
    EXPECT_TRUE(blames("picture begins at 00:00:00.000 and its sound at 00:00:00.020"));
    video().start = TIME_BASE / 50;
    video().end += TIME_BASE / 50;
    EXPECT_EQ(fault(), "") << "both together";
    audio().start = -Kestra::SamplesToTime(312, 48000);
    video().start = 0;
    video().end = audio().end = 4 * TIME_BASE;
    EXPECT_EQ(fault(), "") << "an encoder's samples in front";
    audio().start = -TIME_BASE / 5;
    audio().end = 4 * TIME_BASE - TIME_BASE / 5;
    EXPECT_TRUE(blames("sound at -00:00:00.200")) << fault();
}

TEST_F(Verdict, SoundThatEndsOnAWholePacketPasses) {
    audio().end = 4 * TIME_BASE + Kestra::SamplesToTime(1024, 48000);
    EXPECT_EQ(fault(), "");
}

TEST_F(Verdict, APictureTrackOfTheWrongLengthIsFound) {
    video().end = 5 * TIME_BASE;
    EXPECT_TRUE(blames("picture lasts"));
}

TEST_F(Verdict, AnAnimationOfAnotherLengthSizeOrNumberOfPlaysIsFound) {
    expected.hasAudio = false;
    file.streams.pop_back();
    expected.animation = ExpectedFile::Animation{320, 180, 0};
    video().plays = 0;
    video().codec = "webp";
    video().colour = {};
    video().frame.width = 320;
    video().frame.height = 180;
    EXPECT_EQ(fault(), "");
    video().end += 3 * Kestra::TICKS_PER_MILLISECOND;
    EXPECT_TRUE(blames("its picture lasts 00:00:04.003 instead of 00:00:04.000")) << fault();
    video().end = 4 * TIME_BASE - 40 * Kestra::TICKS_PER_MILLISECOND;
    EXPECT_TRUE(blames("its picture lasts 00:00:03.960")) << "the last one without a length: " << fault();
    video().end = 4 * TIME_BASE;
    video().frame.height = 178;
    EXPECT_TRUE(blames("its pictures are 320x178 instead of 320x180"));
    video().frame.height = 180;
    video().plays = 1;
    EXPECT_TRUE(blames("it is shown 1 times instead of for ever")) << fault();
    expected.animation->plays = 1;
    EXPECT_EQ(fault(), "");
    video().plays = -1;
    EXPECT_TRUE(blames("as if it did not move"));
}

TEST_F(Verdict, MissingColourIsFoundWhereTheCodecCanTellIt) {
    video().colour = {};
    EXPECT_TRUE(blames("colour"));
    video().codec = "mpeg4";
    EXPECT_EQ(fault(), "");
}

} // namespace
