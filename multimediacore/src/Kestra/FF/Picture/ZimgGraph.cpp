// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Picture/ZimgGraph.h"

#include "Kestra/FF/Av/Error.h"
#include <cstdint>
#include <new>
#include <tuple>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

namespace {

constexpr std::align_val_t ALIGNMENT{64};
/// Of rows, where vectors are of AVX2.
constexpr int ROW_ALIGNMENT = 32;

const AVPixFmtDescriptor& DescriptorOf(int format) {
    return *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(format));
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

/// Those left alone are what a format begins with.
void SetColours(zimg_image_format& format, const ZimgGraph::Side& side) {
    if (side.matrix != 0)
        format.matrix_coefficients = static_cast<zimg_matrix_coefficients_e>(side.matrix);
    if (side.transfer != 0)
        format.transfer_characteristics = static_cast<zimg_transfer_characteristics_e>(side.transfer);
    if (side.primaries != 0)
        format.color_primaries = static_cast<zimg_color_primaries_e>(side.primaries);
}

zimg_image_format FormatOf(const ZimgGraph::Side& side) {
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
    SetColours(format, side);
    return format;
}

} // namespace

bool ZimgGraph::Side::operator==(const Side& other) const {
    const auto all = [](const Side& it) {
        return std::tie(it.width, it.height, it.format, it.full, it.location, it.matrix, it.transfer, it.primaries);
    };
    return all(*this) == all(other);
}

void ZimgGraph::MemoryDeleter::operator()(void* memory) const noexcept {
    ::operator delete(memory, ALIGNMENT);
}

bool ZimgGraph::Takes(const AVFrame& frame) {
    const AVPixFmtDescriptor& descriptor = DescriptorOf(frame.format);
    return IsPlain(descriptor) && HasWholeChroma(frame, descriptor) && IsAligned(frame);
}

ZimgGraph::Side ZimgGraph::SideOf(const AVFrame& frame, AVChromaLocation location, int range) {
    Side side;
    side.width = frame.width;
    side.height = frame.height;
    side.format = frame.format;
    side.full = range == AVCOL_RANGE_JPEG;
    side.location = location;
    return side;
}

std::unique_ptr<ZimgGraph> ZimgGraph::Build(const Side& source, const Side& target,
                                            const zimg_graph_builder_params& parameters) {
    const zimg_image_format before = FormatOf(source);
    const zimg_image_format after = FormatOf(target);
    std::unique_ptr<ZimgGraph> built(new ZimgGraph);
    built->graph.reset(zimg_filter_graph_build(&before, &after, &parameters));
    if (!built->graph && zimg_get_last_error(nullptr, 0) == ZIMG_ERROR_OUT_OF_MEMORY)
        throw std::bad_alloc();
    std::size_t size = 0;
    if (!built->graph || zimg_filter_graph_get_tmp_size(built->graph.get(), &size) != ZIMG_ERROR_SUCCESS)
        return nullptr;
    built->memory.reset(::operator new(size, ALIGNMENT));
    return built;
}

void ZimgGraph::Run(const AVFrame& from, AVFrame& to, const char* what) const {
    zimg_image_buffer_const input{};
    zimg_image_buffer output{};
    input.version = output.version = ZIMG_API_VERSION;
    for (int plane = 0; plane < 3; ++plane) {
        input.plane[plane] = {from.data[plane], from.linesize[plane], ZIMG_BUFFER_MAX};
        output.plane[plane] = {to.data[plane], to.linesize[plane], ZIMG_BUFFER_MAX};
    }
    if (zimg_filter_graph_process(graph.get(), &input, &output, memory.get(), nullptr, nullptr, nullptr, nullptr) != 0)
        Fail(Proc::TranscodingError::FilterFailed, what);
}

} // namespace Kestra::FF
