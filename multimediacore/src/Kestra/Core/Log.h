// How talkative the libraries under the engine are.
#pragma once

#include "KestraExport.h"

namespace Kestra::Core {

enum class LogLevel {
    Quiet,   ///< nothing at all: every error that counts is thrown
    Warning, ///< errors and warnings, on standard error
    Verbose, ///< everything but debugging
};

/// For the whole process, from any thread.
KESTRA_EXPORT void SetEngineLogLevel(LogLevel level) noexcept;

} // namespace Kestra::Core
