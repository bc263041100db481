// SPDX-License-Identifier: GPL-3.0-or-later
// Loading of the codec libraries, ahead of their first use.
#pragma once

#include "KestraExport.h"

namespace Kestra::Proc {

/// What asks for a factory, for a check or for what encoders take has the codec libraries loaded, some hundred files,
/// and waits for it. Called before, on any thread, that happens meanwhile. Throws ProcException (CodecNotFound) with
/// the loader's words where they cannot be loaded; the next call tries again.
KESTRA_EXPORT void LoadEngine();

} // namespace Kestra::Proc
