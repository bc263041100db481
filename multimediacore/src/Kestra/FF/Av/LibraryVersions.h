// SPDX-License-Identifier: GPL-3.0-or-later
// Versions of FFmpeg's libraries and of the encoders behind them.
#pragma once

#include "Kestra/Proc/LibraryVersions.h"

namespace Kestra::FF {

std::vector<Proc::LibraryVersion> GetLibraryVersions();

} // namespace Kestra::FF
