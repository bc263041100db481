#pragma once

#include <string>

namespace Kestra::Proc {

/// Names the calling thread for debuggers and process listings, cut to what the system takes.
void SetThreadName(const std::string& name) noexcept;

} // namespace Kestra::Proc
