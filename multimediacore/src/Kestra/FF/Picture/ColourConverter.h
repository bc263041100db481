// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::ColourConverter: frames of one colour into another, the dynamic range included.
#pragma once

#include "Kestra/Conf/PixelFormat.h"
#include "Kestra/FF/Av/FramePool.h"
#include "Kestra/FF/Picture/BandedFilter.h"
#include <memory>
#include <optional>
#include <string>

namespace Kestra::FF {

/// How bright the white of ordinary frames is within a high dynamic range, in cd/m2 (BT.2408).
constexpr double REFERENCE_WHITE = 203;

/// What frame and result are in; nothing in either is unspecified.
struct ColourChange {
    Conf::ColourInfo before;
    Conf::ColourInfo after;
};

class PlanarColours;

/// One number for BT.470BG and SMPTE 170M, which are two names of one matrix.
int MatrixClass(int matrix) noexcept;

/// Size stays. Computes in floating point, so what lies beyond white and black survives where the result has room for
/// it. Bound to one thread at a time.
///
/// Light is display light: ordinary frames are shown with BT.1886, HLG on a display of 1000 cd/m2. Ordinary white
/// stands at REFERENCE_WHITE in a high range. A high range becomes an ordinary one by libavfilter's mobius curve, which
/// leaves what is darker than three tenths of that white as it is; the peak that becomes white is that of the frame's
/// metadata (PeakOf). PQ brighter than HLG can show is brought into it by the same curve.
class ColourConverter {
public:
    /// Large frames are worked on by as many threads as half of the processors, eight at most.
    ColourConverter();
    /// For tests: so many threads, whatever the frame.
    explicit ColourConverter(int threads);
    ~ColourConverter();

    /// Whether more has to be done than libswscale does well: it knows neither primaries nor transfers, and on the way
    /// from one matrix to another it clips what is whiter than white. BT.601, BT.709, BT.2020 and sRGB name one
    /// transfer here.
    static bool IsNeeded(const ColourChange& change) noexcept;
    /// Whether libavfilter knows a way. Tries it out on a small frame, which takes some milliseconds.
    static bool IsPossible(const ColourChange& change);
    /// The format nearest to `format` that frames of that size can be converted in.
    static AVPixelFormat FormatFor(AVPixelFormat format, int width, int height);
    /// In cd/m2: the content's brightest sample, else the grading display's white, else the most that the transfer can
    /// tell: 10000 for PQ, 1000 for HLG. Never below REFERENCE_WHITE.
    static double PeakOf(const AVFrame& frame, int transfer);

    /// Both formats are such as FormatFor gives. Times and side data stay, but for that which told of a range that is
    /// gone. Interlaced frames are converted field by field.
    FrameHandle Convert(const AVFrame& frame, const ColourChange& change, AVPixelFormat format);

private:
    FrameHandle Run(const AVFrame& frame, const ColourChange& change, AVPixelFormat format);
    FrameHandle ConvertFields(const AVFrame& frame, const ColourChange& change, AVPixelFormat format);

    int ThreadsFor(const AVFrame& frame) const;

    const int threads; ///< 0: by the frame
    const std::unique_ptr<PlanarColours> planar;
    std::string chain; ///< of the filter, with its number of bands
    int bands = 0;
    std::optional<BandedFilter> filter;
    FramePool woven;
};

} // namespace Kestra::FF
