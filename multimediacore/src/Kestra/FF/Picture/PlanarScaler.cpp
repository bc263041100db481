// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Picture/PlanarScaler.h"

#include "Kestra/FF/Picture/ChromaPlace.h"
#include "Kestra/FF/Picture/ColourConverter.h"

extern "C" {
#include <libavutil/pixdesc.h>
#include <libswscale/swscale.h>
}

namespace Kestra::FF {

namespace {

int DepthOf(int format) {
    return av_pix_fmt_desc_get(static_cast<AVPixelFormat>(format))->comp[0].depth;
}

/// Measured with libswscale beside it (docs/performance.md). With more bits than 8 it loses some by scaling.
bool IsBetterHere(const AVFrame& from, const AVFrame& to, const PlanarScaler::Job& job) {
    const bool sameSize = from.width == to.width && from.height == to.height;
    const bool known = job.interpolation == SWS_BICUBIC || job.interpolation == SWS_LANCZOS;
    return known && (sameSize || DepthOf(to.format) == 8) &&
           MatrixClass(job.before.matrix) == MatrixClass(job.after.matrix) && job.before.matrix != AVCOL_SPC_RGB;
}

/// With libswscale's parameters.
void SetInterpolation(zimg_graph_builder_params& parameters, int interpolation) {
    const bool lanczos = interpolation == SWS_LANCZOS;
    parameters.resample_filter = lanczos ? ZIMG_RESIZE_LANCZOS : ZIMG_RESIZE_BICUBIC;
    parameters.filter_param_a = lanczos ? 3 : 0;
    parameters.filter_param_b = lanczos ? 0 : 0.6;
    parameters.resample_filter_uv = parameters.resample_filter;
    parameters.filter_param_a_uv = parameters.filter_param_a;
    parameters.filter_param_b_uv = parameters.filter_param_b;
}

} // namespace

// Dither, as libswscale does it, only where bits go.
void PlanarScaler::Build(const ZimgGraph::Side& source, const ZimgGraph::Side& target, int interpolation) {
    zimg_graph_builder_params parameters;
    zimg_graph_builder_params_default(&parameters, ZIMG_API_VERSION);
    SetInterpolation(parameters, interpolation);
    parameters.dither_type = DepthOf(target.format) < DepthOf(source.format) ? ZIMG_DITHER_ORDERED : ZIMG_DITHER_NONE;
    graph = ZimgGraph::Build(source, target, parameters);
    builtSource = source;
    builtTarget = target;
    builtInterpolation = interpolation;
}

bool PlanarScaler::Scale(const AVFrame& from, AVFrame& to, const Job& job) {
    if (!ZimgGraph::Takes(from) || !ZimgGraph::Takes(to) || !IsBetterHere(from, to, job))
        return false;
    const auto source = ZimgGraph::SideOf(from, ChromaLocationOf(from), job.before.range);
    const auto target = ZimgGraph::SideOf(to, MADE_LOCATION, job.after.range);
    if (!(source == builtSource && target == builtTarget && job.interpolation == builtInterpolation))
        Build(source, target, job.interpolation);
    if (!graph)
        return false;
    graph->Run(from, to, "Converting a picture failed");
    return true;
}

} // namespace Kestra::FF
