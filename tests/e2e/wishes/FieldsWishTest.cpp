// SPDX-License-Identifier: GPL-3.0-or-later
// Presets that keep fields: refused for codecs without, else the file holds them.
#include "Kestra/ClientAPI/CodecLimits.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include "Kestra/Proc/ISourceFactory.h"
#include "WishFixture.h"
#include "unit/source/WovenMedia.h"

using Kestra::ClientAPI::CodecLimits;
using TestMedia::ShownFields;
using TestPresets::text;

namespace {

constexpr int FRAMES = 6;
constexpr int WIDTH = 352;
constexpr int HEIGHT = 288;

struct Codec {
    const char* name;
    const char* container;
    const char* video; ///< of the preset
};

std::ostream& operator<<(std::ostream& out, const Codec& codec) {
    return out << codec.name << " in " << codec.container;
}

class FieldsWish : public TestWishes::WishFixture, public ::testing::WithParamInterface<Codec> {
protected:
    static QJsonObject preset() {
        QJsonObject video = TestPresets::object(GetParam().video);
        video.insert(text("codec"), text(GetParam().name));
        video.insert(text("fields"), text("source"));
        return {{text("container"), QJsonObject{{text("id"), text(GetParam().container)}}}, {text("video"), video}};
    }
    static void makeWoven(const char* name, bool topFieldFirst) {
        TestMedia::runFfmpeg({"-f", "lavfi", "-i",
                              TestMedia::barPictures("50", 2 * FRAMES, WIDTH, HEIGHT) + TestMedia::weave(topFieldFirst),
                              "-vf", topFieldFirst ? "setfield=tff" : "setfield=bff", "-c:v", "ffv1", "-level", "3",
                              *media / name});
    }
    boost::intrusive_ptr<Kestra::Proc::IStreamVideo> picturesOf(const char* clip) {
        exported(clip, GetParam().container);
        return Kestra::Core::CoreManager::Instance()
            .GetSourceFactory()
            .OpenMedia(Kestra::ioPath(path))
            ->CreateVideoStream();
    }
};

class KeptFieldsWish : public FieldsWish {};

TEST_P(KeptFieldsWish, HoldsEachFieldInItsPlaceWithFlagAndOrder) {
    ASSERT_TRUE(accepts(preset(), ""));
    for (const bool topFieldFirst : {true, false}) {
        const char* const clip = topFieldFirst ? "top.mkv" : "bottom.mkv";
        makeWoven(clip, topFieldFirst);
        const auto pictures = picturesOf(clip);
        for (int index = 0; index < FRAMES; ++index) {
            const auto picture = pictures->ReadVideo();
            ASSERT_TRUE(picture) << index;
            const ShownFields shown = TestMedia::fieldsIn(*picture);
            EXPECT_TRUE(shown.flagged) << index;
            EXPECT_EQ(shown.topFieldFirst, topFieldFirst) << index;
            EXPECT_EQ(topFieldFirst ? shown.top : shown.bottom, 2 * index);
            EXPECT_EQ(topFieldFirst ? shown.bottom : shown.top, 2 * index + 1);
        }
        EXPECT_FALSE(pictures->ReadVideo());
    }
}

INSTANTIATE_TEST_SUITE_P(
    Codecs, KeptFieldsWish,
    ::testing::Values(Codec{"h264", "mp4", "{'bitrateMode': 'quality', 'quality': 16, 'options': {'preset': 'fast'}}"},
                      Codec{"mpeg2", "mkv", "{'bitrateMode': 'quality', 'quality': 2}"},
                      Codec{"mpeg4", "mp4", "{'bitrateMode': 'quality', 'quality': 2}"},
                      Codec{"prores", "mov", "{'bitrateMode': 'quality', 'profile': 'hq'}"},
                      Codec{"ffv1", "mkv", "{'bitrateMode': 'quality'}"}),
    [](const auto& row) { return std::string(row.param.name); });

/// The mean of the first plane of colour in every second row.
double chromaOf(const AVFrame& frame, int first) {
    double sum = 0;
    int count = 0;
    for (int y = 16 + first; y < HEIGHT - 16; y += 2)
        for (int x = 0; x < WIDTH / 2; ++x, ++count)
            sum += reinterpret_cast<const std::uint16_t*>(frame.data[1] + y * frame.linesize[1])[x];
    return sum / count;
}

// ProRes has a row of colour for each row of pixels, the source one for two: made by fields, not across them.
class ProResFieldsWish : public FieldsWish {};

TEST_P(ProResFieldsWish, HasTheColourOfEachFieldByItself) {
    TestMedia::runFfmpeg({"-f", "lavfi", "-i",
                          "color=gray:size=352x288:rate=25,format=yuv420p,geq=lum=128:cb='if(mod(Y,2),200,60)':cr=128",
                          "-vf", "setfield=tff", "-frames:v", "3", "-c:v", "ffv1", "-level", "3",
                          *media / "colours.mkv"});
    ASSERT_TRUE(accepts(preset(), ""));
    const auto picture = picturesOf("colours.mkv")->ReadVideo();
    ASSERT_TRUE(picture);
    const AVFrame& frame = Kestra::FF::FrameOf(*picture);
    ASSERT_EQ(frame.format, AV_PIX_FMT_YUV422P10);
    EXPECT_NEAR(chromaOf(frame, 0), 4 * 60, 8);
    EXPECT_NEAR(chromaOf(frame, 1), 4 * 200, 8);
}

INSTANTIATE_TEST_SUITE_P(Codecs, ProResFieldsWish,
                         ::testing::Values(Codec{"prores", "mov", "{'bitrateMode': 'quality', 'profile': 'hq'}"}),
                         [](const auto& row) { return std::string(row.param.name); });

class LostFieldsWish : public FieldsWish {};

TEST_P(LostFieldsWish, IsRefusedByTheCatalogue) {
    EXPECT_FALSE(
        accepts(preset(), "/video/fields: \"" + std::string(GetParam().name) + "\" does not code interlaced pictures"));
    EXPECT_FALSE(CodecLimits::CodesFields(Kestra::Conf::CodecIDFromString(GetParam().name)));
}

INSTANTIATE_TEST_SUITE_P(Codecs, LostFieldsWish,
                         ::testing::Values(Codec{"hevc", "mp4", "{}"}, Codec{"vp9", "webm", "{}"},
                                           Codec{"vp8", "webm", "{}"}, Codec{"av1", "mp4", "{}"},
                                           Codec{"mjpeg", "mov", "{'bitrateMode': 'quality', 'quality': 3}"},
                                           Codec{"dnxhd", "mov", "{'bitrateMode': 'quality', 'profile': 'dnxhr_hq'}"}),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
