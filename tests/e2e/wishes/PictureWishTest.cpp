// Every picture codec with the qualities that a catalogue can wish for: refused, or they count in the file.
#include "Kestra/ClientAPI/CodecLimits.h"
#include "WishFixture.h"
#include <algorithm>

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
    ProbedMedia exported() { return WishFixture::exported("short.mkv", GetParam().container); }
};

TEST_P(PictureWish, OfAQualityIsRefusedOrMet) {
    const auto range = CodecLimits::VideoQuality(codec());
    long long last = 0, best = 0;
    for (const double quality : {0.5, 1.0, 10.0, 30.0, 31.0, 51.0, 52.0, 63.0, 64.0, 255.0}) {
        const QJsonObject wish{{text("bitrateMode"), text("quality")}, {text("quality"), quality}};
        const bool accepted = accepts(presetWith(wish), "/video/quality: ");
        EXPECT_EQ(accepted, quality >= range.best && quality <= range.worst) << quality;
        if (!accepted)
            continue;
        ASSERT_TRUE(exported().video) << quality;
        best = std::max(best, size);
        if (last != 0) {
            EXPECT_LE(size, last) << quality << ": lower is better";
        }
        last = size;
    }
    if (range.worst != 0) {
        EXPECT_GE(best, last + last / 2) << "every quality counts";
    }
}

INSTANTIATE_TEST_SUITE_P(Codecs, PictureWish,
                         ::testing::Values(Codec{"h264", "mp4", "{'options': {'preset': 'ultrafast'}}"},
                                           Codec{"hevc", "mp4", "{'options': {'preset': 'ultrafast'}}"},
                                           Codec{"vp9", "webm", "{'options': {'deadline': 'realtime', 'cpu-used': 8}}"},
                                           Codec{"vp8", "webm", "{'options': {'deadline': 'realtime', 'cpu-used': 8}}"},
                                           Codec{"av1", "mp4", "{}"}, Codec{"mpeg4", "mp4", "{}"},
                                           Codec{"mpeg2", "mkv", "{}"}, Codec{"ffv1", "mkv", "{}"},
                                           Codec{"prores", "mov", "{}"}, Codec{"mjpeg", "mov", "{}"},
                                           Codec{"dnxhd", "mov", "{'profile': 'dnxhr_sq'}"}),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
