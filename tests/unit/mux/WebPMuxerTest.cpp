// SPDX-License-Identifier: GPL-3.0-or-later
// Animated WebP files, as libwebp's own decoder shows them.
#include "Kestra/Base/Time.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/IMuxerFactory.h"
#include "WebPFixture.h"
#include "fakes/streams/FailingOutput.h"
#include "fakes/streams/SyntheticAudio.h"
#include <cmath>

using namespace Fakes;
using namespace Kestra;
using namespace WebPTest;
using Proc::TranscodingError;
using TestMedia::AnimatedWebP;
using TestMedia::ShownPicture;

namespace {

constexpr Colour RED{20, 30, 220, 255}, GREEN{40, 200, 30, 255}, CLEAR{0, 0, 0, 0}, HALF{200, 60, 40, 128};

void ExpectColour(const ShownPicture& picture, const Colour& colour, int tolerance) {
    EXPECT_NEAR(picture.at(9, 9, 3), colour.alpha, tolerance);
    if (colour.alpha == 0)
        return;
    EXPECT_NEAR(picture.at(9, 9, 0), colour.red, tolerance);
    EXPECT_NEAR(picture.at(9, 9, 1), colour.green, tolerance);
    EXPECT_NEAR(picture.at(9, 9, 2), colour.blue, tolerance);
}

} // namespace

TEST_F(WebP, EachPictureBeginsAtItsMillisecondHoweverManyCameBefore) {
    for (const boost::rational<long long> rate :
         {boost::rational<long long>(24000, 1001), {25}, {30000, 1001}, {60}, {60000, 1001}, {90}}) {
        VideoShape shape = Colours({RED, GREEN}, 400);
        shape.rate = rate;
        const AnimatedWebP file = Written(shape, "yuv420p");
        ASSERT_EQ(file.pictures.size(), 400U) << rate;
        for (int index = 0; index < 400; ++index) {
            const std::int64_t end = MulDivRound(index + 1, 1000 * rate.denominator(), rate.numerator());
            ASSERT_EQ(file.pictures[std::size_t(index)].end, end) << rate << ", " << index;
        }
    }
}

TEST_F(WebP, TransparentPartsAreWhatThePictureHasAndNotWhatLiesBehindIt) {
    for (const char* const format : {"yuva420p", "bgra"}) {
        const AnimatedWebP file = Written(Colours({RED, CLEAR, HALF, GREEN}, 4), format);
        ASSERT_EQ(file.pictures.size(), 4U);
        EXPECT_TRUE(file.transparent);
        const int tolerance = std::string(format) == "bgra" ? 0 : 5;
        ExpectColour(file.pictures[0], RED, tolerance);
        ExpectColour(file.pictures[1], CLEAR, tolerance);
        ExpectColour(file.pictures[2], HALF, tolerance);
        ExpectColour(file.pictures[3], GREEN, tolerance);
    }
}

TEST_F(WebP, WhatIsOpaqueSaysSo) {
    for (const char* const format : {"yuv420p", "yuva420p", "bgra"})
        EXPECT_FALSE(Written(Colours({RED, GREEN}, 2), format).transparent) << format;
    // Blended over black, where no transparency was ordered.
    const AnimatedWebP file = Written(Colours({RED, CLEAR}, 2), "yuv420p");
    EXPECT_FALSE(file.transparent);
    ExpectColour(file.pictures[1], {0, 0, 0, 255}, 3);
}

TEST_F(WebP, EveryFormatIsWhatItIsWrittenAs) {
    EXPECT_EQ(Written(Colours({RED}, 1), "yuv420p").pixelFormat, "yuv420p");
    EXPECT_EQ(Written(Colours({HALF}, 1), "yuva420p").pixelFormat, "yuva420p");
    EXPECT_EQ(Written(Colours({RED}, 1), "bgra").pixelFormat, "bgra");
}

TEST_F(WebP, ASinglePictureMovesTooAndLasts) {
    const AnimatedWebP file = Written(Colours({RED}, 1), "yuv420p");
    ASSERT_EQ(file.pictures.size(), 1U);
    EXPECT_EQ(file.pictures[0].end, 40);
}

