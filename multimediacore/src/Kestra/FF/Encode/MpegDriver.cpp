// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/DriverSettings.h"
#include "Kestra/FF/Encode/VideoDrivers.h"
#include <algorithm>
#include <climits>
#include <cmath>

namespace Kestra::FF {

namespace {

/// The codec library's own encoders of MPEG-4 part 2 and MPEG-2.
class MpegDriver : public VideoDriver {
public:
    using VideoDriver::VideoDriver;

    // Each thread writes a slice of its own, which nothing is predicted into: the height alone decides how many.
    void SetSpeed(AVCodecContext& context, const OptionList&) const override {
        constexpr int LINES_OF_A_SLICE = 128;
        context.thread_count = std::clamp(context.height / LINES_OF_A_SLICE, 1, MOST_SLICE_THREADS);
        context.thread_type = FF_THREAD_SLICE;
    }

    // They allow themselves four megabits of drift, whatever the bitrate is.
    void SetDrift(AVCodecContext& context) const override {
        const auto ofTwoFrames = std::llround(2.0 * static_cast<double>(context.bit_rate) * av_q2d(context.time_base));
        context.bit_rate_tolerance = static_cast<int>(
            std::min<std::int64_t>(std::max<std::int64_t>(context.bit_rate / 2, ofTwoFrames), INT_MAX));
    }

    Statistics GetStatistics() const override { return Statistics::Pictures; }
};

class Mjpeg final : public VideoDriver {
public:
    Mjpeg()
        : VideoDriver(Conf::CodecID::MJPEG, "mjpeg") {}

    // It names the formats of limited range too, and then refuses them.
    bool TakesFormat(AVPixelFormat format) const override { return IsFullRangeFormat(format); }
    AVPixelFormat UsualFormat() const override { return AV_PIX_FMT_YUVJ420P; }
    // It tells none, and whoever decodes it takes it for that of JPEG files: BT.601's matrix over sRGB's primaries.
    Conf::ColourInfo Tellable(Conf::ColourInfo colour) const override {
        return {AVCOL_PRI_BT709, AVCOL_TRC_BT709, AVCOL_SPC_BT470BG, colour.range};
    }
    Statistics GetStatistics() const override { return Statistics::Pictures; }
};

} // namespace

const VideoDriver& Mpeg4Driver() {
    static const auto& driver = *new MpegDriver(Conf::CodecID::MPEG4, "mpeg4");
    return driver;
}

const VideoDriver& Mpeg2Driver() {
    static const auto& driver = *new MpegDriver(Conf::CodecID::MPEG2, "mpeg2video");
    return driver;
}

const VideoDriver& MjpegDriver() {
    static const auto& driver = *new Mjpeg;
    return driver;
}

} // namespace Kestra::FF
