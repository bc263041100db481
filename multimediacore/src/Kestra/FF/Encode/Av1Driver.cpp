// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/DriverSettings.h"
#include "Kestra/FF/Encode/VideoDrivers.h"

namespace Kestra::FF {

namespace {

/// The faster one, which shares out its threads by itself.
class SvtAv1 final : public VideoDriver {
public:
    SvtAv1()
        : VideoDriver(Conf::CodecID::AV1, "libsvtav1") {}

    bool TakesSize(int width, int height) const override {
        constexpr int SMALLEST_SIDE = 64;
        return width >= SMALLEST_SIDE && height >= SMALLEST_SIDE;
    }
    bool MeetsExactRates() const override { return false; }
    void SetSpeed(AVCodecContext&, const OptionList&) const override {}
    void SetQuality(AVCodecContext& context, double quality) const override { SetCrf(context, quality); }
};

class AomAv1 final : public VideoDriver {
public:
    AomAv1()
        : VideoDriver(Conf::CodecID::AV1, "libaom-av1") {}

    void SetSpeed(AVCodecContext& context, const OptionList&) const override {
        SetTileThreads(context);
        SetPrivate(context, "cpu-used", 6);
    }
    void SetQuality(AVCodecContext& context, double quality) const override { SetCrf(context, quality); }
    Statistics GetStatistics() const override { return Statistics::Handover; }
};

} // namespace

const VideoDriver& SvtAv1Driver() {
    static const auto& driver = *new SvtAv1;
    return driver;
}

const VideoDriver& AomAv1Driver() {
    static const auto& driver = *new AomAv1;
    return driver;
}

} // namespace Kestra::FF
