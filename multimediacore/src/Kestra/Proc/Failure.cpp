// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Failure.h"
#include <cerrno>
#include <system_error>

namespace Kestra::Proc {

TranscodingError CodeOfSystemError(int error, TranscodingError otherwise) noexcept {
    switch (error) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return TranscodingError::DiskFull;
    case ENOMEM:
        return TranscodingError::OutOfMemory;
    case EROFS:
        return TranscodingError::OutputNotWritable;
    case EACCES:
    case EPERM:
    case ENOENT:
    case ENOTDIR:
    case EISDIR:
    case ELOOP:
    case ENAMETOOLONG:
    case ENXIO:
    case ETXTBSY:
    case EBUSY:
        return otherwise == TranscodingError::OutputFailed ? TranscodingError::OutputNotWritable : otherwise;
    default:
        return otherwise;
    }
}

void Fail(TranscodingError code, const std::string& sentence, SourcePlace place) {
    ProcException exception(code, sentence);
    exception << TagCallStack(GetCallStack());
    ThrowFrom(exception, place);
}

void FailAsSystem(int error, TranscodingError otherwise, const std::string& what, SourcePlace place) {
    Fail(CodeOfSystemError(error, otherwise), what + ": " + std::generic_category().message(error), place);
}

} // namespace Kestra::Proc
