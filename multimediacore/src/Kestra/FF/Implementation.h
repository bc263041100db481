// The choice among implementations by name.
#pragma once

#include <string>

namespace Kestra::FF {

/// There is one implementation of each thing. Throws FilterException (NotSupported) for another name than its own.
void RequireImplementation(const char* what, const std::string& implName);

} // namespace Kestra::FF
