// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/TranscodingError.h"

namespace Kestra::Proc {

const char* TranscodingErrorToString(TranscodingError code) noexcept {
    switch (code) {
    case TranscodingError::None:
        return "no error";
    case TranscodingError::Unknown:
        return "unknown error";
    case TranscodingError::SourceNotFound:
        return "source not found";
    case TranscodingError::SourceUnreadable:
        return "source unreadable";
    case TranscodingError::SourceDamaged:
        return "source damaged";
    case TranscodingError::OutputNotWritable:
        return "output not writable";
    case TranscodingError::DiskFull:
        return "disk full";
    case TranscodingError::OutputFailed:
        return "output failed";
    case TranscodingError::CodecNotFound:
        return "codec not found";
    case TranscodingError::CodecRefused:
        return "codec refused";
    case TranscodingError::EncodeFailed:
        return "encoding failed";
    case TranscodingError::FilterFailed:
        return "filter failed";
    case TranscodingError::MuxerRefused:
        return "muxer refused";
    case TranscodingError::OutOfMemory:
        return "out of memory";
    case TranscodingError::Stalled:
        return "stalled";
    case TranscodingError::InvalidArgument:
        return "invalid argument";
    case TranscodingError::NotSupported:
        return "not supported";
    }
    return "unknown error";
}

} // namespace Kestra::Proc
