// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/VideoDriver.h"

#include "Kestra/FF/Encode/DriverSettings.h"
#include <algorithm>
#include <cmath>
#include <cstring>

namespace Kestra::FF {

const VideoDriver& VideoDriver::Of(const AVCodec& encoder) {
    static const auto& other = *new VideoDriver(Conf::CodecID::None, "");
    const auto found = std::find_if(All().begin(), All().end(), [&encoder](const VideoDriver* driver) {
        return std::strcmp(driver->encoder, encoder.name) == 0;
    });
    return found == All().end() ? other : **found;
}

bool VideoDriver::TakesSize(int, int) const {
    return true;
}

bool VideoDriver::TakesFormat(AVPixelFormat) const {
    return true;
}

void VideoDriver::AllowFields(AVCodecContext&) const {}

std::string VideoDriver::Advise(const EncoderInput&) const {
    return {};
}

void VideoDriver::TellProfile(OptionList& options, const Core::Property& profile) const {
    options.AddFirst("profile", profile);
}

void VideoDriver::SetSpeed(AVCodecContext& context, const OptionList&) const {
    context.thread_count = std::min(Processors(), MOST_SLICE_THREADS);
    context.thread_type = FF_THREAD_FRAME | FF_THREAD_SLICE;
}

void VideoDriver::SetQuality(AVCodecContext& context, double quality) const {
    if (!(quality >= 0 && quality <= 1024))
        RefuseSetting(context, "the quality " + Decimal(quality));
    context.flags |= AV_CODEC_FLAG_QSCALE;
    context.global_quality = static_cast<int>(std::lround(quality * FF_QP2LAMBDA));
}

void VideoDriver::SetDrift(AVCodecContext&) const {}

void VideoDriver::Settle(AVCodecContext&) const {}

void VideoDriver::SettleOnePass(AVCodecContext&) const {}

void VideoDriver::SetFastFirstPass(AVCodecContext& context) const {
    context.trellis = 0;
    context.mb_decision = FF_MB_DECISION_SIMPLE;
}

bool VideoDriver::ScalesStatistics(const OptionList&) const {
    return false;
}

void VideoDriver::SetDraftRate(AVCodecContext&, double) const {}

} // namespace Kestra::FF
