// SPDX-License-Identifier: GPL-3.0-or-later
// Encoding at a bitrate, for tests that measure what it takes.
#pragma once

#include "EncodeFixture.h"

namespace EncodeTest {

/// A little noise, new in each picture: it takes bits, and more of them the better it is shown.
inline Fakes::VideoShape Noise(int frames) {
    Fakes::VideoShape shape;
    shape.width = 80;
    shape.height = 64;
    shape.frames = frames;
    shape.paint = [](AVFrame& frame, int index) {
        std::uint32_t state = static_cast<std::uint32_t>(index) * 2654435761U + 1;
        for (int plane = 0; plane < 3; ++plane)
            for (int at = 0; at < frame.linesize[plane] * (plane ? 32 : 64); ++at) {
                state = state * 1664525U + 1013904223U;
                frame.data[plane][at] = static_cast<std::uint8_t>(112 + (state >> 27));
            }
    };
    return shape;
}

inline double BitsPerSecond(const std::vector<boost::intrusive_ptr<Kestra::Proc::IDataRaw>>& packets, double seconds) {
    std::size_t bytes = 0;
    for (const auto& packet : packets)
        bytes += packet->GetSize();
    return static_cast<double>(bytes) * 8 / seconds;
}

/// By the quicker ways of the slow encoders: how long they look for the best one has no share in the bitrate.
inline Kestra::Core::Property Rated(const char* codec, const char* mode, std::int64_t bitrate) {
    auto description = Fakes::Description(codec);
    if (codec == std::string("vp9"))
        Fakes::Options(description).SetChild("cpu-used", std::int64_t{5});
    if (codec == std::string("hevc"))
        Fakes::Options(description).SetChild("preset", std::string("ultrafast"));
    description.SetChild(Kestra::Conf::IFormatCodec::TAG_BITRATE_MODE, std::string(mode));
    description.SetChild(Kestra::Conf::IFormatCodec::TAG_BITRATE, bitrate);
    return description;
}

} // namespace EncodeTest
