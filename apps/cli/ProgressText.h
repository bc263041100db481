// SPDX-License-Identifier: GPL-3.0-or-later
// Progress in words.
#pragma once

#include "ExportCore/ExportProgress.h"
#include <string>

namespace Cli {

/// "37 %, 48.2 fps, 1.80x, 12.3 MB, 0:42 left"; what is not known is left out.
std::string progressText(const ExportCore::ExportProgress& progress);
/// "[####----] 37 %, 48.2 fps, 1.80x, 12.3 MB, 0:42 left", no longer than `columns`: where there is no room the bar
/// becomes shorter; then frames a second, bytes, speed, the bar and the time are left out, in this order.
std::string progressBar(const ExportCore::ExportProgress& progress, int columns);

} // namespace Cli
