// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::PlanarScaler: size, chroma, depth and range of planar YUV, by zimg.
#pragma once

#include "Kestra/FF/Picture/ZimgGraph.h"

namespace Kestra::FF {

/// Takes a part of libswscale's work: the cases in which it is faster and no less exact. Bound to one thread at a time.
class PlanarScaler {
public:
    /// What the frames' own tags do not say.
    struct Job {
        Conf::ColourInfo before; ///< nothing in it is unspecified
        Conf::ColourInfo after;
        int interpolation = 0; ///< a scaler flag of libswscale
    };

    /// Fills `to`, which has its size and format. False, and nothing is done, where that is somebody else's work.
    bool Scale(const AVFrame& from, AVFrame& to, const Job& job);

private:
    void Build(const ZimgGraph::Side& source, const ZimgGraph::Side& target, int interpolation);

    ZimgGraph::Side builtSource;
    ZimgGraph::Side builtTarget;
    int builtInterpolation = 0;
    std::unique_ptr<ZimgGraph> graph; ///< null where zimg knows no way
};

} // namespace Kestra::FF
