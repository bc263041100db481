// SPDX-License-Identifier: GPL-3.0-or-later
// Render::Window: the part of a composition that is rendered.
#pragma once

#include "EditorRenderExport.h"
#include "Kestra/Base/FrameGrid.h"
#include "Kestra/Base/SampleGrid.h"
#include <optional>

namespace Render {

/// A value, shared by the streams of one export. With pictures the start is the nearest of their frames, counted from
/// the start of the composition; sound begins there too, so both stay in step to the sample.
class EDITORRENDER_EXPORT Window {
public:
    /// From `start` to `end` in the composition; without `grid` there are no pictures.
    Window(Kestra::Ticks start, Kestra::Ticks end, const std::optional<Kestra::FrameGrid>& grid);

    Kestra::Ticks start() const { return from; }
    Kestra::Ticks end() const { return to; }
    const std::optional<Kestra::FrameGrid>& grid() const { return frameGrid; }
    /// The composition's frame with which it begins; 0 without pictures.
    Kestra::FrameIndex firstFrame() const { return first; }
    /// 0 without pictures.
    Kestra::FrameIndex frames() const;
    Kestra::SampleIndex samples(const Kestra::SampleGrid& sampleGrid) const;
    /// Whether nothing is in it: no time, or pictures but no whole frame.
    bool isEmpty() const { return from >= to || (frameGrid && frames() == Kestra::FrameIndex(0)); }

private:
    Kestra::Ticks from;
    Kestra::Ticks to;
    std::optional<Kestra::FrameGrid> frameGrid;
    Kestra::FrameIndex first;
};

} // namespace Render
