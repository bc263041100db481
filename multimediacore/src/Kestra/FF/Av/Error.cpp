#include "Kestra/FF/Av/Error.h"

extern "C" {
#include <libavutil/error.h>
}
#include <cerrno>
#include <new>

namespace Kestra::FF {

using Proc::ProcException;
using Proc::TranscodingError;

std::string ErrorText(int averror) {
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(averror, text, sizeof text);
    return text;
}

TranscodingError MapError(int averror, TranscodingError otherwise) noexcept {
    switch (averror) {
    case AVERROR(ENOSPC):
    case AVERROR(EDQUOT):
    case AVERROR(EFBIG):
        return TranscodingError::DiskFull;
    case AVERROR(ENOMEM):
        return TranscodingError::OutOfMemory;
    case AVERROR(EROFS):
        return TranscodingError::OutputNotWritable;
    case AVERROR_ENCODER_NOT_FOUND:
    case AVERROR_DECODER_NOT_FOUND:
        return TranscodingError::CodecNotFound;
    case AVERROR_MUXER_NOT_FOUND:
        return TranscodingError::MuxerRefused;
    default:
        return otherwise;
    }
}

void ThrowError(int averror, TranscodingError otherwise, const std::string& what, SourcePlace place) {
    if (averror == AVERROR(ENOMEM))
        throw std::bad_alloc();
    Fail(MapError(averror, otherwise), what + ": " + ErrorText(averror), place);
}

void Fail(TranscodingError code, const std::string& sentence, SourcePlace place) {
    ProcException exception(code, sentence);
    exception << TagCallStack(GetCallStack());
    ThrowFrom(exception, place);
}

} // namespace Kestra::FF
