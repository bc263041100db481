// SPDX-License-Identifier: GPL-3.0-or-later
// What streams claim of themselves, before memory is taken for it.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include "Kestra/Proc/MediaLimits.h"
#include <cstdint>
#include <string>

namespace Kestra::FF {

/// What the stream claims beyond the limits, or beyond what can be worked with, as words that go on after the file's
/// name; empty when nothing. Pictures that are only attached are never decoded and may be of any size.
std::string ExcessOf(const AVStream& stream, const Proc::MediaLimits& limits);

/// Likewise of a frame that has no memory yet.
std::string ExcessOf(const AVFrame& frame, const Proc::MediaLimits& limits);

/// avformat_find_stream_info, its decoders held to the limits. Lone pictures, and those that might exceed them, are
/// left to the decoder proper.
int AnalyseStreams(AVFormatContext& context, const Proc::MediaLimits& limits);

/// How much memory a picture of that size takes at most; 0 where none is known.
std::int64_t LargestFrameOf(const AVCodecParameters& parameters) noexcept;

/// How much memory the frame's picture or samples take.
std::int64_t FrameBytes(const AVFrame& frame) noexcept;

/// "png", "image2" and their like: files of one picture, or of some behind each other.
bool IsImageFormat(const char* name);

} // namespace Kestra::FF
