// Kestra::FF::PlanarScaler: size, chroma, depth and range of planar YUV, by zimg.
#pragma once

#include "Kestra/Conf/PixelFormat.h"
#include "Kestra/FF/Av/Handles.h"
#include <memory>
#include <zimg.h>

namespace Kestra::FF {

/// Takes a part of libswscale's work: the cases in which it is faster and no less exact. Bound to one thread at a time.
class PlanarScaler {
public:
    PlanarScaler() = default;

    /// What the frames' own tags do not say.
    struct Job {
        Conf::ColourInfo before; ///< nothing in it is unspecified
        Conf::ColourInfo after;
        int interpolation = 0; ///< a scaler flag of libswscale
    };

    /// Fills `to`, which has its size and format. False, and nothing is done, where that is somebody else's work.
    bool Scale(const AVFrame& from, AVFrame& to, const Job& job);

private:
    /// All that a graph depends on.
    struct Side {
        int width = 0, height = 0, format = -1;
        bool full = false;
        AVChromaLocation location = AVCHROMA_LOC_UNSPECIFIED;
        bool operator==(const Side& other) const;
    };
    struct GraphDeleter {
        void operator()(zimg_filter_graph* graph) const noexcept { zimg_filter_graph_free(graph); }
    };
    struct MemoryDeleter {
        void operator()(void* memory) const noexcept;
    };

    static zimg_image_format FormatOf(const Side& side);
    void Build(const Side& source, const Side& target, int interpolation);

    Side builtSource;
    Side builtTarget;
    int builtInterpolation = 0;
    std::unique_ptr<zimg_filter_graph, GraphDeleter> graph; ///< null where zimg knows no way
    std::unique_ptr<void, MemoryDeleter> memory;
};

} // namespace Kestra::FF
