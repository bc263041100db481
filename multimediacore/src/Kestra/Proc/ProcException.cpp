// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/ProcException.h"
#include <utility>

namespace Kestra::Proc {

ProcException::ProcException(std::string message)
    : Exception(std::move(message)) {}

ProcException::ProcException(TranscodingError code, std::string message)
    : Exception(std::move(message)) {
    *this << TagErrorCode(static_cast<int>(code));
}

ProcException::~ProcException() noexcept = default;
FilterException::~FilterException() noexcept = default;

} // namespace Kestra::Proc
