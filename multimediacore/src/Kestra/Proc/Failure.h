// SPDX-License-Identifier: GPL-3.0-or-later
// How processing fails: the one table from the system's errors to TranscodingError, and what throws by it.
#pragma once

#include "Kestra/Base/SourcePlace.h"
#include "Kestra/Proc/ProcException.h"
#include <string>

namespace Kestra::Proc {

/// The named reason for a value of errno; `otherwise`, which says what was being done, when it has none. What a path
/// alone can be to blame for is OutputNotWritable where `otherwise` is OutputFailed, and `otherwise` elsewhere.
KESTRA_EXPORT TranscodingError CodeOfSystemError(int error, TranscodingError otherwise) noexcept;

/// Throws ProcException with that code and sentence, the place and the call stack attached.
[[noreturn]] KESTRA_EXPORT void Fail(TranscodingError code, const std::string& sentence,
                                     SourcePlace place = SourcePlace::Here());

/// Likewise "what: reason" for a value of errno, with the mapped code.
[[noreturn]] KESTRA_EXPORT void FailAsSystem(int error, TranscodingError otherwise, const std::string& what,
                                             SourcePlace place = SourcePlace::Here());

} // namespace Kestra::Proc
