// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Filter/Resizer.h"

#include "Kestra/Conf/BlendFormats.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include "Kestra/FF/Picture/EncoderInput.h"
#include <algorithm>
#include <cmath>

namespace Kestra::FF {

using Proc::AspectMode;

namespace {

constexpr double SAME_SHAPE = 1e-4;

int ScalerFlag(Proc::Interpolation interpolation) {
    switch (interpolation) {
    case Proc::Interpolation::Nearest:
        return SWS_POINT;
    case Proc::Interpolation::Bilinear:
        return SWS_BILINEAR;
    case Proc::Interpolation::Lanczos:
        return SWS_LANCZOS;
    case Proc::Interpolation::Bicubic:
        break;
    }
    return SWS_BICUBIC;
}

FrameRect CroppedSource(const Conf::FrameInfo& picture, const Proc::SettingsResizer& settings) {
    const auto width = static_cast<int>(picture.width);
    const auto height = static_cast<int>(picture.height);
    FrameRect part;
    part.x = static_cast<int>(std::min(settings.cropLeft, picture.width - 1));
    part.y = static_cast<int>(std::min(settings.cropTop, picture.height - 1));
    part.width = std::max(1, width - part.x - static_cast<int>(std::min(settings.cropRight, picture.width - 1)));
    part.height = std::max(1, height - part.y - static_cast<int>(std::min(settings.cropBottom, picture.height - 1)));
    return part;
}

double PixelShape(const Conf::FrameInfo& frame) {
    return av_q2d(SampleAspectOf(frame));
}

// An even side, next to `side` and no longer than `limit`.
int EvenSide(double side, int limit) {
    const int even = static_cast<int>(std::lround(side / 2)) * 2;
    return std::clamp(even, std::min(2, limit), limit);
}

// Offsets are even too: chroma samples are not split.
int Centre(int inner, int outer) {
    return (outer - inner) / 4 * 2;
}

FrameRect InBars(const FrameRect& part, double partShape, const Conf::FrameInfo& frame) {
    const auto width = static_cast<int>(frame.width);
    const auto height = static_cast<int>(frame.height);
    const double shape = part.width * partShape / part.height / PixelShape(frame);
    FrameRect place{0, 0, width, height};
    // Sides are made even downwards: what is missing for that is no bar.
    constexpr double ROUNDING = 2;
    if (std::abs(height * shape - width) < ROUNDING || std::abs(width / shape - height) < ROUNDING)
        return place;
    if (height * shape < width)
        place.width = EvenSide(height * shape, width);
    else
        place.height = EvenSide(width / shape, height);
    place.x = Centre(place.width, width);
    place.y = Centre(place.height, height);
    return place;
}

FrameRect CutToShape(const FrameRect& part, double partShape, const Conf::FrameInfo& frame) {
    const double shape = static_cast<double>(frame.width) / frame.height * PixelShape(frame) / partShape;
    FrameRect cut = part;
    if (part.height * shape < part.width)
        cut.width = EvenSide(part.height * shape, part.width);
    else
        cut.height = EvenSide(part.width / shape, part.height);
    cut.x += Centre(cut.width, part.width);
    cut.y += Centre(cut.height, part.height);
    return cut;
}

bool SameFrame(const Conf::FrameInfo& a, const Conf::FrameInfo& b) {
    return a.width == b.width && a.height == b.height;
}

/// An odd side that may not stay loses its last column or row, rather than every pixel being scaled for it.
bool IsCut(const Conf::FrameInfo& picture, const Conf::FrameInfo& frame, const Proc::SettingsResizer& settings) {
    const bool cropped = settings.cropLeft + settings.cropTop + settings.cropRight + settings.cropBottom != 0;
    const auto cut = [](std::uint32_t side, std::uint32_t left) { return side - left <= 1; };
    return !cropped && !SameFrame(picture, frame) && cut(picture.width, frame.width) &&
           cut(picture.height, frame.height) && std::abs(PixelShape(picture) / PixelShape(frame) - 1) < SAME_SHAPE;
}

} // namespace

Fitting FitFrame(const Conf::FrameInfo& picture, const Conf::FrameInfo& frame, const Proc::SettingsResizer& settings) {
    Fitting fitting;
    fitting.source = CroppedSource(picture, settings);
    fitting.place = {0, 0, static_cast<int>(frame.width), static_cast<int>(frame.height)};
    const double shape = PixelShape(picture);
    if (IsCut(picture, frame, settings)) {
        fitting.source = fitting.place;
        return fitting;
    }
    if (settings.aspectMode == AspectMode::Crop)
        fitting.source = CutToShape(fitting.source, shape, frame);
    const bool ownFrame = settings.aspectMode == AspectMode::FitInside || settings.aspectMode == AspectMode::KeepSize;
    if (settings.aspectMode == AspectMode::Letterbox ||
        (ownFrame && !SameFrame(settings.GetOutputFrameSize(picture), frame)))
        fitting.place = InBars(fitting.source, shape, frame);
    return fitting;
}

Resizer::Resizer(const boost::intrusive_ptr<Proc::IStreamVideo>& source, const Proc::SettingsResizer& settings,
                 int threads)
    : VideoFilterBase(source, "resizer")
    , settings(settings)
    , threads(std::max(1, threads)) {}

Conf::FrameInfo Resizer::OutputFrame() const {
    boost::intrusive_ptr<Conf::IFormatCodecVideo> sourceFormat;
    source->GetVideoFormat(sourceFormat);
    return settings.GetOutputFrameSize(sourceFormat->GetFrameInfo());
}

void Resizer::Prepare() {
    source->Prepare();
    output = OutputFrame();
}

void Resizer::Reset() {
    lastFrame.reset();
    lastResult.reset();
    source->Reset();
}

void Resizer::PreferFormat(const Conf::IFormatCodec& preferred) {
    if (const auto* video = dynamic_cast<const Conf::IFormatCodecVideo*>(&preferred)) {
        format = ToAv(video->GetPixelFormat());
        colour = video->GetColour();
        draft = Conf::Draft::Of(*video);
    }
    source->PreferFormat(preferred);
}

void Resizer::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& result) const {
    source->GetVideoFormat(result);
    const Conf::FrameInfo sourceFrame = result->GetFrameInfo();
    const Conf::FrameInfo frame = output.width > 0 ? output : settings.GetOutputFrameSize(sourceFrame);
    result->InitByFrameAspect(frame.width, frame.height, frame.aspectNumerator, frame.aspectDenominator);
    const FrameHandle picture = MakeFrame();
    const AVPixelFormat own = ToAv(result->GetPixelFormat());
    if (own == AV_PIX_FMT_NONE && format == AV_PIX_FMT_NONE)
        return;
    picture->format = own;
    picture->height = static_cast<int>(frame.height);
    SetColour(*picture, result->GetColour());
    const AVPixelFormat made = FormatFor(own, ShowsBars(FitFrame(sourceFrame, frame, settings), frame));
    result->SetColour(FrameConverter::ResolveColour(*picture, made, ColourFor(made)));
    result->SetPixelFormat(FromAv(made));
}

