#include "Kestra/FF/Decoder.h"

#include "Kestra/FF/Error.h"
#include <cstring>

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

// A decoder that only ever answers with errors while it drains would be asked for ever.
constexpr int MAX_ERRORS_IN_A_ROW = 1000;

bool CarriesAlpha(const AVStream& stream) {
    const AVDictionaryEntry* mode = av_dict_get(stream.metadata, "alpha_mode", nullptr, 0);
    return mode && std::strcmp(mode->value, "1") == 0;
}

} // namespace

const AVCodec* Decoder::FindCodec(const AVStream& stream) {
    const AVCodecID id = stream.codecpar->codec_id;
    const AVCodec* codec = nullptr;
    if (id == AV_CODEC_ID_VP9 && CarriesAlpha(stream))
        codec = avcodec_find_decoder_by_name("libvpx-vp9");
    if (id == AV_CODEC_ID_VP8 && CarriesAlpha(stream))
        codec = avcodec_find_decoder_by_name("libvpx");
    return codec ? codec : avcodec_find_decoder(id);
}

Decoder::Decoder(const AVStream& stream, int threads, const std::string& path)
    : packet(MakePacket()) {
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
    const int opened = avcodec_open2(context.get(), codec, nullptr);
    if (opened < 0)
        ThrowError(opened, TranscodingError::SourceUnreadable,
                   "Cannot decode \"" + path + "\": the " + codec->name + " decoder refused the stream");
}

bool Decoder::Feed() {
    if (!packetSupply || !packetSupply(*packet)) {
        draining = true;
        const int result = avcodec_send_packet(context.get(), nullptr);
        return result >= 0 || result == AVERROR_EOF;
    }
    const std::int64_t timestamp = packet->pts;
    const int result = avcodec_send_packet(context.get(), packet.get());
    av_packet_unref(packet.get());
    if (result == AVERROR(ENOMEM))
        throw std::bad_alloc();
    if (result < 0 && damageReceiver)
        damageReceiver(timestamp, ErrorText(result));
    return true;
}

FrameHandle Decoder::Next() {
    FrameHandle frame = MakeFrame();
    for (int errors = 0; errors < MAX_ERRORS_IN_A_ROW;) {
        const int result = avcodec_receive_frame(context.get(), frame.get());
        if (result >= 0)
            return frame;
        if (result == AVERROR_EOF)
            return {};
        if (result == AVERROR(ENOMEM))
            throw std::bad_alloc();
        if (result == AVERROR(EAGAIN)) {
            if (draining || !Feed())
                return {};
        } else {
            ++errors;
            if (damageReceiver)
                damageReceiver(AV_NOPTS_VALUE, ErrorText(result));
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

void Decoder::SkipPixels() {
    context->skip_loop_filter = AVDISCARD_ALL;
    context->skip_idct = AVDISCARD_ALL;
}

} // namespace Kestra::FF
