// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Data/DataVideoFFFactory.h"

#include "Kestra/Base/Exception.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/FramePool.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include <stdexcept>
#include <utility>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

namespace {

constexpr std::uint32_t LONGEST_SIDE = 32767;

void TagStill(AVFrame& picture) {
    const AVPixFmtDescriptor& descriptor = *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(picture.format));
    if ((descriptor.flags & AV_PIX_FMT_FLAG_RGB) == 0)
        return;
    picture.colorspace = AVCOL_SPC_RGB;
    picture.color_range = AVCOL_RANGE_JPEG;
    picture.color_primaries = AVCOL_PRI_BT709;
    picture.color_trc = AVCOL_TRC_IEC61966_2_1;
}

} // namespace

boost::intrusive_ptr<Proc::IDataVideo>
DataVideoFFFactory::CreateDataVideo(const Conf::FrameInfo& frame, Conf::PixelFormat format, const Writer& write) {
    const AVPixelFormat known = ToAv(format);
    if (known == AV_PIX_FMT_NONE || av_pix_fmt_count_planes(known) != 1)
        KESTRA_THROW(std::invalid_argument("A picture is made from pixels in one plane"));
    if (frame.width == 0 || frame.height == 0 || frame.width > LONGEST_SIDE || frame.height > LONGEST_SIDE)
        KESTRA_THROW(std::invalid_argument("A picture of " + std::to_string(frame.width) + 'x' +
                                           std::to_string(frame.height) + " pixels cannot be made"));
    FrameHandle picture = FramePool().Get(known, static_cast<int>(frame.width), static_cast<int>(frame.height));
    picture->sample_aspect_ratio = SampleAspectOf(frame);
    TagStill(*picture);
    write(picture->data[0], picture->linesize[0]);
    return new DataVideoFF(std::move(picture), 0, 0);
}

std::shared_ptr<Proc::IDataVideoFFFactory> MakeDataVideoFFFactory() {
    return std::make_shared<DataVideoFFFactory>();
}

} // namespace Kestra::FF
