// SPDX-License-Identifier: GPL-3.0-or-later
// Project::ExportWindow: the part of a timeline that an export renders.
#pragma once

#include "Render/Window.h"
#include "Types/Range.h"

namespace Project {

/// A value: the window that a range of the model names.
class ExportWindow : public Render::Window {
public:
    /// `duration` is the timeline's; without `grid` there are no pictures. An empty or inverted range is the whole
    /// timeline. Throws Kestra::Proc::ProcException (InvalidArgument) when nothing of the range lies on it.
    ExportWindow(const Types::Range& range, Kestra::Ticks duration, const std::optional<Kestra::FrameGrid>& grid);
};

} // namespace Project
