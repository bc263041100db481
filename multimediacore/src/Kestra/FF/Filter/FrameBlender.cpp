// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Filter/FrameBlender.h"

#include "Kestra/Base/Exception.h"
#include "Kestra/Conf/BlendFormats.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Av/OlderCalls.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include "Kestra/FF/Picture/FrameBlend.h"
#include "Kestra/FF/Picture/FrameGeometry.h"
#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

Conf::BlendFormats FormatsOf(Conf::PixelFormat format) {
    try {
        const Conf::BlendFormats formats = Conf::BlendFormatsFor(format);
        if (format == formats.opaque || format == formats.alpha)
            return formats;
    } catch (const Exception&) {
        // The sentence below says it, too.
    }
    Fail(TranscodingError::NotSupported,
         std::string("Pictures of the pixel format \"") + Conf::PixelFormatToString(format) + "\" cannot be blended");
}

} // namespace

FrameBlender::FrameBlender(const Conf::IFormatCodecVideo& format)
    : frame(format.GetFrameInfo())
    , colour(format.GetColour()) {
    if (frame.width == 0 || frame.height == 0)
        KESTRA_THROW(std::invalid_argument("frames to be blended have a size; none was given"));
    const Conf::BlendFormats formats = FormatsOf(format.GetPixelFormat());
    opaque = ToAv(formats.opaque);
    alpha = ToAv(formats.alpha);
    if (Conf::PixelFormatRecord::Find(formats.opaque)->fullRange)
        colour.range = AVCOL_RANGE_JPEG;
}

/// Null for null.
const AVFrame* FrameBlender::Taken(const Frame& data) const {
    if (!data)
        return nullptr;
    const AVFrame& picture = FrameOf(*data);
    const bool fits = picture.width == static_cast<int>(frame.width) &&
                      picture.height == static_cast<int>(frame.height) &&
                      (picture.format == opaque || picture.format == alpha);
    if (!fits)
        KESTRA_THROW(std::invalid_argument(
            "a frame to be blended has " + std::to_string(picture.width) + "x" + std::to_string(picture.height) +
            " pixels of \"" + Conf::PixelFormatToString(data->GetPixelFormat()) + "\", which the others have not"));
    return &picture;
}

FrameHandle FrameBlender::MakeResult(bool withAlpha, const AVFrame& first, const AVFrame* second) {
    FramePool& pool = withAlpha ? alphaPool : opaquePool;
    FrameHandle result =
        pool.Get(withAlpha ? alpha : opaque, static_cast<int>(frame.width), static_cast<int>(frame.height));
    Check(av_frame_copy_props(result.get(), &first), TranscodingError::OutOfMemory, "properties of a picture");
    // Where one of the two shows two instants, what is made of both does.
    if (second && HoldsFields(*second) && !HoldsFields(first)) {
        SetHoldsFields(*result, true);
        SetTopFieldFirst(*result, IsTopFieldFirst(*second));
    }
    return result;
}

FrameBlender::Frame FrameBlender::Tagged(FrameHandle picture, const Proc::IDataVideo& times) const {
    SetColour(*picture, colour);
    picture->sample_aspect_ratio = SampleAspectOf(frame);
    return new DataVideoFF(std::move(picture), times.GetTime(), times.GetDuration());
}

FrameBlender::Frame FrameBlender::Shown(const AVFrame& picture, const Proc::IDataVideo& times) const {
    return Tagged(MakeFrameReference(picture), times);
}

FrameBlender::Frame FrameBlender::Mix(const Frame& from, const Frame& to, double weight) {
    const AVFrame* const before = Taken(from);
    const AVFrame* const after = Taken(to);
    const bool atEnd = !(weight > 0) || weight >= 1; // what is no number shows the beginning
    const AVFrame* const seen = weight >= 1 ? after : before;
    if ((atEnd && !seen) || (!before && !after))
        return {};
    const Proc::IDataVideo& times = before ? *from : *to;
    if (atEnd)
        return Shown(*seen, times);
    FrameHandle result = MakeResult(MixHasAlpha(before, after), before ? *before : *after, after);
    MixFrames(before, after, weight, *result);
    return Tagged(std::move(result), times);
}

FrameBlender::Frame FrameBlender::Over(const Frame& bottom, const Frame& top) {
    const AVFrame* const below = Taken(bottom);
    const AVFrame* const above = Taken(top);
    if (!below && !above)
        return {};
    const Proc::IDataVideo& times = below ? *bottom : *top;
    if (!above || !below || !CarriesAlpha(*above))
        return Shown(above ? *above : *below, times);
    FrameHandle result = MakeResult(CarriesAlpha(*below), *below, above);
    LayOver(*below, *above, *result);
    return Tagged(std::move(result), times);
}

const AVFrame& FrameBlender::Black() {
    if (!black) {
        black = opaquePool.Get(opaque, static_cast<int>(frame.width), static_cast<int>(frame.height));
        black->color_range = static_cast<AVColorRange>(colour.range);
        FillBlack(*black, {0, 0, black->width, black->height});
    }
    return *black;
}

FrameBlender::Frame FrameBlender::Flatten(const Frame& data) {
    const AVFrame* const picture = Taken(data);
    if (!picture)
        return Tagged(MakeFrameReference(Black()), DataVideoFF(MakeFrame(), 0, 0));
    if (!CarriesAlpha(*picture))
        return Shown(*picture, *data);
    FrameHandle result = MakeResult(false, *picture, nullptr);
    LayOver(Black(), *picture, *result);
    return Tagged(std::move(result), *data);
}

boost::intrusive_ptr<Proc::IFrameBlender>
MakeFrameBlender(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) {
    if (!format)
        KESTRA_THROW(std::invalid_argument("a blender of frames needs a format; it was given none"));
    return new FrameBlender(*format);
}

} // namespace Kestra::FF
