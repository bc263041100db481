// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/DriverSettings.h"
#include "Kestra/FF/Encode/VideoDrivers.h"

namespace Kestra::FF {

namespace {

constexpr const char* LIST = "x265-params";

class Driver final : public VideoDriver {
public:
    Driver()
        : VideoDriver(Conf::CodecID::HEVC, "libx265") {}

    // Its list ends before that code.
    Conf::ColourInfo Tellable(Conf::ColourInfo colour) const override {
        if (colour.primaries == AVCOL_PRI_EBU3213)
            colour.primaries = AVCOL_PRI_UNSPECIFIED;
        return colour;
    }

    void SetSpeed(AVCodecContext& context, const OptionList&) const override {
        context.thread_count = 0;
        Settle(context);
    }

    void SetQuality(AVCodecContext& context, double quality) const override { SetCrf(context, quality); }
    // It fills up what is missing.
    std::int64_t LowestRateOf(std::int64_t) const override { return 0; }
    // It writes on standard error, past the library's log; parameters of a preset take the place of all that are set.
    void Settle(AVCodecContext& context) const override { SetListedParameter(context, LIST, "log-level", "none"); }

    Statistics GetStatistics() const override { return Statistics::X265; }
    void SetFastFirstPass(AVCodecContext& context) const override {
        SetListedParameter(context, LIST, "slow-firstpass", "0");
    }
};

} // namespace

const VideoDriver& X265Driver() {
    static const auto& driver = *new Driver;
    return driver;
}

} // namespace Kestra::FF
