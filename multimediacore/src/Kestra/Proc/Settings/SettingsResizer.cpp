// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Settings/SettingsResizer.h"
#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <optional>
#include <utility>

namespace Kestra::Proc {

namespace {

using Conf::FrameInfo;

constexpr std::uint32_t SMALLEST_SIDE = 2;
/// The highest even side that the records can hold.
constexpr double HIGHEST_SIDE = 4294967294.0;

std::uint32_t EvenBelow(std::uint32_t side) {
    return std::max(side & ~1U, SMALLEST_SIDE);
}

/// The nearest even side; an odd whole number goes down, as everywhere where sizes are made even.
std::uint32_t NearestEven(double side) {
    const double even = 2.0 * std::ceil(side / 2.0 - 0.5);
    return static_cast<std::uint32_t>(std::clamp(even, double{SMALLEST_SIDE}, HIGHEST_SIDE));
}

/// Shape of one pixel, width by height; 1 when the frame's aspect is not known.
double PixelShape(const FrameInfo& frame) {
    if (frame.aspectNumerator == 0 || frame.aspectDenominator == 0 || frame.width == 0 || frame.height == 0)
        return 1.0;
    return (double(frame.aspectNumerator) * frame.height) / (double(frame.aspectDenominator) * frame.width);
}

/// The same as a fraction of at most 24 bits, room to be multiplied by a side.
std::pair<std::uint64_t, std::uint64_t> PixelFraction(const FrameInfo& frame) {
    constexpr std::uint64_t MOST = 1U << 24;
    if (frame.aspectNumerator == 0 || frame.aspectDenominator == 0 || frame.width == 0 || frame.height == 0)
        return {1, 1};
    std::uint64_t across = std::uint64_t{frame.aspectNumerator} * frame.height;
    std::uint64_t down = std::uint64_t{frame.aspectDenominator} * frame.width;
    const std::uint64_t divisor = std::gcd(across, down);
    across /= divisor;
    down /= divisor;
    while (std::max(across, down) > MOST) {
        across = std::max<std::uint64_t>(across / 2, 1);
        down = std::max<std::uint64_t>(down / 2, 1);
    }
    return {across, down};
}

FrameInfo WithAspect(std::uint32_t width, std::uint32_t height, std::uint64_t numerator, std::uint64_t denominator) {
    const std::uint64_t divisor = std::gcd(numerator, denominator);
    numerator /= divisor;
    denominator /= divisor;
    while (std::max(numerator, denominator) > std::numeric_limits<std::uint32_t>::max()) {
        numerator = std::max<std::uint64_t>(numerator / 2, 1);
        denominator = std::max<std::uint64_t>(denominator / 2, 1);
    }
    return {width, height, static_cast<std::uint32_t>(numerator), static_cast<std::uint32_t>(denominator)};
}

FrameInfo SquarePixels(std::uint32_t width, std::uint32_t height) {
    return WithAspect(width, height, width, height);
}

bool HasAspect(const FrameInfo& frame) {
    return frame.aspectNumerator != 0 && frame.aspectDenominator != 0;
}

/// The source after the crop: its size and the shape of its pixels.
struct Picture {
    std::uint32_t width;
    std::uint32_t height;
    double pixelShape;
    std::uint64_t shapeAcross; ///< the same as a fraction
    std::uint64_t shapeDown;
};

std::uint32_t Cropped(std::uint32_t side, std::uint32_t before, std::uint32_t after) {
    const std::uint64_t cut = std::uint64_t{before} + after;
    return cut < side ? static_cast<std::uint32_t>(side - cut) : std::min(side, 1U);
}

/// The picture with square pixels. The side that is too short grows, so that no pixel of the source is lost.
FrameInfo KeepSize(const Picture& picture) {
    if (picture.pixelShape >= 1.0)
        return SquarePixels(NearestEven(picture.width * picture.pixelShape), EvenBelow(picture.height));
    return SquarePixels(EvenBelow(picture.width), NearestEven(picture.height / picture.pixelShape));
}

/// The target whose open sides are the source's.
FrameInfo FillTarget(const FrameInfo& target, const FrameInfo& natural, bool oddSides) {
    const auto fit = [oddSides](std::uint32_t side) {
        return oddSides ? std::max(side, SMALLEST_SIDE) : EvenBelow(side);
    };
    const std::uint32_t width = fit(target.width == 0 ? natural.width : target.width);
    const std::uint32_t height = fit(target.height == 0 ? natural.height : target.height);
    if (HasAspect(target))
        return WithAspect(width, height, target.aspectNumerator, target.aspectDenominator);
    return SquarePixels(width, height);
}

/// Whether the target is the picture in another size: each side scaled, rounded, and made even downwards.
bool IsScaled(const FrameInfo& target, const Picture& picture) {
    if (target.width == 0 || target.height == 0)
        return false;
    constexpr double ROUNDED_UP = 0.5;
    constexpr double LOST = 2;
    const double lowest =
        std::max((target.width - ROUNDED_UP) / picture.width, (target.height - ROUNDED_UP) / picture.height);
    const double highest = std::min((target.width + LOST) / picture.width, (target.height + LOST) / picture.height);
    return lowest < highest;
}

FrameInfo WithPixelsOf(const Picture& picture, std::uint32_t width, std::uint32_t height) {
    return WithAspect(width, height, picture.shapeAcross * width, picture.shapeDown * height);
}

/// The source's size as it is, or as near as sides may be.
FrameInfo AsItIs(const Picture& picture, bool oddSides) {
    const auto fit = [oddSides](std::uint32_t side) {
        return oddSides ? std::max(side, SMALLEST_SIDE) : EvenBelow(side);
    };
    return WithPixelsOf(picture, fit(picture.width), fit(picture.height));
}

/// Without an aspect of its own the target may be what the source is, or is scaled to.
std::optional<FrameInfo> Proportional(const FrameInfo& target, const Picture& picture, bool oddSides) {
    if (HasAspect(target))
        return std::nullopt;
    const bool open = target.width == 0 && target.height == 0;
    if (open || (target.width == EvenBelow(picture.width) && target.height == EvenBelow(picture.height)))
        return AsItIs(picture, oddSides);
    if (!IsScaled(target, picture))
        return std::nullopt;
    return WithPixelsOf(picture, EvenBelow(target.width), EvenBelow(target.height));
}

FrameInfo FitInside(const Picture& picture, const FrameInfo& box, bool squarePixels) {
    const double boxPixelShape = squarePixels ? 1.0 : PixelShape(box);
    // The source's shape, counted in pixels of the target.
    const double shape = picture.width * picture.pixelShape / (picture.height * boxPixelShape);
    std::uint32_t width = box.width;
    std::uint32_t height = box.height;
    if (box.height * shape <= box.width)
        width = std::min(NearestEven(box.height * shape), box.width);
    else
        height = std::min(NearestEven(box.width / shape), box.height);
    if (squarePixels)
        return SquarePixels(width, height);
    // Pixel shape = (box aspect * box height / box width); the frame's aspect is that times its own sides.
    const std::uint64_t across = std::uint64_t{width} * box.height;
    const std::uint64_t down = std::uint64_t{height} * box.width;
    const std::uint64_t divisor = std::gcd(across, down);
    const FrameInfo sides = WithAspect(width, height, across / divisor, down / divisor);
    return WithAspect(width, height, std::uint64_t{sides.aspectNumerator} * box.aspectNumerator,
                      std::uint64_t{sides.aspectDenominator} * box.aspectDenominator);
}

} // namespace

Conf::FrameInfo SettingsResizer::GetOutputFrameSize(const Conf::FrameInfo& source) const {
    const auto [across, down] = PixelFraction(source);
    const Picture picture{Cropped(source.width, cropLeft, cropRight), Cropped(source.height, cropTop, cropBottom),
                          PixelShape(source), across, down};
    if (picture.width == 0 || picture.height == 0)
        return FillTarget(target, {SMALLEST_SIDE, SMALLEST_SIDE, 0, 0}, oddSides);
    if (aspectMode == AspectMode::KeepSize)
        return KeepSize(picture);
    if (aspectMode == AspectMode::Stretch)
        return FillTarget(target, {picture.width, picture.height, 0, 0}, oddSides);
    if (aspectMode != AspectMode::FitInside)
        return FillTarget(target, KeepSize(picture), oddSides);
    if (const auto frame = Proportional(target, picture, oddSides))
        return *frame;
    return FitInside(picture, FillTarget(target, KeepSize(picture), false), !HasAspect(target));
}

} // namespace Kestra::Proc
