// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::BandedFilter: a chain of filters that works on several bands of a picture at a time.
#pragma once

#include "Kestra/FF/Av/FilterGraph.h"
#include "Kestra/FF/Av/FramePool.h"
#include <string>
#include <vector>

namespace Kestra::FF {

/// For chains that keep the size and whose every pixel depends on its near neighbours alone. The result does not depend
/// on the number of bands: each is computed with the rows around it, which libavfilter's own slices leave out. Bound to
/// one thread at a time.
class BandedFilter {
public:
    /// As for FilterGraph. `bands`: 1 starts no thread, more start as many but one for each frame.
    BandedFilter(const std::string& chain, const std::string& failure, int bands);

    /// Throws ProcException (FilterFailed).
    FrameHandle Filter(const AVFrame& frame);

private:
    /// Rows.
    struct Band {
        int top = 0, bottom = 0;             ///< that are wanted
        int topAround = 0, bottomAround = 0; ///< that are computed
    };
    static std::vector<Band> BandsOf(int height, std::size_t count);

    std::vector<FrameHandle> FilterAll(const AVFrame& frame, const std::vector<Band>& bands);

    std::vector<FilterGraph> graphs; ///< one for each band
    FramePool pool;
};

} // namespace Kestra::FF
