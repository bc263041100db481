// Progress in words.
#pragma once

#include "ExportCore/ExportProgress.h"
#include <string>

namespace Cli {

/// "37 %, 1.8x, 0:42 left"; what is not known is left out.
std::string progressText(const ExportCore::ExportProgress& progress);

} // namespace Cli
