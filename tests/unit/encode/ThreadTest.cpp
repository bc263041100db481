// SPDX-License-Identifier: GPL-3.0-or-later
// Threads of video encoders: what they share out must not show in the file.
#include "unit/encode/EncodeFixture.h"
#include <atomic>
#include <cmath>
#include <filesystem>
#include <sys/sysinfo.h>
#include <thread>
#include <unistd.h>

using namespace Fakes;
using namespace EncodeTest;
using namespace Kestra;
using Conf::IFormatCodec;
using Conf::IFormatCodecVideo;

namespace {

std::atomic<int> pretended{0};

/// A machine of so many processors, as far as anybody asks the C++ library.
class Processors {
public:
    explicit Processors(int count) {
        pretended = count;
        EXPECT_EQ(std::thread::hardware_concurrency(), static_cast<unsigned>(count)) << "nobody is deceived";
    }
    ~Processors() { pretended = 0; }
    Processors(const Processors&) = delete;
    Processors& operator=(const Processors&) = delete;
};

/// Waves that wander, each plane its own, with grain.
void PaintWaves(AVFrame& frame, int index) {
    std::uint32_t state = static_cast<std::uint32_t>(index) * 2654435761U + 1;
    for (int plane = 0; plane < 3; ++plane) {
        const int height = plane ? frame.height / 2 : frame.height;
        const int width = plane ? frame.width / 2 : frame.width;
        std::vector<int> across;
        across.reserve(static_cast<std::size_t>(width));
        for (int x = 0; x < width; ++x)
            across.push_back(static_cast<int>(40 * std::sin((x + 5 * index) * 0.11 + plane)));
        for (int y = 0; y < height; ++y) {
            const int down = 120 + static_cast<int>(40 * std::cos((y - 3 * index) * 0.07));
            for (int x = 0; x < width; ++x) {
                state = state * 1664525U + 1013904223U;
                const auto grain = static_cast<int>(state >> 28);
                frame.data[plane][y * frame.linesize[plane] + x] =
                    static_cast<std::uint8_t>(down + across[static_cast<std::size_t>(x)] + grain);
            }
        }
    }
}

VideoShape Waves(int width, int height, int frames) {
    VideoShape shape;
    shape.width = width;
    shape.height = height;
    shape.frames = frames;
    shape.paint = PaintWaves;
    return shape;
}

using OptionValues = std::vector<std::pair<const char*, std::int64_t>>;

Core::Property Described(const char* codec, const OptionValues& values) {
    auto description = Description(codec);
    for (const auto& [name, value] : values)
        Options(description).SetChild(name, value);
    return description;
}

std::string Bits(const VideoShape& shape, const Core::Property& description) {
    std::string bits;
    for (const auto& packet : ReadAll(*VideoEncoder(MakeVideo(shape), description)))
        bits.append(reinterpret_cast<const char*>(packet->GetBytes()), packet->GetSize());
    return bits;
}

/// Has libaom, which alone keeps to a constant bitrate.
Core::Property ConstantAv1(OptionValues values) {
    values.emplace_back("cpu-used", 8);
    auto description = Described("av1", values);
    description.SetChild(IFormatCodec::TAG_BITRATE_MODE, std::string("cbr"));
    description.SetChild(IFormatCodec::TAG_BITRATE, std::int64_t{1000000});
    return description;
}

std::string BitsOn(int processors, const VideoShape& shape, const Core::Property& description) {
    const Processors machine(processors);
    return Bits(shape, description);
}

void ExpectTheSameAnywhere(const VideoShape& shape, const std::string& codec, const Core::Property& description) {
    const std::string bits = BitsOn(1, shape, description);
    EXPECT_TRUE(BitsOn(2, shape, description) == bits) << codec;
    EXPECT_TRUE(BitsOn(8, shape, description) == bits) << codec;
}

struct Fidelity {
    double bytes = 0;
    double psnr = 0; ///< of luma
};

Fidelity Encoded(const VideoShape& shape, const Core::Property& description) {
    const ScratchFolder folder;
    WriteFile(folder.File("out.mkv"), "mkv", {VideoEncoder(MakeVideo(shape), description)});
    const DecodedFile file = Decode(folder.File("out.mkv"));
    const auto source = MakeVideo(shape);
    double squares = 0;
    for (const auto& picture : file.Video().pictures) {
        const auto data = source->ReadVideo();
        const AVFrame& frame = FF::FrameOf(*data);
        for (int y = 0; y < shape.height; ++y)
            for (int x = 0; x < shape.width; ++x) {
                const int error =
                    frame.data[0][y * frame.linesize[0] + x] - picture->data[0][y * picture->linesize[0] + x];
                squares += error * error;
            }
    }
    const double mean = squares / (static_cast<double>(shape.frames) * shape.width * shape.height);
    return {static_cast<double>(std::filesystem::file_size(folder.File("out.mkv"))),
            10 * std::log10(255.0 * 255.0 / mean)};
}

} // namespace

