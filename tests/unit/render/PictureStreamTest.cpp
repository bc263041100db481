// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Filters/ReadAheadVideo.h"
#include "Kestra/Proc/Interrupted.h"
#include "Kestra/Proc/ProcException.h"
#include "fakes/project/RenderFixture.h"
#include <future>
#include <numeric>

namespace Project::Tests {
namespace {

using Kestra::Ticks;
using Kestra::Proc::SeekMode;

class PictureStreamTest : public RenderFixture {};

Contents clip(int frames, const Rate& rate = 25) {
    Contents contents;
    contents.frames = frames;
    contents.rate = rate;
    return contents;
}

std::vector<int> joined(std::initializer_list<std::vector<int>> parts) {
    std::vector<int> all;
    for (const std::vector<int>& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

TEST_F(PictureStreamTest, EveryFrameOfEqualClipsComesOnce) {
    const Pictures stream = pictures(timeline({clip(100), clip(50), clip(1)}), 25);
    EXPECT_EQ(stream->GetDuration(), 151 * (Kestra::TIME_BASE / 25));
    EXPECT_EQ(numbers(stream, 25), joined({range(100000, 100), range(200000, 50), range(300000, 1)}));
}

TEST_F(PictureStreamTest, NoFrameIsLostOrDoubledWhereAClipBeginsBetweenFrames) {
    Contents longer = clip(50);
    longer.samples = 96000 + 700; // the clip is 14.6 ms longer than its pictures
    const Pictures stream = pictures(timeline({longer, longer, longer, clip(50)}), 25);
    // The starts are 2.0146, 4.0292 and 6.0437 s: frames 50, 101 and 151; the second clip's last frame is held for one
    // more.
    EXPECT_EQ(numbers(stream, 25),
              joined({range(100000, 50), range(200000, 50), {200049}, range(300000, 50), range(400000, 50)}));
}

TEST_F(PictureStreamTest, ARangeCutsOnFrames) {
    const auto line = timeline({clip(100), clip(100)});
    EXPECT_EQ(numbers(pictures(line, 25, milliseconds(3400, 7000)), 25),
              joined({range(100085, 15), range(200000, 75)}));
    EXPECT_EQ(numbers(pictures(line, 25, milliseconds(3413, 3453)), 25), range(100085, 1));
    EXPECT_EQ(numbers(pictures(line, 25, milliseconds(4000, 4080)), 25), range(200000, 2));
}

TEST_F(PictureStreamTest, AnotherRateShowsWhatTheMiddleOfEachPeriodShows) {
    const std::vector<int> found = numbers(pictures(timeline({clip(300, {30000, 1001})}), 25), 25);
    ASSERT_EQ(found.size(), 250U);
    for (int i = 0; i < 250; ++i)
        EXPECT_EQ(found[i], 100000 + static_cast<int>((i + 0.5) / 25 * 30000 / 1001)) << i;
    EXPECT_EQ(filters->scaled(), 250) << "frames that are not shown are not scaled";
}

TEST_F(PictureStreamTest, ARepeatedFrameIsScaledOnce) {
    const std::vector<int> found = numbers(pictures(timeline({clip(20, 10), clip(30, 30)}), 60), 60);
    ASSERT_EQ(found.size(), 180U);
    EXPECT_EQ(found[5], 100000);
    EXPECT_EQ(found[6], 100001);
    EXPECT_EQ(found[121], 200000);
    EXPECT_EQ(found[122], 200001);
    EXPECT_EQ(filters->scaled(), 50);
}

TEST_F(PictureStreamTest, AFormatWishedForLaterHoldsFromTheNextFrameOn) {
    const Pictures stream = pictures(timeline({clip(20, 10)}), 60);
    stream->ReadVideo();
    stream->ReadVideo();
    EXPECT_EQ(filters->scaled(), 1);
    boost::intrusive_ptr<Kestra::Conf::IFormatCodecVideo> wish;
    stream->GetVideoFormat(wish);
    wish->SetPixelFormat(Kestra::Conf::PixelFormat::YUV420P10);
    stream->PreferFormat(*wish);
    EXPECT_EQ(dynamic_cast<const Kestra::Fakes::FakeFrame&>(*stream->ReadVideo()).GetNumber(), 100000);
    EXPECT_EQ(filters->scaled(), 2) << "the same picture, once more";
    for (int frame = 3; frame < 6; ++frame)
        stream->ReadVideo();
    EXPECT_EQ(dynamic_cast<const Kestra::Fakes::FakeFrame&>(*stream->ReadVideo()).GetNumber(), 100001);
    EXPECT_EQ(filters->scaled(), 3);
}

TEST_F(PictureStreamTest, AClipWithoutPictureIsBlack) {
    Contents sound;
    sound.samples = 48000;
    const std::vector<int> found = numbers(pictures(timeline({clip(10), sound, clip(10)}), 25), 25);
    EXPECT_EQ(found, joined({range(100000, 10), std::vector<int>(25, Fakes::BLACK), range(300000, 10)}));
}

TEST_F(PictureStreamTest, TheLastFrameIsHeldUnderLongerSound) {
    Contents longer = clip(50);
    longer.samples = 5 * 48000;
    const auto line = timeline({longer, clip(10)});
    EXPECT_EQ(numbers(pictures(line, 25), 25),
              joined({range(100000, 50), std::vector<int>(75, 100049), range(200000, 10)}));
    // Also when the range begins after the picture's end.
    EXPECT_EQ(numbers(pictures(line, 25, milliseconds(4000, 5200)), 25),
              joined({std::vector<int>(25, 100049), range(200000, 5)}));
}

TEST_F(PictureStreamTest, ResetReadsTheSameAgain) {
    const Pictures stream = pictures(timeline({clip(100), clip(33, {24000, 1001})}), 30, milliseconds(1234, 5000));
    const std::vector<int> first = numbers(stream, 30);
    stream->Reset();
    EXPECT_EQ(numbers(stream, 30), first);
    stream->Reset();
    for (int i = 0; i < 7; ++i)
        stream->ReadVideo();
    stream->Interrupt();
    EXPECT_THROW(numbers(stream, 30), Kestra::Proc::Interrupted);
    stream->Reset();
    EXPECT_EQ(numbers(stream, 30), first);
}

TEST_F(PictureStreamTest, OpensNoClipOnceInterrupted) {
    const Pictures stream = pictures(timeline({clip(100), clip(100)}), 25);
    stream->ReadVideo();
    stream->Interrupt();
    stream->Seek(Kestra::FramesToTime(150, 25), SeekMode::Exact);
    EXPECT_THROW(stream->ReadVideo(), Kestra::Proc::Interrupted);
    EXPECT_EQ(media->streams().alive, 0);
}

TEST_F(PictureStreamTest, AnInterruptionBeforeTheFirstPictureIsNoFaultOfTheClip) {
    const Pictures stream = pictures(timeline({clip(100)}), 25);
    stream->Interrupt();
    EXPECT_THROW(stream->ReadVideo(), Kestra::Proc::Interrupted);
    stream->Reset();
    EXPECT_TRUE(stream->ReadVideo());
}

TEST_F(PictureStreamTest, SeekLandsOnTheFrameThatCoversTheTime) {
    const Pictures stream = pictures(timeline({clip(100), clip(100)}), 25);
    for (const int frame : {150, 0, 99, 100, 42}) {
        stream->Seek(Kestra::FramesToTime(frame, 25) + 1000, SeekMode::Exact);
        EXPECT_EQ(stream->GetPosition(), Kestra::FramesToTime(frame, 25));
        const auto data = stream->ReadVideo();
        EXPECT_EQ(data->GetTime(), Kestra::FramesToTime(frame, 25));
        EXPECT_EQ(dynamic_cast<const Kestra::Fakes::FakeFrame&>(*data).GetNumber(),
                  frame < 100 ? 100000 + frame : 200000 + frame - 100);
    }
    stream->Seek(stream->GetDuration() + 5, SeekMode::Exact);
    EXPECT_FALSE(stream->ReadVideo());
}

TEST_F(PictureStreamTest, AThousandTinyClipsAreOpenedOneAtATime) {
    const auto line = timeline(std::vector<Contents>(1000, clip(2)));
    std::vector<int> expected;
    for (int i = 1; i <= 1000; ++i)
        expected.insert(expected.end(), {i * 100000, i * 100000 + 1});
    EXPECT_EQ(media->streams().created, 0) << "nothing is opened before it is read";
    EXPECT_EQ(numbers(pictures(line, 25), 25), expected);
    EXPECT_LE(media->streams().most, 2);
    EXPECT_EQ(media->streams().alive, 0);
}

TEST_F(PictureStreamTest, ADecoderIsToldHowManyOthersAreReadWithIt) {
    Contents layer = clip(50);
    layer.transparent = true;
    std::vector<Timeline::Track> tracks;
    for (const Kestra::ioPath& path : put({clip(50), layer, layer, layer, layer, layer})) {
        Timeline::Item item;
        item.duration = Ticks(2 * Kestra::TIME_BASE);
        item.content = Timeline::Clip{{{}, Timeline::MediaFile{path}}, {}, Ticks(0)};
        tracks.emplace_back(Timeline::Track::Kind::Video, "", true, std::vector{item},
                            std::vector<Timeline::Transition>());
        const auto document = std::make_shared<Timeline::Document>();
        document->tracks = std::make_shared<Timeline::Stack>("", tracks);
        const auto line = Render::Sequence::of(document, std::make_shared<Render::MediaPool>());
        pictures(line, 25)->ReadVideo();
        EXPECT_EQ(media->streams().among, static_cast<int>(tracks.size()));
    }
}

TEST_F(PictureStreamTest, ClipsOfOneMediumHandItsDecoderOn) {
    auto paths = put({clip(3), clip(2)});
    const auto line = Render::Sequence::ofFiles({paths[0], paths[0], paths[1], paths[0]});
    EXPECT_EQ(numbers(pictures(line, 25), 25),
              joined({range(100000, 3), range(100000, 3), range(200000, 2), range(100000, 3)}));
    EXPECT_EQ(media->streams().created, 3) << "one between two others is opened, and they are closed for it";
    EXPECT_EQ(media->streams().alive, 0);
}

TEST_F(PictureStreamTest, ADecoderThatWasReadAheadIsHandedOn) {
    const auto paths = put({clip(60)});
    const auto line = Render::Sequence::ofFiles({paths[0], paths[0]});
    EXPECT_EQ(numbers(pictures(line, 25), 25), joined({range(100000, 60), range(100000, 60)}));
    EXPECT_EQ(media->streams().created, 1);
}

TEST_F(PictureStreamTest, ClipsShorterThanAFrameDoNotDrift) {
    // 1/100 s each: every fourth one or so is shown, and the whole keeps its length.
    const std::vector<int> found = numbers(pictures(timeline(std::vector<Contents>(1000, clip(1, 100))), 24), 24);
    ASSERT_EQ(found.size(), 240U);
    for (std::size_t i = 0; i < found.size(); ++i)
        EXPECT_NEAR(found[i] / 100000 - 1, static_cast<double>(i) * 100 / 24, 2.2) << i;
}

TEST_F(PictureStreamTest, APictureThatCannotBeReadIsAnErrorNotBlack) {
    Contents broken = clip(50);
    broken.brokenPicture = true;
    const Pictures stream = pictures(timeline({clip(2), broken}), 25);
    EXPECT_TRUE(stream->ReadVideo());
    EXPECT_TRUE(stream->ReadVideo());
    EXPECT_THROW(stream->ReadVideo(), Kestra::Proc::ProcException);
}

TEST_F(PictureStreamTest, AnotherThreadInterruptsIt) {
    const Pictures stream = pictures(timeline(std::vector<Contents>(100, clip(100000))), 25);
    std::promise<void> reading;
    auto reader = std::async(std::launch::async, [&] {
        stream->ReadVideo();
        reading.set_value();
        while (stream->ReadVideo()) {
        }
    });
    reading.get_future().wait();
    stream->Interrupt();
    ASSERT_EQ(reader.wait_for(std::chrono::seconds(20)), std::future_status::ready);
    EXPECT_THROW(reader.get(), Kestra::Proc::Interrupted);
    EXPECT_THROW(stream->ReadVideo(), Kestra::Proc::Interrupted) << "until the reset";
}

TEST_F(PictureStreamTest, TheFormatIsAsOrdered) {
    const Pictures stream = pictures(timeline({clip(100)}), {30000, 1001});
    boost::intrusive_ptr<Kestra::Conf::IFormatCodecVideo> format;
    stream->GetVideoFormat(format);
    EXPECT_EQ(format->GetFrameInfo(), (Kestra::Conf::FrameInfo{128, 72, 16, 9}));
    EXPECT_EQ(format->GetFrameRate(), Rate(30000, 1001));
    EXPECT_EQ(stream->ReadVideo()->GetFrameInfo(), (Kestra::Conf::FrameInfo{128, 72, 16, 9}));
}

} // namespace
} // namespace Project::Tests
