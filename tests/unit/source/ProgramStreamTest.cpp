// SPDX-License-Identifier: GPL-3.0-or-later
// Program streams of pictures so small that several begin in one pack, which has one time for all of them.
#include "Kestra/FF/Demux/AnchorTimes.h"
#include "Kestra/FF/Demux/OrderTimes.h"
#include "unit/source/SourceFixture.h"

namespace TestMedia {
namespace {

using Arguments = std::vector<std::string>;
using Kestra::FF::AnchorTimes;
using Kestra::FF::OrderTimes;

constexpr int FRAMES = 100;
constexpr std::int64_t PERIOD = 3600;

struct Muxing {
    const char* name;
    const char* rate;
    Rate exact;
    Arguments codec;
};

class ProgramStream : public SourceTest {
protected:
    std::string mux(const Muxing& muxing) {
        const Arguments sound{"-f", "lavfi", "-i", "sine=r=44100:d=4"};
        return make(muxing.name, join(join(join(pictures(muxing.rate, FRAMES), sound), muxing.codec), {"-c:a", "mp2"}));
    }
};

/// A packet of the first stream with a picture of a kind: I, P or B. Times are periods, -1 for none.
Kestra::FF::PacketHandle picture(char kind, std::int64_t shown, std::int64_t decoded) {
    Kestra::FF::PacketHandle packet = Kestra::FF::MakePacket();
    EXPECT_GE(av_new_packet(packet.get(), 8), 0);
    const unsigned char code = kind == 'I' ? 1 : kind == 'P' ? 2 : 3;
    const std::vector<unsigned char> bytes{0, 0, 1, 0, 0, static_cast<unsigned char>(code << 3), 0, 0};
    std::copy(bytes.begin(), bytes.end(), packet->data);
    packet->pts = shown < 0 ? AV_NOPTS_VALUE : shown * PERIOD;
    packet->dts = decoded < 0 ? AV_NOPTS_VALUE : decoded * PERIOD;
    packet->duration = PERIOD;
    return packet;
}

/// When they are shown, in periods; -1 where that is unknown.
std::vector<std::int64_t> shown(std::vector<Kestra::FF::PacketHandle> packets) {
    AnchorTimes times;
    std::vector<std::int64_t> result;
    const Kestra::FF::PacketHandle packet = Kestra::FF::MakePacket();
    const auto take = [&] {
        while (times.Pop(*packet)) {
            result.push_back(packet->pts == AV_NOPTS_VALUE ? -1 : packet->pts / PERIOD);
            av_packet_unref(packet.get());
        }
    };
    for (Kestra::FF::PacketHandle& next : packets) {
        times.Push(std::move(next), AV_CODEC_ID_MPEG2VIDEO);
        take();
    }
    times.End();
    take();
    return result;
}

template <typename... Packets>
std::vector<std::int64_t> shownOf(Packets... packets) {
    std::vector<Kestra::FF::PacketHandle> list;
    (list.push_back(std::move(packets)), ...);
    return shown(std::move(list));
}

TEST_F(ProgramStream, OfSmallPicturesShowsEachOnceAtItsTime) {
    const Rate film(30000, 1001);
    const std::vector<Muxing> muxings{
        {"a.mpg", "25", 25, {"-c:v", "mpeg2video", "-g", "5"}},
        {"b.mpg", "25", 25, {"-c:v", "mpeg2video", "-g", "12", "-bf", "2"}},
        {"c.mpg", "30000/1001", film, {"-c:v", "mpeg2video", "-g", "2", "-q:v", "2"}},
        {"d.mpg", "30000/1001", film, {"-c:v", "mpeg2video", "-g", "5", "-bf", "2"}},
        {"e.mpg", "25", 25, {"-c:v", "mpeg1video", "-g", "12", "-bf", "1"}},
        {"f.vob", "25", 25, {"-c:v", "mpeg2video", "-g", "12", "-bf", "2", "-flags", "+ildct+ilme"}},
        {"g.mpg", "25", 25, {"-c:v", "libx264", "-bf", "2", "-g", "30"}},
        {"h.vob", "30000/1001", film, {"-c:v", "libx264", "-bf", "2"}},
        {"i.vob", "25", 25, {"-c:v", "libx265", "-x265-params", "log-level=none"}},
        {"j.mpg", "25", 25, {"-c:v", "mpeg4", "-bf", "2", "-q:v", "2"}},
    };
    for (const Muxing& muxing : muxings) {
        SCOPED_TRACE(muxing.name);
        const auto read = readPictures(*open(mux(muxing))->CreateVideoStream());
        EXPECT_EQ(read.size(), static_cast<std::size_t>(FRAMES));
        int index = 0;
        for (const ReadPicture& picture : read) {
            ASSERT_EQ(picture.number, index);
            EXPECT_NEAR(picture.time, FramesToTime(index++, muxing.exact), TIME_BASE / 45000);
        }
    }
}

TEST_F(ProgramStream, OfSmallPicturesIsSoughtInToThePicture) {
    const auto source = open(mux({"a.mpg", "25", 25, {"-c:v", "mpeg2video", "-g", "12", "-bf", "2"}}));
    const auto stream = source->CreateVideoStream();
    for (const int number : {41, 17, 88, 3}) {
        stream->Seek(FramesToTime(number, 25), SeekMode::Exact);
        const auto read = readPictures(*stream, 2);
        ASSERT_FALSE(read.empty());
        EXPECT_EQ(read.front().number, number);
    }
}

TEST_F(ProgramStream, OfMpeg4WithoutTimesOrRateIsToldToBeReckoned) {
    const auto notesOf = [this](const Muxing& muxing) {
        std::string notes;
        for (const auto& note : open(mux(muxing))->TakeNotes())
            notes += note.what + '\n';
        return notes;
    };
    const Rate film(30000, 1001);
    EXPECT_NE(notesOf({"a.mpg", "30000/1001", film, {"-c:v", "mpeg4", "-bf", "2"}}).find("may be missing"),
              std::string::npos);
    EXPECT_EQ(notesOf({"b.mpg", "25", 25, {"-c:v", "mpeg4", "-bf", "2"}}), "");
}

TEST_F(ProgramStream, EndsWithItsLastPicture) {
    const auto source = open(make("a.mpg", {"-f", "lavfi", "-i", "testsrc2=s=352x288:r=25:d=10", "-f", "lavfi", "-i",
                                            "sine=r=48000:d=10", "-c:v", "mpeg2video", "-bf", "2", "-c:a", "mp2"}));
    EXPECT_EQ(source->GetInfo().video->duration, FramesToTime(250, 25));
}

/// When pictures are shown that are so many periods late, by their places, which count two for each; -1 for no time.
std::vector<std::int64_t> shownByPlace(const std::vector<std::pair<int, std::int64_t>>& pictures) {
    OrderTimes times;
    std::size_t next = 0;
    const OrderTimes::PlaceFinder finder = [&](const AVPacket&) { return std::optional<int>(pictures[next].first); };
    std::vector<std::int64_t> result;
    const Kestra::FF::PacketHandle packet = Kestra::FF::MakePacket();
    const auto take = [&] {
        for (; times.Pop(*packet); av_packet_unref(packet.get()))
            result.push_back(packet->pts == AV_NOPTS_VALUE ? -1 : packet->pts / PERIOD);
    };
    for (; next < pictures.size(); ++next) {
        Kestra::FF::PacketHandle pushed = picture('P', pictures[next].second, -1);
        pushed->flags |= pictures[next].first == 0 ? AV_PKT_FLAG_KEY : 0;
        times.Push(std::move(pushed), finder);
        take();
    }
    times.End();
    take();
    return result;
}

TEST(OrderTimes, AreCountedByThePlacesOfThePictures) {
    EXPECT_EQ(shownByPlace({{0, 5}, {6, -1}, {2, 6}, {4, -1}, {8, 9}}), (std::vector<std::int64_t>{5, 8, 6, 7, 9}));
}

TEST(OrderTimes, OfOnePictureThatHasThoseOfTheNextAreCountedAnew) {
    EXPECT_EQ(shownByPlace({{0, 5}, {6, 6}, {2, -1}, {4, 7}, {8, 9}}), (std::vector<std::int64_t>{5, 8, 6, 7, 9}));
}

TEST(OrderTimes, OfOnePictureThatHasThoseOfAMuchLaterOneAreCountedAnew) {
    std::vector<std::pair<int, std::int64_t>> pictures{{0, 5}, {2, 6}, {4, 71}};
    std::vector<std::int64_t> expected{5, 6, 7};
    for (int place = 6; place < 140; place += 2) {
        pictures.emplace_back(place, place == 134 ? 72 : place == 138 ? 74 : -1);
        expected.push_back(5 + place / 2);
    }
    EXPECT_EQ(shownByPlace(pictures), expected);
}

TEST(OrderTimes, OfANewSequenceGoOnBehindTheOneBefore) {
    EXPECT_EQ(shownByPlace({{0, 5}, {2, 6}, {0, -1}, {2, 9}, {4, 9}}), (std::vector<std::int64_t>{5, 6, 7, 8, 9}));
}

TEST(OrderTimes, KeepAGap) {
    EXPECT_EQ(shownByPlace({{0, 5}, {2, 6}, {4, 17}, {6, -1}, {8, 19}, {10, 20}}),
              (std::vector<std::int64_t>{5, 6, 17, 18, 19, 20}));
}

TEST(OrderTimes, ThatNothingTellsStayUnknown) {
    EXPECT_EQ(shownByPlace({{0, -1}, {2, -1}}), (std::vector<std::int64_t>{-1, -1}));
}

TEST(AnchorTimes, AreThoseAtWhichTheNextAnchorIsDecoded) {
    EXPECT_EQ(shownOf(picture('I', 1, 0), picture('P', -1, 1), picture('B', 2, 2), picture('B', 3, 3),
                      picture('P', 6, 4), picture('B', 5, 5)),
              (std::vector<std::int64_t>{1, 4, 2, 3, 6, 5}));
}

TEST(AnchorTimes, OfAPictureThatHasThoseOfTheNextAreCountedAnew) {
    EXPECT_EQ(shownOf(picture('I', 1, 0), picture('P', 3, 2), picture('P', -1, 3), picture('P', 4, 3)),
              (std::vector<std::int64_t>{1, 2, 3, 4}));
    EXPECT_EQ(shownOf(picture('P', 4, 0), picture('B', 1, 1), picture('B', 2, 2), picture('I', 4, 3),
                      picture('B', 4, 4), picture('B', 5, 5), picture('P', -1, 4), picture('P', -1, 5)),
              (std::vector<std::int64_t>{4, 1, 2, 6, 4, 5, 7, 8}));
}

TEST(AnchorTimes, KeepAGap) {
    EXPECT_EQ(shownOf(picture('I', 1, 0), picture('P', 9, 8), picture('P', 10, 9)),
              (std::vector<std::int64_t>{1, 9, 10}));
}

TEST(AnchorTimes, OfTheLastAnchorFollowOnWhatIsDecodedLast) {
    EXPECT_EQ(shownOf(picture('I', 1, 0), picture('P', -1, 1), picture('B', 2, 2)),
              (std::vector<std::int64_t>{1, 3, 2}));
}

TEST(AnchorTimes, AreNotTakenFromAnotherClock) {
    EXPECT_EQ(shownOf(picture('I', 1, 0), picture('P', -1, 1), picture('I', 901, 900), picture('P', -1, 901),
                      picture('I', 1, 0)),
              (std::vector<std::int64_t>{1, 2, 901, 902, 1}));
}

TEST(AnchorTimes, AreTheirOwnWherePicturesAreShownWhenTheyAreDecoded) {
    EXPECT_EQ(shownOf(picture('I', 4, 4), picture('P', -1, 5), picture('P', 6, 6)),
              (std::vector<std::int64_t>{4, 5, 6}));
}

TEST(AnchorTimes, ThatNothingTellsStayUnknown) {
    EXPECT_EQ(shownOf(picture('I', -1, -1), picture('P', 8, 7)), (std::vector<std::int64_t>{-1, 8}));
}

TEST(AnchorTimes, HoldsBackNoMoreThanSomePackets) {
    AnchorTimes times;
    const Kestra::FF::PacketHandle packet = Kestra::FF::MakePacket();
    times.Push(picture('P', -1, 0), AV_CODEC_ID_MPEG2VIDEO);
    int held = 1;
    for (; held < 1000 && !times.Pop(*packet); ++held)
        times.Push(picture('B', held, held), AV_CODEC_ID_MPEG2VIDEO);
    EXPECT_LE(held, 256);
}

} // namespace
} // namespace TestMedia
