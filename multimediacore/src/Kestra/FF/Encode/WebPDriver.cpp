// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/ClientAPI/CodecLimits.h"
#include "Kestra/FF/Encode/ChangeLoop.h"
#include "Kestra/FF/Encode/DriverSettings.h"
#include "Kestra/FF/Encode/VideoDrivers.h"
#include <cmath>
#include <utility>

namespace Kestra::FF {

namespace {

constexpr const char* LOSSLESS = "lossless";

std::int64_t PrivateNumber(const AVCodecContext& context, const char* name) {
    std::int64_t value = 0;
    return av_opt_get_int(context.priv_data, name, 0, &value) >= 0 ? value : 0;
}

/// The encoder of single pictures, of which only what changes is asked for. The library's other one ("libwebp_anim")
/// keeps all that it has encoded to the end, does not know how long the last picture lasts, and takes what changes
/// slowly for what does not change.
class Driver final : public VideoDriver {
public:
    Driver()
        : VideoDriver(Conf::CodecID::WebP, "libwebp") {}

    // The files tell no colour. Their YUV is that of BT.601 in limited range, which becomes sRGB.
    Conf::ColourInfo Tellable(Conf::ColourInfo) const override {
        return {AVCOL_PRI_BT709, AVCOL_TRC_BT709, AVCOL_SPC_SMPTE170M, AVCOL_RANGE_MPEG};
    }

    void TellProfile(OptionList& options, const Core::Property& profile) const override {
        const std::string& name = profile.GetString();
        if (name == LOSSLESS || name == "lossy")
            options.AddFirst(LOSSLESS, Core::Property(LOSSLESS, name == LOSSLESS));
        else
            VideoDriver::TellProfile(options, profile);
    }

    void SetSpeed(AVCodecContext& context, const OptionList& options) const override {
        // It is a setting of its own, which would count more.
        if (options.Has("quality"))
            RefuseSetting(context, "the quality as an option beside that of the description");
        // With loss they would not be what they are.
        if (context.pix_fmt == AV_PIX_FMT_BGRA && !options.Has(LOSSLESS))
            SetPrivate(context, LOSSLESS, 1);
    }

    double UsualQuality() const override { return 75; }

    void SetQuality(AVCodecContext& context, double quality) const override {
        if (!(quality >= 0 && quality <= 100))
            RefuseSetting(context, "the quality " + Decimal(quality));
        context.global_quality = static_cast<int>(std::lround(quality * FF_QP2LAMBDA));
    }

    std::unique_ptr<IEncoderLoop> Wrapped(std::unique_ptr<IEncoderLoop> encoder) const override {
        return std::make_unique<ChangeLoop>(std::move(encoder), ChunkWorkers::UsualThreads());
    }

    void Settle(AVCodecContext& context) const override {
        const AVRational rate = context.framerate;
        if (!ClientAPI::CodecLimits::TakesFrameRate(Conf::CodecID::WebP, {rate.num, rate.den}))
            RefuseSetting(context, Decimal(av_q2d(rate)) + " frames a second: files tell how long pictures last in "
                                                           "milliseconds, and browsers show what lasts less than 11 "
                                                           "of them for 100; choose another rate, as 30 or 60");
        // It would take that back.
        if (PrivateNumber(context, LOSSLESS) != 0 && PrivateNumber(context, "preset") >= 0)
            RefuseSetting(context, "the option \"preset\" for pictures without loss");
        // Holes in a picture would show what lies behind it, not the picture before.
        if (PrivateNumber(context, "cr_threshold") != 0)
            RefuseSetting(context, "the option \"cr_threshold\"");
    }
};

} // namespace

const VideoDriver& WebPDriver() {
    static const auto& driver = *new Driver;
    return driver;
}

} // namespace Kestra::FF
