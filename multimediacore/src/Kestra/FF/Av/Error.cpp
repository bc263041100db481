// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Av/Error.h"

extern "C" {
#include <libavutil/error.h>
}
#include <cerrno>
#include <new>

namespace Kestra::FF {

using Proc::TranscodingError;

std::string ErrorText(int averror) {
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(averror, text, sizeof text);
    return text;
}

TranscodingError MapError(int averror, TranscodingError otherwise) noexcept {
    switch (averror) {
    case AVERROR_ENCODER_NOT_FOUND:
    case AVERROR_DECODER_NOT_FOUND:
        return TranscodingError::CodecNotFound;
    case AVERROR_MUXER_NOT_FOUND:
        return TranscodingError::MuxerRefused;
    default:
        return Proc::CodeOfSystemError(AVUNERROR(averror), otherwise);
    }
}

void ThrowError(int averror, TranscodingError otherwise, const std::string& what, SourcePlace place) {
    if (averror == AVERROR(ENOMEM))
        throw std::bad_alloc();
    Fail(MapError(averror, otherwise), what + ": " + ErrorText(averror), place);
}

} // namespace Kestra::FF
