// SPDX-License-Identifier: GPL-3.0-or-later
// Owning handles of the libav objects, one alias and one Make each.
#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavfilter/avfilter.h>
#include <libavformat/avformat.h>
#include <libavutil/audio_fifo.h>
#include <libavutil/frame.h>
#include <libavutil/opt.h>
#include <libswresample/swresample.h>
#include <libswscale/swscale.h>
}
#include <memory>
#include <new>

namespace Kestra::FF {

struct FrameDeleter {
    void operator()(AVFrame* frame) const noexcept { av_frame_free(&frame); }
};
struct PacketDeleter {
    void operator()(AVPacket* packet) const noexcept { av_packet_free(&packet); }
};
struct CodecContextDeleter {
    void operator()(AVCodecContext* context) const noexcept { avcodec_free_context(&context); }
};
struct CodecParametersDeleter {
    void operator()(AVCodecParameters* parameters) const noexcept { avcodec_parameters_free(&parameters); }
};
struct InputContextDeleter {
    void operator()(AVFormatContext* context) const noexcept { avformat_close_input(&context); }
};
struct OutputContextDeleter {
    void operator()(AVFormatContext* context) const noexcept { avformat_free_context(context); }
};
struct IoContextDeleter {
    void operator()(AVIOContext* context) const noexcept {
        av_freep(&context->buffer);
        avio_context_free(&context);
    }
};
struct SwsContextDeleter {
    void operator()(SwsContext* context) const noexcept { sws_freeContext(context); }
};
struct SwrContextDeleter {
    void operator()(SwrContext* context) const noexcept { swr_free(&context); }
};
struct FilterGraphDeleter {
    void operator()(AVFilterGraph* graph) const noexcept { avfilter_graph_free(&graph); }
};
struct BufferPoolDeleter {
    void operator()(AVBufferPool* pool) const noexcept { av_buffer_pool_uninit(&pool); }
};

using FrameHandle = std::unique_ptr<AVFrame, FrameDeleter>;
using PacketHandle = std::unique_ptr<AVPacket, PacketDeleter>;
using CodecContextHandle = std::unique_ptr<AVCodecContext, CodecContextDeleter>;
using CodecParametersHandle = std::unique_ptr<AVCodecParameters, CodecParametersDeleter>;
using InputContextHandle = std::unique_ptr<AVFormatContext, InputContextDeleter>;
using OutputContextHandle = std::unique_ptr<AVFormatContext, OutputContextDeleter>;
/// A context made with avio_alloc_context, its buffer included.
using IoContextHandle = std::unique_ptr<AVIOContext, IoContextDeleter>;
using SwsContextHandle = std::unique_ptr<SwsContext, SwsContextDeleter>;
using SwrContextHandle = std::unique_ptr<SwrContext, SwrContextDeleter>;
using FilterGraphHandle = std::unique_ptr<AVFilterGraph, FilterGraphDeleter>;
/// Buffers handed out keep the pool's memory alive after the handle has gone.
using BufferPoolHandle = std::unique_ptr<AVBufferPool, BufferPoolDeleter>;

/// `object` itself, or std::bad_alloc when it is null.
template <class T>
[[nodiscard]] T* Allocated(T* object) {
    if (!object)
        throw std::bad_alloc();
    return object;
}

[[nodiscard]] inline FrameHandle MakeFrame() {
    return FrameHandle(Allocated(av_frame_alloc()));
}
/// A new reference to the same data and side data.
[[nodiscard]] inline FrameHandle MakeFrameReference(const AVFrame& frame) {
    return FrameHandle(Allocated(av_frame_clone(&frame)));
}
[[nodiscard]] inline PacketHandle MakePacket() {
    return PacketHandle(Allocated(av_packet_alloc()));
}
[[nodiscard]] inline PacketHandle MakePacketReference(const AVPacket& packet) {
    return PacketHandle(Allocated(av_packet_clone(&packet)));
}
[[nodiscard]] inline CodecContextHandle MakeCodecContext(const AVCodec* codec) {
    return CodecContextHandle(Allocated(avcodec_alloc_context3(codec)));
}
[[nodiscard]] inline CodecParametersHandle MakeCodecParameters() {
    return CodecParametersHandle(Allocated(avcodec_parameters_alloc()));
}

/// An option dictionary; what the library did not take is still in it after the call.
class Dictionary {
public:
    Dictionary() = default;
    Dictionary(const Dictionary&) = delete;
    Dictionary& operator=(const Dictionary&) = delete;
    ~Dictionary() { av_dict_free(&entries); }

    void Set(const char* key, const char* value) {
        if (av_dict_set(&entries, key, value, 0) < 0)
            throw std::bad_alloc();
    }
    bool Has(const char* key) const { return av_dict_get(entries, key, nullptr, 0) != nullptr; }
    AVDictionary** Address() { return &entries; }
    /// The first entry that is left, null when none is.
    const AVDictionaryEntry* First() const { return av_dict_get(entries, "", nullptr, AV_DICT_IGNORE_SUFFIX); }

private:
    AVDictionary* entries = nullptr;
};

} // namespace Kestra::FF
