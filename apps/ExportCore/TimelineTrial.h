// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::obstaclesOf: what an export of a timeline would meet.
#pragma once

#include "ExportCore/TimelineOpening.h"
#include <vector>

namespace ExportCore {

/// Beside what reading has found, of a whole timeline at its own rate: errors where it is shorter than a frame, has
/// media that cannot be opened after all, or shows what one claims to hold and lacks; warnings of other damage that
/// opening has seen. Nothing of one that is not fit. Takes the media's reports of damage; on the thread of the model.
EXPORTCORE_EXPORT std::vector<Timeline::Finding> obstaclesOf(const TimelineOpening& opening,
                                                             const std::atomic<bool>* interrupted = nullptr);

} // namespace ExportCore
