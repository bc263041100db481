// SPDX-License-Identifier: GPL-3.0-or-later
// Every picture codec with what a catalogue can wish for: refused, or the file has just that.
#include "Kestra/ClientAPI/CodecLimits.h"
#include "WishFixture.h"
#include "support/Starter.h"
#include <algorithm>
#include <cmath>
#include <set>

using Kestra::ClientAPI::CodecLimits;
using TestMedia::ProbedMedia;
using TestPresets::text;

namespace {

struct Codec {
    const char* name;
    const char* container;
    const char* settings; ///< more of the picture, what makes it quick included
};

std::ostream& operator<<(std::ostream& out, const Codec& codec) {
    return out << codec.name;
}

const char* const PIXEL_FORMATS[] = {"yuv420p",   "yuv422p",   "yuv444p",   "nv12",      "yuvj420p",
                                     "yuv420p10", "yuv422p10", "yuv444p10", "yuv420p12", "yuv422p12",
                                     "yuv444p12", "gray8",     "gray10",    "gbrp",      "gbrp10",
                                     "bgra",      "rgba",      "yuva420p",  "yuva444p10"};

/// What a decoder names pictures of that format; how they lay in memory on their way is not in the file.
std::string decoded(const std::string& format, Kestra::Conf::CodecID codec) {
    if (format == "nv12")
        return "yuv420p";
    if (format == "gray8")
        return "gray";
    // Its decoder counts 12 bits wherever there is full chroma, whatever went in.
    if (codec == Kestra::Conf::CodecID::ProRes && format.find("444p10") != std::string::npos)
        return format.substr(0, format.size() - 2) + "12le";
    // Where it keeps transparency, a second stream in the packets does.
    if (codec == Kestra::Conf::CodecID::VP9 && format == "yuva420p")
        return "yuv420p";
    // The clip has none, and so nothing is written of it.
    if (codec == Kestra::Conf::CodecID::WebP && format == "yuva420p")
        return "yuv420p";
    const std::string depth = format.substr(format.size() - 2);
    return depth == "10" || depth == "12" ? format + "le" : format;
}

class PictureWish : public TestWishes::WishFixture, public ::testing::WithParamInterface<Codec> {
protected:
    static QJsonObject presetWith(const QJsonObject& wish, bool withSettings = true) {
        QJsonObject video = withSettings ? TestPresets::object(GetParam().settings) : QJsonObject();
        for (auto member = wish.begin(); member != wish.end(); ++member)
            video.insert(member.key(), member.value());
        video.insert(text("codec"), text(GetParam().name));
        return {{text("container"), QJsonObject{{text("id"), text(GetParam().container)}}}, {text("video"), video}};
    }
    static Kestra::Conf::CodecID codec() { return Kestra::Conf::CodecIDFromString(GetParam().name); }
    static QJsonObject sized(int width, int height) {
        return {{text("width"), width}, {text("height"), height}, {text("fixedResolution"), true}};
    }
    std::string profileOfFile() const {
        if (codec() == Kestra::Conf::CodecID::WebP) // which ffprobe cannot read
            return TestMedia::probe(path).video->pixelFormat == "bgra" ? "lossless" : "lossy";
        static TestSupport::Starter ffprobe("ffprobe");
        const auto ended = ffprobe.run(
            {"-v", "error", "-select_streams", "v", "-show_entries", "stream=profile", "-of", "csv=p=0", path});
        EXPECT_EQ(ended->status, 0) << ended->errors;
        return QString::fromStdString(ended->output).trimmed().toStdString();
    }
    ProbedMedia exported() { return WishFixture::exported("short.mkv", GetParam().container); }
};

TEST_P(PictureWish, OfAFrameRateIsRefusedOrMet) {
    int met = 0;
    for (const char* const wish : {"24000/1001", "25", "31", "50", "119881/1000", "300"}) {
        if (!accepts(presetWith({{text("frameRate"), text(wish)}}), "/video/frameRate: "))
            continue;
        const ProbedMedia file = exported();
        ASSERT_TRUE(file.video) << wish;
        const QStringList parts = text(wish).split(QLatin1Char('/'));
        const double rate = parts[0].toDouble() / (parts.size() > 1 ? parts[1].toDouble() : 1);
        EXPECT_EQ(static_cast<double>(file.video->frames.size()), std::round(0.2 * rate)) << wish;
        // Of half a millisecond in all, where times are whole ones.
        const double tolerance = codec() == Kestra::Conf::CodecID::WebP ? 0.0005 / 0.2 : 0.001;
        EXPECT_NEAR(boost::rational_cast<double>(file.video->rate), rate, tolerance * rate) << wish;
        ++met;
    }
    EXPECT_GE(met, 2);
}

TEST_P(PictureWish, OfASizeIsRefusedOrMet) {
    int met = 0;
    for (const auto& [width, height] : std::initializer_list<std::pair<int, int>>{
             {2, 2}, {16, 16}, {14, 64}, {256, 118}, {256, 120}, {4096, 128}, {8192, 16}, {16384, 16}, {128, 8706}}) {
        if (!accepts(presetWith(sized(width, height)), "/video/"))
            continue;
        const ProbedMedia file = exported();
        ASSERT_TRUE(file.video) << width << "x" << height;
        EXPECT_EQ(file.video->width, width);
        EXPECT_EQ(file.video->height, height);
        ++met;
    }
    EXPECT_GE(met, 2);
}

TEST_P(PictureWish, OfAPixelFormatIsRefusedOrMet) {
    int met = 0;
    for (const char* const format : PIXEL_FORMATS) {
        // A profile goes with some formats alone, and refuses the others at its own place.
        if (!accepts(presetWith({{text("pixelFormat"), text(format)}}), "/video/p"))
            continue;
        const ProbedMedia file = exported();
        ASSERT_TRUE(file.video) << format;
        EXPECT_EQ(file.video->pixelFormat, decoded(format, codec()));
        ++met;
    }
    EXPECT_GE(met, 1);
}

TEST_P(PictureWish, OfAProfileIsRefusedOrMet) {
    std::set<std::string> marks;
    const std::vector<std::string> known = CodecLimits::Profiles(codec());
    for (const std::string& profile : known) {
        for (const char* const format : PIXEL_FORMATS) {
            QJsonObject wish = sized(256, 128);
            wish.insert(text("profile"), QString::fromStdString(profile));
            wish.insert(text("pixelFormat"), text(format));
            // What makes x264 quick is of its lowest profile.
            if (!accepts(presetWith(wish, codec() != Kestra::Conf::CodecID::H264), "/video/p"))
                continue;
            ASSERT_TRUE(exported().video) << profile << " " << format;
            marks.insert(profileOfFile());
            break; // the formats have a test of their own
        }
    }
    // Each has a mark of its own, whatever the format; but those of HEVC above 4:2:0 in 10 bits share one.
    const std::size_t expected = codec() == Kestra::Conf::CodecID::HEVC ? 3 : known.size();
    EXPECT_EQ(marks.size(), expected) << ::testing::PrintToString(marks);
}

TEST_P(PictureWish, OfABitrateModeOrTwoPassesIsRefusedOrMet) {
    for (const auto& [mode, twice] : std::initializer_list<std::pair<const char*, bool>>{
             {"constant", false}, {"constant", true}, {"automatic", false}, {"variable", true}}) {
        QJsonObject wish = sized(256, 144);
        wish.insert(text("bitrateMode"), text(mode));
        wish.insert(text("twoPass"), twice);
        if (mode == std::string("variable"))
            wish.insert(text("bitrate"), 500'000);
        // What makes one pass quick may be refused in two.
        EXPECT_EQ(accepts(presetWith(wish, !twice), "/video/"), CodecLimits::HasBitrate(codec())) << mode << twice;
        if (!CodecLimits::HasBitrate(codec()))
            continue;
        const ProbedMedia file = exported();
        ASSERT_TRUE(file.video) << mode << twice;
        EXPECT_EQ(file.video->frames.size(), 5u) << mode << twice;
    }
}

TEST_P(PictureWish, OfAQualityIsRefusedOrMet) {
    const auto range = CodecLimits::VideoQuality(codec());
    long long last = 0, best = 0, least = 0;
    for (const double quality : {0.5, 1.0, 10.0, 30.0, 31.0, 51.0, 52.0, 63.0, 64.0, 255.0}) {
        const QJsonObject wish{{text("bitrateMode"), text("quality")}, {text("quality"), quality}};
        const bool accepted = accepts(presetWith(wish), "/video/quality: ");
        EXPECT_EQ(accepted, range.Exists() && range.Holds(quality)) << quality;
        if (!accepted)
            continue;
        ASSERT_TRUE(exported().video) << quality;
        best = std::max(best, size);
        const bool lowerIsBetter = range.best < range.worst;
        if (last != 0) {
            EXPECT_LE(lowerIsBetter ? size : last, lowerIsBetter ? last : size) << quality;
        }
        last = size;
        least = least == 0 ? size : std::min(least, size);
    }
    if (range.Exists()) {
        EXPECT_GE(best, least + least / 2) << "every quality counts";
    }
}

INSTANTIATE_TEST_SUITE_P(Codecs, PictureWish,
                         ::testing::Values(Codec{"h264", "mp4", "{'options': {'preset': 'ultrafast'}}"},
                                           Codec{"hevc", "mp4", "{'options': {'preset': 'ultrafast'}}"},
                                           Codec{"vp9", "webm", "{'options': {'deadline': 'realtime', 'cpu-used': 8}}"},
                                           Codec{"vp8", "webm", "{'options': {'deadline': 'realtime', 'cpu-used': 8}}"},
                                           Codec{"av1", "mp4", "{}"}, Codec{"mpeg4", "mp4", "{}"},
                                           Codec{"mpeg2", "mkv", "{}"}, Codec{"ffv1", "mkv", "{}"},
                                           Codec{"prores", "mov", "{}"}, Codec{"gif", "gif", "{}"},
                                           Codec{"mjpeg", "mov", "{}"}, Codec{"webp", "webp", "{}"},
                                           Codec{"dnxhd", "mov", "{'profile': 'dnxhr_sq'}"}),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