bool Resizer::ShowsBars(const Fitting& fitting, const Conf::FrameInfo& frame) const {
    return settings.aspectMode == AspectMode::Letterbox &&
           fitting.place != FrameRect{0, 0, static_cast<int>(frame.width), static_cast<int>(frame.height)};
}

AVPixelFormat Resizer::FormatFor(AVPixelFormat own, bool bars) const {
    const AVPixelFormat made = format == AV_PIX_FMT_NONE ? own : format;
    const bool transparent = settings.transparentBars && (bars || HasAlpha(own));
    return transparent && !HasAlpha(made) ? ToAv(Conf::BlendFormatsFor(FromAv(made)).alpha) : made;
}

// A format that is of full range by name has a sibling that has to be told.
Conf::ColourInfo Resizer::ColourFor(AVPixelFormat made) const {
    Conf::ColourInfo result = colour;
    if (made != format && format != AV_PIX_FMT_NONE && IsFullRangeFormat(format))
        result.range = AVCOL_RANGE_JPEG;
    return result;
}

FrameTarget Resizer::TargetFor(const AVFrame& picture) const {
    const Conf::FrameInfo frame = MakeFrameInfo(picture.width, picture.height, picture.sample_aspect_ratio);
    const Fitting fitting = FitFrame(frame, output, settings);
    FrameTarget target;
    target.width = static_cast<int>(output.width);
    target.height = static_cast<int>(output.height);
    target.sampleAspect = SampleAspectOf(output);
    target.format = FormatFor(static_cast<AVPixelFormat>(picture.format), ShowsBars(fitting, output));
    target.colour = ColourFor(target.format);
    target.transparentRest = settings.transparentBars && HasAlpha(target.format);
    target.source = fitting.source;
    target.place = fitting.place;
    target.interpolation = ScalerFlag(settings.interpolation);
    target.threads = threads;
    return draft ? DraftOf(target, *draft) : target;
}

boost::intrusive_ptr<Proc::IDataVideo> Resizer::ReadVideo() {
    const auto picture = source->ReadVideo();
    if (!picture)
        return {};
    if (output.width == 0)
        output = OutputFrame();
    const AVFrame& frame = FrameOf(*picture);
    if (!lastFrame || lastFrame->data[0] != frame.data[0] || lastFrame->buf[0]->buffer != frame.buf[0]->buffer) {
        lastResult = converter.Convert(frame, TargetFor(frame));
        lastFrame = MakeFrameReference(frame);
    }
    return new DataVideoFF(MakeFrameReference(*lastResult), picture->GetTime(), picture->GetDuration());
}

boost::intrusive_ptr<Proc::IStreamVideo> MakeResizer(const boost::intrusive_ptr<Proc::IStreamVideo>& source,
                                                     const Proc::SettingsResizer& settings, int threads) {
    return new Resizer(source, settings, threads);
}

} // namespace Kestra::FF
