#include "Kestra/FF/Picture/PlanarScaler.h"

#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Picture/ChromaPlace.h"
#include "Kestra/FF/Picture/ColourConverter.h"
#include <cstdint>
#include <new>
#include <tuple>

extern "C" {
#include <libavutil/pixdesc.h>
#include <libswscale/swscale.h>
}

namespace Kestra::FF {

namespace {

constexpr std::align_val_t ALIGNMENT{64};
/// Of rows, where vectors are of AVX2.
constexpr int ROW_ALIGNMENT = 32;

const AVPixFmtDescriptor& DescriptorOf(int format) {
    return *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(format));
}

int DepthOf(int format) {
    return DescriptorOf(format).comp[0].depth;
}

/// Three planes of whole numbers, luma and chroma, in the machine's byte order.
bool IsPlain(const AVPixFmtDescriptor& descriptor) {
    constexpr std::uint64_t OTHER = AV_PIX_FMT_FLAG_BE | AV_PIX_FMT_FLAG_PAL | AV_PIX_FMT_FLAG_BITSTREAM |
                                    AV_PIX_FMT_FLAG_HWACCEL | AV_PIX_FMT_FLAG_RGB | AV_PIX_FMT_FLAG_BAYER |
                                    AV_PIX_FMT_FLAG_ALPHA | AV_PIX_FMT_FLAG_FLOAT;
    return descriptor.nb_components == 3 && (descriptor.flags & AV_PIX_FMT_FLAG_PLANAR) &&
           !(descriptor.flags & OTHER) && descriptor.comp[1].plane == 1 && descriptor.comp[2].plane == 2 &&
           descriptor.comp[0].shift == 0;
}

bool HasWholeChroma(const AVFrame& frame, const AVPixFmtDescriptor& descriptor) {
    return frame.width % (1 << descriptor.log2_chroma_w) == 0 && frame.height % (1 << descriptor.log2_chroma_h) == 0;
}

bool IsAligned(const AVFrame& frame) {
    for (int plane = 0; plane < 3; ++plane)
        if (reinterpret_cast<std::uintptr_t>(frame.data[plane]) % ROW_ALIGNMENT != 0 ||
            frame.linesize[plane] % ROW_ALIGNMENT != 0)
            return false;
    return true;
}

bool Fits(const AVFrame& frame) {
    const AVPixFmtDescriptor& descriptor = DescriptorOf(frame.format);
    return IsPlain(descriptor) && HasWholeChroma(frame, descriptor) && IsAligned(frame);
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

bool PlanarScaler::Side::operator==(const Side& other) const {
    return std::tie(width, height, format, full, location) ==
           std::tie(other.width, other.height, other.format, other.full, other.location);
}

void PlanarScaler::MemoryDeleter::operator()(void* memory) const noexcept {
    ::operator delete(memory, ALIGNMENT);
}

zimg_image_format PlanarScaler::FormatOf(const Side& side) {
    const AVPixFmtDescriptor& descriptor = DescriptorOf(side.format);
    zimg_image_format format;
    zimg_image_format_default(&format, ZIMG_API_VERSION);
    format.width = static_cast<unsigned>(side.width);
    format.height = static_cast<unsigned>(side.height);
    format.depth = static_cast<unsigned>(descriptor.comp[0].depth);
    format.pixel_type = format.depth > 8 ? ZIMG_PIXEL_WORD : ZIMG_PIXEL_BYTE;
    format.subsample_w = descriptor.log2_chroma_w;
    format.subsample_h = descriptor.log2_chroma_h;
    format.color_family = ZIMG_COLOR_YUV;
    format.pixel_range = side.full ? ZIMG_RANGE_FULL : ZIMG_RANGE_LIMITED;
    format.chroma_location = static_cast<zimg_chroma_location_e>(side.location - AVCHROMA_LOC_LEFT);
    return format;
}

// Dither, as libswscale does it, only where bits go.
void PlanarScaler::Build(const Side& source, const Side& target, int interpolation) {
    const zimg_image_format before = FormatOf(source);
    const zimg_image_format after = FormatOf(target);
    zimg_graph_builder_params parameters;
    zimg_graph_builder_params_default(&parameters, ZIMG_API_VERSION);
    SetInterpolation(parameters, interpolation);
    parameters.dither_type = DepthOf(target.format) < DepthOf(source.format) ? ZIMG_DITHER_ORDERED : ZIMG_DITHER_NONE;
    graph.reset(zimg_filter_graph_build(&before, &after, &parameters));
    if (!graph && zimg_get_last_error(nullptr, 0) == ZIMG_ERROR_OUT_OF_MEMORY)
        throw std::bad_alloc();
    std::size_t size = 0;
    if (graph && zimg_filter_graph_get_tmp_size(graph.get(), &size) != ZIMG_ERROR_SUCCESS)
        graph.reset();
    memory.reset(graph ? ::operator new(size, ALIGNMENT) : nullptr);
    builtSource = source;
    builtTarget = target;
    builtInterpolation = interpolation;
}

bool PlanarScaler::Scale(const AVFrame& from, AVFrame& to, const Job& job) {
    if (!Fits(from) || !Fits(to) || !IsBetterHere(from, to, job))
        return false;
    const Side source{from.width, from.height, from.format, job.before.range == AVCOL_RANGE_JPEG,
                      ChromaLocationOf(from)};
    const Side target{to.width, to.height, to.format, job.after.range == AVCOL_RANGE_JPEG, MADE_LOCATION};
    if (!(source == builtSource && target == builtTarget && job.interpolation == builtInterpolation))
        Build(source, target, job.interpolation);
    if (!graph)
        return false;
    zimg_image_buffer_const input{};
    zimg_image_buffer output{};
    input.version = output.version = ZIMG_API_VERSION;
    for (int plane = 0; plane < 3; ++plane) {
        input.plane[plane] = {from.data[plane], from.linesize[plane], ZIMG_BUFFER_MAX};
        output.plane[plane] = {to.data[plane], to.linesize[plane], ZIMG_BUFFER_MAX};
    }
    if (zimg_filter_graph_process(graph.get(), &input, &output, memory.get(), nullptr, nullptr, nullptr, nullptr) != 0)
        Fail(Proc::TranscodingError::FilterFailed, "Converting a picture failed");
    return true;
}

} // namespace Kestra::FF
