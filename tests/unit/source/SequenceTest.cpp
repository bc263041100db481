// SPDX-License-Identifier: GPL-3.0-or-later
// Numbered pictures as one source: their names, what stands for missing ones, and that all come alike.
#include "Kestra/FF/Data/DataVideoFF.h"
#include "Kestra/Proc/Interrupted.h"
#include "Kestra/Proc/ProcessingError.h"
#include "unit/source/SourceFixture.h"
#include <filesystem>
#include <fstream>

namespace TestMedia {
namespace {

namespace fs = std::filesystem;
using Kestra::Proc::ProcessingError;
using Kestra::Proc::SettingsImageSequence;
using Kestra::Proc::TranscodingError;
using Missing = SettingsImageSequence::Missing;

class Sequence : public SourceTest {
protected:
    /// Ten pictures that tell their numbers, shot_0003.png and on.
    void makeShot() { make("shot_%04d.png", join(pictures("25", 10), {"-start_number", "3", "-pix_fmt", "gray"})); }
    SettingsImageSequence shot(Missing missing = Missing::Refused) const {
        SettingsImageSequence settings;
        settings.folder = ioPath(folder / "");
        settings.prefix = "shot_";
        settings.suffix = ".png";
        settings.firstNumber = 3;
        settings.digits = 4;
        settings.rate = Rate(24000, 1001);
        settings.count = 10;
        settings.missing = missing;
        return settings;
    }
    static intrusive_ptr<IMediaSource> openSequence(const SettingsImageSequence& settings) {
        return Kestra::Core::CoreManager::Instance().GetSourceFactory().OpenSequence(settings);
    }
    void remove(const std::string& name) { ASSERT_TRUE(fs::remove(folder / name)) << name; }
    static std::vector<int> numbersOf(IMediaSource& source) {
        std::vector<int> numbers;
        for (const ReadPicture& picture : readPictures(*source.CreateVideoStream()))
            numbers.push_back(picture.number);
        return numbers;
    }
    template <class Call>
    static ProcessingError failureOf(const Call& call) {
        try {
            call();
        } catch (...) {
            return ProcessingError::MakeProcessingErrorFromException(std::current_exception());
        }
        ADD_FAILURE() << "nothing failed";
        return {};
    }
};

TEST_F(Sequence, HasItsPicturesAtTheRateThatIsOrdered) {
    makeShot();
    const auto source = openSequence(shot());
    const auto& video = *source->GetInfo().video;
    EXPECT_EQ(video.frameRate, Rate(24000, 1001));
    EXPECT_FALSE(video.stillPicture);
    EXPECT_EQ(source->GetInfo().duration, FramesToTime(10, video.frameRate));
    EXPECT_EQ(video.duration, source->GetInfo().duration);
    EXPECT_FALSE(source->GetInfo().audio);
    EXPECT_EQ(fs::path(source->GetPath().ToUtf8()), fs::path(folder / "shot_0003.png"));
    const auto pictures = readPictures(*source->CreateVideoStream());
    ASSERT_EQ(pictures.size(), 10U);
    for (int index = 0; index < 10; ++index) {
        const ReadPicture& picture = pictures[static_cast<std::size_t>(index)];
        EXPECT_EQ(picture.number, index);
        EXPECT_EQ(picture.time, FramesToTime(index, video.frameRate));
        EXPECT_EQ(picture.time + picture.duration, FramesToTime(index + 1, video.frameRate));
    }
}

TEST_F(Sequence, IsReadFromAnyPictureOnWithoutThoseBeforeIt) {
    makeShot();
    const auto source = openSequence(shot());
    const auto stream = source->CreateVideoStream();
    for (int number = 3; number < 10; ++number)
        remove("shot_000" + std::to_string(number) + ".png");
    for (const int index : {9, 7, 8}) {
        stream->Seek(FramesToTime(index, Rate(24000, 1001)) + 5, SeekMode::Exact);
        EXPECT_EQ(stream->GetPosition(), FramesToTime(index, Rate(24000, 1001)));
        EXPECT_EQ(readPictures(*stream, 1).front().number, index);
    }
    stream->Seek(source->GetInfo().duration, SeekMode::Exact);
    EXPECT_FALSE(stream->ReadVideo());
}

TEST_F(Sequence, TakesNamesAsTheyAreSignsAndPatternsIncluded) {
    makeShot();
    auto settings = shot();
    settings.prefix = "50%d [a-z]*";
    settings.suffix = "x?.png";
    settings.firstNumber = -4;
    settings.step = 4;
    settings.digits = 3;
    settings.count = 3;
    fs::rename(folder / "shot_0005.png", folder / "50%d [a-z]*-004x?.png");
    fs::rename(folder / "shot_0003.png", folder / "50%d [a-z]*000x?.png");
    fs::rename(folder / "shot_0008.png", folder / "50%d [a-z]*004x?.png");
    EXPECT_EQ(numbersOf(*openSequence(settings)), (std::vector<int>{2, 0, 5}));
}

TEST_F(Sequence, RefusesAMissingPictureWhenItIsReadAndNamesItsFile) {
    makeShot();
    remove("shot_0003.png");
    remove("shot_0006.png");
    const auto source = openSequence(shot());
    EXPECT_EQ(fs::path(source->GetPath().ToUtf8()).filename(), "shot_0004.png") << "the first that is there";
    const auto stream = source->CreateVideoStream();
    stream->Seek(FramesToTime(1, Rate(24000, 1001)), SeekMode::Exact);
    EXPECT_EQ(readPictures(*stream, 2).size(), 2U);
    const ProcessingError error = failureOf([&] { stream->ReadVideo(); });
    EXPECT_EQ(error.GetCode(), TranscodingError::SourceNotFound);
    EXPECT_NE(error.GetDescription().find("shot_0006.png"), std::string::npos) << error.GetDescription();
}

TEST_F(Sequence, HoldsThePictureBeforeAMissingOne) {
    makeShot();
    for (const char* name : {"shot_0003.png", "shot_0006.png", "shot_0007.png", "shot_0012.png"})
        remove(name);
    const auto source = openSequence(shot(Missing::Held));
    source->TakeNotes();
    EXPECT_EQ(numbersOf(*source), (std::vector<int>{1, 1, 2, 2, 2, 5, 6, 7, 8, 8}));
    EXPECT_EQ(numbersOf(*source).size(), 10U);
    const auto notes = source->TakeNotes();
    ASSERT_EQ(notes.size(), 1U) << "said once";
    EXPECT_NE(notes[0].what.find("of its 10 pictures 4 are missing, \"shot_0003.png\""), std::string::npos)
        << notes[0].what;
}

TEST_F(Sequence, GoesOnWhereNobodyKnowsItsEnd) {
    makeShot();
    remove("shot_0005.png");
    auto settings = shot(Missing::Held);
    settings.count.reset();
    const auto source = openSequence(settings);
    EXPECT_EQ(source->GetPath().ToUtf8(), folder / "shot_0003.png") << "one slash";
    std::vector<int> numbers;
    for (const ReadPicture& picture : readPictures(*source->CreateVideoStream(), 12))
        numbers.push_back(picture.number);
    EXPECT_EQ(numbers, (std::vector<int>{0, 1, 1, 3, 4, 5, 6, 7, 8, 9, 9, 9}));
    const auto notes = source->TakeNotes();
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0].what.find("pictures of it are missing, \"shot_0005.png\" to begin with"), 0U) << notes[0].what;
}

