// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/streams/SyntheticVideo.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/Proc/Interrupted.h"
#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <utility>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Fakes {

using namespace Kestra;

namespace {

void FillGrey(AVFrame& frame, int index) {
    const AVPixFmtDescriptor& descriptor = *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
    for (int plane = 0; plane < 4 && frame.data[plane]; ++plane) {
        const bool chroma = plane == 1 || plane == 2;
        const int rows = chroma ? AV_CEIL_RSHIFT(frame.height, descriptor.log2_chroma_h) : frame.height;
        const int value = plane == 0 ? 40 + index % 160 : plane == 3 ? 255 : 128;
        std::memset(frame.data[plane], value,
                    static_cast<std::size_t>(rows) * static_cast<std::size_t>(frame.linesize[plane]));
    }
}

} // namespace

SyntheticVideo::SyntheticVideo(VideoShape shape)
    : shape(std::move(shape)) {}

std::int64_t SyntheticVideo::TimeOf(int index) const {
    return shape.timeOf ? shape.timeOf(index) : FramesToTime(index, shape.rate);
}

boost::intrusive_ptr<Proc::IDataVideo> SyntheticVideo::ReadVideo() {
    if (interrupted)
        throw Proc::Interrupted();
    if (next >= shape.frames)
        return nullptr;
    FF::FrameHandle frame = FF::MakeFrame();
    frame->format = shape.format;
    frame->width = shape.width;
    frame->height = shape.height;
    if (av_frame_get_buffer(frame.get(), 0) < 0)
        throw std::bad_alloc();
    if (shape.tagFrames) {
        frame->color_primaries = static_cast<AVColorPrimaries>(shape.colour.primaries);
        frame->color_trc = static_cast<AVColorTransferCharacteristic>(shape.colour.transfer);
        frame->colorspace = static_cast<AVColorSpace>(shape.colour.matrix);
        frame->color_range = static_cast<AVColorRange>(shape.colour.range);
    }
    if (shape.paint)
        shape.paint(*frame, next);
    else
        FillGrey(*frame, next);
    const std::int64_t time = TimeOf(next);
    ++next;
    return new FF::DataVideoFF(std::move(frame), time, TimeOf(next) - time);
}

void SyntheticVideo::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const {
    format = Conf::IFormatCodecVideo::Create();
    format->InitByFrameAspect(static_cast<std::uint32_t>(shape.width), static_cast<std::uint32_t>(shape.height),
                              static_cast<std::uint32_t>(shape.aspect.num),
                              static_cast<std::uint32_t>(shape.aspect.den));
    format->SetFrameRate(shape.rate);
    const char* const name = av_get_pix_fmt_name(shape.format);
    format->SetPixelFormat(Conf::PixelFormatFromString(name ? name : ""));
    format->SetColour(shape.colour);
}

void SyntheticVideo::GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const {
    GetFormatCodecBase(format);
}

void SyntheticVideo::Seek(std::int64_t time, Proc::SeekMode) {
    next = 0;
    while (next < shape.frames && TimeOf(next + 1) <= time)
        ++next;
}

void SyntheticVideo::Reset() {
    next = 0;
    interrupted = false;
}

boost::intrusive_ptr<SyntheticVideo> MakeVideo(VideoShape shape) {
    return new SyntheticVideo(std::move(shape));
}

} // namespace Fakes
