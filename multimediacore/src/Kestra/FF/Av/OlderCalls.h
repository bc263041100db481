// SPDX-License-Identifier: GPL-3.0-or-later
// What FFmpeg 5.1 says in ways that later versions took away: here, and nowhere else.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include <cstddef>
#include <cstdint>

namespace Kestra::FF {

// Fields and keyframes: members of a frame that later became flags of it.

/// Whether the frame holds two fields.
inline bool HoldsFields(const AVFrame& frame) noexcept {
    return frame.interlaced_frame != 0;
}
inline void SetHoldsFields(AVFrame& frame, bool holds) noexcept {
    frame.interlaced_frame = holds ? 1 : 0;
}
/// Of a frame that holds fields.
inline bool IsTopFieldFirst(const AVFrame& frame) noexcept {
    return frame.top_field_first != 0;
}
inline void SetTopFieldFirst(AVFrame& frame, bool isFirst) noexcept {
    frame.top_field_first = isFirst ? 1 : 0;
}
/// Makes of a decoded frame one that an encoder codes as it likes, one tick long. A decoder's mark goes, too: the
/// wrapper of x265 keeps a copy of each, and loses those of frames that a stop leaves behind.
inline void ForgetCoding(AVFrame& frame) noexcept {
    frame.reordered_opaque = 0;
    frame.pkt_duration = 1;
    frame.pict_type = AV_PICTURE_TYPE_NONE;
    frame.key_frame = 0;
}

// Side data of a stream: later that of its codec parameters.

/// Null when there is none; `size` is zero then. Borrowed from the stream.
inline const std::uint8_t* SideDataOf(const AVStream& stream, AVPacketSideDataType type, std::size_t& size) noexcept {
    size = 0;
    return av_stream_get_side_data(&stream, type, &size);
}
/// Null when there is no memory. The stream's.
inline std::uint8_t* AddSideData(AVStream& stream, AVPacketSideDataType type, std::size_t size) noexcept {
    return av_stream_new_side_data(&stream, type, size);
}

// What a codec takes: members that a call answers later. Null means everything; the list's end is AV_PIX_FMT_NONE,
// AV_SAMPLE_FMT_NONE, 0.

inline const AVPixelFormat* PixelFormatsOf(const AVCodec& codec) noexcept {
    return codec.pix_fmts;
}
inline const AVSampleFormat* SampleFormatsOf(const AVCodec& codec) noexcept {
    return codec.sample_fmts;
}
inline const int* SampleRatesOf(const AVCodec& codec) noexcept {
    return codec.supported_samplerates;
}

/// Up to the version that takes it for granted, a decoder has to be told that callbacks may come from any thread.
inline void AllowThreads(AVCodecContext& context) noexcept {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
    context.thread_safe_callbacks = 1;
#pragma GCC diagnostic pop
}

} // namespace Kestra::FF
