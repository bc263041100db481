// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/IFormatCodecVideo.h"
#include "Kestra/Base/Exception.h"
#include "Kestra/Conf/EngineSetting.h"
#include "Kestra/Conf/FormatCodecTree.h"
#include <limits>
#include <utility>

namespace Kestra::Conf {

const char* const IFormatCodecVideo::TAG_WIDTH = "width";
const char* const IFormatCodecVideo::TAG_HEIGHT = "height";
const char* const IFormatCodecVideo::TAG_ASPECT_NUMERATOR = "aspectNumerator";
const char* const IFormatCodecVideo::TAG_ASPECT_DENOMINATOR = "aspectDenominator";
const char* const IFormatCodecVideo::TAG_FRAME_RATE = "frameRate";
const char* const IFormatCodecVideo::TAG_PIXEL_FORMAT = TagOf(VideoSetting::PixelFormat);
const char* const IFormatCodecVideo::TAG_PIXEL_FORMAT_ORDERED = "pixelFormatOrdered";
const char* const IFormatCodecVideo::TAG_COLOUR_PRIMARIES = "colourPrimaries";
const char* const IFormatCodecVideo::TAG_COLOUR_TRANSFER = "colourTransfer";
const char* const IFormatCodecVideo::TAG_COLOUR_MATRIX = "colourMatrix";
const char* const IFormatCodecVideo::TAG_COLOUR_RANGE = "colourRange";
const char* const IFormatCodecVideo::TAG_INTERLACED = TagOf(VideoSetting::Fields);
const char* const IFormatCodecVideo::TAG_DYNAMIC_RANGE = TagOf(VideoSetting::DynamicRange);
const char* const IFormatCodecVideo::DYNAMIC_RANGE_SOURCE = "source";
const char* const IFormatCodecVideo::TAG_TOP_FIELD_FIRST = "topFieldFirst";
const char* const IFormatCodecVideo::TAG_GOP_SECONDS = TagOf(VideoSetting::GopSeconds);
const char* const IFormatCodecVideo::TAG_FIRST_PASS = TagOf(VideoSetting::FirstPass);
const char* const IFormatCodecVideo::FIRST_PASS_HALF = "half";
const char* const IFormatCodecVideo::TAG_APPROVED_VBR_MODE_ONLY = "approvedVbrModeOnly";

namespace {

std::uint32_t ReadUint32(const Core::Property& tree, const char* tag) {
    if (!tree.ChildExists(tag))
        return 0;
    const std::int64_t number = tree[tag].GetInt64();
    if (number < 0 || number > std::numeric_limits<std::uint32_t>::max())
        KESTRA_THROW(Exception("Video description: " + std::string(tag) + " " + std::to_string(number) +
                               " is not a 32-bit size"));
    return static_cast<std::uint32_t>(number);
}

int ReadColour(const Core::Property& tree, const char* tag, int neutral) {
    if (!tree.ChildExists(tag))
        return neutral;
    const std::int64_t number = tree[tag].GetInt64();
    if (number < 0 || number > 255)
        KESTRA_THROW(
            Exception("Video description: " + std::string(tag) + " " + std::to_string(number) + " is no colour code"));
    return static_cast<int>(number);
}

void WriteColour(Core::Property& tree, const char* tag, int code, int neutral) {
    if (code == neutral)
        tree.RemoveChild(tag);
    else
        tree.SetChild(tag, std::int64_t{code});
}

} // namespace

boost::intrusive_ptr<IFormatCodecVideo> IFormatCodecVideo::Create() {
    return new FormatCodecTree<IFormatCodecVideo>;
}

IFormatCodecVideo::~IFormatCodecVideo() = default;

void IFormatCodecVideo::InitByFrameAspect(std::uint32_t width, std::uint32_t height, std::uint32_t aspectNumerator,
                                          std::uint32_t aspectDenominator) {
    Core::Property& tree = EditProperty();
    tree.SetChild(TAG_WIDTH, std::int64_t{width});
    tree.SetChild(TAG_HEIGHT, std::int64_t{height});
    tree.SetChild(TAG_ASPECT_NUMERATOR, std::int64_t{aspectNumerator});
    tree.SetChild(TAG_ASPECT_DENOMINATOR, std::int64_t{aspectDenominator});
}

FrameInfo IFormatCodecVideo::GetFrameInfo() const {
    const Core::Property& tree = GetProperty();
    return {ReadUint32(tree, TAG_WIDTH), ReadUint32(tree, TAG_HEIGHT), ReadUint32(tree, TAG_ASPECT_NUMERATOR),
            ReadUint32(tree, TAG_ASPECT_DENOMINATOR)};
}

IFormatCodecVideo::Rational IFormatCodecVideo::GetFrameRate() const {
    const Core::Property& tree = GetProperty();
    return tree.ChildExists(TAG_FRAME_RATE) ? tree[TAG_FRAME_RATE].GetRational() : Rational(0);
}

void IFormatCodecVideo::SetFrameRate(const Rational& rate) {
    if (rate.numerator() == 0)
        EditProperty().RemoveChild(TAG_FRAME_RATE);
    else
        EditProperty().SetChild(TAG_FRAME_RATE, rate);
}

void IFormatCodecVideo::SetFrameRate(std::int64_t numerator, std::int64_t denominator) {
    SetFrameRate(denominator <= 0 ? Rational(0) : Rational(numerator, denominator));
}

PixelFormat IFormatCodecVideo::GetPixelFormat() const {
    const Core::Property& tree = GetProperty();
    return tree.ChildExists(TAG_PIXEL_FORMAT) ? PixelFormatFromString(tree[TAG_PIXEL_FORMAT].GetString())
                                              : PixelFormat::Unknown;
}

void IFormatCodecVideo::SetPixelFormat(PixelFormat format) {
    if (format == PixelFormat::Unknown)
        EditProperty().RemoveChild(TAG_PIXEL_FORMAT);
    else
        EditProperty().SetChild(TAG_PIXEL_FORMAT, std::string(PixelFormatToString(format)));
}

ColourInfo IFormatCodecVideo::GetColour() const {
    const Core::Property& tree = GetProperty();
    const ColourInfo neutral;
    ColourInfo colour;
    colour.primaries = ReadColour(tree, TAG_COLOUR_PRIMARIES, neutral.primaries);
    colour.transfer = ReadColour(tree, TAG_COLOUR_TRANSFER, neutral.transfer);
    colour.matrix = ReadColour(tree, TAG_COLOUR_MATRIX, neutral.matrix);
    colour.range = ReadColour(tree, TAG_COLOUR_RANGE, neutral.range);
    return colour;
}

void IFormatCodecVideo::SetColour(const ColourInfo& colour) {
    Core::Property& tree = EditProperty();
    const ColourInfo neutral;
    WriteColour(tree, TAG_COLOUR_PRIMARIES, colour.primaries, neutral.primaries);
    WriteColour(tree, TAG_COLOUR_TRANSFER, colour.transfer, neutral.transfer);
    WriteColour(tree, TAG_COLOUR_MATRIX, colour.matrix, neutral.matrix);
    WriteColour(tree, TAG_COLOUR_RANGE, colour.range, neutral.range);
}

} // namespace Kestra::Conf
