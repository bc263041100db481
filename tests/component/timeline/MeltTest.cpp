// SPDX-License-Identifier: GPL-3.0-or-later
// The same cut, rendered by the engine and by the program melt, gives the same pictures.
#include "Kestra/Base/Time.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include "KnownMedia.h"
#include "Render/Streams.h"
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace TimelineTests {
namespace {

using Kestra::Ticks;
using Timeline::Item;
using Timeline::Track;

constexpr int WIDTH = 64, HEIGHT = 36;
constexpr std::size_t FRAME_BYTES = WIDTH * HEIGHT * 3 / 2;
constexpr double ENOUGH_DB = 40;

Ticks frames(int count) {
    return Ticks(Kestra::FramesToTime(count, 25));
}

class Melt : public ::testing::Test {
protected:
    void SetUp() override {
        if (std::system("melt -version >/dev/null 2>&1") != 0)
            GTEST_SKIP() << "the program melt is not installed";
    }

    Item clip(int first, int count) const {
        Item item = gap(count);
        item.content = Timeline::Clip{{"", Timeline::MediaFile{Kestra::ioPath(path())}, {}}, {frames(first), 1}, {}};
        return item;
    }
    static Item gap(int count) {
        Item item;
        item.duration = frames(count);
        return item;
    }
    static Track pictures(std::vector<Item> items, std::vector<Timeline::Transition> transitions = {}) {
        return Track(Track::Kind::Video, "", true, std::move(items), std::move(transitions));
    }
    static std::string entry(int first, int count) {
        return R"(<entry producer="a" in=")" + std::to_string(first) + R"(" out=")" +
               std::to_string(first + count - 1) + R"("/>)";
    }
    static std::string blank(int count) { return "<blank length=\"" + std::to_string(count) + "\"/>"; }

    /// `before` holds what the playlists name; each of those is a track, the lowest one first.
    void expectTheSame(std::vector<Track> tracks, const std::string& before,
                       const std::vector<std::string>& playlists) {
        const auto document = std::make_shared<Timeline::Document>();
        document->tracks = std::make_shared<Timeline::Stack>("", std::move(tracks));
        const int count = static_cast<int>(document->duration().Value() / frames(1).Value());
        const std::vector<std::uint8_t> other = rendered(before, playlists, count);
        ASSERT_EQ(other.size(), count * FRAME_BYTES);
        const auto sequence = Render::Sequence::of(document, std::make_shared<Render::MediaPool>());
        const Render::Window window(Ticks(0), document->duration(), Kestra::FrameGrid(25));
        const auto stream = Render::createPictureStream(sequence, window, {WIDTH, HEIGHT, 16, 9});
        for (int frame = 0; frame < count; ++frame) {
            const auto picture = stream->ReadVideo();
            ASSERT_TRUE(picture);
            EXPECT_GT(psnr(Kestra::FF::FrameOf(*picture), &other[frame * FRAME_BYTES]), ENOUGH_DB) << "frame " << frame;
        }
        EXPECT_FALSE(stream->ReadVideo());
    }

private:
    const std::string& path() const { return media.pictures().front().path; }

    /// As planes of 4:2:0, one frame after the other.
    std::vector<std::uint8_t> rendered(const std::string& before, const std::vector<std::string>& playlists,
                                       int count) const {
        std::ofstream cut(folder / "cut.mlt");
        cut << R"(<mlt><profile width="64" height="36" progressive="1" sample_aspect_num="1" sample_aspect_den="1" )"
            << R"(display_aspect_num="16" display_aspect_den="9" frame_rate_num="25" frame_rate_den="1" )"
            << R"(colorspace="601"/>)"
            << R"(<producer id="a"><property name="resource">)" << path() << "</property></producer>"
            << R"(<producer id="black"><property name="mlt_service">color</property>)"
            << R"(<property name="resource">black</property></producer>)" << before;
        for (std::size_t i = 0; i < playlists.size(); ++i)
            cut << "<playlist id=\"p" << i << "\">" << playlists[i] << "</playlist>";
        // Without a transition between them the uppermost track that has something is seen.
        cut << R"(<tractor><track producer="black" in="0" out=")" << count - 1 << "\"/>";
        for (std::size_t i = 0; i < playlists.size(); ++i)
            cut << "<track producer=\"p" << i << "\"/>";
        cut << "</tractor></mlt>";
        cut.close();
        const std::string command = "cd '" + folder / "" +
                                    "/' && melt cut.mlt -consumer avformat:out.mkv vcodec=ffv1 "
                                    "pix_fmt=yuv420p an=1 real_time=-1 >melt.txt 2>&1";
        EXPECT_EQ(std::system(command.c_str()), 0);
        TestMedia::runFfmpeg({"-i", folder / "out.mkv", "-f", "rawvideo", "-pix_fmt", "yuv420p", folder / "out.raw"});
        std::ifstream raw(folder / "out.raw", std::ios::binary);
        return {std::istreambuf_iterator<char>(raw), {}};
    }

    static double psnr(const AVFrame& frame, const std::uint8_t* other) {
        double error = 0;
        for (int plane = 0; plane < 3; ++plane) {
            const int width = plane > 0 ? WIDTH / 2 : WIDTH, height = plane > 0 ? HEIGHT / 2 : HEIGHT;
            for (int y = 0; y < height; ++y)
                for (int x = 0; x < width; ++x)
                    error += std::pow(frame.data[plane][y * frame.linesize[plane] + x] - *other++, 2);
        }
        return 10 * std::log10(255 * 255 * FRAME_BYTES / std::max(error, 1e-3));
    }

    const TestMedia::Folder folder;
    const KnownMedia media;
};

TEST_F(Melt, CutsOnTheSameFrames) {
    expectTheSame({pictures({clip(5, 7), clip(30, 1), clip(11, 9), gap(4), clip(0, 3), clip(57, 3)})}, {},
                  {entry(5, 7) + entry(30, 1) + entry(11, 9) + blank(4) + entry(0, 3) + entry(57, 3)});
}

TEST_F(Melt, LaysAnOpaqueClipOverOthers) {
    expectTheSame({pictures({clip(0, 8), gap(6), clip(20, 8)}), pictures({gap(3), clip(40, 7), gap(6), clip(10, 2)})},
                  {}, {entry(0, 8) + blank(6) + entry(20, 8), blank(3) + entry(40, 7) + blank(6) + entry(10, 2)});
}

/// Its own dissolves show k/n of the second clip in frame k; (k + 1/2)/n have to be told it as an opacity.
TEST_F(Melt, DissolvesAlike) {
    const std::string mix =
        R"(<tractor id="mix" in="0" out="7"><track producer="a" in="13" out="20"/>)"
        R"(<track producer="a" in="36" out="43"/>)"
        R"(<transition in="0" out="7"><property name="a_track">0</property><property name="b_track">1</property>)"
        R"(<property name="mlt_service">composite</property>)"
        R"(<property name="geometry">0=0/0:100%x100%:6.25%;7=0/0:100%x100%:93.75%</property></transition></tractor>)";
    expectTheSame({pictures({clip(3, 14), clip(40, 12)}, {{"", "SMPTE_Dissolve", 1, frames(4), frames(4)}})}, mix,
                  {entry(3, 10) + R"(<entry producer="mix" in="0" out="7"/>)" + entry(44, 8)});
}

} // namespace
} // namespace TimelineTests
