// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Picture/Orientation.h"

#include "Kestra/FF/Av/OlderCalls.h"
#include <array>
#include <cmath>
#include <cstring>

extern "C" {
#include <libavutil/display.h>
}

namespace Kestra::FF {

namespace {

// In degrees: nobody sees it.
constexpr double ROUNDED_ANGLE = 0.1;

} // namespace

Orientation ReadDisplayMatrix(const std::int32_t* matrix) {
    std::array<std::int32_t, 9> copy{};
    std::memcpy(copy.data(), matrix, sizeof copy);
    Orientation result;
    const double determinant = static_cast<double>(copy[0]) * copy[4] - static_cast<double>(copy[1]) * copy[3];
    result.flipped = determinant < 0;
    if (result.flipped)
        av_display_matrix_flip(copy.data(), 0, 1);
    const double angle = av_display_rotation_get(copy.data());
    if (std::isnan(angle))
        return result;
    const long quarters = std::lround(-angle / 90);
    result.rotation = ((static_cast<int>(quarters) % 4 + 4) % 4) * 90;
    const double askew = -angle - 90.0 * static_cast<double>(quarters);
    result.askew = std::abs(askew) > ROUNDED_ANGLE ? askew : 0;
    return result;
}

Orientation FindOrientation(const AVStream& stream, const AVFrame* frame) {
    constexpr std::size_t MATRIX_SIZE = 9 * sizeof(std::int32_t);
    std::size_t size = 0;
    const std::uint8_t* matrix = SideDataOf(stream, AV_PKT_DATA_DISPLAYMATRIX, size);
    if (matrix && size >= MATRIX_SIZE)
        return ReadDisplayMatrix(reinterpret_cast<const std::int32_t*>(matrix));
    const AVFrameSideData* data = frame ? av_frame_get_side_data(frame, AV_FRAME_DATA_DISPLAYMATRIX) : nullptr;
    if (data && data->size >= MATRIX_SIZE)
        return ReadDisplayMatrix(reinterpret_cast<const std::int32_t*>(data->data));
    return {};
}

} // namespace Kestra::FF
