// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Av/FilterGraph.h"

#include "Kestra/Base/Time.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include <array>
#include <tuple>
#include <utility>

extern "C" {
#include <libavfilter/buffersink.h>
#include <libavfilter/buffersrc.h>
}

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

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

std::string LayoutText(const AVChannelLayout& layout) {
    std::array<char, 256> text{};
    av_channel_layout_describe(&layout, text.data(), text.size());
    return text.data();
}

std::string Ratio(AVRational value) {
    return std::to_string(value.num) + "/" + std::to_string(value.den > 0 ? value.den : 1);
}

} // namespace

bool FilterGraph::Shape::operator==(const Shape& other) const {
    const auto all = [](const Shape& it) {
        return std::tie(it.format, it.width, it.height, it.sampleAspect.num, it.sampleAspect.den, it.sampleRate,
                        it.layout);
    };
    return all(*this) == all(other);
}

FilterGraph::FilterGraph(std::string chain, std::string failure, int threads)
    : chain(std::move(chain))
    , failure(std::move(failure))
    , threads(threads) {}

int FilterGraph::Checked(int result, SourcePlace place) {
    if (result < 0 && result != AVERROR(EAGAIN) && result != AVERROR_EOF) {
        graph.reset();
        ThrowError(result, TranscodingError::FilterFailed, failure, place);
    }
    return result;
}

FilterGraph::Shape FilterGraph::ShapeOf(const AVFrame& frame) {
    Shape shape;
    shape.format = frame.format;
    if (frame.width > 0) {
        shape.width = frame.width;
        shape.height = frame.height;
        shape.sampleAspect = frame.sample_aspect_ratio;
    } else {
        shape.sampleRate = frame.sample_rate;
        shape.layout = LayoutText(frame.ch_layout);
    }
    return shape;
}

std::string FilterGraph::Arguments(const Shape& shape) {
    const std::string clock = ":time_base=" + Ratio({1, static_cast<int>(TIME_BASE)});
    if (shape.width > 0)
        return "video_size=" + std::to_string(shape.width) + "x" + std::to_string(shape.height) +
               ":pix_fmt=" + std::to_string(shape.format) + ":pixel_aspect=" + Ratio(shape.sampleAspect) + clock;
    return "sample_fmt=" + std::to_string(shape.format) + ":sample_rate=" + std::to_string(shape.sampleRate) +
           ":channel_layout=" + shape.layout + clock;
}

void FilterGraph::Configure(const Shape& wanted) {
    shape = wanted;
    graph.reset(Allocated(avfilter_graph_alloc()));
    graph->nb_threads = threads;
    const bool video = shape.width > 0;
    Checked(avfilter_graph_create_filter(&input, avfilter_get_by_name(video ? "buffer" : "abuffer"), "in",
                                         Arguments(shape).c_str(), nullptr, graph.get()));
    Checked(avfilter_graph_create_filter(&output, avfilter_get_by_name(video ? "buffersink" : "abuffersink"), "out",
                                         nullptr, nullptr, graph.get()));
    Link();
}

void FilterGraph::Link() {
    AVFilterInOut* outputs = MakeEnd("in", input).release();
    AVFilterInOut* inputs = MakeEnd("out", output).release();
    const int parsed = avfilter_graph_parse_ptr(graph.get(), chain.c_str(), &inputs, &outputs, nullptr);
    const InOutHandle restIn(inputs);
    const InOutHandle restOut(outputs);
    Checked(parsed);
    Checked(avfilter_graph_config(graph.get(), nullptr));
}

void FilterGraph::Send(const AVFrame& frame) {
    const Shape wanted = ShapeOf(frame);
    if (graph && !(wanted == shape))
        Finish();
    if (!graph)
        Configure(wanted);
    const FrameHandle reference = MakeFrameReference(frame);
    Checked(av_buffersrc_add_frame_flags(input, reference.get(), AV_BUFFERSRC_FLAG_PUSH));
}

void FilterGraph::Finish() {
    if (!graph)
        return;
    Checked(av_buffersrc_close(input, AV_NOPTS_VALUE, AV_BUFFERSRC_FLAG_PUSH));
    while (FrameHandle frame = Pull())
        drained.push_back(std::move(frame));
    graph.reset();
}

FrameHandle FilterGraph::Pull() {
    FrameHandle frame = MakeFrame();
    if (Checked(av_buffersink_get_frame(output, frame.get())) < 0)
        return nullptr;
    frame->pts = ToEngineTime(frame->pts, av_buffersink_get_time_base(output));
    return frame;
}

FrameHandle FilterGraph::Receive() {
    if (drained.empty())
        return graph ? Pull() : nullptr;
    FrameHandle frame = std::move(drained.front());
    drained.pop_front();
    return frame;
}

FrameHandle FilterGraph::Filter(const AVFrame& frame) {
    Send(frame);
    FrameHandle result = Receive();
    if (!result)
        Fail(TranscodingError::FilterFailed, failure + ": the filters gave no picture");
    return result;
}

void FilterGraph::Reset() {
    graph.reset();
    drained.clear();
}

} // namespace Kestra::FF
