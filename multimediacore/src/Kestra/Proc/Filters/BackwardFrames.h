// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::BackwardFrames: a stream's pictures from later to earlier ones.
#pragma once

#include "Kestra/Base/Quantity.h"
#include "Kestra/Proc/IStreamVideo.h"
#include <cstddef>
#include <deque>

namespace Kestra::Proc {

/// Reads forwards in stretches of which each lies before the last one read, and holds one at a time: what 2 s or so
/// many bytes of pictures are, whichever is less, and always one. The length of the first is a guess; from then on it
/// is fitted to what pictures weigh, so that each is read once, and those of the first stretch twice at most. Bound to
/// its source's thread.
class BackwardFrames {
public:
    /// Nothing before `lowest` will be asked for. The source is held and has to seek exactly.
    BackwardFrames(boost::intrusive_ptr<IStreamVideo> source, Ticks lowest, std::size_t mostBytes);

    /// What the source shows at `time`: its last picture that begins not after that, else its first one. Null where it
    /// has none. From one call to the next times do not rise.
    boost::intrusive_ptr<IDataVideo> At(Ticks time);
    /// Whether what At gave last is shown at `time` too, which is not after the one asked for then.
    bool StillShows(Ticks time) const;
    /// Makes any time possible again.
    void Forget();

private:
    void ReadStretch(Ticks time);
    void ReadFrom(Ticks begin, Ticks time);
    void Fit();

    const boost::intrusive_ptr<IStreamVideo> source;
    const Ticks lowest;
    const std::size_t mostBytes;
    Ticks length;                                         ///< of the next stretch
    std::deque<boost::intrusive_ptr<IDataVideo>> stretch; ///< those not after the last one given
    std::size_t bytes = 0;                                ///< of them
    bool fromFirst = false;                               ///< it begins with the source's first picture
};

} // namespace Kestra::Proc
