// SPDX-License-Identifier: GPL-3.0-or-later
// What a frame of 1080p costs where layers or dissolves lie, beside libavfilter's filters for the same.
#include "Kestra/Core/CoreManager.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/FramePool.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include "Kestra/Proc/IFilterFactory.h"
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <string>

extern "C" {
#include <libavfilter/buffersink.h>
#include <libavfilter/buffersrc.h>
}

namespace {

using namespace Kestra;

constexpr int WIDTH = 1920;
constexpr int HEIGHT = 1080;

FF::FrameHandle noise(AVPixelFormat format) {
    FF::FrameHandle frame = FF::FramePool().Get(format, WIDTH, HEIGHT);
    frame->sample_aspect_ratio = {1, 1};
    for (int plane = 0; plane < 4 && frame->data[plane]; ++plane) {
        const int rows = plane == 1 || plane == 2 ? HEIGHT / 2 : HEIGHT;
        for (int byte = 0; byte < rows * frame->linesize[plane]; ++byte)
            frame->data[plane][byte] = static_cast<std::uint8_t>(
                std::rand() & (byte % 2 && format != AV_PIX_FMT_YUV420P && format != AV_PIX_FMT_YUVA420P ? 3 : 255));
    }
    return frame;
}

Proc::IFrameBlender::Frame data(AVPixelFormat format) {
    return new FF::DataVideoFF(noise(format), 0, 1);
}

boost::intrusive_ptr<Proc::IFrameBlender> blender(AVPixelFormat format) {
    const auto description = Conf::IFormatCodecVideo::Create();
    description->InitByFrameAspect(WIDTH, HEIGHT, 0, 0);
    description->SetPixelFormat(FF::FromAv(format));
    return Core::CoreManager::Instance().GetFilterFactory().CreateFrameBlender(description);
}

void Mix(benchmark::State& state, AVPixelFormat format) {
    const auto one = blender(format);
    const auto from = data(format);
    const auto to = data(format);
    for (auto _ : state)
        benchmark::DoNotOptimize(one->Mix(from, to, 0.3));
}
BENCHMARK_CAPTURE(Mix, yuv420p, AV_PIX_FMT_YUV420P)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Mix, yuv420p10, AV_PIX_FMT_YUV420P10)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Mix, yuva420p, AV_PIX_FMT_YUVA420P)->Unit(benchmark::kMillisecond);

void Over(benchmark::State& state, AVPixelFormat below, AVPixelFormat above) {
    const auto one = blender(below);
    const auto bottom = data(below);
    const auto top = data(above);
    for (auto _ : state)
        benchmark::DoNotOptimize(one->Over(bottom, top));
}
BENCHMARK_CAPTURE(Over, yuv420p, AV_PIX_FMT_YUV420P, AV_PIX_FMT_YUVA420P)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Over, yuv420p10, AV_PIX_FMT_YUV420P10, AV_PIX_FMT_YUVA420P10)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Over, yuva420p, AV_PIX_FMT_YUVA420P, AV_PIX_FMT_YUVA420P)->Unit(benchmark::kMillisecond);

/// libavfilter's filters with two inputs, on one thread.
class TwoInputs {
public:
    TwoInputs(const std::string& filter, AVPixelFormat first, AVPixelFormat second)
        : graph(avfilter_graph_alloc()) {
        graph->nb_threads = 1;
        const std::string chain = Source("a", first) + Source("b", second) + "[a][b]" + filter + ",buffersink@out";
        AVFilterInOut* inputs = nullptr;
        AVFilterInOut* outputs = nullptr;
        if (avfilter_graph_parse2(graph.get(), chain.c_str(), &inputs, &outputs) < 0 ||
            avfilter_graph_config(graph.get(), nullptr) < 0)
            std::abort();
    }

    FF::FrameHandle Run(AVFrame& first, AVFrame& second) {
        first.pts = second.pts = next++;
        FF::FrameHandle result = FF::MakeFrame();
        if (av_buffersrc_write_frame(avfilter_graph_get_filter(graph.get(), "buffer@a"), &first) < 0 ||
            av_buffersrc_write_frame(avfilter_graph_get_filter(graph.get(), "buffer@b"), &second) < 0 ||
            av_buffersink_get_frame(avfilter_graph_get_filter(graph.get(), "buffersink@out"), result.get()) < 0)
            std::abort();
        return result;
    }

private:
    static std::string Source(const std::string& name, AVPixelFormat format) {
        return "buffer@" + name + "=width=" + std::to_string(WIDTH) + ":height=" + std::to_string(HEIGHT) +
               ":pix_fmt=" + std::to_string(format) + ":time_base=1/25:sar=1[" + name + "];";
    }

    FF::FilterGraphHandle graph;
    std::int64_t next = 0;
};

void Filter(benchmark::State& state, const std::string& filter, AVPixelFormat first, AVPixelFormat second) {
    TwoInputs graph(filter, first, second);
    const FF::FrameHandle one = noise(first);
    const FF::FrameHandle other = noise(second);
    for (auto _ : state)
        benchmark::DoNotOptimize(graph.Run(*one, *other));
}
BENCHMARK_CAPTURE(Filter, blend_yuv420p, "blend=all_mode=normal:all_opacity=0.3", AV_PIX_FMT_YUV420P,
                  AV_PIX_FMT_YUV420P)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Filter, blend_yuv420p10, "blend=all_mode=normal:all_opacity=0.3", AV_PIX_FMT_YUV420P10,
                  AV_PIX_FMT_YUV420P10)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Filter, overlay_yuv420p, "overlay=format=yuv420", AV_PIX_FMT_YUV420P, AV_PIX_FMT_YUVA420P)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Filter, overlay_yuv420p10, "overlay=format=yuv420p10", AV_PIX_FMT_YUV420P10, AV_PIX_FMT_YUVA420P10)
    ->Unit(benchmark::kMillisecond);

} // namespace
