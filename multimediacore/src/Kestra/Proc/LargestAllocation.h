// SPDX-License-Identifier: GPL-3.0-or-later
// How much memory the libraries under the engine may take in one piece.
#pragma once

#include "Kestra/Proc/MediaLimits.h"
#include "KestraExport.h"

namespace Kestra::Proc {

/// For the whole process, from any thread: the application decides. Packets, texts and tables of hostile files end at
/// that size (1 GiB, and more where larger pictures are allowed), as if there were no memory. Nothing is bounded
/// before the first call.
KESTRA_EXPORT void SetLargestAllocation(const MediaLimits& limits) noexcept;

} // namespace Kestra::Proc
