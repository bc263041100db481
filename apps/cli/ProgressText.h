// Progress in words.
#pragma once

#include "ExportCore/ExportProgress.h"
#include <string>

namespace Cli {

/// "37 %, 1.8x, 0:42 left"; what is not known is left out.
std::string progressText(const ExportCore::ExportProgress& progress);
/// "[####----] 37 %, 1.8x, 0:42 left", no longer than `columns`: where there is no room the bar becomes shorter, then
/// speed, bar and time are left out.
std::string progressBar(const ExportCore::ExportProgress& progress, int columns);

} // namespace Cli