TEST_F(WebP, WhatDoesNotChangeIsWrittenOnceAndShownAllTheSame) {
    VideoShape shape = Colours({}, 30, 129, 95);
    const auto value = [](int x, int y, int at, int index) {
        const bool isSquare = x >= 4 * index && x < 4 * index + 6 && y >= 60 && y < 70;
        return at == 3    ? (isSquare && index % 2 == 1 ? 90 : 255)
               : isSquare ? 200 + at
                          : (x * (at + 3) * y + 40 * at) % 251;
    };
    shape.paint = [value](AVFrame& frame, int index) {
        index /= 2; // each twice
        for (int y = 0; y < frame.height; ++y)
            for (int x = 0; x < frame.width; ++x)
                for (int at = 0; at < 4; ++at)
                    frame.data[0][y * frame.linesize[0] + 4 * x + at] =
                        static_cast<std::uint8_t>(value(x, y, at, index));
    };
    const AnimatedWebP file = Written(shape, "bgra");
    const std::size_t all = Bytes().size();
    ASSERT_EQ(file.pictures.size(), 30U);
    for (int index = 0; index < 30; ++index)
        for (int y = 0; y < 95; ++y)
            for (int x = 0; x < 129; ++x)
                for (int at = 0; at < 4; ++at)
                    ASSERT_EQ(file.pictures[std::size_t(index)].at(x, y, at),
                              value(x, y, at == 3 ? 3 : 2 - at, index / 2))
                        << index << ": " << x << ',' << y;
    shape.frames = 1;
    Written(shape, "bgra");
    EXPECT_LT(all, Bytes().size() * 3 / 2);
}

TEST_F(WebP, WhatChangesSlowlyIsShownToChange) {
    for (const char* const format : {"yuv420p", "bgra"}) {
        VideoShape shape = Colours({}, 60, 160, 96);
        shape.paint = [](AVFrame& frame, int index) {
            Fill(frame, {40 + index, 40 + index, 40 + index, 255});
            for (int y = 60; y < 76; ++y) // a bright square that moves
                std::fill_n(frame.data[0] + y * frame.linesize[0] + 8 * index, 64, 255);
        };
        const AnimatedWebP file = Written(shape, format);
        for (int index = 0; index < 60; ++index)
            ASSERT_NEAR(file.pictures.at(std::size_t(index)).at(10, 10, 0), 40 + index, 2) << format << ' ' << index;
    }
}

TEST_F(WebP, SidesMayBeOdd) {
    for (const char* const format : {"yuv420p", "yuva420p", "bgra"}) {
        VideoShape shape = Colours({}, 2, 63, 47);
        shape.paint = [](AVFrame& frame, int) {
            Fill(frame, RED);
            for (int at = 0; at < 4; ++at) // the very last pixel
                frame.data[0][(frame.height - 1) * frame.linesize[0] + 4 * (frame.width - 1) + at] = 255;
        };
        const AnimatedWebP file = Written(shape, format);
        EXPECT_EQ(file.width, 63) << format;
        EXPECT_EQ(file.height, 47) << format;
        ExpectColour(file.pictures.at(1), RED, 3);
        EXPECT_GT(file.pictures.at(1).at(62, 46, 1), 180) << format;
        EXPECT_LT(file.pictures.at(1).at(61, 45, 1), 90) << format;
    }
}

TEST_F(WebP, ColoursOfEveryMatrixAndRangeAreShownAsTheyWere) {
    // A green of BT.709, of 235 of 255 in red, green and blue each 60, 180, 30.
    struct Material {
        Conf::ColourInfo colour;
        std::array<int, 3> code; ///< luma, blue and red differences
    };
    const Material materials[] = {{{1, 1, 1, 1}, {147, 66, 75}},  // BT.709
                                  {{1, 1, 6, 1}, {127, 74, 85}},  // BT.601's matrix
                                  {{1, 1, 1, 2}, {144, 66, 75}}}; // full range
    for (const Material& material : materials) {
        VideoShape shape;
        shape.width = 1280;
        shape.height = 720;
        shape.frames = 1;
        shape.colour = material.colour;
        shape.paint = [&material](AVFrame& frame, int) {
            for (int plane = 0; plane < 3; ++plane)
                for (int y = 0; y < (plane == 0 ? frame.height : frame.height / 2); ++y)
                    std::fill_n(frame.data[plane] + y * frame.linesize[plane], frame.linesize[plane],
                                static_cast<std::uint8_t>(material.code[std::size_t(plane)]));
        };
        const auto shown = [&](double luma, double blue, double red) {
            const bool full = material.colour.range == 2;
            const double kr = material.colour.matrix == 1 ? 0.2126 : 0.299,
                         kb = material.colour.matrix == 1 ? 0.0722 : 0.114;
            const double y = full ? luma / 255 : (luma - 16) / 219;
            const double r = y + 2 * (1 - kr) * (red - 128) / (full ? 255 : 224);
            const double b = y + 2 * (1 - kb) * (blue - 128) / (full ? 255 : 224);
            return std::array<double, 3>{r, (y - kr * r - kb * b) / (1 - kr - kb), b};
        };
        const auto expected = shown(material.code[0], material.code[1], material.code[2]);
        for (const char* const format : {"yuv420p", "yuva420p", "bgra"}) {
            const ShownPicture picture = Written(shape, format).pictures.at(0);
            for (int component = 0; component < 3; ++component)
                EXPECT_NEAR(picture.at(640, 360, component), 255 * expected[std::size_t(component)], 3)
                    << format << ", matrix " << material.colour.matrix << ", range " << material.colour.range;
        }
    }
}

