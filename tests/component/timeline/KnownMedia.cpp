// SPDX-License-Identifier: GPL-3.0-or-later
#include "KnownMedia.h"

#include "Kestra/Base/FrameGrid.h"
#include <algorithm>
#include <cmath>
#include <fstream>
#include <stdexcept>

namespace TimelineTests {

namespace {

constexpr double FULL_TURN = 6.28318530717958647692;
constexpr int DARK = 40, BRIGHT = 200;
constexpr int FRAME_BITS = 8;
constexpr int ALPHAS[COLUMNS] = {255, 160, 64, 0};

int uOf(int id) {
    return 68 + 14 * id;
}

int vOf(int id) {
    return 188 - 14 * id;
}

/// Small pictures, enlarged: computing them pixel by pixel is slow.
void make(const KnownPictures& medium) {
    std::string filter =
        "nullsrc=s=4x3:r=" + std::to_string(medium.rate.numerator()) + "/" + std::to_string(medium.rate.denominator()) +
        ",trim=end_frame=" + std::to_string(medium.frames) + ",format=yuva444p,geq=lum='if(mod(floor((" +
        std::to_string(medium.id << FRAME_BITS) + "+N)/pow(2,X+4*Y)),2)," + std::to_string(BRIGHT) + "," +
        std::to_string(DARK) + ")':cb=" + std::to_string(uOf(medium.id)) + ":cr=" + std::to_string(vOf(medium.id));
    filter += medium.hasAlpha() ? ":a='if(lt(X,1),255,if(lt(X,2),160,if(lt(X,3),64,0)))'" : ":a=255";
    filter += ",scale=" + std::to_string(medium.width) + ":" + std::to_string(medium.height) +
              ":flags=neighbor,setsar=1,format=" + medium.pixelFormat;
    std::vector<std::string> arguments{"-f", "lavfi", "-i", filter};
    arguments.insert(arguments.end(), medium.codec.begin(), medium.codec.end());
    arguments.push_back(medium.path);
    TestMedia::runFfmpeg(arguments);
}

void make(const KnownSound& medium) {
    const std::string tone = std::to_string(LOUDNESS) + "*sin(2*PI*n*" + std::to_string(medium.frequency()) + "/" +
                             std::to_string(medium.rate) + ")";
    TestMedia::runFfmpeg({"-f", "lavfi", "-i",
                          "aevalsrc=exprs='" + tone + "|" + tone + "':s=" + std::to_string(medium.rate) +
                              ",atrim=end_sample=" + std::to_string(medium.samples),
                          "-c:a", medium.codec, medium.path});
}

} // namespace

int KnownPictures::frameAt(Kestra::Ticks time) const {
    const auto covering = Kestra::FrameGrid(rate).Covering(time).Value();
    return static_cast<int>(std::clamp<std::int64_t>(covering, 0, frames - 1));
}

Colour KnownPictures::colourOf(int frame, int column, int row) const {
    const int bits = (id << FRAME_BITS) + frame;
    const bool bright = (bits >> (column + COLUMNS * row) & 1) != 0;
    const double alpha = hasAlpha() ? ALPHAS[column] / 255.0 : 1;
    return {static_cast<double>(bright ? BRIGHT : DARK), static_cast<double>(uOf(id)), static_cast<double>(vOf(id)),
            alpha};
}

double KnownSound::valueAt(double sample) const {
    if (sample < 0 || sample >= static_cast<double>(samples))
        return 0;
    return LOUDNESS * std::sin(FULL_TURN * sample * frequency() / rate);
}

KnownMedia::KnownMedia() {
    const std::vector<std::string> ffv1{"-c:v", "ffv1"};
    const std::vector<std::string> groups{"-c:v", "libx264", "-qp", "0", "-g", "10", "-bf", "2"};
    // Frames of 64 x 36 are filled by the first ones; two are enlarged, of which one leaves bars, as others do.
    allPictures = {{0, {}, 64, 36, 25, 60, "yuv420p", groups},
                   {1, {}, 64, 36, {24000, 1001}, 60, "yuv420p", ffv1},
                   {2, {}, 32, 18, 50, 90, "yuv420p", ffv1},
                   {3, {}, 64, 36, 30, 12, "yuv420p", ffv1},
                   {4, {}, 32, 24, 25, 40, "yuv420p", ffv1},
                   {5, {}, 64, 36, 25, 50, "yuva420p", ffv1},
                   {6, {}, 32, 36, {30000, 1001}, 50, "yuva420p", ffv1},
                   {7, {}, 64, 36, 25, 30, "yuv422p10le", ffv1}};
    for (KnownPictures& medium : allPictures) {
        medium.path = folder / ("p" + std::to_string(medium.id) + ".mov");
        make(medium);
    }
    allSounds = {{0, {}, 8000, 16000, "pcm_f32le"},
                 {1, {}, 8000, 12000, "pcm_s16le"},
                 {2, {}, 8000, 3000, "pcm_s16le"},
                 {3, {}, 44100, 66150, "pcm_s16le"}};
    for (KnownSound& medium : allSounds) {
        medium.path = folder / ("s" + std::to_string(medium.id) + ".wav");
        make(medium);
    }
}

std::string KnownMedia::fileOf(const std::string& name, const std::string& content) const {
    std::ofstream(folder / name) << content;
    return folder / name;
}

const KnownPictures& KnownMedia::picturesOf(const std::string& path) const {
    const auto found = std::find_if(allPictures.begin(), allPictures.end(),
                                    [&](const KnownPictures& medium) { return medium.path == path; });
    if (found == allPictures.end())
        throw std::logic_error("no pictures in " + path);
    return *found;
}

const KnownSound& KnownMedia::soundOf(const std::string& path) const {
    const auto found =
        std::find_if(allSounds.begin(), allSounds.end(), [&](const KnownSound& medium) { return medium.path == path; });
    if (found == allSounds.end())
        throw std::logic_error("no sound in " + path);
    return *found;
}

} // namespace TimelineTests
