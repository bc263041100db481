#include "Kestra/FF/Encode/VideoRateControl.h"

#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Av/Wording.h"
#include <algorithm>
#include <climits>
#include <cmath>
#include <string>
#include <thread>

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

constexpr int MOST_THREADS = 64;
constexpr int MOST_TILE_THREADS = 16;
/// VP8 by quality keeps to a bitrate all the same: one that no picture reaches.
constexpr std::int64_t VP8_BOUND = 300'000'000;

int Processors() {
    return std::max(static_cast<int>(std::thread::hardware_concurrency()), 1);
}

[[noreturn]] void Refuse(const AVCodecContext& context, const std::string& what,
                         SourcePlace place = SourcePlace::Here()) {
    Fail(TranscodingError::CodecRefused, std::string(context.codec->name) + " refuses " + what, place);
}

bool HasPrivateOption(const AVCodecContext& context, const char* name) {
    return context.priv_data && av_opt_find(context.priv_data, name, nullptr, 0, 0) != nullptr;
}

void SetPrivate(AVCodecContext& context, const char* name, std::int64_t value) {
    if (HasPrivateOption(context, name))
        Check(av_opt_set_int(context.priv_data, name, value, 0), TranscodingError::CodecRefused, name);
}

void SetQuality(AVCodecContext& context, double quality) {
    if (HasPrivateOption(context, "crf")) {
        if (av_opt_set_double(context.priv_data, "crf", quality, 0) < 0)
            Refuse(context, "the quality " + Decimal(quality));
        if (context.codec_id == AV_CODEC_ID_VP8)
            context.bit_rate = VP8_BOUND;
        return;
    }
    if (!(quality >= 0 && quality <= 1024))
        Refuse(context, "the quality " + Decimal(quality));
    context.flags |= AV_CODEC_FLAG_QSCALE;
    context.global_quality = static_cast<int>(std::lround(quality * FF_QP2LAMBDA));
}

int BufferSize(std::int64_t bits) {
    return static_cast<int>(std::min<std::int64_t>(bits, INT_MAX));
}

bool HasNoRate(const AVCodecContext& context) {
    return context.codec_id == AV_CODEC_ID_PRORES || context.codec_id == AV_CODEC_ID_FFV1;
}

void SetBitrate(AVCodecContext& context, std::int64_t bitrate, const std::string& mode, bool boundedPeak) {
    if (bitrate < 0)
        Refuse(context, "the bitrate " + std::to_string(bitrate));
    context.bit_rate = bitrate;
    // The library's own encoders allow themselves four megabits of drift, whatever the bitrate is.
    if (context.codec_id == AV_CODEC_ID_MPEG4 || context.codec_id == AV_CODEC_ID_MPEG2VIDEO)
        context.bit_rate_tolerance = BufferSize(std::max<std::int64_t>(
            bitrate / 2, std::llround(2.0 * static_cast<double>(bitrate) * av_q2d(context.time_base))));
    if (mode == "cbr") {
        context.rc_max_rate = bitrate;
        context.rc_min_rate =
            context.codec_id == AV_CODEC_ID_H264 || context.codec_id == AV_CODEC_ID_HEVC ? 0 : bitrate;
        context.rc_buffer_size = BufferSize(bitrate);
    } else if (mode == "vbr" && boundedPeak) {
        context.rc_max_rate = bitrate + bitrate / 2;
        context.rc_buffer_size = BufferSize(2 * context.rc_max_rate);
    }
}

bool LooksAhead(const OptionList& options) {
    const auto& all = options.Get();
    return std::none_of(all.begin(), all.end(), [](const OptionList::Option& option) {
        return option.name == "preset" && (option.value == "ultrafast" || option.value == "superfast");
    });
}

void SetX264Threads(AVCodecContext& context, bool looksAhead) {
    context.thread_count = std::min(looksAhead ? 2 * Processors() : Processors() + 1, MOST_THREADS);
    if (!looksAhead)
        return;
    Dictionary parameters;
    parameters.Set("lookahead_threads", "2");
    Check(av_opt_set_dict_val(context.priv_data, "x264-params", *parameters.Address(), 0),
          TranscodingError::CodecRefused, "x264-params");
}