TEST_F(WebP, IsShownForEverOrAsOftenAsItsOptionSays) {
    EXPECT_EQ(Written(Colours({RED}, 2), "yuv420p").plays, 0);
    for (const int plays : {0, 1, 3, 65535}) {
        Core::Property options;
        options.SetChild("loop", std::int64_t{plays});
        EXPECT_EQ(Written(Colours({RED}, 2), "yuv420p", options).plays, plays);
    }
}

TEST_F(WebP, HasNoOtherOptionAndTakesNoOtherNumber) {
    const std::pair<const char*, const char*> options[] = {
        {"loop", "-1"}, {"loop", "65536"}, {"loop", "2 times"}, {"loop", ""}, {"fflags", "bitexact"}};
    for (const auto& [name, value] : options) {
        Core::Property tree;
        tree.SetChild(name, std::string(value));
        const auto failure = Failure([&] { Written(Colours({RED}, 1), "yuv420p", tree); });
        EXPECT_EQ(failure.GetCode(), TranscodingError::MuxerRefused) << name << "=" << value;
        EXPECT_NE(failure.GetDescription().find(name), std::string::npos) << failure.GetDescription();
    }
}

TEST_F(WebP, HoldsOneTrackOfItsCodec) {
    const auto refused = [&](const std::vector<Raw>& tracks) {
        return Failure([&] { WriteFile(path, "webp", tracks); }).GetCode() == TranscodingError::MuxerRefused;
    };
    const auto picture = [&] { return VideoEncoder(MakeVideo({}), Order("yuv420p")); };
    EXPECT_TRUE(refused({AudioEncoder(MakeAudio({}), Description("aac"))}));
    EXPECT_TRUE(refused({VideoEncoder(MakeVideo({}), Description("mpeg4"))}));
    EXPECT_TRUE(refused({picture(), picture()}));
    EXPECT_TRUE(refused({}));
}

TEST_F(WebP, AFullDiskIsAFailureWhereverItHappens) {
    const auto write = [&](std::int64_t room) {
        const boost::intrusive_ptr<FailingOutput> output(new FailingOutput(ioPath(path)));
        output->room = room;
        WriteFile(output, "webp", {VideoEncoder(MakeVideo(Colours({RED, GREEN}, 4)), Order("yuv420p"))});
        return output->GetBytesWritten();
    };
    const std::int64_t all = write(INT64_MAX);
    for (std::int64_t room = 0; room < all; room += 7)
        EXPECT_EQ(Failure([&] { write(room); }).GetCode(), TranscodingError::DiskFull) << room << " of " << all;
    EXPECT_EQ(Failure([&] { write(all); }).GetCode(), TranscodingError::None);
}

TEST_F(WebP, QualitiesAndTheLackOfLossTakeTheirBytes) {
    VideoShape shape = Colours({}, 2, 128, 96);
    shape.paint = [](AVFrame& frame, int) {
        for (int y = 0; y < frame.height; ++y)
            for (int x = 0; x < frame.width; ++x)
                for (int at = 0; at < 4; ++at)
                    frame.data[0][y * frame.linesize[0] + 4 * x + at] =
                        static_cast<std::uint8_t>(at == 3 ? 255 : (x * (at + 3) * y + 40 * at) % 251);
    };
    std::size_t last = 0;
    for (const double quality : {1.0, 40.0, 75.0, 90.0, 100.0}) {
        auto order = Order("yuv420p");
        order.SetChild(Conf::IFormatCodecVideo::TAG_QUALITY, quality);
        WriteFile(path, "webp", {VideoEncoder(MakeVideo(shape), order)});
        EXPECT_GT(Bytes().size(), last) << quality;
        last = Bytes().size();
    }
    const AnimatedWebP exact = Written(shape, "bgra");
    for (int y = 0; y < 96; ++y)
        for (int x = 0; x < 128; ++x)
            for (int at = 0; at < 3; ++at)
                ASSERT_EQ(exact.pictures.at(1).at(x, y, 2 - at), (x * (at + 3) * y + 40 * at) % 251);
}

