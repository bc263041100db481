// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Filter/AlphaEnvelope.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include "Kestra/FF/Picture/AlphaBlend.h"
#include <cmath>
#include <utility>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

namespace {

/// What frames become whose alpha, if any, cannot be reached directly.
constexpr AVPixelFormat FALLBACK = AV_PIX_FMT_BGRA;
/// Opacity is counted in parts of this.
constexpr std::uint32_t OPAQUE = 1U << 16;

std::uint32_t OpacityOf(double progress) {
    if (!(progress > 0)) // what is no number shows nothing either
        return 0;
    return progress >= 1 ? OPAQUE : static_cast<std::uint32_t>(std::lround(progress * OPAQUE));
}

template <class Sample>
void ScaleAlpha(AVFrame& frame, const AVComponentDescriptor& alpha, std::uint32_t opacity) {
    const auto step = static_cast<std::size_t>(alpha.step) / sizeof(Sample);
    const auto width = static_cast<std::size_t>(frame.width);
    for (int y = 0; y < frame.height; ++y) {
        std::uint8_t* const row =
            frame.data[alpha.plane] + static_cast<std::ptrdiff_t>(y) * frame.linesize[alpha.plane];
        auto* const samples = reinterpret_cast<Sample*>(row + alpha.offset);
        for (std::size_t x = 0; x < width; ++x) {
            Sample& sample = samples[x * step];
            sample = static_cast<Sample>((sample * opacity + OPAQUE / 2) / OPAQUE);
        }
    }
}

FrameHandle Faded(const AVFrame& frame, std::uint32_t opacity, FramePool& pool) {
    const auto format = static_cast<AVPixelFormat>(frame.format);
    FrameHandle result = pool.Get(format, frame.width, frame.height);
    const char* const what = "Copying a picture to be faded failed";
    Check(av_frame_copy(result.get(), &frame), Proc::TranscodingError::FilterFailed, what);
    Check(av_frame_copy_props(result.get(), &frame), Proc::TranscodingError::FilterFailed, what);
    const AVComponentDescriptor& alpha = av_pix_fmt_desc_get(format)->comp[3];
    if (alpha.depth > 8)
        ScaleAlpha<std::uint16_t>(*result, alpha, opacity);
    else
        ScaleAlpha<std::uint8_t>(*result, alpha, opacity);
    return result;
}

} // namespace

AlphaEnvelope::AlphaEnvelope(const Proc::TimeToProgress& progress)
    : progress(progress) {}

const AVFrame& AlphaEnvelope::WithAlpha(const AVFrame& frame) {
    return last.Get(frame, [this](const AVFrame& source) {
        FrameTarget target;
        target.width = source.width;
        target.height = source.height;
        target.sampleAspect = source.sample_aspect_ratio;
        target.format = FALLBACK;
        target.source = target.place = {0, 0, source.width, source.height};
        return converter.Convert(source, target);
    });
}

boost::intrusive_ptr<Proc::IDataVideo> AlphaEnvelope::Apply(const boost::intrusive_ptr<Proc::IDataVideo>& data) {
    const AVFrame& given = FrameOf(*data);
    const bool direct = CanBlend(static_cast<AVPixelFormat>(given.format));
    const std::uint32_t opacity = OpacityOf(progress.GetProgress(data->GetTime()));
    if (direct && opacity == OPAQUE)
        return data;
    const AVFrame& frame = direct ? given : WithAlpha(given);
    FrameHandle result = opacity == OPAQUE ? MakeFrameReference(frame) : Faded(frame, opacity, pool);
    return new DataVideoFF(std::move(result), data->GetTime(), data->GetDuration());
}

void AlphaEnvelope::ChangeFormat(Conf::IFormatCodecVideo& format) const {
    if (CanBlend(ToAv(format.GetPixelFormat())))
        return;
    format.SetPixelFormat(FromAv(FALLBACK));
    Conf::ColourInfo colour = format.GetColour();
    colour.matrix = AVCOL_SPC_RGB;
    colour.range = AVCOL_RANGE_JPEG;
    format.SetColour(colour);
}

// A consumer without alpha must not get what is faded here without it.
void AlphaEnvelope::ChangePreference(Conf::IFormatCodecVideo& preferred) const {
    if (!CanBlend(ToAv(preferred.GetPixelFormat())))
        preferred.SetPixelFormat(FromAv(FALLBACK));
}

} // namespace Kestra::FF
