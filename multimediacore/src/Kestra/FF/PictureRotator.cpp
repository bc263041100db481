#include "Kestra/FF/PictureRotator.h"

#include "Kestra/FF/Error.h"
#include <string>

extern "C" {
#include <libavfilter/buffersink.h>
#include <libavfilter/buffersrc.h>
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

const char* const WHAT = "Turning a picture upright failed";

struct InOutDeleter {
    void operator()(AVFilterInOut* object) const noexcept { avfilter_inout_free(&object); }
};
using InOutHandle = std::unique_ptr<AVFilterInOut, InOutDeleter>;

InOutHandle MakeEnd(const char* name, AVFilterContext* filter) {
    InOutHandle end(Allocated(avfilter_inout_alloc()));
    end->name = Allocated(av_strdup(name));
    end->filter_ctx = filter;
    return end;
}

// Flipping rows alone would leave negative strides, which few consumers expect: a flip stands before something that
// copies.
std::string Chain(Orientation orientation) {
    switch (orientation.rotation) {
    case 90:
        return orientation.flipped ? "transpose=clock_flip" : "transpose=clock";
    case 270:
        return orientation.flipped ? "transpose=cclock_flip" : "transpose=cclock";
    case 180:
        return orientation.flipped ? "hflip" : "vflip,hflip";
    default:
        return orientation.flipped ? "vflip,copy" : "null";
    }
}

} // namespace

PictureRotator::PictureRotator(Orientation orientation)
    : orientation(orientation) {}

AVPixelFormat PictureRotator::OutputFormat(AVPixelFormat picture, Orientation orientation) {
    const AVPixFmtDescriptor* descriptor = av_pix_fmt_desc_get(picture);
    const bool sideways = orientation.rotation % 180 != 0;
    if (!descriptor || !sideways || descriptor->log2_chroma_w == descriptor->log2_chroma_h)
        return picture;
    const bool alpha = (descriptor->flags & AV_PIX_FMT_FLAG_ALPHA) != 0;
    const int depth = descriptor->comp[0].depth;
    if (depth <= 8)
        return alpha ? AV_PIX_FMT_YUVA444P : AV_PIX_FMT_YUV444P;
    if (depth <= 10)
        return alpha ? AV_PIX_FMT_YUVA444P10 : AV_PIX_FMT_YUV444P10;
    return alpha ? AV_PIX_FMT_YUVA444P12 : AV_PIX_FMT_YUV444P12;
}

bool PictureRotator::Fits(const AVFrame& picture) const {
    return graph && picture.width == width && picture.height == height && picture.format == format;
}

void PictureRotator::Configure(const AVFrame& picture) {
    width = picture.width;
    height = picture.height;
    format = picture.format;
    graph.reset(Allocated(avfilter_graph_alloc()));
    graph->nb_threads = 2;
    const AVRational aspect = picture.sample_aspect_ratio;
    const std::string arguments = "video_size=" + std::to_string(width) + "x" + std::to_string(height) +
                                  ":pix_fmt=" + std::to_string(format) +
                                  ":time_base=1/1000000:pixel_aspect=" + std::to_string(aspect.num) + "/" +
                                  std::to_string(aspect.den > 0 ? aspect.den : 1);
    Check(avfilter_graph_create_filter(&input, avfilter_get_by_name("buffer"), "in", arguments.c_str(), nullptr,
                                       graph.get()),
          TranscodingError::FilterFailed, WHAT);
    Check(
        avfilter_graph_create_filter(&output, avfilter_get_by_name("buffersink"), "out", nullptr, nullptr, graph.get()),
        TranscodingError::FilterFailed, WHAT);
    AVFilterInOut* outputs = MakeEnd("in", input).release();
    AVFilterInOut* inputs = MakeEnd("out", output).release();
    const AVPixelFormat target = OutputFormat(static_cast<AVPixelFormat>(format), orientation);
    const std::string chain = "format=" + std::string(av_get_pix_fmt_name(target)) + "," + Chain(orientation);
    const int parsed = avfilter_graph_parse_ptr(graph.get(), chain.c_str(), &inputs, &outputs, nullptr);
    const InOutHandle restIn(inputs);
    const InOutHandle restOut(outputs);
    Check(parsed, TranscodingError::FilterFailed, WHAT);
    Check(avfilter_graph_config(graph.get(), nullptr), TranscodingError::FilterFailed, WHAT);
}

FrameHandle PictureRotator::Rotate(const AVFrame& picture) {
    if (!Fits(picture))
        Configure(picture);
    const FrameHandle reference = MakeFrameReference(picture);
    Check(av_buffersrc_add_frame_flags(input, reference.get(), AV_BUFFERSRC_FLAG_PUSH), TranscodingError::FilterFailed,
          WHAT);
    FrameHandle turned = MakeFrame();
    Check(av_buffersink_get_frame(output, turned.get()), TranscodingError::FilterFailed, WHAT);
    // The orientation is in the pixels now.
    av_frame_remove_side_data(turned.get(), AV_FRAME_DATA_DISPLAYMATRIX);
    return turned;
}

} // namespace Kestra::FF
