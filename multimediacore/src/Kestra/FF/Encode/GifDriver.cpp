// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/PaletteLoop.h"
#include "Kestra/FF/Encode/VideoDrivers.h"
#include <utility>

namespace Kestra::FF {

namespace {

class Driver final : public VideoDriver {
public:
    Driver()
        : VideoDriver(Conf::CodecID::GIF, "gif") {}

    bool TakesFormat(AVPixelFormat format) const override { return format == AV_PIX_FMT_BGRA; }
    AVPixelFormat UsualFormat() const override { return AV_PIX_FMT_BGRA; }
    // Its palettes are sRGB, and the files tell no colour.
    Conf::ColourInfo Tellable(Conf::ColourInfo colour) const override {
        return {AVCOL_PRI_BT709, AVCOL_TRC_IEC61966_2_1, colour.matrix, colour.range};
    }
    AVPixelFormat CodedFormat(AVPixelFormat) const override { return AV_PIX_FMT_PAL8; }
    bool HasRate() const override { return false; }
    void SetSpeed(AVCodecContext&, const OptionList&) const override {}
    std::unique_ptr<IEncoderLoop> Wrapped(std::unique_ptr<IEncoderLoop> encoder) const override {
        return std::make_unique<PaletteLoop>(std::move(encoder));
    }
};

} // namespace

const VideoDriver& GifDriver() {
    static const auto& driver = *new Driver;
    return driver;
}

} // namespace Kestra::FF
