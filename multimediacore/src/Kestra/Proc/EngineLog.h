// SPDX-License-Identifier: GPL-3.0-or-later
// How talkative the libraries under the engine are.
#pragma once

#include "KestraExport.h"
#include <string>

namespace Kestra::Proc {

enum class LogLevel {
    Quiet,   ///< nothing at all: every error that counts is thrown
    Warning, ///< errors and warnings, on standard error
    Verbose, ///< everything but debugging
};

/// For the whole process, from any thread. Before the first call the level is Quiet: a library is silent unless asked.
KESTRA_EXPORT void SetEngineLogLevel(LogLevel level) noexcept;

/// For the whole process, before anything runs: lines that would go to standard error go there instead, one a call,
/// without a line end, on whichever thread writes them.
KESTRA_EXPORT void SetEngineLogReceiver(void (*receiver)(const std::string& line)) noexcept;

} // namespace Kestra::Proc
