// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Picture/HdrMetadata.h"

#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Av/OlderCalls.h"
#include <cstdint>
#include <cstring>
#include <string>

extern "C" {
#include <libavutil/opt.h>
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

constexpr int LEAST_BITS = 10;
constexpr const char* X265_PARAMETERS = "x265-params";

template <class Metadata>
std::optional<Metadata> Read(const AVFrame& frame, AVFrameSideDataType type) {
    const AVFrameSideData* data = av_frame_get_side_data(&frame, type);
    if (!data || data->size < sizeof(Metadata))
        return std::nullopt;
    Metadata metadata{};
    std::memcpy(&metadata, data->data, sizeof metadata);
    return metadata;
}

void Copy(AVFrame& frame, AVFrameSideDataType type, const AVStream& stream, AVPacketSideDataType from) {
    std::size_t size = 0;
    const std::uint8_t* data = SideDataOf(stream, from, size);
    if (!data || size == 0 || av_frame_get_side_data(&frame, type))
        return;
    std::memcpy(Allocated(av_frame_new_side_data(&frame, type, size))->data, data, size);
}

template <class Metadata>
void Write(AVStream& stream, AVPacketSideDataType type, const std::optional<Metadata>& metadata) {
    if (metadata)
        std::memcpy(Allocated(AddSideData(stream, type, sizeof(Metadata))), &*metadata, sizeof(Metadata));
}

constexpr int PLACES_PER_ONE = 50000;
constexpr int LUMINANCES_PER_ONE = 10000;

std::int64_t InUnits(AVRational value, int perOne) {
    return value.den == 0 ? 0 : av_rescale(value.num, perOne, value.den);
}

std::string Units(AVRational value, int perOne) {
    return std::to_string(InUnits(value, perOne));
}

/// x and y of red, green, blue and white, one after the other.
template <class Display>
auto& PlaceOf(Display& display, std::size_t index) {
    return index < 6 ? display.display_primaries[index / 2][index % 2] : display.white_point[index % 2];
}

/// In steps of 0.00002 of the chromaticity plane and 0.0001 cd/m2.
std::string X265Text(const AVMasteringDisplayMetadata& display) {
    const auto point = [](const AVRational(&place)[2]) {
        return "(" + Units(place[0], PLACES_PER_ONE) + "," + Units(place[1], PLACES_PER_ONE) + ")";
    };
    const AVRational(&primaries)[3][2] = display.display_primaries;
    return "G" + point(primaries[1]) + "B" + point(primaries[2]) + "R" + point(primaries[0]) + "WP" +
           point(display.white_point) + "L(" + Units(display.max_luminance, LUMINANCES_PER_ONE) + "," +
           Units(display.min_luminance, LUMINANCES_PER_ONE) + ")";
}

void SetUnlessGiven(Dictionary& parameters, const char* name, const std::string& value) {
    if (!av_dict_get(*parameters.Address(), name, nullptr, 0))
        parameters.Set(name, value.c_str());
}

} // namespace

bool IsHighRange(int transfer) noexcept {
    return transfer == AVCOL_TRC_SMPTE2084 || transfer == AVCOL_TRC_ARIB_STD_B67;
}

bool CarriesHdr(int transfer, AVPixelFormat format) noexcept {
    const AVPixFmtDescriptor* descriptor = av_pix_fmt_desc_get(format);
    return IsHighRange(transfer) && descriptor && descriptor->comp[0].depth >= LEAST_BITS;
}

HdrMetadata HdrMetadataOf(const AVFrame& frame) {
    HdrMetadata metadata;
    metadata.mastering = Read<AVMasteringDisplayMetadata>(frame, AV_FRAME_DATA_MASTERING_DISPLAY_METADATA);
    metadata.light = Read<AVContentLightMetadata>(frame, AV_FRAME_DATA_CONTENT_LIGHT_LEVEL);
    return metadata;
}