TEST_F(WebP, WhatWouldMakeAnotherPictureIsRefusedByName) {
    const std::pair<const char*, const char*> options[] = {
        {"cr_threshold", "1"}, {"preset", "photo"}, {"quality", "10"}};
    for (const auto& [name, value] : options) {
        auto order = Order("bgra");
        Options(order).SetChild(name, std::string(value));
        const auto failure =
            Failure([&] { WriteFile(path, "webp", {VideoEncoder(MakeVideo(Colours({RED}, 1)), order)}); });
        EXPECT_EQ(failure.GetCode(), TranscodingError::CodecRefused) << name;
        EXPECT_NE(failure.GetDescription().find(name), std::string::npos) << failure.GetDescription();
    }
    for (const double quality : {-1.0, 100.5, std::nan("")}) {
        auto order = Order("yuv420p");
        order.SetChild(Conf::IFormatCodecVideo::TAG_QUALITY, quality);
        EXPECT_EQ(
            Failure([&] { WriteFile(path, "webp", {VideoEncoder(MakeVideo(Colours({RED}, 1)), order)}); }).GetCode(),
            TranscodingError::CodecRefused)
            << quality;
    }
}

namespace {

/// One that counts what it is given and keeps nothing.
class NoFile final : public Core::IDataOutput, public RefCountImpl {
public:
    void Open() override {}
    void Write(const void*, std::size_t count) override { size += static_cast<std::int64_t>(count); }
    void Seek(std::int64_t) override {}
    std::int64_t GetPosition() const override { return size; }
    std::int64_t GetSize() const override { return size; }
    void Close() override {}
    void Abort() noexcept override {}
    const ioPath& GetPath() const override { return path; }

    std::int64_t size = 0;

private:
    const ioPath path{"big.webp"};
};

class Packet final : public Proc::IDataRaw, public RefCountImpl {
public:
    explicit Packet(std::vector<std::uint8_t> content)
        : bytes(std::move(content)) {}
    std::int64_t GetTime() const override { return time; }
    void SetTime(std::int64_t value) override { time = value; }
    std::int64_t GetDuration() const override { return duration; }
    void SetDuration(std::int64_t value) override { duration = value; }
    std::size_t GetByteSize() const override { return bytes.size(); }
    std::int64_t GetDecodeTime() const override { return time; }
    void SetDecodeTime(std::int64_t) override {}
    bool IsKeyframe() const override { return true; }
    const std::uint8_t* GetBytes() const override { return bytes.data(); }
    std::size_t GetSize() const override { return bytes.size(); }
    std::int64_t GetTrimStart() const override { return 0; }
    std::int64_t GetTrimEnd() const override { return 0; }
    void SetTrim(std::int64_t, std::int64_t) override {}
    boost::intrusive_ptr<Proc::IDataRaw> Share() const override { return nullptr; }

private:
    std::vector<std::uint8_t> bytes;
    std::int64_t time = 0;
    std::int64_t duration = 40 * TICKS_PER_MILLISECOND;
};

/// An open muxer for pictures of 32x16.
class OpenWebP : public ::testing::Test {
protected:
    OpenWebP() {
        auto format = Conf::IFormatFile::Create();
        Core::Property tree;
        tree.SetChild(Conf::IFormatFile::TAG_CONTAINER_ID, std::string("webp"));
        format->SetProperty(tree);
        muxer = Core::CoreManager::Instance().GetMuxerFactory().CreateMuxer(format, output);
        VideoShape shape = Colours({RED}, 2);
        shape.paint = [](AVFrame& frame, int index) {
            Fill(frame, RED);
            frame.data[0][5 * frame.linesize[0] + 40] = static_cast<std::uint8_t>(99 * index);
        };
        const auto encoder = VideoEncoder(MakeVideo(shape), Order("bgra"));
        encoder->Prepare();
        boost::intrusive_ptr<Conf::IFormatCodec> codec;
        encoder->GetFormatCodec(codec);
        muxer->AddStream(codec);
        muxer->Open();
        for (auto* const bytes : {&picture, &part}) {
            const auto packet = encoder->ReadRaw();
            bytes->assign(packet->GetBytes(), packet->GetBytes() + packet->GetSize());
        }
    }

