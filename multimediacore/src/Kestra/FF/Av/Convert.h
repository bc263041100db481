// SPDX-License-Identifier: GPL-3.0-or-later
// Engine values and libav values into each other: time, formats, layouts, colour.
#pragma once

#include "Kestra/Base/Time.h"
#include "Kestra/Conf/CodecID.h"
#include "Kestra/Conf/FrameInfo.h"
#include "Kestra/Conf/PixelFormat.h"
#include "Kestra/Conf/SampleInfo.h"

extern "C" {
#include <libavcodec/codec_id.h>
#include <libavutil/avutil.h>
#include <libavutil/channel_layout.h>
#include <libavutil/frame.h>
#include <libavutil/pixfmt.h>
#include <libavutil/rational.h>
#include <libavutil/samplefmt.h>
}
#include <boost/rational.hpp>

namespace Kestra::FF {

/// AV_NOPTS_VALUE and TIME_UNKNOWN are the same number. Rounds to nearest.
std::int64_t ToEngineTime(std::int64_t timestamp, AVRational timeBase);
std::int64_t FromEngineTime(std::int64_t time, AVRational timeBase);

inline AVRational ToAv(const boost::rational<long long>& value) {
    return {static_cast<int>(value.numerator()), static_cast<int>(value.denominator())};
}
/// 0/1 for a rational that libav calls undefined.
inline boost::rational<long long> FromAv(AVRational value) {
    return value.den == 0 || value.num == 0 ? boost::rational<long long>(0)
                                            : boost::rational<long long>(value.num, value.den);
}

/// By name. AV_PIX_FMT_NONE for Unknown and Other; Other for a format that is newer than the engine's table.
AVPixelFormat ToAv(Conf::PixelFormat format) noexcept;
Conf::PixelFormat FromAv(AVPixelFormat format) noexcept;
bool HasAlpha(AVPixelFormat format) noexcept;

AVSampleFormat ToAv(Conf::SampleFormats format) noexcept;
Conf::SampleFormats FromAv(AVSampleFormat format) noexcept;

/// The speakers, or an unspecified order of so many channels; of none when the layout is not known.
AVChannelLayout ToAvLayout(std::uint32_t layout) noexcept;
/// Mono and stereo are taken for such, whether they say so or not; other channels without speakers, and ambisonic ones,
/// are discrete.
std::uint32_t FromAv(const AVChannelLayout& layout) noexcept;

AVCodecID ToAv(Conf::CodecID id);

Conf::ColourInfo ColourOf(const AVFrame& frame) noexcept;
void SetColour(AVFrame& frame, const Conf::ColourInfo& colour) noexcept;

/// The display aspect that pixels of `sampleAspect` give a frame of that size; 0:0 when they are square.
Conf::FrameInfo MakeFrameInfo(int width, int height, AVRational sampleAspect);
/// The shape of the pixels of such a frame; 1:1 when it says nothing.
AVRational SampleAspectOf(const Conf::FrameInfo& frame);

} // namespace Kestra::FF
