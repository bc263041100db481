// SPDX-License-Identifier: GPL-3.0-or-later
// Decodes a media file and measures it, independently of the engine.
#pragma once

#include <boost/rational.hpp>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace TestMedia {

struct ProbedFrame {
    double time = 0; ///< seconds on the container's clock
    double luma = 0; ///< mean of the picture's middle, which bars do not reach, in 8-bit steps
    bool keyframe = false;
};

struct ProbedVideo {
    std::string codec;
    std::string pixelFormat;
    int width = 0;
    int height = 0;
    boost::rational<long long> sampleAspect; ///< 0/1 when not told
    boost::rational<long long> rate;         ///< average, as the container tells
    int primaries = 2;
    int transfer = 2;
    int matrix = 2;
    int range = 0;
    double duration = 0; ///< of the track, as the container tells; 0 when it does not
    std::vector<ProbedFrame> frames;
};

struct ProbedAudio {
    std::string codec;
    std::string sampleFormat;
    int sampleRate = 0;
    int channels = 0;
    double duration = 0;
    double start = 0; ///< seconds, of the first sample that is to be heard
    /// A channel, after what the container says is to be discarded.
    long long samples = 0;
    /// Samples that lie where the one before does not end, by more than half a millisecond.
    int gaps = 0;
    /// Where sound begins after at least 20 ms of silence: sample numbers from `start`, exact for lossless codecs.
    std::vector<long long> onsets;
    double peak = 0; ///< of all channels; 1 is full scale

    double onsetTime(std::size_t index) const { return start + static_cast<double>(onsets[index]) / sampleRate; }
};

struct ProbedMedia {
    std::string container;
    double duration = 0; ///< as the container tells
    int streams = 0;
    std::optional<ProbedVideo> video;
    std::optional<ProbedAudio> audio;
    int decodeErrors = 0; ///< packets that could not be decoded, and reads that failed

    /// Seconds at which flashes begin.
    std::vector<double> flashes() const;
    /// For every flash the nearest beep, sound minus picture in seconds. Empty when their numbers differ.
    std::vector<double> offsets() const;
    /// Numbers modulo 16 of the frames in order (see FlashBeep), -1 for flashes.
    std::vector<int> numbers() const;
};

/// Reads the file to its end. Throws std::runtime_error when it cannot be opened. Animated WebP files are read by
/// libwebp (AnimatedWebP.h).
ProbedMedia probe(const std::string& path);

/// Mean over the frames of the luma's signal to noise ratio in dB, frame by frame from the start; 99 for equal ones.
/// Throws std::runtime_error when sizes, pixel formats or frame counts differ.
double psnr(const std::string& path, const std::string& other);

} // namespace TestMedia
