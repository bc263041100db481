// SPDX-License-Identifier: GPL-3.0-or-later
// AVERROR codes as engine exceptions, mapped in this one place; what the system says is mapped below it.
#pragma once

#include "Kestra/Proc/Failure.h"
#include <string>

namespace Kestra::FF {

/// The library's own words for an AVERROR code.
std::string ErrorText(int averror);

/// The named reason for an AVERROR code: those of the system as Proc::CodeOfSystemError has them, the library's own
/// likewise; `otherwise` when it has none.
Proc::TranscodingError MapError(int averror, Proc::TranscodingError otherwise) noexcept;

/// Throws ProcException "what: reason" with the mapped code; std::bad_alloc for ENOMEM.
[[noreturn]] void ThrowError(int averror, Proc::TranscodingError otherwise, const std::string& what,
                             SourcePlace place = SourcePlace::Here());

using Proc::Fail;

/// Passes a result that is not negative through, throws for the others.
inline int Check(int result, Proc::TranscodingError otherwise, const char* what,
                 SourcePlace place = SourcePlace::Here()) {
    if (result < 0)
        ThrowError(result, otherwise, what, place);
    return result;
}

} // namespace Kestra::FF
