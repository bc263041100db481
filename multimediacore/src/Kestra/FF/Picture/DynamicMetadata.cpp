// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Picture/DynamicMetadata.h"

#include "Kestra/FF/Av/OlderCalls.h"

extern "C" {
#include <libavutil/dovi_meta.h>
}

namespace Kestra::FF {

namespace {

constexpr int PROFILE_WITHOUT_BASE = 5;
constexpr int FIRST_PROFILE_THAT_SAYS = 8;
constexpr int PROFILE_OF_H264 = 9; // its base is always an ordinary one

const AVDOVIDecoderConfigurationRecord* DolbyVisionOf(const AVStream& stream) {
    std::size_t size = 0;
    const std::uint8_t* data = SideDataOf(stream, AV_PKT_DATA_DOVI_CONF, size);
    return data && size >= sizeof(AVDOVIDecoderConfigurationRecord)
               ? reinterpret_cast<const AVDOVIDecoderConfigurationRecord*>(data)
               : nullptr;
}

bool Has(const AVFrame& frame, AVFrameSideDataType type) {
    return av_frame_get_side_data(&frame, type) != nullptr;
}

} // namespace

std::string DynamicMetadataOf(const AVFrame& frame, const AVStream& stream) {
    if (DolbyVisionOf(stream) || Has(frame, AV_FRAME_DATA_DOVI_RPU_BUFFER) || Has(frame, AV_FRAME_DATA_DOVI_METADATA))
        return "Dolby Vision";
    if (Has(frame, AV_FRAME_DATA_DYNAMIC_HDR_PLUS))
        return "HDR10+";
    return Has(frame, AV_FRAME_DATA_DYNAMIC_HDR_VIVID) ? "HDR Vivid" : "";
}

std::string ForeignColourModel(const AVStream& stream) {
    const AVDOVIDecoderConfigurationRecord* const record = DolbyVisionOf(stream);
    if (!record)
        return {};
    const int profile = record->dv_profile;
    const bool says = profile >= FIRST_PROFILE_THAT_SAYS && profile != PROFILE_OF_H264;
    const bool foreign = profile == PROFILE_WITHOUT_BASE || (says && record->dv_bl_signal_compatibility_id == 0);
    return foreign ? "IPTPQc2 of Dolby Vision profile " + std::to_string(profile) : std::string();
}

} // namespace Kestra::FF
