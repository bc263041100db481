// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/VideoEncoderChoice.h"

#include "Kestra/ClientAPI/CodecLimits.h"
#include "Kestra/Conf/Codec.h"
#include "Kestra/Conf/PixelLoss.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Av/OlderCalls.h"
#include "Kestra/FF/Encode/EncoderCatalogue.h"
#include "Kestra/FF/Encode/VideoDriver.h"
#include "Kestra/FF/Picture/HdrMetadata.h"
#include <algorithm>
#include <climits>
#include <optional>
#include <tuple>

extern "C" {
#include <libavutil/pixdesc.h>
#include <libswscale/swscale.h>
}

namespace Kestra::FF {

using Conf::IFormatCodecVideo;
using Conf::PixelFormat;
using Conf::PixelFormatRecord;
using Conf::PixelLoss;
using Proc::TranscodingError;

namespace {

const PixelFormatRecord& RecordOf(PixelFormat format, const AVCodec& codec) {
    const PixelFormatRecord* const record = PixelFormatRecord::Find(format);
    if (!record || record->kind == Conf::PixelKind::Hardware)
        Fail(TranscodingError::CodecRefused, std::string(codec.name) +
                                                 " cannot be given pictures of the pixel format \"" +
                                                 Conf::PixelFormatToString(format) + "\"");
    return *record;
}

/// What a candidate makes of frames is compared first, then how much room it wastes.
auto Unfitness(const PixelFormatRecord& from, const PixelFormatRecord& to) {
    return std::make_tuple(PixelLoss::Between(from, to), to.alpha && !from.alpha, to.kind != from.kind,
                           to.bits - from.bits, -(to.chromaShiftX + to.chromaShiftY));
}

/// Of those that the encoder takes, the one that loses least.
AVPixelFormat LeastLossy(const AVCodec& codec, PixelFormat source) {
    const PixelFormatRecord& from = RecordOf(source, codec);
    const PixelFormatRecord* best = nullptr;
    for (const AVPixelFormat* known = PixelFormatsOf(codec); *known != AV_PIX_FMT_NONE; ++known) {
        const PixelFormatRecord* const record = PixelFormatRecord::Find(FromAv(*known));
        if (record == &from)
            return *known;
        const bool writable = record && record->kind != Conf::PixelKind::Hardware && sws_isSupportedOutput(*known) != 0;
        if (writable && (!best || Unfitness(from, *record) < Unfitness(from, *best)))
            best = record;
    }
    if (!best || sws_isSupportedInput(ToAv(source)) == 0)
        Fail(TranscodingError::CodecRefused, std::string(codec.name) + " does not take the pixel format \"" +
                                                 from.name + "\", and it cannot be converted");
    return ToAv(best->Format());
}

AVPixelFormat NearestFormat(const AVCodec& codec, PixelFormat source) {
    const VideoDriver& driver = VideoDriver::Of(codec);
    // What says nothing of its format is made for the encoder, and black.
    const bool made = source == PixelFormat::Unknown;
    if ((made || !driver.FollowsStream()) && TakesFormat(codec, driver.UsualFormat()))
        return driver.UsualFormat();
    const PixelFormat plain = made ? PixelFormat::YUV420P : FromAv(PlainFormat(ToAv(source)));
    return PixelFormatsOf(codec) ? LeastLossy(codec, plain == PixelFormat::Unknown ? source : plain)
                                 : ToAv(RecordOf(plain, codec).Format());
}

std::string TagOf(const IFormatCodecVideo& description, const char* tag) {
    return description.GetProperty().ChildExists(tag) ? description.GetProperty()[tag].GetString() : std::string();
}

AVPixelFormat ChooseFormat(const IFormatCodecVideo& description, const IFormatCodecVideo& stream,
                           const AVCodec& codec) {
    const std::string wanted = TagOf(description, IFormatCodecVideo::TAG_PIXEL_FORMAT);
    if (wanted.empty())
        return NearestFormat(codec, stream.GetPixelFormat());
    const AVPixelFormat named = ToAv(description.GetPixelFormat());
    const AVPixelFormat format = named != AV_PIX_FMT_NONE ? named : av_get_pix_fmt(wanted.c_str());
    if (format == AV_PIX_FMT_NONE || !TakesFormat(codec, format))
        Fail(TranscodingError::CodecRefused,
             std::string(codec.name) + " does not take the pixel format \"" + wanted + "\"");
    return format;
}

int FitSide(std::uint32_t side, int chromaShift) {
    const auto limited = static_cast<int>(std::min<std::uint32_t>(side, INT_MAX));
    const int unit = 1 << chromaShift;
    return std::max(limited / unit, 1) * unit;
}

void RequireSize(const IFormatCodecVideo& description, const Conf::FrameInfo& frame) {
    const Conf::CodecID codec = description.GetCodecID();
    const auto smallest = static_cast<std::uint32_t>(ClientAPI::CodecLimits::SmallestSide(codec));
    // A single column or line becomes two wherever sides have to be even.
    if (smallest > 2 && std::min(frame.width, frame.height) < smallest)
        Fail(TranscodingError::CodecRefused,
             std::string("Pictures of ") + std::to_string(frame.width) + "x" + std::to_string(frame.height) +
                 " are too small for " + Conf::CodecIDToString(codec) + ", which takes " + std::to_string(smallest) +
                 "x" + std::to_string(smallest) + " and more");
    if (!ClientAPI::CodecLimits::TakesSize(codec, FitSide(frame.width, 0), FitSide(frame.height, 0)))
        Fail(TranscodingError::CodecRefused, std::string(Conf::CodecIDToString(codec)) +
                                                 " does not take a side so short beside one so long: pictures of " +
                                                 std::to_string(frame.width) + "x" + std::to_string(frame.height));
}

std::optional<bool> Flag(const IFormatCodecVideo& format, const char* tag) {
    const Core::Property& tree = format.GetProperty();
    return tree.ChildExists(tag) ? std::optional(tree[tag].GetBool()) : std::nullopt;
}

/// Where each frame has a flag of its own, one that says nothing now may have fields later.
bool KeepsFields(const IFormatCodecVideo& description, const IFormatCodecVideo& stream, const VideoDriver& driver) {
    const char* const tag = IFormatCodecVideo::TAG_INTERLACED;
    return Flag(description, tag).value_or(false) && ClientAPI::CodecLimits::CodesFields(description.GetCodecID()) &&
           (driver.FlagsFields() || Flag(stream, tag).value_or(true));
}

int DepthOf(AVPixelFormat format) {
    const AVPixFmtDescriptor* descriptor = av_pix_fmt_desc_get(format);
    return descriptor ? descriptor->comp[0].depth : 0;
}

/// The stream's colour, but none where it is of a high range that the encoder is not to have, or has too few bits for:
/// then it is that of ordinary frames of the size.
Conf::ColourInfo ChooseColour(const IFormatCodecVideo& description, const IFormatCodecVideo& stream,
                              AVPixelFormat format) {
    Conf::ColourInfo colour = stream.GetColour();
    const AVPixelFormat own = ToAv(stream.GetPixelFormat());
    // What RGB leaves open is its own affair: the matrix that it gets says nothing of its primaries.
    if (IsRgb(own))
        colour.primaries = CompleteColour(colour, 0, 0, own, true).primaries;
    const bool keeps =
        TagOf(description, IFormatCodecVideo::TAG_DYNAMIC_RANGE) == IFormatCodecVideo::DYNAMIC_RANGE_SOURCE;
    const bool room =
        CarriesHdr(colour.transfer, format) || (own != AV_PIX_FMT_NONE && DepthOf(format) >= DepthOf(own));
    return !IsHighRange(colour.transfer) || (keeps && room) ? colour : Conf::ColourInfo{};
}

} // namespace

EncoderInput ChooseInput(const IFormatCodecVideo& description, const IFormatCodecVideo& stream, const AVCodec& codec) {
    EncoderInput input;
    input.format = ChooseFormat(description, stream, codec);
    const AVPixFmtDescriptor& descriptor = *av_pix_fmt_desc_get(input.format);
    const Conf::FrameInfo own = stream.GetFrameInfo();
    const Conf::FrameInfo frame = own.width > 0 && own.height > 0 ? own : description.GetFrameInfo();
    if (frame.width == 0 || frame.height == 0)
        Fail(TranscodingError::CodecRefused, "Neither the stream nor the encoder's description has a frame size");
    RequireSize(description, frame);
    const VideoDriver& driver = VideoDriver::Of(codec);
    const Conf::VideoCodec* const limits = Conf::Codec::FindVideo(driver.GetCodec());
    const bool odd = limits && limits->oddSides == Conf::VideoCodec::OddSides::Taken;
    input.width = FitSide(frame.width, odd ? 0 : descriptor.log2_chroma_w);
    input.height = FitSide(frame.height, odd ? 0 : descriptor.log2_chroma_h);
    input.sampleAspect = SampleAspectOf(frame);
    input.interlaced = KeepsFields(description, stream, driver);
    input.topFieldFirst = Flag(stream, IFormatCodecVideo::TAG_TOP_FIELD_FIRST).value_or(true);
    Conf::ColourInfo colour = ChooseColour(description, stream, input.format);
    const Conf::ColourInfo wanted = description.GetColour();
    if (wanted.matrix != AVCOL_SPC_UNSPECIFIED)
        colour.matrix = wanted.matrix;
    colour = driver.Tellable(colour);
    // Lossless frames keep their samples, and so their range; players of the others expect the limited one.
    const bool kept = driver.KeepsSamples() && wanted.range == AVCOL_RANGE_UNSPECIFIED;
    const bool full = IsFullRangeFormat(input.format) || (kept ? colour.range : wanted.range) == AVCOL_RANGE_JPEG;
    input.colour = CompleteColour(colour, input.width, input.height, input.format, full);
    return input;
}

boost::rational<long long> ChooseFrameRate(const IFormatCodecVideo& description, const IFormatCodecVideo& stream) {
    const auto rate = description.GetFrameRate() > 0 ? description.GetFrameRate() : stream.GetFrameRate();
    if (rate <= 0)
        Fail(TranscodingError::CodecRefused, "Neither the stream nor the encoder's description has a frame rate");
    if (rate.numerator() > INT_MAX || rate.denominator() > INT_MAX)
        Fail(TranscodingError::CodecRefused, "A frame rate of " + std::to_string(rate.numerator()) + "/" +
                                                 std::to_string(rate.denominator()) + " is out of range");
    return rate;
}

} // namespace Kestra::FF
