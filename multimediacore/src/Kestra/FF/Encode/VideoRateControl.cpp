// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/VideoRateControl.h"

#include "Kestra/FF/Encode/DriverSettings.h"
#include "Kestra/FF/Encode/VideoDriver.h"
#include <algorithm>
#include <climits>
#include <string>

namespace Kestra::FF {

namespace {

int BufferSize(std::int64_t bits) {
    return static_cast<int>(std::min<std::int64_t>(bits, INT_MAX));
}

void SetBitrate(AVCodecContext& context, const VideoDriver& driver, std::int64_t bitrate, const std::string& mode,
                bool boundedPeak) {
    if (bitrate < 0)
        RefuseSetting(context, "the bitrate " + std::to_string(bitrate));
    context.bit_rate = bitrate;
    driver.SetDrift(context);
    if (mode == "cbr") {
        context.rc_max_rate = bitrate;
        context.rc_min_rate = driver.LowestRateOf(bitrate);
        context.rc_buffer_size = BufferSize(bitrate);
    } else if (mode == "vbr" && boundedPeak) {
        context.rc_max_rate = bitrate + bitrate / 2;
        context.rc_buffer_size = BufferSize(2 * context.rc_max_rate);
    }
}

} // namespace

void SetRateControl(AVCodecContext& context, const Conf::IFormatCodecVideo& description, bool boundedPeak) {
    const VideoDriver& driver = VideoDriver::Of(*context.codec);
    const std::string mode = description.GetBitrateMode();
    const double quality = description.GetQuality();
    const std::int64_t bitrate = description.GetBitrate();
    if (!mode.empty() && mode != "quality" && mode != "abr" && mode != "vbr" && mode != "cbr")
        RefuseSetting(context, "the bitrate mode \"" + mode + "\"");
    if (!driver.HasRate())
        return;
    const bool byQuality = mode == "quality" || (mode.empty() && quality != 0);
    context.bit_rate = 0;
    if (byQuality && quality != 0)
        driver.SetQuality(context, quality);
    else if (!byQuality && bitrate != 0)
        SetBitrate(context, driver, bitrate, mode.empty() ? "vbr" : mode, boundedPeak);
    else if (!HasPrivateOption(context, "crf"))
        driver.SetQuality(context, driver.UsualQuality());
}

} // namespace Kestra::FF
