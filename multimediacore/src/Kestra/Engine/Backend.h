// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Backend: the codec libraries, loaded when they are first needed.
#pragma once

#include "Kestra/Proc/IBackend.h"

namespace Kestra {

/// As LoadEngine().
Proc::IBackend& Backend();

} // namespace Kestra
