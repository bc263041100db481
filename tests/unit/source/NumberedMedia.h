// SPDX-License-Identifier: GPL-3.0-or-later
// Media whose pictures and samples tell their own number, and the readers of those numbers.
#pragma once

#include "Kestra/Proc/IMediaSource.h"
#include "support/FlashBeep.h"
#include <string>
#include <vector>

namespace TestMedia {

/// A lavfi source of `frames` pictures, 64 x 64, each with its number in 16 blocks that are black or white.
std::string numberedPictures(const std::string& rate, int frames);
/// The number in a picture; -1 when a block is neither black nor white.
int numberIn(const Kestra::Proc::IDataVideo& picture);

/// A lavfi source of mono sound, `rate` Hz, where sample n has the 16-bit value sampleValue(n).
std::string numberedSamples(int rate, int samples);
constexpr int sampleValue(long long number) {
    return static_cast<int>(number * 7 % 30000);
}
/// A lavfi source of mono noise, the same at every call, for codecs that lose something.
std::string noise(int rate, double seconds);

struct ReadPicture {
    int number = 0;
    std::int64_t time = 0;
    std::int64_t duration = 0;
};
std::vector<ReadPicture> readPictures(Kestra::Proc::IStreamVideo& stream, int atMost = 1 << 30);

/// Samples of the first channel as floats in [-1, 1]; fails the test when the blocks do not touch.
std::vector<float> readSamples(Kestra::Proc::IStreamAudio& stream, long long atMost = 1LL << 40);

} // namespace TestMedia
