// SPDX-License-Identifier: GPL-3.0-or-later
#include "unit/source/WovenMedia.h"

#include "Kestra/FF/Data/DataVideoFF.h"
#include <cmath>

extern "C" {
#include <libavutil/imgutils.h>
#include <libavutil/pixdesc.h>
}

namespace TestMedia {

using namespace Kestra;

namespace {

constexpr int STEP = 8;
constexpr int WIDTH = 32;

int lumaAt(const AVFrame& frame, int x, int y) {
    const AVPixFmtDescriptor& descriptor = *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
    const AVComponentDescriptor& luma = descriptor.comp[0];
    const std::uint8_t* at = frame.data[0] + y * frame.linesize[0] + x * luma.step + luma.offset;
    return luma.depth > 8 ? *reinterpret_cast<const std::uint16_t*>(at) >> (luma.depth - 8) : *at;
}

// Where the bar begins in the row, as the number of its field.
int rowNumber(const AVFrame& frame, int y) {
    for (int x = 0; x < frame.width; ++x)
        if (lumaAt(frame, x, y) > 128)
            return static_cast<int>(std::lround(static_cast<double>(x) / STEP));
    return -1;
}

// Without the rows at the edges, which have fewer neighbours.
int fieldNumber(const AVFrame& frame, bool bottom) {
    const int number = rowNumber(frame, 8 + (bottom ? 1 : 0));
    for (int y = 8 + (bottom ? 1 : 0); y < frame.height - 8; y += 2)
        if (rowNumber(frame, y) != number)
            return -1;
    return number;
}

} // namespace

std::string barPictures(const std::string& rate, int fields, int width, int height) {
    // One row, enlarged: computing all of them pixel by pixel is slow.
    return "color=black:s=" + std::to_string(width) + "x1:r=" + rate + ",trim=end_frame=" + std::to_string(fields) +
           ",format=yuv444p,geq=lum='if(between(X-N*" + std::to_string(STEP) + ",0," + std::to_string(WIDTH - 1) +
           "),210,50)':cb=128:cr=128,scale=" + std::to_string(width) + ":" + std::to_string(height) +
           ":flags=neighbor,format=yuv420p,setsar=1";
}

std::string weave(bool topFieldFirst) {
    return std::string(",tinterlace=") + (topFieldFirst ? "interleave_top" : "interleave_bottom");
}

ShownFields fieldsIn(const Proc::IDataVideo& picture) {
    const AVFrame& frame = FF::FrameOf(picture);
    return {fieldNumber(frame, false), fieldNumber(frame, true), frame.interlaced_frame != 0,
            frame.top_field_first != 0};
}

std::vector<unsigned char> samplesOf(const Proc::IDataVideo& picture) {
    const AVFrame& frame = FF::FrameOf(picture);
    const auto format = static_cast<AVPixelFormat>(frame.format);
    std::vector<unsigned char> samples(
        static_cast<std::size_t>(av_image_get_buffer_size(format, frame.width, frame.height, 1)));
    av_image_copy_to_buffer(samples.data(), static_cast<int>(samples.size()), frame.data, frame.linesize, format,
                            frame.width, frame.height, 1);
    return samples;
}

} // namespace TestMedia
