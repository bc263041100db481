// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Encode/DriverSettings.h"
#include "Kestra/FF/Encode/VideoDrivers.h"
#include <algorithm>
#include <array>
#include <climits>

namespace Kestra::FF {

namespace {

constexpr std::int64_t GOOD_DEADLINE = 1'000'000; ///< the codec library's name for it in microseconds

std::int64_t FrameMicroseconds(const AVCodecContext& context) {
    return av_rescale_q(1, context.time_base, {1, 1'000'000});
}

std::int64_t PrivateNumber(const AVCodecContext& context, const char* name) {
    std::int64_t value = 0;
    Check(av_opt_get_int(context.priv_data, name, 0, &value), Proc::TranscodingError::CodecRefused, name);
    return value;
}

/// What VP8 and VP9 have in common.
class VpxDriver : public VideoDriver {
public:
    using VideoDriver::VideoDriver;

    // Its decoders leave alpha out.
    bool TakesFormat(AVPixelFormat format) const override { return !HasAlpha(format); }

    void SetSpeed(AVCodecContext& context, const OptionList&) const override {
        SetTileThreads(context);
        SetPrivate(context, "cpu-used", 2);
    }

    void SetQuality(AVCodecContext& context, double quality) const override { SetCrf(context, quality); }

    Statistics GetStatistics() const override { return Statistics::Handover; }
    void SetFastFirstPass(AVCodecContext& context) const override {
        std::int64_t speed = 0;
        if (av_opt_get_int(context.priv_data, "cpu-used", 0, &speed) >= 0)
            SetPrivate(context, "cpu-used", std::max<std::int64_t>(speed, 4));
    }

    // libvpx takes a deadline that is no longer than a frame for an order of its way for real time. A frame of a second
    // is as long as the one that means a good quality.
    void SettleOnePass(AVCodecContext& context) const override {
        const std::int64_t frame = FrameMicroseconds(context);
        if (PrivateNumber(context, "deadline") == GOOD_DEADLINE && frame >= GOOD_DEADLINE)
            SetPrivate(context, "deadline", std::min<std::int64_t>(2 * frame, INT_MAX));
    }
};

class Vp9 final : public VpxDriver {
public:
    Vp9()
        : VpxDriver(Conf::CodecID::VP9, "libvpx-vp9") {}

    // As a second frame beside the first, of which the file tells where it is one of Matroska's kind.
    bool TakesFormat(AVPixelFormat) const override { return true; }

    Conf::ColourInfo Tellable(Conf::ColourInfo colour) const override {
        constexpr std::array<int, 6> known{AVCOL_SPC_RGB,       AVCOL_SPC_BT709,     AVCOL_SPC_BT470BG,
                                           AVCOL_SPC_SMPTE170M, AVCOL_SPC_SMPTE240M, AVCOL_SPC_BT2020_NCL};
        if (std::find(known.begin(), known.end(), colour.matrix) == known.end())
            colour.matrix = AVCOL_SPC_UNSPECIFIED;
        return colour;
    }
};

class Vp8 final : public VpxDriver {
public:
    Vp8()
        : VpxDriver(Conf::CodecID::VP8, "libvpx") {}

    // By quality it keeps to a bitrate all the same: one that no frame reaches.
    void SetQuality(AVCodecContext& context, double quality) const override {
        constexpr std::int64_t BOUND = 300'000'000;
        VpxDriver::SetQuality(context, quality);
        context.bit_rate = BOUND;
    }

    // For real time it takes a positive speed for a share of the processor and goes by the clock, so that no two files
    // are alike; a negative one is the speed itself, as a positive one is otherwise.
    void SettleOnePass(AVCodecContext& context) const override {
        VpxDriver::SettleOnePass(context);
        const std::int64_t deadline = PrivateNumber(context, "deadline");
        const std::int64_t speed = PrivateNumber(context, "cpu-used");
        if (deadline > 0 && deadline <= FrameMicroseconds(context) && speed >= 0)
            SetPrivate(context, "cpu-used", -std::max<std::int64_t>(speed, 1));
    }
};

} // namespace

const VideoDriver& Vp9Driver() {
    static const auto& driver = *new Vp9;
    return driver;
}

const VideoDriver& Vp8Driver() {
    static const auto& driver = *new Vp8;
    return driver;
}

} // namespace Kestra::FF
