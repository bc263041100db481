// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/VideoDrivers.h"

namespace Kestra::FF {

namespace {

class Driver final : public VideoDriver {
public:
    Driver()
        : VideoDriver(Conf::CodecID::PNG, "png") {}

    // Palettes, single bits and grey are for drawings.
    bool TakesFormat(AVPixelFormat format) const override {
        return format == AV_PIX_FMT_RGB24 || format == AV_PIX_FMT_RGBA || format == AV_PIX_FMT_RGB48BE ||
               format == AV_PIX_FMT_RGBA64BE;
    }
    AVPixelFormat UsualFormat() const override { return AV_PIX_FMT_RGB24; }
    // Who shows such files takes them for sRGB. Other colours would have to be told in numbers that few readers heed.
    Conf::ColourInfo Tellable(Conf::ColourInfo colour) const override {
        return {AVCOL_PRI_BT709, AVCOL_TRC_IEC61966_2_1, colour.matrix, colour.range};
    }
    bool HasRate() const override { return false; }
};

} // namespace

const VideoDriver& PngDriver() {
    static const auto& driver = *new Driver;
    return driver;
}

} // namespace Kestra::FF
