// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::ProcessingError: a failure as the user is told of it.
#pragma once

#include "Kestra/Proc/TranscodingError.h"
#include <exception>
#include <string>

namespace Kestra::Proc {

/// A value: the code and one sentence that a user can act on.
class KESTRA_EXPORT ProcessingError {
public:
    ProcessingError() = default;
    ProcessingError(TranscodingError code, std::string description);

    TranscodingError GetCode() const noexcept { return code; }
    const std::string& GetDescription() const noexcept { return description; }

    /// Reads the code and the description out of an exception: TagErrorCode and TagDescription where they are attached,
    /// else what(); std::bad_alloc is OutOfMemory, with a sentence that says what helps, std::invalid_argument
    /// InvalidArgument; a null pointer or an exception of a foreign type is Unknown.
    static ProcessingError MakeProcessingErrorFromException(const std::exception_ptr& exception);

private:
    TranscodingError code = TranscodingError::Unknown;
    std::string description;
};

} // namespace Kestra::Proc
