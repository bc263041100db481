// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::HdrMetadata: on which display frames of high dynamic range were graded, and how bright they get.
#pragma once

#include "Kestra/Conf/HdrInfo.h"
#include "Kestra/FF/Av/Handles.h"
#include <optional>

extern "C" {
#include <libavutil/mastering_display_metadata.h>
}

namespace Kestra::FF {

/// A value. What changes from frame to frame (HDR10+, Dolby Vision) is not in it.
struct HdrMetadata {
    std::optional<AVMasteringDisplayMetadata> mastering;
    std::optional<AVContentLightMetadata> light;

    bool IsEmpty() const { return !mastering && !light; }
};

/// PQ or HLG.
bool IsHighRange(int transfer) noexcept;
/// Whether frames of that transfer (PQ, HLG) in that format can be shown with a high dynamic range: that takes ten
/// bits.
bool CarriesHdr(int transfer, AVPixelFormat format) noexcept;

HdrMetadata HdrMetadataOf(const AVFrame& frame);
Conf::HdrInfo InfoOf(const HdrMetadata& metadata);
HdrMetadata MetadataOf(const Conf::HdrInfo& info);
/// Gives the frame what the container tells, where the frame itself tells nothing.
void AddHdrMetadata(AVFrame& frame, const AVStream& stream);
/// For frames that are of another range now, or of another transfer; what changes from frame to frame goes too.
void RemoveHdrMetadata(AVFrame& frame);
/// For the container to tell.
void SetHdrMetadata(AVStream& stream, const HdrMetadata& metadata);
/// For x265 to tell in its stream; other encoders leave that to the container. What the options already tell stays.
void SetHdrMetadata(AVCodecContext& context, const HdrMetadata& metadata);

} // namespace Kestra::FF
