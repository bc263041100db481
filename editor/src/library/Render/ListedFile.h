// SPDX-License-Identifier: GPL-3.0-or-later
// Render::listed: a medium as a list of media on a timeline has it.
#pragma once

#include "Kestra/Proc/IMediaSource.h"
#include "Timeline/Reader/MediaList.h"

namespace Render {

/// For its whole length, a still picture for 5 s. Throws Kestra::Proc::ProcException (SourceUnreadable) where it has
/// none.
Timeline::ListedMedia listed(const Kestra::Proc::IMediaSource& media);

} // namespace Render
