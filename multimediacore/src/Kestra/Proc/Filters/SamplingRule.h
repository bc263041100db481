// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::SamplingRule: which frame of a grid shows which moment of a source.
#pragma once

#include "Kestra/Base/FrameGrid.h"
#include "Kestra/Base/TimeMap.h"
#include "KestraExport.h"
#include <optional>

namespace Kestra::Proc {

/// A value. Frame n shows what the source shows at the map's value for the middle of period n: clocks that round to a
/// millisecond then neither drop nor repeat a frame.
class KESTRA_EXPORT SamplingRule {
public:
    enum class Pace {
        Any,  ///< the middles alone decide
        Grid, ///< the source's frames are meant for the grid, one each: those that come a little early or late are
              ///< shown
    };

    /// No time of the source beyond `furthest` is shown, in the direction in which the map runs; that one stands still.
    explicit SamplingRule(const FrameGrid& grid, Pace pace = Pace::Any, const TimeMap& map = {},
                          std::optional<Ticks> furthest = {});

    const FrameGrid& GetGrid() const { return grid; }
    /// Later frames then show earlier times of the source, by the middles alone whatever the pace, and the two
    /// questions for the first frame have no answer: they throw std::logic_error.
    bool RunsBackwards() const { return map.speed < 0; }
    /// The time of the source that frame `index` shows.
    Ticks Shown(FrameIndex index) const;
    /// The first frame that shows what the source shows from `time` on; the greatest index where none does, and the
    /// smallest one where every frame does: a map of speed 0 knows no other answers.
    FrameIndex FirstShowing(Ticks time) const;
    /// As FirstShowing, for the source's frame at `time` that follows one first shown in `last`. At the grid's pace it
    /// takes the period after that one if it is off it by less than three quarters of a period. An answer not after
    /// `last` replaces the frame before it.
    FrameIndex FirstShowingAfter(FrameIndex last, Ticks time) const;

private:
    bool FollowsOn(FrameIndex following, Ticks time) const;

    FrameGrid grid;
    Pace pace;
    TimeMap map;
    std::optional<Ticks> furthest;
};

} // namespace Kestra::Proc