void SetTileThreads(AVCodecContext& context) {
    context.thread_count = std::min(Processors(), MOST_TILE_THREADS);
    SetPrivate(context, "row-mt", 1);
    // Tiles are at least 256 pixels wide, and at most 4096.
    int columns = 0;
    while (columns < 4 && (context.width >> columns > 4096 ||
                           ((context.width >> (columns + 1)) >= 256 && (1 << (columns + 1)) <= context.thread_count)))
        ++columns;
    SetPrivate(context, "tile-columns", columns);
}

} // namespace

void SetRateControl(AVCodecContext& context, const Conf::IFormatCodecVideo& description, bool boundedPeak) {
    const std::string mode = description.GetBitrateMode();
    const double quality = description.GetQuality();
    const std::int64_t bitrate = description.GetBitrate();
    if (!mode.empty() && mode != "quality" && mode != "abr" && mode != "vbr" && mode != "cbr")
        Refuse(context, "the bitrate mode \"" + mode + "\"");
    if (HasNoRate(context))
        return;
    const bool byQuality = mode == "quality" || (mode.empty() && quality != 0);
    context.bit_rate = 0;
    if (byQuality && quality != 0)
        SetQuality(context, quality);
    else if (!byQuality && bitrate != 0)
        SetBitrate(context, bitrate, mode.empty() ? "vbr" : mode, boundedPeak);
    else if (!HasPrivateOption(context, "crf"))
        SetQuality(context, 3);
}

void SetSpeed(AVCodecContext& context, const OptionList& options) {
    switch (context.codec_id) {
    case AV_CODEC_ID_H264:
        if (HasPrivateOption(context, "x264-params"))
            SetX264Threads(context, LooksAhead(options));
        break;
    case AV_CODEC_ID_HEVC:
        context.thread_count = 0;
        if (HasPrivateOption(context, "x265-params"))
            KeepX265Quiet(context);
        break;
    case AV_CODEC_ID_VP8:
    case AV_CODEC_ID_VP9:
        SetTileThreads(context);
        SetPrivate(context, "cpu-used", 2);
        break;
    case AV_CODEC_ID_AV1:
        if (HasPrivateOption(context, "row-mt")) {
            SetTileThreads(context);
            SetPrivate(context, "cpu-used", 6);
        }
        break;
    default:
        context.thread_count = std::min(Processors(), MOST_TILE_THREADS);
        context.thread_type = FF_THREAD_FRAME | FF_THREAD_SLICE;
    }
}

void SetX265Parameter(AVCodecContext& context, const char* name, const char* value) {
    Dictionary parameters;
    Check(av_opt_get_dict_val(context.priv_data, "x265-params", 0, parameters.Address()),
          TranscodingError::CodecRefused, "x265-params");
    parameters.Set(name, value);
    Check(av_opt_set_dict_val(context.priv_data, "x265-params", *parameters.Address(), 0),
          TranscodingError::CodecRefused, "x265-params");
}

void KeepX265Quiet(AVCodecContext& context) {
    SetX265Parameter(context, "log-level", "none");
}

void SetFastFirstPass(AVCodecContext& context) {
    if (HasPrivateOption(context, "fastfirstpass")) {
        SetPrivate(context, "fastfirstpass", 1);
    } else if (HasPrivateOption(context, "x265-params")) {
        SetX265Parameter(context, "slow-firstpass", "0");
    } else if (context.codec_id == AV_CODEC_ID_VP9 || context.codec_id == AV_CODEC_ID_VP8) {
        std::int64_t speed = 0;
        if (av_opt_get_int(context.priv_data, "cpu-used", 0, &speed) >= 0)
            SetPrivate(context, "cpu-used", std::max<std::int64_t>(speed, 4));
    } else {
        context.trellis = 0;
        context.mb_decision = FF_MB_DECISION_SIMPLE;
    }
}

} // namespace Kestra::FF