TEST_F(Sequence, HasNoPictureInAFileOfAnotherName) {
    makeShot();
    fs::rename(folder / "shot_0005.png", folder / "shot_5.png");
    fs::rename(folder / "shot_0008.png", folder / "shot_0008b.png");
    fs::copy_file(folder / "shot_0012.png", folder / "shot_0013.png");
    const auto source = openSequence(shot(Missing::Held));
    EXPECT_EQ(numbersOf(*source), (std::vector<int>{0, 1, 1, 3, 4, 4, 6, 7, 8, 9}));
    const auto notes = source->TakeNotes();
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_NE(notes[0].what.find("2 are missing, \"shot_0005.png\""), std::string::npos) << notes[0].what;
}

TEST_F(Sequence, SharesThePixelsOfAPictureThatIsHeld) {
    makeShot();
    remove("shot_0004.png");
    const auto stream = openSequence(shot(Missing::Held))->CreateVideoStream();
    const auto first = stream->ReadVideo();
    const auto held = stream->ReadVideo();
    EXPECT_EQ(Kestra::FF::FrameOf(*first).data[0], Kestra::FF::FrameOf(*held).data[0]);
}

TEST_F(Sequence, ShowsBlackForAMissingPictureAndNothingWhereThereIsAlpha) {
    for (const char* format : {"gray", "rgb24", "rgba", "ya8", "rgba64be"}) {
        make("shot_%04d.png",
             {"-f", "lavfi", "-i", "color=white:s=32x16:d=0.12:r=25", "-start_number", "3", "-pix_fmt", format});
        remove("shot_0004.png");
        const auto source = openSequence(shot(Missing::Black));
        const auto stream = source->CreateVideoStream();
        stream->ReadVideo();
        const auto data = stream->ReadVideo();
        const AVFrame& black = Kestra::FF::FrameOf(*data);
        ASSERT_EQ(source->GetInfo().video->pixelFormat, format);
        EXPECT_EQ(data->GetFrameInfo(), source->GetInfo().video->frame);
        const int bytes = std::string(format) == "rgba64be" ? 8 * 32 : std::string(format) == "gray" ? 32 : 2 * 32;
        for (int y = 0; y < 16; ++y)
            for (int x = 0; x < bytes; ++x)
                ASSERT_EQ(black.data[0][y * black.linesize[0] + x], 0) << format;
        EXPECT_EQ(source->TakeNotes().size(), 1U) << format;
    }
}

