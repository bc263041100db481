// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Proc/FileCheck.h"

namespace Kestra::FF {

/// As Proc::CheckFile() says, of an animated WebP file.
Proc::CheckedFile CheckWebP(const ioPath& path, const std::atomic<bool>& interrupted);

} // namespace Kestra::FF
