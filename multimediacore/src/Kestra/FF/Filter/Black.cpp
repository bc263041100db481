// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Filter/Black.h"

#include "Kestra/Base/Exception.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/FramePool.h"
#include "Kestra/FF/Filter/RepeatedPicture.h"
#include "Kestra/FF/Picture/FrameGeometry.h"
#include <algorithm>
#include <stdexcept>

namespace Kestra::FF {

namespace {

constexpr std::uint32_t SMALLEST_SIDE = 2;

class Black final : public RepeatedPicture {
public:
    using RepeatedPicture::RepeatedPicture;

    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& result) const override;
    std::string Describe() const override { return "black"; }
    void PreferFormat(const Conf::IFormatCodec& preferred) override;

private:
    FrameHandle Draw() const override;
    AVPixelFormat PixelFormat() const;
};

AVPixelFormat Black::PixelFormat() const {
    const AVPixelFormat known = ToAv(Format().GetPixelFormat());
    return known == AV_PIX_FMT_NONE ? AV_PIX_FMT_YUV420P : known;
}

FrameHandle Black::Draw() const {
    FramePool pool;
    const Conf::FrameInfo frame = Format().GetFrameInfo();
    FrameHandle result = pool.Get(PixelFormat(), static_cast<int>(std::max(frame.width, SMALLEST_SIDE)),
                                  static_cast<int>(std::max(frame.height, SMALLEST_SIDE)));
    SetColour(*result, Format().GetColour());
    result->sample_aspect_ratio = SampleAspectOf(frame);
    FillBlack(*result, {0, 0, result->width, result->height});
    return result;
}

void Black::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& result) const {
    RepeatedPicture::GetVideoFormat(result);
    result->SetPixelFormat(FromAv(PixelFormat()));
}

void Black::PreferFormat(const Conf::IFormatCodec& preferred) {
    const auto* video = dynamic_cast<const Conf::IFormatCodecVideo*>(&preferred);
    if (!video)
        return;
    const bool known = ToAv(video->GetPixelFormat()) != AV_PIX_FMT_NONE;
    ChangeFormat(known ? video->GetPixelFormat() : Format().GetPixelFormat(), video->GetColour());
}

} // namespace

boost::intrusive_ptr<Proc::IStreamVideo> MakeBlack(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format,
                                                   std::int64_t duration) {
    if (!format)
        KESTRA_THROW(std::invalid_argument("Black needs the description of a frame"));
    if (duration < 0)
        KESTRA_THROW(std::invalid_argument("Black cannot last for less than nothing"));
    return new Black(*format, duration);
}

} // namespace Kestra::FF
