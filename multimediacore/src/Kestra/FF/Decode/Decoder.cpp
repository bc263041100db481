// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Decode/Decoder.h"

#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Av/MemoryWatch.h"
#include "Kestra/FF/Av/OlderCalls.h"
#include "Kestra/FF/Demux/StreamClaims.h"
#include <cerrno>
#include <cstring>
#include <mutex>

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

// A decoder that only ever answers with errors while it drains would be asked for ever.
constexpr int MAX_ERRORS_IN_A_ROW = 1000;

bool CarriesAlpha(const AVStream& stream) {
    const AVDictionaryEntry* mode = av_dict_get(stream.metadata, "alpha_mode", nullptr, 0);
    return mode && std::strcmp(mode->value, "1") == 0;
}

std::string ReasonOf(int answer) {
    // What is no want of memory all the same is of frames that refer to too many that are missing.
    return ErrorText(answer == AVERROR(ENOMEM) ? AVERROR_INVALIDDATA : answer);
}

} // namespace

struct Decoder::Bound : MemoryWatch {
    explicit Bound(const Proc::MediaLimits& limits)
        : limits(limits) {}

    const Proc::MediaLimits limits;
    std::mutex mutex;
    std::string excess;
};

const AVCodec* Decoder::FindCodec(const AVStream& stream) {
    const AVCodecID id = stream.codecpar->codec_id;
    const AVCodec* codec = nullptr;
    if (id == AV_CODEC_ID_VP9 && CarriesAlpha(stream))
        codec = avcodec_find_decoder_by_name("libvpx-vp9");
    if (id == AV_CODEC_ID_VP8 && CarriesAlpha(stream))
        codec = avcodec_find_decoder_by_name("libvpx");
    return codec ? codec : avcodec_find_decoder(id);
}

Decoder::Decoder(const AVStream& stream, int threads, const std::string& path, const Proc::MediaLimits& limits)
    : bound(std::make_unique<Bound>(limits))
    , packet(MakePacket()) {
    const AVCodec* codec = FindCodec(stream);
    if (!codec)
        Fail(TranscodingError::CodecNotFound,
             "Cannot decode \"" + path + "\": no decoder for " + avcodec_get_name(stream.codecpar->codec_id));
    context = MakeCodecContext(codec);
    Check(avcodec_parameters_to_context(context.get(), stream.codecpar), TranscodingError::SourceUnreadable,
          "The description of a stream was refused");
    context->pkt_timebase = stream.time_base;
    context->thread_count = threads;
    context->thread_type = FF_THREAD_FRAME | FF_THREAD_SLICE;
    context->opaque = static_cast<MemoryWatch*>(bound.get());
    context->get_buffer2 = GetBuffer;
    AllowThreads(*context);
    const int opened = avcodec_open2(context.get(), codec, nullptr);
    if (opened < 0)
        ThrowError(opened, TranscodingError::SourceUnreadable,
                   "Cannot decode \"" + path + "\": the " + codec->name + " decoder refused the stream");
}

Decoder::~Decoder() = default;

// Called on decoding threads, before a frame takes its memory.
int Decoder::GetBuffer(AVCodecContext* context, AVFrame* frame, int flags) {
    auto& bound = static_cast<Bound&>(*static_cast<MemoryWatch*>(context->opaque));
    if (FrameBytes(*frame) <= bound.limits.pictureBytes)
        return avcodec_default_get_buffer2(context, frame, flags);
    const std::lock_guard<std::mutex> lock(bound.mutex);
    if (bound.excess.empty())
        bound.excess = ExcessOf(*frame, bound.limits);
    return AVERROR(ERANGE);
}

std::string Decoder::GetExcess() const {
    const std::lock_guard<std::mutex> lock(bound->mutex);
    return bound->excess;
}

// The end of the packets, too, is answered with what became of a packet before it: other frames come after one that
// could not be decoded.
void Decoder::Feed() {
    draining = !packetSupply || !packetSupply(*packet);
    const std::int64_t timestamp = draining ? AV_NOPTS_VALUE : packet->pts;
    const int result = avcodec_send_packet(context.get(), draining ? nullptr : packet.get());
    av_packet_unref(packet.get());
    bound->Check(result);
    if (result < 0 && !(draining && result == AVERROR_EOF) && damageReceiver)
        damageReceiver(timestamp, ReasonOf(result));
}

FrameHandle Decoder::Next() {
    FrameHandle frame = MakeFrame();
    for (int errors = 0; errors < MAX_ERRORS_IN_A_ROW;) {
        const int result = avcodec_receive_frame(context.get(), frame.get());
        bound->Check(result);
        if (result >= 0)
            return frame;
        if (result == AVERROR_EOF)
            return {};
        if (result == AVERROR(EAGAIN)) {
            if (draining)
                return {};
            Feed();
        } else {
            ++errors;
            if (damageReceiver)
                damageReceiver(AV_NOPTS_VALUE, ReasonOf(result));
        }
    }
    return {};
}

void Decoder::Flush() {
    avcodec_flush_buffers(context.get());
    draining = false;
}

void Decoder::SkipUnreferenced(bool skip) {
    context->skip_frame = skip ? AVDISCARD_NONREF : AVDISCARD_DEFAULT;
}

void Decoder::SkipLoopFilter(bool skip) {
    context->skip_loop_filter = skip ? AVDISCARD_ALL : AVDISCARD_DEFAULT;
}

void Decoder::SkipPixels() {
    context->skip_loop_filter = AVDISCARD_ALL;
    context->skip_idct = AVDISCARD_ALL;
}

} // namespace Kestra::FF
