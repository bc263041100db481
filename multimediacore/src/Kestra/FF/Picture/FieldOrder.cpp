// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Picture/FieldOrder.h"

#include "Kestra/FF/Av/OlderCalls.h"

namespace Kestra::FF {

namespace {

// Of the others, frames that are not flagged may be interlaced all the same: most have no flags, and FFV1 is often
// written without.
bool FlagsEachFrame(AVCodecID codec) {
    switch (codec) {
    case AV_CODEC_ID_MPEG1VIDEO:
    case AV_CODEC_ID_MPEG2VIDEO:
    case AV_CODEC_ID_MPEG4:
    case AV_CODEC_ID_H264:
    case AV_CODEC_ID_VC1:
    case AV_CODEC_ID_WMV3:
    case AV_CODEC_ID_DVVIDEO:
    case AV_CODEC_ID_PRORES:
    case AV_CODEC_ID_DNXHD:
    case AV_CODEC_ID_UTVIDEO:
        return true;
    default:
        return false;
    }
}

} // namespace

bool SaysInterlaced(const AVCodecParameters& track) noexcept {
    return track.field_order > AV_FIELD_PROGRESSIVE;
}

bool SaysTopFieldFirst(const AVCodecParameters& track) noexcept {
    return track.field_order == AV_FIELD_TT || track.field_order == AV_FIELD_TB;
}

bool IsLoneField(const AVFrame& frame, AVCodecID codec) noexcept {
    return codec == AV_CODEC_ID_HEVC && HoldsFields(frame);
}

bool OnlyTrackTells(const AVFrame& first, const AVCodecParameters& track) noexcept {
    return !HoldsFields(first) && SaysInterlaced(track) && !FlagsEachFrame(track.codec_id);
}

void TagFields(AVFrame& frame, const AVCodecParameters& track, bool onlyTrackTells) {
    if (IsLoneField(frame, track.codec_id)) {
        SetHoldsFields(frame, false);
    } else if (onlyTrackTells) {
        SetHoldsFields(frame, true);
        SetTopFieldFirst(frame, SaysTopFieldFirst(track));
    }
}

const char* FieldOrderText(bool topFieldFirst) noexcept {
    return topFieldFirst ? "top field first" : "bottom field first";
}

} // namespace Kestra::FF
