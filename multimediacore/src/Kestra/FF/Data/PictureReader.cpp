// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Data/PictureReader.h"

#include "Kestra/Base/Exception.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include "Kestra/FF/Picture/FrameConverter.h"
#include <algorithm>
#include <cmath>
#include <cstring>
#include <stdexcept>

namespace Kestra::FF {
namespace {

constexpr int BYTES_A_PIXEL = 3;
/// H.273: BT.709's primaries, sRGB's transfer, no matrix, the full range.
constexpr Conf::ColourInfo DISPLAY_COLOUR{1, 13, 0, 2};

struct Size {
    int width;
    int height;
};

/// That of square pixels in the same shape, without more of them on either side than the limit allows.
Size SizeWithin(const Conf::FrameInfo& frame, const Size& limit) {
    const double height = frame.height;
    const double width =
        frame.aspectNumerator != 0 && frame.aspectDenominator != 0
            ? height * static_cast<double>(frame.aspectNumerator) / static_cast<double>(frame.aspectDenominator)
            : static_cast<double>(frame.width);
    const double scale = std::min({1.0, limit.width / width, limit.height / height});
    const auto side = [scale](double length, int most) {
        return std::clamp(static_cast<int>(std::lround(length * scale)), 1, most);
    };
    return {side(width, limit.width), side(height, limit.height)};
}

FrameHandle ForDisplay(const AVFrame& frame, const Size& size) {
    FrameTarget target;
    target.width = size.width;
    target.height = size.height;
    target.format = AV_PIX_FMT_RGB24;
    target.colour = DISPLAY_COLOUR;
    target.source = {0, 0, frame.width, frame.height};
    target.place = {0, 0, size.width, size.height};
    return FrameConverter().Convert(frame, target);
}

} // namespace

Proc::RgbPicture ReadPicture(const Proc::IDataVideo& picture, int width, int height) {
    if (width < 1 || height < 1)
        KESTRA_THROW(std::invalid_argument("A picture cannot be read into a frame without pixels"));
    const AVFrame& frame = FrameOf(picture);
    const Size size = SizeWithin(picture.GetFrameInfo(), {width, height});
    const FrameHandle shown = ForDisplay(frame, size);
    Proc::RgbPicture result;
    result.width = size.width;
    result.height = size.height;
    const auto rowBytes = static_cast<std::size_t>(size.width) * BYTES_A_PIXEL;
    result.pixels.resize(rowBytes * static_cast<std::size_t>(size.height));
    for (int row = 0; row < size.height; ++row)
        std::memcpy(result.pixels.data() + static_cast<std::size_t>(row) * rowBytes,
                    shown->data[0] + static_cast<std::ptrdiff_t>(row) * shown->linesize[0], rowBytes);
    return result;
}

} // namespace Kestra::FF
