// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorProject/ExportWindow.h"

#include "Kestra/Base/SourcePlace.h"
#include "Kestra/Proc/ProcException.h"
#include "Types/Time.h"
#include <algorithm>

namespace Project {
namespace {

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
    const std::string text = duration == Ticks(0) ? "There is nothing to export: the composition is empty"
                                                  : "What is to be exported lasts " + length +
                                                        ", which is shorter than one frame of picture";
    Kestra::ThrowFrom(Kestra::Proc::ProcException(Kestra::Proc::TranscodingError::InvalidArgument, text), place);
}

Render::Window windowOf(const Types::Range& range, Ticks duration, const std::optional<Kestra::FrameGrid>& grid) {
    if (range.end <= range.start)
        return Render::Window(Ticks(0), duration, grid);
    const Ticks from = std::max(Ticks(0), Ticks(Types::toAvTime(range.start)));
    // The last millisecond is the user's name for the very end, which rarely falls on a millisecond.
    const bool toTheEnd = range.end >= Types::fromAvTime(duration.Value());
    const Ticks to = toTheEnd ? duration : Ticks(Types::toAvTime(range.end));
    if (from >= to)
        refuse(range, "lies outside the project");
    return Render::Window(from, to, grid);
}

} // namespace

ExportWindow::ExportWindow(const Types::Range& range, Ticks duration, const std::optional<Kestra::FrameGrid>& grid)
    : Render::Window(windowOf(range, duration, grid)) {
    if (!isEmpty())
        return;
    if (range.end <= range.start)
        refuseLength(duration);
    refuse(range, "is shorter than one frame");
}

} // namespace Project