    boost::intrusive_ptr<Packet> PacketOf(std::size_t more = 0) const {
        std::vector<std::uint8_t> bytes = picture;
        bytes.resize(bytes.size() + more);
        const std::size_t size = bytes.size() - 24; // of the code, behind two heads
        for (std::size_t byte = 0; byte < 4; ++byte)
            bytes[20 + byte] = static_cast<std::uint8_t>(size >> (8 * byte));
        return new Packet(bytes);
    }

    const boost::intrusive_ptr<NoFile> output = new NoFile;
    boost::intrusive_ptr<Proc::IMuxer> muxer;
    std::vector<std::uint8_t> picture; ///< a packet
    std::vector<std::uint8_t> part;    ///< likewise, of the next one
};

} // namespace

TEST_F(OpenWebP, AFileOfMoreThanFourGibibytesIsRefusedBeforeItIsOne) {
    constexpr std::int64_t FOUR_GIBIBYTES = std::int64_t{1} << 32;
    const auto packet = PacketOf(64 << 20);
    const auto failure = Failure([&] {
        for (int index = 0; index < 70; ++index) {
            packet->SetTime(40 * TICKS_PER_MILLISECOND * index);
            muxer->Write(0, packet);
        }
    });
    EXPECT_EQ(failure.GetCode(), TranscodingError::MuxerRefused);
    EXPECT_NE(failure.GetDescription().find("4 GiB"), std::string::npos) << failure.GetDescription();
    EXPECT_LT(output->size, FOUR_GIBIBYTES);
    EXPECT_GT(output->size, FOUR_GIBIBYTES - (65 << 20));
}

TEST_F(OpenWebP, PicturesThatCannotBeShownSoLongOrShortlyAreRefused) {
    for (const std::int64_t duration :
         {std::int64_t{0}, TICKS_PER_MILLISECOND / 3, 0x1000000 * TICKS_PER_MILLISECOND}) {
        const auto packet = PacketOf();
        packet->SetDuration(duration);
        EXPECT_EQ(Failure([&] { muxer->Write(0, packet); }).GetCode(), TranscodingError::MuxerRefused) << duration;
    }
}

TEST_F(OpenWebP, WhatIsNoPictureOrNoneOfTheSizeIsRefused) {
    std::vector<std::uint8_t> wide = picture;
    wide[25] ^= 1; // the width's lowest bits, behind the signature
    for (const auto& bytes : {std::vector<std::uint8_t>(), std::vector<std::uint8_t>(40), wide,
                              std::vector<std::uint8_t>(picture.begin(), picture.end() - 2)})
        EXPECT_EQ(Failure([&] { muxer->Write(0, new Packet(bytes)); }).GetCode(), TranscodingError::MuxerRefused)
            << bytes.size();
    EXPECT_EQ(Failure([&] { muxer->Finish(); }).GetCode(), TranscodingError::MuxerRefused) << "no picture";
}

TEST_F(OpenWebP, APartStandsBehindAWholePictureAndWithinIt) {
    EXPECT_LT(part.size(), picture.size() + 8);
    const auto failure = Failure([&] { muxer->Write(0, new Packet(part)); });
    EXPECT_NE(failure.GetDescription().find("the first one is not whole"), std::string::npos)
        << failure.GetDescription();
    const auto later = [&](const std::vector<std::uint8_t>& bytes) {
        const boost::intrusive_ptr<Packet> packet = new Packet(bytes);
        packet->SetTime(40 * TICKS_PER_MILLISECOND);
        return Failure([&] { muxer->Write(0, packet); }).GetCode();
    };
    muxer->Write(0, PacketOf());
    std::vector<std::uint8_t> beyond = part, mixing = part;
    beyond[0] = 16; // half of the column
    mixing[15] = 0;
    EXPECT_EQ(later(beyond), TranscodingError::MuxerRefused);
    EXPECT_EQ(later(mixing), TranscodingError::MuxerRefused);
    EXPECT_EQ(later(part), TranscodingError::None);
}

TEST_F(OpenWebP, CallsOutOfOrderAreRefused) {
    EXPECT_EQ(Failure([&] { muxer->Open(); }).GetCode(), TranscodingError::InvalidArgument);
    EXPECT_EQ(Failure([&] { muxer->Write(1, PacketOf()); }).GetCode(), TranscodingError::InvalidArgument);
    EXPECT_EQ(Failure([&] { muxer->Write(0, nullptr); }).GetCode(), TranscodingError::InvalidArgument);
    muxer->Write(0, PacketOf());
    muxer->Finish();
    EXPECT_EQ(Failure([&] { muxer->Write(0, PacketOf()); }).GetCode(), TranscodingError::InvalidArgument);
}
