// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Base/ioPath.h"
#include "KestraExport.h"

namespace Kestra::Core {

/// Deletes a regular file; a symbolic link is not followed and, like a folder or a device, not deleted. False when
/// nothing was.
KESTRA_EXPORT bool RemoveFile(const ioPath& path) noexcept;

} // namespace Kestra::Core
