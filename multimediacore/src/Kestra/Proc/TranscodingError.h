// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::TranscodingError: the named reasons for which a run can fail.
#pragma once

#include "KestraExport.h"

namespace Kestra::Proc {

/// The numbers are stable: they stand in logs.
enum class TranscodingError : int {
    None = 0,
    Unknown = 1,
    SourceNotFound = 2,
    SourceUnreadable = 3,
    SourceDamaged = 4,
    OutputNotWritable = 5,
    DiskFull = 6,
    OutputFailed = 7,
    CodecNotFound = 8,
    CodecRefused = 9,
    EncodeFailed = 10,
    FilterFailed = 11,
    MuxerRefused = 12,
    OutOfMemory = 13,
    Stalled = 14,
    InvalidArgument = 15,
    NotSupported = 16,
};

/// A short English name such as "disk full"; "unknown error" for a number that is none of the above. Never null.
KESTRA_EXPORT const char* TranscodingErrorToString(TranscodingError code) noexcept;

} // namespace Kestra::Proc
