// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::FrameTimes: when pictures of a track begin, as far as that has been looked at.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include <cstdint>
#include <vector>

namespace Kestra::FF {

/// Engine time on the container's own clock. A value.
class FrameTimes {
public:
    /// What is taken from now on does not follow on from what was taken before.
    void BeginRun();
    void Take(std::int64_t time);
    /// Passes over what is decoded but never shown.
    void Take(const AVPacket& packet, const AVStream& stream);
    /// Forgets what the run has after `time`: pictures between may not have been read yet.
    void CutRun(std::int64_t time);
    /// The earliest of all was to be that much later.
    void MoveFirst(std::int64_t later);
    /// All that the container's index knows, in place of everything taken; false, with nothing changed, when it does
    /// not list every picture.
    bool TakeIndex(AVStream& stream);

    /// Some packets do not say when they are shown, so these times are not those of all pictures.
    bool AreIncomplete() const { return untimed; }
    /// Every picture of the track is in them.
    bool AreWhole() const { return whole; }
    void SetWhole() { whole = true; }
    /// Runs of pictures between which none is left out, each sorted, each time once; none shorter than two pictures.
    std::vector<std::vector<std::int64_t>> Runs() const;

private:
    std::vector<std::vector<std::int64_t>> runs;
    bool untimed = false;
    bool whole = false;
};

} // namespace Kestra::FF
