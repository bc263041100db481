// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Filter/ColorspaceConverter.h"

#include "Kestra/Base/Exception.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include <stdexcept>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

namespace {

/// What alpha is blended away in: as exact as the formats that have alpha are.
constexpr AVPixelFormat OPAQUE = AV_PIX_FMT_GBRP16;

FrameTarget SameSize(const AVFrame& frame, AVPixelFormat format) {
    FrameTarget target;
    target.width = frame.width;
    target.height = frame.height;
    target.sampleAspect = frame.sample_aspect_ratio;
    target.format = format;
    target.source = target.place = {0, 0, frame.width, frame.height};
    return target;
}

} // namespace

ColorspaceConverter::ColorspaceConverter(const Proc::SettingsColorspaceConverter& settings)
    : settings(settings)
    , format(ToAv(settings.GetPixelFormat())) {
    if (format == AV_PIX_FMT_NONE)
        KESTRA_THROW(std::invalid_argument("A colour-space converter was given no pixel format"));
}

FrameHandle ColorspaceConverter::Convert(const AVFrame& frame) {
    const bool flatten = !settings.KeepsAlpha() && HasAlpha(static_cast<AVPixelFormat>(frame.format));
    const FrameHandle flat = flatten ? flattener.Convert(frame, SameSize(frame, OPAQUE)) : FrameHandle();
    return converter.Convert(flat ? *flat : frame, SameSize(frame, format));
}

boost::intrusive_ptr<Proc::IDataVideo>
ColorspaceConverter::Apply(const boost::intrusive_ptr<Proc::IDataVideo>& picture) {
    const AVFrame& frame = FrameOf(*picture);
    const bool opaque = !HasAlpha(format);
    if (frame.format == format && (opaque || settings.KeepsAlpha()))
        return picture;
    const AVFrame& result = last.Get(frame, [this](const AVFrame& source) { return Convert(source); });
    return new DataVideoFF(MakeFrameReference(result), picture->GetTime(), picture->GetDuration());
}

void ColorspaceConverter::ChangeFormat(Conf::IFormatCodecVideo& description) const {
    const FrameHandle picture = MakeFrame();
    const Conf::FrameInfo frame = description.GetFrameInfo();
    picture->format = ToAv(description.GetPixelFormat());
    picture->width = static_cast<int>(frame.width);
    picture->height = static_cast<int>(frame.height);
    SetColour(*picture, description.GetColour());
    description.SetColour(FrameConverter::ResolveColour(*picture, format, {}));
    description.SetPixelFormat(settings.GetPixelFormat());
}

// Other formats and colours than this effect's own would only be made to be converted back.
void ColorspaceConverter::ChangePreference(Conf::IFormatCodecVideo& preferred) const {
    preferred.SetPixelFormat(settings.GetPixelFormat());
    preferred.SetColour({});
}

} // namespace Kestra::FF
