// SPDX-License-Identifier: GPL-3.0-or-later
// What libav and the libraries under it log.
#pragma once

#include "Kestra/Proc/EngineLog.h"

namespace Kestra::FF {

/// As SetEngineLogLevel() and SetEngineLogReceiver() say.
void SetLogLevel(Proc::LogLevel level) noexcept;
void SetLogReceiver(void (*receiver)(const std::string& line)) noexcept;

} // namespace Kestra::FF
