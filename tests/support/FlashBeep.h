// SPDX-License-Identifier: GPL-3.0-or-later
// Makes media for tests: flashes and beeps that begin at the same instant, in pictures that tell their number.
#pragma once

#include <boost/rational.hpp>
#include <cstdint>
#include <string>
#include <vector>

namespace TestMedia {

/// The picture of frame n has the mean luma lumaOfFrame(n) (limited range), but FLASH_LUMA in the first `flashFrames`
/// frames of every `period` frames; a 1 kHz beep of 0.1 s begins with each flash, at full amplitude from its first
/// sample.
struct FlashBeep {
    int width = 320;
    int height = 180;
    boost::rational<long long> rate = 25;
    int frames = 100; ///< length of the picture; 0: no picture
    int period = 25;  ///< frames from one flash to the next
    int flashFrames = 2;
    int sampleRate = 48000; ///< 0: no sound
    int channels = 2;
    /// Length of the sound in samples; -1: as long as the picture (with no picture: 4 s).
    long long samples = -1;
    /// Leaves frames out (never a flash's first), so that the others last two or three periods.
    bool variableFrameRate = false;
    std::string videoCodec = "libx264";
    std::string pixelFormat = "yuv420p";
    std::string audioCodec = "pcm_s16le";
    /// More arguments for the ffmpeg program, before the output.
    std::vector<std::string> more;
};

inline constexpr int FLASH_LUMA = 235;
/// Sixteen steps, far enough apart to survive a lossy codec.
constexpr int lumaOfFrame(long long number) {
    return 40 + 8 * static_cast<int>(number % 16);
}
/// The number modulo 16 that a luma stands for; -1 for a flash or for what is no such luma.
int numberOfLuma(double luma);

/// Writes the file (container by extension) with the ffmpeg program; throws std::runtime_error with its output when
/// that fails.
void makeFlashBeep(const std::string& path, const FlashBeep& media);
/// Has the ffmpeg program make the file that the last of the arguments names, unless the same has been made before (see
/// MediaCache); throws std::runtime_error with its output when it fails.
void runFfmpeg(const std::vector<std::string>& arguments);

/// A folder of its own under the temporary one, removed with everything in it.
class Folder {
public:
    Folder();
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    std::string operator/(const std::string& name) const { return path + "/" + name; }

private:
    std::string path;
};

} // namespace TestMedia
