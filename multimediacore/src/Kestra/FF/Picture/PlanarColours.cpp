// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Picture/PlanarColours.h"

#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Picture/ChromaPlace.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

namespace {

/// Of ten bits, single values of a hundred thousand are some steps off.
constexpr int DEEPEST = 8;
const char* const WHAT = "Converting the colours of a picture failed";

ZimgGraph::Side SideOf(const AVFrame& frame, AVChromaLocation location, const Conf::ColourInfo& colour) {
    ZimgGraph::Side side = ZimgGraph::SideOf(frame, location, colour.range);
    side.matrix = colour.matrix;
    side.transfer = colour.transfer;
    side.primaries = colour.primaries;
    return side;
}

// Vectors of AVX-512 would clip, in the tables, what RGB of the new primaries cannot hold and YUV can; they are not
// taken unless they are asked for.
std::unique_ptr<ZimgGraph> Build(const ZimgGraph::Side& source, const ZimgGraph::Side& target) {
    zimg_graph_builder_params parameters;
    zimg_graph_builder_params_default(&parameters, ZIMG_API_VERSION);
    parameters.resample_filter = parameters.resample_filter_uv = ZIMG_RESIZE_BILINEAR;
    parameters.dither_type = ZIMG_DITHER_NONE;
    parameters.allow_approximate_gamma = 1;
    return ZimgGraph::Build(source, target, parameters);
}

} // namespace

FrameHandle PlanarColours::Convert(const AVFrame& frame, const ColourChange& change, AVPixelFormat format) {
    if (av_pix_fmt_desc_get(format)->comp[0].depth > DEEPEST || !ZimgGraph::Takes(frame))
        return nullptr;
    FrameHandle result = pool.Get(format, frame.width, frame.height);
    if (!ZimgGraph::Takes(*result))
        return nullptr;
    const ZimgGraph::Side source = SideOf(frame, ChromaLocationOf(frame), change.before);
    const ZimgGraph::Side target = SideOf(*result, MADE_LOCATION, change.after);
    if (!(source == builtSource && target == builtTarget)) {
        graph = Build(source, target);
        builtSource = source;
        builtTarget = target;
    }
    if (!graph)
        return nullptr;
    graph->Run(frame, *result, WHAT);
    Check(av_frame_copy_props(result.get(), &frame), Proc::TranscodingError::OutOfMemory, WHAT);
    result->chroma_location = MADE_LOCATION;
    return result;
}

} // namespace Kestra::FF
