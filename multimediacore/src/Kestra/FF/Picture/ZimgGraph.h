// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::ZimgGraph: a conversion of planar YUV by zimg.
#pragma once

#include "Kestra/Conf/PixelFormat.h"
#include "Kestra/FF/Av/Handles.h"
#include <memory>
#include <zimg.h>

namespace Kestra::FF {

/// Built for one kind of frames; bound to one thread at a time.
class ZimgGraph {
public:
    /// What frames on one side of it look like. Colours that are 0 are left alone: both sides then have them so.
    struct Side {
        int width = 0, height = 0, format = -1;
        bool full = false; ///< range
        AVChromaLocation location = AVCHROMA_LOC_UNSPECIFIED;
        int matrix = 0, transfer = 0, primaries = 0; ///< libavutil's numbers, which are those of H.273, as zimg's are
        bool operator==(const Side& other) const;
    };

    /// Whether zimg can read or write it where it lies: three planes of whole numbers in the machine's byte order,
    /// whole samples of chroma, rows that begin where its vectors want them.
    static bool Takes(const AVFrame& frame);
    static Side SideOf(const AVFrame& frame, AVChromaLocation location, int range);

    /// Null where zimg knows no way. Throws std::bad_alloc.
    static std::unique_ptr<ZimgGraph> Build(const Side& before, const Side& after,
                                            const zimg_graph_builder_params& parameters);

    /// Both frames are as the graph was built for, and such as it Takes. Throws ProcException (FilterFailed) with
    /// `what`.
    void Run(const AVFrame& from, AVFrame& to, const char* what) const;

private:
    struct GraphDeleter {
        void operator()(zimg_filter_graph* graph) const noexcept { zimg_filter_graph_free(graph); }
    };
    struct MemoryDeleter {
        void operator()(void* memory) const noexcept;
    };

    ZimgGraph() = default;

    std::unique_ptr<zimg_filter_graph, GraphDeleter> graph;
    std::unique_ptr<void, MemoryDeleter> memory; ///< that it computes in
};

} // namespace Kestra::FF
