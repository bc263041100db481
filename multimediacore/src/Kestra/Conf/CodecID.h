// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Conf::CodecID: the codecs that presets can name.
#pragma once

#include "KestraExport.h"
#include <string>

namespace Kestra::Conf {

/// The numbers are stable; video from 1, audio from 100.
enum class CodecID : int {
    None = 0,
    H264 = 1,
    HEVC = 2,
    VP9 = 3,
    ProRes = 4,
    MPEG4 = 5,
    AV1 = 6,
    VP8 = 7,
    MPEG2 = 8,
    FFV1 = 9,
    DNxHD = 10,
    MJPEG = 11,
    GIF = 12,
    PNG = 13,
    WebP = 14,
    AAC = 100,
    Opus = 101,
    MP3 = 102,
    FLAC = 103,
    PCM_S16LE = 104,
    PCM_S24LE = 105,
    Vorbis = 106,
    AC3 = 107,
    ALAC = 108,
    PCM = 109, ///< little-endian, in the bits of what is encoded
};

/// "h264", "pcm_s16le" ...; "none" for None and for a number that is none.
KESTRA_EXPORT const char* CodecIDToString(CodecID id);
/// None for a name that is none.
KESTRA_EXPORT CodecID CodecIDFromString(const std::string& name);
KESTRA_EXPORT bool IsVideoCodec(CodecID id);

} // namespace Kestra::Conf