Conf::HdrInfo InfoOf(const HdrMetadata& metadata) {
    Conf::HdrInfo info;
    const auto& display = metadata.mastering;
    for (std::size_t index = 0; display && display->has_primaries && index < info.places.size(); ++index)
        info.places[index] = InUnits(PlaceOf(*display, index), PLACES_PER_ONE);
    if (display && display->has_luminance) {
        info.whitest = InUnits(display->max_luminance, LUMINANCES_PER_ONE);
        info.blackest = InUnits(display->min_luminance, LUMINANCES_PER_ONE);
    }
    if (metadata.light) {
        info.maxCll = metadata.light->MaxCLL;
        info.maxFall = metadata.light->MaxFALL;
    }
    return info;
}

HdrMetadata MetadataOf(const Conf::HdrInfo& info) {
    HdrMetadata metadata;
    if (info.HasPlaces() || info.whitest > 0) {
        AVMasteringDisplayMetadata& display = metadata.mastering.emplace();
        display = {};
        for (std::size_t index = 0; index < info.places.size(); ++index)
            PlaceOf(display, index) = {static_cast<int>(info.places[index]), PLACES_PER_ONE};
        display.max_luminance = {static_cast<int>(info.whitest), LUMINANCES_PER_ONE};
        display.min_luminance = {static_cast<int>(info.blackest), LUMINANCES_PER_ONE};
        display.has_primaries = info.HasPlaces() ? 1 : 0;
        display.has_luminance = info.whitest > 0 ? 1 : 0;
    }
    if (info.maxCll > 0 || info.maxFall > 0)
        metadata.light =
            AVContentLightMetadata{static_cast<unsigned>(info.maxCll), static_cast<unsigned>(info.maxFall)};
    return metadata;
}

void AddHdrMetadata(AVFrame& frame, const AVStream& stream) {
    Copy(frame, AV_FRAME_DATA_MASTERING_DISPLAY_METADATA, stream, AV_PKT_DATA_MASTERING_DISPLAY_METADATA);
    Copy(frame, AV_FRAME_DATA_CONTENT_LIGHT_LEVEL, stream, AV_PKT_DATA_CONTENT_LIGHT_LEVEL);
}

void RemoveHdrMetadata(AVFrame& frame) {
    for (const AVFrameSideDataType type :
         {AV_FRAME_DATA_MASTERING_DISPLAY_METADATA, AV_FRAME_DATA_CONTENT_LIGHT_LEVEL, AV_FRAME_DATA_DYNAMIC_HDR_PLUS,
          AV_FRAME_DATA_DYNAMIC_HDR_VIVID, AV_FRAME_DATA_DOVI_RPU_BUFFER, AV_FRAME_DATA_DOVI_METADATA})
        av_frame_remove_side_data(&frame, type);
}

void SetHdrMetadata(AVStream& stream, const HdrMetadata& metadata) {
    Write(stream, AV_PKT_DATA_MASTERING_DISPLAY_METADATA, metadata.mastering);
    Write(stream, AV_PKT_DATA_CONTENT_LIGHT_LEVEL, metadata.light);
}

void SetHdrMetadata(AVCodecContext& context, const HdrMetadata& metadata) {
    if (metadata.IsEmpty() || !av_opt_find(context.priv_data, X265_PARAMETERS, nullptr, 0, 0))
        return;
    Dictionary parameters;
    Check(av_opt_get_dict_val(context.priv_data, X265_PARAMETERS, 0, parameters.Address()),
          TranscodingError::CodecRefused, X265_PARAMETERS);
    const auto& display = metadata.mastering;
    if (display && display->has_primaries && display->has_luminance)
        SetUnlessGiven(parameters, "master-display", X265Text(*display));
    if (metadata.light)
        SetUnlessGiven(parameters, "max-cll",
                       std::to_string(metadata.light->MaxCLL) + "," + std::to_string(metadata.light->MaxFALL));
    Check(av_opt_set_dict_val(context.priv_data, X265_PARAMETERS, *parameters.Address(), 0),
          TranscodingError::CodecRefused, X265_PARAMETERS);
}

} // namespace Kestra::FF
