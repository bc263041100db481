// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Proc/ProcException.h"

namespace Kestra::Proc {

/// Throws FilterException "Method not implemented" for an operation that a stream does not have, with description and
/// call stack attached.
[[noreturn]] KESTRA_EXPORT void ThrowNotImplemented(const char* function, const char* file, int line);

} // namespace Kestra::Proc

#define KESTRA_NOT_IMPLEMENTED() ::Kestra::Proc::ThrowNotImplemented(BOOST_CURRENT_FUNCTION, __FILE__, __LINE__)
