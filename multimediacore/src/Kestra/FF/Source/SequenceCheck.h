// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Proc/FileCheck.h"

namespace Kestra::FF {

/// As Proc::CheckPictures() says.
Proc::CheckedFile CheckPictures(const ioPath& folder, const Conf::NumberedName& name,
                                const std::atomic<bool>& interrupted);

} // namespace Kestra::FF
