// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Proc/ProcessingError.h"
#include <string>

namespace Export {

/// "name(number) - description" of a failure, UTF-8, for the log.
std::string errorText(const Kestra::Proc::ProcessingError& error);

} // namespace Export
