// Kestra::FF::HdrMetadata: on which display pictures of high dynamic range were graded, and how bright they get.
#pragma once

#include "Kestra/Conf/HdrInfo.h"
#include "Kestra/FF/Av/Handles.h"
#include <optional>

extern "C" {
#include <libavutil/mastering_display_metadata.h>
}

namespace Kestra::FF {

/// A value. What changes from picture to picture (HDR10+, Dolby Vision) is not in it.
struct HdrMetadata {
    std::optional<AVMasteringDisplayMetadata> mastering;
    std::optional<AVContentLightMetadata> light;

    bool IsEmpty() const { return !mastering && !light; }
};

/// PQ or HLG.
bool IsHighRange(int transfer) noexcept;
/// Whether pictures of that transfer (PQ, HLG) in that format can be shown with a high dynamic range: that takes ten
/// bits.
bool CarriesHdr(int transfer, AVPixelFormat format) noexcept;

HdrMetadata HdrMetadataOf(const AVFrame& picture);
Conf::HdrInfo InfoOf(const HdrMetadata& metadata);
HdrMetadata MetadataOf(const Conf::HdrInfo& info);
/// Gives the picture what the container tells, where the picture itself tells nothing.
void AddHdrMetadata(AVFrame& picture, const AVStream& stream);
/// For pictures that are of another range now, or of another transfer; what changes from picture to picture goes too.
void RemoveHdrMetadata(AVFrame& picture);
/// For the container to tell.
void SetHdrMetadata(AVStream& stream, const HdrMetadata& metadata);
/// For x265 to tell in its stream; other encoders leave that to the container. What the options already tell stays.
void SetHdrMetadata(AVCodecContext& context, const HdrMetadata& metadata);

} // namespace Kestra::FF
