// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/Window.h"

namespace Render {

using Kestra::FrameIndex;
using Kestra::Ticks;

Window::Window(Ticks start, Ticks end, const std::optional<Kestra::FrameGrid>& grid)
    : from(start)
    , to(end)
    , frameGrid(grid) {
    if (!frameGrid)
        return;
    first = frameGrid->Nearest(from);
    from = frameGrid->Begin(first);
}

FrameIndex Window::frames() const {
    return frameGrid ? frameGrid->Nearest(to - from) : FrameIndex(0);
}

Kestra::SampleIndex Window::samples(const Kestra::SampleGrid& sampleGrid) const {
    return sampleGrid.Nearest(to - from);
}

} // namespace Render