// This program's own takes the place of the C library's.
extern "C" __attribute__((visibility("default"))) int get_nprocs() noexcept {
    return pretended ? pretended.load() : static_cast<int>(sysconf(_SC_NPROCESSORS_ONLN));
}

TEST(EncoderThreads, MakeTheSameBitsOnAnyNumberOfProcessors) {
    const VideoShape shape = Waves(512, 288, 3);
    ExpectTheSameAnywhere(shape, "vp9", Described("vp9", {{"cpu-used", 4}}));
    ExpectTheSameAnywhere(shape, "vp8", Described("vp8", {{"cpu-used", 4}}));
    ExpectTheSameAnywhere(Waves(512, 128, 3), "av1", ConstantAv1({}));
    for (const char* codec : {"mpeg4", "mpeg2", "mjpeg", "prores", "ffv1"})
        ExpectTheSameAnywhere(shape, codec, Description(codec));
    auto dnxhr = Description("dnxhd");
    dnxhr.SetChild(IFormatCodec::TAG_PROFILE, std::string("dnxhr_sq"));
    ExpectTheSameAnywhere(shape, "dnxhd", dnxhr);
}

// In real time VP8's encoder would choose its speed by the time that frames take.
TEST(EncoderSpeed, OfVp8IsTheOneThatIsNamedWhateverTheClockSays) {
    const VideoShape shape = Waves(256, 144, 10);
    const auto bits = [&shape](std::int64_t speed) {
        return Bits(shape, Described("vp8", {{"deadline", 1}, {"cpu-used", speed}}));
    };
    EXPECT_TRUE(bits(8) == bits(-8));
    EXPECT_TRUE(bits(0) == bits(-1));
    EXPECT_FALSE(bits(8) == bits(3));
}

TEST(EncoderSpeed, OfVpxIsNotThatForRealTimeWhereFramesLastASecond) {
    VideoShape shape = Waves(256, 144, 6);
    shape.rate = 1;
    for (const char* codec : {"vp8", "vp9"}) {
        const auto bits = [&](const OptionValues& values) { return Bits(shape, Described(codec, values)); };
        EXPECT_TRUE(bits({}) == bits({{"deadline", 10'000'000}})) << codec;
        EXPECT_TRUE(bits({{"deadline", 1'000'000}}) == bits({{"deadline", 10'000'000}})) << codec;
        EXPECT_FALSE(bits({}) == bits({{"deadline", 1}})) << codec;
    }
}

// What is told by name is what the encoder is told anyway, and what is not makes another stream.
TEST(EncoderThreads, HaveTilesSlicesAndRowsByTheSizeOfThePicture) {
    const VideoShape shape = Waves(1100, 96, 2); // four times 256 wide
    const auto vp9 = [](const VideoShape& pictures, OptionValues values) {
        values.emplace_back("cpu-used", 4);
        return Bits(pictures, Described("vp9", values));
    };
    EXPECT_TRUE(vp9(shape, {}) == vp9(shape, {{"tile-columns", 2}, {"row-mt", 1}}));
    EXPECT_FALSE(vp9(shape, {}) == vp9(shape, {{"tile-columns", 1}}));
    const VideoShape higher = Waves(512, 288, 3);
    EXPECT_FALSE(vp9(higher, {}) == vp9(higher, {{"row-mt", 0}}));
    EXPECT_TRUE(Bits(shape, ConstantAv1({})) == Bits(shape, ConstantAv1({{"tile-columns", 2}, {"row-mt", 1}})));
    EXPECT_FALSE(Bits(shape, ConstantAv1({})) == Bits(shape, ConstantAv1({{"tile-columns", 1}})));
    const VideoShape high = Waves(128, 300, 2); // twice 128 high
    EXPECT_TRUE(Bits(high, Description("mpeg4")) == Bits(high, Described("mpeg4", {{"threads", 2}})));
    EXPECT_FALSE(Bits(high, Description("mpeg4")) == Bits(high, Described("mpeg4", {{"threads", 4}})));
}

TEST(EncoderThreads, CostNeitherQualityNorRoom) {
    const VideoShape shape = Waves(1280, 720, 3);
    const auto compare = [&shape](const Core::Property& shared, const Core::Property& alone) {
        const Fidelity with = Encoded(shape, shared), without = Encoded(shape, alone);
        EXPECT_GE(with.psnr, without.psnr - 0.05);
        EXPECT_LE(with.bytes, without.bytes * 1.01);
    };
    const auto byQuality = [](const char* codec, double quality, const OptionValues& values) {
        auto description = Described(codec, values);
        description.SetChild(IFormatCodec::TAG_BITRATE_MODE, std::string("quality"));
        description.SetChild(IFormatCodec::TAG_QUALITY, quality);
        return description;
    };
    compare(byQuality("vp9", 30, {{"cpu-used", 4}}),
            byQuality("vp9", 30, {{"cpu-used", 4}, {"row-mt", 0}, {"tile-columns", 0}, {"threads", 1}}));
    compare(byQuality("mpeg4", 4, {}), byQuality("mpeg4", 4, {{"threads", 1}}));
}
