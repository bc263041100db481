// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Source/GeneratedPicture.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/FilterGraph.h"
#include "Kestra/FF/Av/FramePool.h"
#include "Kestra/FF/Picture/EncoderInput.h"
#include <algorithm>
#include <array>
#include <cmath>

namespace Kestra::FF {

namespace {

boost::intrusive_ptr<Conf::IFormatCodecVideo> FormatOf(const Proc::SettingsGenerator& settings) {
    auto format = Conf::IFormatCodecVideo::Create();
    format->InitByFrameAspect(settings.frame.width, settings.frame.height, settings.frame.aspectNumerator,
                              settings.frame.aspectDenominator);
    format->SetFrameRate(settings.frameRate);
    format->SetPixelFormat(FromAv(GeneratedPicture::PIXEL_FORMAT));
    format->SetColour(GeneratedPicture::ColourFor(settings.frame));
    return format;
}

/// Y', Cb and Cr of eight bits, limited (BT.601 and BT.709, the same with their own weights).
std::array<std::uint8_t, 3> ToLimited(double red, double green, double blue, bool highDefinition) {
    const double ofRed = highDefinition ? 0.2126 : 0.299;
    const double ofBlue = highDefinition ? 0.0722 : 0.114;
    const double luma = ofRed * red + (1 - ofRed - ofBlue) * green + ofBlue * blue;
    const auto chroma = [luma](double component, double weight) {
        return static_cast<std::uint8_t>(std::lround(128 + 224 * (component - luma) / (2 - 2 * weight)));
    };
    return {static_cast<std::uint8_t>(std::lround(16 + 219 * luma)), chroma(blue, ofBlue), chroma(red, ofRed)};
}

} // namespace

GeneratedPicture::GeneratedPicture(const Proc::SettingsGenerator& settings)
    : RepeatedPicture(*FormatOf(settings), settings.duration)
    , settings(settings) {}

std::string GeneratedPicture::Describe() const {
    return settings.kind == Proc::SettingsGenerator::Kind::Bars ? "colour bars" : "a plain colour";
}

Conf::ColourInfo GeneratedPicture::ColourFor(const Conf::FrameInfo& frame) {
    return CompleteColour({}, static_cast<int>(frame.width), static_cast<int>(frame.height), PIXEL_FORMAT, false);
}

FrameHandle GeneratedPicture::Draw() const {
    const Conf::FrameInfo frame = Format().GetFrameInfo();
    const Conf::ColourInfo colour = Format().GetColour();
    const bool highDefinition = colour.matrix == AVCOL_SPC_BT709;
    FrameHandle picture = settings.kind == Proc::SettingsGenerator::Kind::Bars ? DrawBars(frame, highDefinition)
                                                                               : DrawColour(frame, colour);
    SetColour(*picture, colour);
    picture->sample_aspect_ratio = SampleAspectOf(frame);
    return picture;
}

FrameHandle GeneratedPicture::DrawBars(const Conf::FrameInfo& frame, bool highDefinition) const {
    // The graph is one with an input; a source's has none that it needs.
    FilterGraph graph(std::string("nullsink;") + (highDefinition ? "smptehdbars" : "smptebars") + "=size=" +
                          std::to_string(frame.width) + "x" + std::to_string(frame.height) + ",format=pix_fmts=yuv420p",
                      "Making colour bars failed");
    return graph.Filter(*FramePool().Get(PIXEL_FORMAT, 16, 16));
}

FrameHandle GeneratedPicture::DrawColour(const Conf::FrameInfo& frame, const Conf::ColourInfo& colour) const {
    FrameHandle picture = FramePool().Get(PIXEL_FORMAT, static_cast<int>(frame.width), static_cast<int>(frame.height));
    const auto values = ToLimited(std::clamp(settings.red, 0.0, 1.0), std::clamp(settings.green, 0.0, 1.0),
                                  std::clamp(settings.blue, 0.0, 1.0), colour.matrix == AVCOL_SPC_BT709);
    for (std::size_t plane = 0; plane < values.size(); ++plane) {
        const int rows = plane == 0 ? picture->height : (picture->height + 1) / 2;
        std::fill_n(picture->data[plane], static_cast<std::ptrdiff_t>(rows) * picture->linesize[plane], values[plane]);
    }
    return picture;
}

} // namespace Kestra::FF
