// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Conf/FrameInfo.h"
#include "Kestra/Conf/IFormatCodec.h"
#include "Kestra/Conf/PixelFormat.h"

namespace Kestra::Conf {

/// Description of pictures or of a video encoder.
class KESTRA_EXPORT IFormatCodecVideo : public IFormatCodec {
public:
    static const char* const TAG_WIDTH;
    static const char* const TAG_HEIGHT;
    static const char* const TAG_ASPECT_NUMERATOR;
    static const char* const TAG_ASPECT_DENOMINATOR;
    static const char* const TAG_FRAME_RATE;   ///< rational
    static const char* const TAG_PIXEL_FORMAT; ///< string, as PixelFormatToString
    /// Bool, in what an encoder prefers: its description names the pixel format, so what that costs was ordered.
    static const char* const TAG_PIXEL_FORMAT_ORDERED;
    static const char* const TAG_COLOUR_PRIMARIES;
    static const char* const TAG_COLOUR_TRANSFER;
    static const char* const TAG_COLOUR_MATRIX;
    static const char* const TAG_COLOUR_RANGE;
    /// bool. Of a stream: its pictures hold two fields. To an encoder: fields stay where the pictures have them. As a
    /// wish, when it is not: progressive pictures are wanted.
    static const char* const TAG_INTERLACED;
    static const char* const TAG_TOP_FIELD_FIRST; ///< bool, of an interlaced stream
    /// "standard" (so when it is missing) or "source": whether an encoder gets PQ and HLG in a standard range or as
    /// such.
    static const char* const TAG_DYNAMIC_RANGE;
    static const char* const DYNAMIC_RANGE_SOURCE;
    static const char* const TAG_GOP_SECONDS; ///< double: longest distance of keyframes
    /// "full" (so when it is missing) or "half": the first of two passes looks at frames of half the width and height
    /// where the encoder can.
    static const char* const TAG_FIRST_PASS;
    static const char* const FIRST_PASS_HALF;
    /// Within the encode options: only the codec's proven way of variable bitrate, with a bounded peak.
    static const char* const TAG_APPROVED_VBR_MODE_ONLY;

    using Rational = boost::rational<long long>;

    static boost::intrusive_ptr<IFormatCodecVideo> Create();
    ~IFormatCodecVideo() override;

    void InitByFrameAspect(std::uint32_t width, std::uint32_t height, std::uint32_t aspectNumerator,
                           std::uint32_t aspectDenominator);
    FrameInfo GetFrameInfo() const;
    /// 0/1 when not set.
    Rational GetFrameRate() const;
    void SetFrameRate(const Rational& rate);
    /// A denominator of 0 or less leaves the rate open.
    void SetFrameRate(std::int64_t numerator, std::int64_t denominator);
    PixelFormat GetPixelFormat() const;
    void SetPixelFormat(PixelFormat format);
    ColourInfo GetColour() const;
    void SetColour(const ColourInfo& colour);
};

} // namespace Kestra::Conf
