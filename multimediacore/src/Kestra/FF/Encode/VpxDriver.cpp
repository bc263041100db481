#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Encode/DriverSettings.h"
#include "Kestra/FF/Encode/VideoDrivers.h"
#include <algorithm>
#include <array>

namespace Kestra::FF {

namespace {

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
};

} // namespace

const VideoDriver& Vp9Driver() {
    static const Vp9 driver;
    return driver;
}

const VideoDriver& Vp8Driver() {
    static const Vp8 driver;
    return driver;
}

} // namespace Kestra::FF
