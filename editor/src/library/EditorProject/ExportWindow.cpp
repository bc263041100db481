#include "EditorProject/ExportWindow.h"

#include "Kestra/Base/SourcePlace.h"
#include "Kestra/Proc/ProcException.h"
#include "Types/Time.h"
#include <algorithm>

namespace Project {
namespace {

using Kestra::FrameIndex;
using Kestra::Ticks;

[[noreturn]] void refuse(const Types::Range& range, const char* reason,
                         Kestra::SourcePlace place = Kestra::SourcePlace::Here()) {
    Kestra::ThrowFrom(Kestra::Proc::ProcException(Kestra::Proc::TranscodingError::InvalidArgument,
                                                  "The range from " + std::to_string(range.start.count()) + " to " +
                                                      std::to_string(range.end.count()) + " ms " + reason),
                      place);
}

[[noreturn]] void refuseLength(Ticks duration, Kestra::SourcePlace place = Kestra::SourcePlace::Here()) {
    const auto milliseconds = Types::fromAvTime(duration.Value()).count();
    const std::string length = milliseconds > 0 ? std::to_string(milliseconds) + " ms" : "less than a millisecond";
    Kestra::ThrowFrom(Kestra::Proc::ProcException(Kestra::Proc::TranscodingError::InvalidArgument,
                                                  "What is to be exported lasts " + length +
                                                      ", which is shorter than one frame of picture"),
                      place);
}

} // namespace

ExportWindow::ExportWindow(const Types::Range& range, Ticks duration, const std::optional<Kestra::FrameGrid>& grid)
    : to(duration)
    , frameGrid(grid) {
    if (range.end > range.start) {
        from = std::max(Ticks(0), Ticks(Types::toAvTime(range.start)));
        // The last millisecond is the user's name for the very end, which rarely falls on a millisecond.
        if (range.end < Types::fromAvTime(duration.Value()))
            to = Ticks(Types::toAvTime(range.end));
        if (from >= to)
            refuse(range, "lies outside the project");
    }
    snapToFrames();
    const bool nothing = from >= to || (frameGrid && frames() == FrameIndex(0));
    if (nothing && range.end <= range.start)
        refuseLength(duration);
    if (nothing)
        refuse(range, "is shorter than one frame");
}

void ExportWindow::snapToFrames() {
    if (!frameGrid)
        return;
    first = frameGrid->Nearest(from);
    from = frameGrid->Begin(first);
}

FrameIndex ExportWindow::frames() const {
    return frameGrid ? frameGrid->Nearest(to - from) : FrameIndex(0);
}

Kestra::SampleIndex ExportWindow::samples(const Kestra::SampleGrid& sampleGrid) const {
    return sampleGrid.Nearest(to - from);
}

} // namespace Project
