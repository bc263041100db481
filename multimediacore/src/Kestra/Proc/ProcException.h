// SPDX-License-Identifier: GPL-3.0-or-later
// The exceptions of processing: everything that happens to a stream.
#pragma once

#include "Kestra/Base/Exception.h"
#include "Kestra/Proc/TranscodingError.h"

namespace Kestra::Proc {

/// Something in the processing of streams failed. Carries TagErrorCode when the cause has a TranscodingError code.
class KESTRA_EXPORT ProcException : public Exception {
public:
    explicit ProcException(std::string message);
    ProcException(TranscodingError code, std::string message);
    ~ProcException() noexcept override;
};

/// An operation that a filter does not have.
class KESTRA_EXPORT FilterException : public ProcException {
public:
    using ProcException::ProcException;
    ~FilterException() noexcept override;
};

} // namespace Kestra::Proc
