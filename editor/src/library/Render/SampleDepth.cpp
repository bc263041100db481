// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/SampleDepth.h"

#include "Kestra/Conf/SampleInfo.h"
#include <algorithm>
#include <string>

namespace Render {
namespace {

using namespace Kestra;

constexpr int SINGLE_BITS = 25; ///< that a float holds exactly: its mantissa's and the sign
constexpr int DOUBLE_BITS = 54;

std::string nameOf(std::int32_t format) {
    return Conf::SampleFmtRecord::Find(format)->name;
}

/// Bits that an integer may have to be held exactly.
int roomOf(std::int32_t format) {
    if (SampleDepth::isFloatingPoint(format))
        return SampleDepth::isDouble(format) ? DOUBLE_BITS : SINGLE_BITS;
    return 8 * Conf::SampleFmtRecord::Find(format)->bytesPerSample;
}

} // namespace

bool SampleDepth::isDouble(std::int32_t format) {
    return nameOf(format).rfind("dbl", 0) == 0;
}

bool SampleDepth::isFloatingPoint(std::int32_t format) {
    return isDouble(format) || nameOf(format).rfind("flt", 0) == 0;
}

SampleDepth SampleDepth::of(const std::vector<boost::intrusive_ptr<Proc::IMediaSource>>& media) {
    SampleDepth depth{Conf::SAMPLE_FORMAT_UNKNOWN};
    int whole = 0;    // bits of the deepest integer samples
    int floating = 0; // and of those in floating point, as far as they were not coded with loss
    for (const auto& medium : media) {
        const Proc::AudioTrackInfo& track = *medium->GetInfo().audio;
        if (roomOf(track.sampleFormat) > roomOf(depth.format))
            depth.format = track.sampleFormat;
        int& deepest = isFloatingPoint(track.sampleFormat) ? floating : whole;
        deepest = std::max(deepest, track.sampleBits);
    }
    depth.bits = std::max(whole, floating);
    if (floating == 0)
        return depth;
    const auto* const single = Conf::SampleFmtRecord::Find(Conf::SAMPLE_FORMAT_FLT);
    const bool isSingle = floating <= 8 * single->bytesPerSample && whole < SINGLE_BITS;
    depth.format = isSingle ? Conf::SAMPLE_FORMAT_FLT : Conf::SAMPLE_FORMAT_DBL;
    depth.bits = 8 * Conf::SampleFmtRecord::Find(depth.format)->bytesPerSample;
    return depth;
}

} // namespace Render
