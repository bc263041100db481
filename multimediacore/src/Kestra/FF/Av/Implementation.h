// SPDX-License-Identifier: GPL-3.0-or-later
// The choice among implementations by name.
#pragma once

#include "Kestra/Base/SourcePlace.h"
#include <string>

namespace Kestra::FF {

/// There is one implementation of each thing. Throws FilterException (NotSupported) for another name than its own.
void RequireImplementation(const char* what, const std::string& implName, SourcePlace place = SourcePlace::Here());

} // namespace Kestra::FF
