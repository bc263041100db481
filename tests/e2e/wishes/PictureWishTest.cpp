// Every picture codec with every value that a catalogue can wish for: refused, or the file has just that.
#include "Kestra/ClientAPI/CodecLimits.h"
#include "WishFixture.h"
#include <QProcess>
#include <cmath>

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
std::string decoded(const std::string& format) {
    if (format == "nv12")
        return "yuv420p";
    if (format == "gray8")
        return "gray";
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
    static QJsonObject sized(int width, int height) {
        return {{text("width"), width}, {text("height"), height}, {text("fixedResolution"), true}};
    }
    static Kestra::Conf::CodecID codec() { return Kestra::Conf::CodecIDFromString(GetParam().name); }
    ProbedMedia exported() { return WishFixture::exported("short.mkv", GetParam().container); }
    std::string profileOfFile() const {
        QProcess probe;
        probe.start(text("ffprobe"),
                    {text("-v"), text("error"), text("-select_streams"), text("v"), text("-show_entries"),
                     text("stream=profile"), text("-of"), text("csv=p=0"), QString::fromStdString(path)});
        EXPECT_TRUE(probe.waitForFinished(60'000));
        return QString::fromUtf8(probe.readAllStandardOutput()).trimmed().toStdString();
    }
};

TEST_P(PictureWish, OfAFrameRateIsRefusedOrMet) {
    int met = 0;
    for (const char* const wish :
         {"12", "24000/1001", "24", "25", "30000/1001", "31", "60000/1001", "60", "119881/1000", "240", "300", "500"}) {
        if (!accepts(presetWith({{text("frameRate"), text(wish)}}), "/video/frameRate: "))
            continue;
        const ProbedMedia file = exported();
        ASSERT_TRUE(file.video) << wish;
        const QStringList parts = text(wish).split(QLatin1Char('/'));
        const double rate = parts[0].toDouble() / (parts.size() > 1 ? parts[1].toDouble() : 1);
        EXPECT_EQ(static_cast<double>(file.video->frames.size()), std::round(0.32 * rate)) << wish;
        EXPECT_NEAR(boost::rational_cast<double>(file.video->rate), rate, 0.001 * rate) << wish;
        ++met;
    }
    EXPECT_GE(met, 6);
}

TEST_P(PictureWish, OfASizeIsRefusedOrMet) {
    int met = 0;
    for (const auto& [width, height] : std::initializer_list<std::pair<int, int>>{{2, 2},
                                                                                  {16, 16},
                                                                                  {14, 64},
                                                                                  {64, 8},
                                                                                  {254, 128},
                                                                                  {256, 118},
                                                                                  {256, 120},
                                                                                  {4096, 128},
                                                                                  {8190, 128},
                                                                                  {8192, 128},
                                                                                  {16382, 128},
                                                                                  {128, 8190},
                                                                                  {256, 8706}}) {
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
        EXPECT_EQ(file.video->pixelFormat, decoded(format));
        ++met;
    }
    EXPECT_GE(met, 1);
}

TEST_P(PictureWish, OfAProfileIsRefusedOrMet) {
    std::set<std::string> marks;
    const std::vector<std::string> known = CodecLimits::Profiles(codec());
    for (const std::string& profile : known) {
        for (const char* const format : PIXEL_FORMATS) {
            const QJsonObject wish{{text("profile"), QString::fromStdString(profile)},
                                   {text("pixelFormat"), text(format)}};
            QJsonObject preset = presetWith(wish, GetParam().name == std::string("dnxhd"));
            if (!accepts(preset, "/video/p"))
                continue;
            ASSERT_TRUE(exported().video) << profile << " " << format;
            marks.insert(profileOfFile());
        }
    }
    // Each has a mark of its own, whatever the format.
    EXPECT_EQ(marks.size(), known.size()) << ::testing::PrintToString(marks);
}

TEST_P(PictureWish, OfAQualityIsRefusedOrMet) {
    const auto range = CodecLimits::VideoQuality(codec());
    long long last = 0;
    for (const double quality : {0.5, 1.0, 10.0, 30.0, 31.0, 32.0, 51.0, 52.0, 63.0, 64.0, 255.0}) {
        const QJsonObject wish{{text("bitrateMode"), text("quality")}, {text("quality"), quality}};
        const bool accepted = accepts(presetWith(wish), "/video/quality: ");
        EXPECT_EQ(accepted, quality >= range.best && quality <= range.worst) << quality;
        if (!accepted)
            continue;
        ASSERT_TRUE(exported().video) << quality;
        if (last != 0) {
            EXPECT_LT(size, last) << quality << ": lower is better, and every one counts";
        }
        last = size;
    }
}

TEST_P(PictureWish, OfABitrateModeOrTwoPassesIsRefusedOrMet) {
    for (const char* const mode : {"constant", "automatic", "variable"}) {
        for (const bool twice : {false, true}) {
            QJsonObject wish = sized(256, 144);
            wish.insert(text("bitrateMode"), text(mode));
            wish.insert(text("twoPass"), twice);
            if (mode == std::string("variable"))
                wish.insert(text("bitrate"), 500'000);
            EXPECT_EQ(accepts(presetWith(wish), "/video/"), CodecLimits::HasBitrate(codec())) << mode << twice;
            if (!CodecLimits::HasBitrate(codec()))
                continue;
            const ProbedMedia file = exported();
            ASSERT_TRUE(file.video) << mode << twice;
            EXPECT_EQ(file.video->frames.size(), 8u) << mode << twice;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Codecs, PictureWish,
                         ::testing::Values(Codec{"h264", "mp4", "{'options': {'preset': 'ultrafast'}}"},
                                           Codec{"hevc", "mp4", "{'options': {'preset': 'ultrafast'}}"},
                                           Codec{"vp9", "webm", "{}"}, Codec{"vp8", "webm", "{}"},
                                           Codec{"av1", "mp4", "{'options': {'preset': 12}}"},
                                           Codec{"mpeg4", "mp4", "{}"}, Codec{"mpeg2", "mkv", "{}"},
                                           Codec{"ffv1", "mkv", "{}"}, Codec{"prores", "mov", "{}"},
                                           Codec{"mjpeg", "mov", "{}"},
                                           Codec{"dnxhd", "mov", "{'profile': 'dnxhr_sq'}"}),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
