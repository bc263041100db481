// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::FrameConverter: part, place, size, pixel format and colour of frames.
#pragma once

#include "Kestra/Conf/Draft.h"
#include "Kestra/Conf/PixelFormat.h"
#include "Kestra/FF/Av/FramePool.h"
#include "Kestra/FF/Picture/ColourConverter.h"
#include "Kestra/FF/Picture/FrameGeometry.h"
#include "Kestra/FF/Picture/PlanarScaler.h"

namespace Kestra::FF {

/// What a frame is to become.
struct FrameTarget {
    int width = 0;
    int height = 0;
    AVRational sampleAspect = {1, 1};
    /// AV_PIX_FMT_NONE: the frame's own.
    AVPixelFormat format = AV_PIX_FMT_NONE;
    /// What is unspecified here stays as it is in the frame.
    Conf::ColourInfo colour;
    /// The part of the frame that is shown.
    FrameRect source;
    /// Where it stands in the result; the rest is black.
    FrameRect place;
    /// The rest is transparent, too; the format has alpha.
    bool transparentRest = false;
    /// A scaler flag of libswscale.
    int interpolation = SWS_BICUBIC;
    int threads = 1;
};

/// The same in the smaller frame of a draft, and scaled quickly.
FrameTarget DraftOf(const FrameTarget& target, const Conf::Draft& draft);

/// Bound to one thread at a time. Alpha is kept where the target format has it, else blended over black before scaling;
/// where it is kept, scaling and sharing of chroma weight colour by it (for formats that CanPremultiply knows).
/// Interlaced frames are scaled field by field. One pass of libswscale or of PlanarScaler does it all, unless the
/// colour has to change by more than they do well: that follows in ColourConverter's pass. Chroma is read where the
/// frame says that it is, and stands beside the left pixel in what is made.
class FrameConverter {
public:
    /// The frame itself, on the same pixels, when it already is what is wanted. Times and side data stay.
    FrameHandle Convert(const AVFrame& frame, const FrameTarget& target);

    /// The colour tags that a frame has when converted.
    static Conf::ColourInfo ResolveColour(const AVFrame& frame, AVPixelFormat format, const Conf::ColourInfo& wanted);

private:
    /// How pixels are to be read and written; nothing in it is unspecified.
    struct Pass {
        Conf::ColourInfo before;
        Conf::ColourInfo after;
        int interpolation = SWS_BICUBIC;
        int threads = 1;
    };
    /// All that a scaling context depends on.
    struct Setup {
        int sourceWidth = 0, sourceHeight = 0, sourceFormat = -1;
        int width = 0, height = 0, format = -1;
        AVChromaLocation sourceLocation = AVCHROMA_LOC_UNSPECIFIED;
        Pass pass;
        bool operator==(const Setup& other) const;
    };

    FrameHandle Flatten(const AVFrame& frame);
    FrameHandle Unfold(const AVFrame& frame);
    FrameHandle Reshape(const AVFrame& frame, const FrameTarget& target, const ColourChange& change,
                        AVPixelFormat format);
    FrameHandle Recolour(const AVFrame& frame, const FrameTarget& target, const ColourChange& change,
                         AVPixelFormat format);
    void Configure(const Setup& wanted);
    void PlaceChroma(const Setup& wanted);
    void FillWeighted(AVFrame& result, const AVFrame& frame, const FrameTarget& target, const Pass& pass);
    void Fill(AVFrame& result, const AVFrame& frame, const FrameTarget& target, const Pass& pass);
    void Scale(const AVFrame& from, AVFrame& to, const Pass& pass);
    void ScaleFields(const AVFrame& from, AVFrame& to, const Pass& pass);

    Setup setup;
    SwsContextHandle context;
    PlanarScaler planar;
    FramePool pool;
    FramePool flattened;
    FramePool unfolded; ///< from a palette
    ColourConverter colours;
    /// For formats that the colours cannot be made in.
    std::unique_ptr<FrameConverter> finish;
};

} // namespace Kestra::FF
