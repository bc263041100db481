// Project::ExportWindow: the part of a timeline that an export renders.
#pragma once

#include "EditorProjectExport.h"
#include "Kestra/Base/FrameGrid.h"
#include "Kestra/Base/SampleGrid.h"
#include "Types/Range.h"
#include <optional>

namespace Project {

/// A value. With pictures the start is the nearest of their frames, counted from the start of
/// the composition; sound begins there too, so both stay in step to the sample.
class EDITORPROJECT_EXPORT ExportWindow {
public:
    /// `duration` is the timeline's; without `grid` there are no pictures. An empty or inverted range is the whole
    /// timeline. Throws Kestra::Proc::ProcException (InvalidArgument) when nothing of the range lies on it.
    ExportWindow(const Types::Range& range, Kestra::Ticks duration, const std::optional<Kestra::FrameGrid>& grid);

    Kestra::Ticks start() const { return from; }
    Kestra::Ticks end() const { return to; }
    const std::optional<Kestra::FrameGrid>& grid() const { return frameGrid; }
    /// The composition's frame with which it begins; 0 without pictures.
    Kestra::FrameIndex firstFrame() const { return first; }
    /// 0 without pictures.
    Kestra::FrameIndex frames() const;
    Kestra::SampleIndex samples(const Kestra::SampleGrid& sampleGrid) const;

private:
    void snapToFrames();

    Kestra::Ticks from;
    Kestra::Ticks to;
    std::optional<Kestra::FrameGrid> frameGrid;
    Kestra::FrameIndex first;
};

} // namespace Project