TEST_F(Sequence, BringsAllPicturesToSizeAndFormatOfTheFirst) {
    makeShot();
    make("shot_0005.png", {"-f", "lavfi", "-i", "color=white:s=40x30:d=0.04:r=25", "-pix_fmt", "rgb24"});
    const auto source = openSequence(shot());
    source->TakeNotes();
    const auto stream = source->CreateVideoStream();
    boost::intrusive_ptr<Kestra::Conf::IFormatCodecVideo> format;
    stream->GetVideoFormat(format);
    EXPECT_EQ(format->GetFrameRate(), Rate(24000, 1001));
    for (int index = 0; index < 10; ++index) {
        const auto picture = stream->ReadVideo();
        EXPECT_EQ(picture->GetFrameInfo(), format->GetFrameInfo()) << index;
        EXPECT_EQ(picture->GetPixelFormat(), format->GetPixelFormat()) << index;
        EXPECT_EQ(numberIn(*picture), index == 2 ? 0xFFFF : index);
    }
    const auto notes = source->TakeNotes();
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_NE(notes[0].what.find("\"shot_0005.png\" is 40x30 rgb24"), std::string::npos) << notes[0].what;
}

TEST_F(Sequence, OfPalettesHasRoomForColoursOfAllOfThem) {
    make("shot_%04d.png",
         {"-f", "lavfi", "-i", "color=red:s=16x16:d=0.04:r=25", "-start_number", "3", "-pix_fmt", "pal8"});
    make("shot_0004.png", {"-f", "lavfi", "-i", "color=0x00FF00:s=16x16:d=0.04:r=25", "-pix_fmt", "rgb24"});
    const auto source = openSequence(shot());
    EXPECT_EQ(source->GetInfo().video->pixelFormat, "rgba");
    const auto stream = source->CreateVideoStream();
    stream->ReadVideo();
    const auto green = stream->ReadVideo();
    const std::uint8_t* const pixel = Kestra::FF::FrameOf(*green).data[0];
    EXPECT_LT(pixel[0], 5);
    EXPECT_GT(pixel[1], 250);
    EXPECT_EQ(pixel[3], 255);
}

TEST_F(Sequence, NamesAPictureThatCannotBeDecodedAndGoesOnWhereItMay) {
    makeShot();
    std::ofstream(folder / "shot_0005.png") << "no picture at all, whatever it is called";
    const auto strict = openSequence(shot())->CreateVideoStream();
    strict->Seek(FramesToTime(2, Rate(24000, 1001)), SeekMode::Exact);
    const ProcessingError error = failureOf([&] { strict->ReadVideo(); });
    EXPECT_EQ(error.GetCode(), TranscodingError::SourceUnreadable);
    EXPECT_NE(error.GetDescription().find("shot_0005.png"), std::string::npos) << error.GetDescription();
    const auto source = openSequence(shot(Missing::Held));
    EXPECT_EQ(numbersOf(*source), (std::vector<int>{0, 1, 1, 3, 4, 5, 6, 7, 8, 9}));
    const auto reports = source->TakeDamageReports();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_NE(reports[0].what.find("shot_0005.png"), std::string::npos) << reports[0].what;
    EXPECT_EQ(reports[0].time, FramesToTime(2, Rate(24000, 1001)));
}

TEST_F(Sequence, NeedsAPictureToBeOpened) {
    const ProcessingError none = failureOf([&] { openSequence(shot(Missing::Held)); });
    EXPECT_EQ(none.GetCode(), TranscodingError::SourceNotFound);
    EXPECT_NE(none.GetDescription().find("shot_0003.png"), std::string::npos) << none.GetDescription();
    auto settings = shot();
    settings.folder = ioPath(folder / "nowhere");
    EXPECT_EQ(failureOf([&] { openSequence(settings); }).GetCode(), TranscodingError::SourceNotFound);
    settings = shot();
    settings.step = 0;
    EXPECT_THROW(openSequence(settings), std::invalid_argument);
}

TEST_F(Sequence, HoldsEachPictureAgainstTheLimits) {
    makeShot();
    make("shot_0004.png", {"-f", "lavfi", "-i", "color=white:s=400x300:d=0.04:r=25", "-pix_fmt", "gray"});
    Kestra::Proc::MediaLimits limits;
    limits.pictureBytes = 100000;
    auto& factory = Kestra::Core::CoreManager::Instance().GetSourceFactory();
    const auto stream = factory.OpenSequence(shot(), nullptr, limits)->CreateVideoStream();
    EXPECT_TRUE(stream->ReadVideo());
    EXPECT_EQ(failureOf([&] { stream->ReadVideo(); }).GetCode(), TranscodingError::SourceUnreadable);
}

TEST_F(Sequence, IsInterruptedUntilItIsReset) {
    makeShot();
    const auto stream = openSequence(shot())->CreateVideoStream();
    stream->ReadVideo();
    stream->Interrupt();
    EXPECT_THROW(stream->ReadVideo(), Kestra::Proc::Interrupted);
    stream->Reset();
    EXPECT_EQ(readPictures(*stream).size(), 10U);
}

} // namespace
} // namespace TestMedia
