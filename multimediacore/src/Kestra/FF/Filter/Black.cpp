#include "Kestra/FF/Filter/Black.h"

#include "Kestra/Base/Exception.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/FramePool.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include "Kestra/FF/Picture/FrameGeometry.h"
#include "Kestra/Proc/Filters/StreamBase.h"
#include <algorithm>
#include <stdexcept>

namespace Kestra::FF {

namespace {

constexpr std::uint32_t SMALLEST_SIDE = 2;

class Black final : public Proc::StreamBase<Proc::IStreamVideo> {
public:
    Black(const Conf::IFormatCodecVideo& wanted, std::int64_t duration)
        : format(Conf::IFormatCodecVideo::Create())
        , duration(duration) {
        format->SetProperty(wanted.GetProperty());
    }

    boost::intrusive_ptr<Proc::IDataVideo> ReadVideo() override;
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& result) const override;
    std::int64_t GetDuration() const override { return duration; }
    std::int64_t GetPosition() const override { return std::min(duration, TimeOf(index)); }
    void Seek(std::int64_t time, Proc::SeekMode mode) override;
    void Interrupt() override {}
    std::string Describe() const override { return "black"; }
    void PreferFormat(const Conf::IFormatCodec& preferred) override;
    void Reset() override;

private:
    std::int64_t Count() const;
    std::int64_t TimeOf(std::int64_t frame) const;
    AVPixelFormat PixelFormat() const;
    FrameHandle Draw() const;

    const boost::intrusive_ptr<Conf::IFormatCodecVideo> format;
    const std::int64_t duration;
    std::int64_t index = 0;
    FrameHandle black;
};

std::int64_t Black::Count() const {
    if (duration <= 0)
        return 0;
    const auto rate = format->GetFrameRate();
    return rate > 0 ? std::max<std::int64_t>(TimeToFrames(duration, rate), 1) : 1;
}

std::int64_t Black::TimeOf(std::int64_t frame) const {
    const auto rate = format->GetFrameRate();
    return frame >= Count() ? duration : rate > 0 ? FramesToTime(frame, rate) : 0;
}

AVPixelFormat Black::PixelFormat() const {
    const AVPixelFormat known = ToAv(format->GetPixelFormat());
    return known == AV_PIX_FMT_NONE ? AV_PIX_FMT_YUV420P : known;
}

FrameHandle Black::Draw() const {
    FramePool pool;
    const Conf::FrameInfo frame = format->GetFrameInfo();
    FrameHandle result = pool.Get(PixelFormat(), static_cast<int>(std::max(frame.width, SMALLEST_SIDE)),
                                  static_cast<int>(std::max(frame.height, SMALLEST_SIDE)));
    SetColour(*result, format->GetColour());
    result->sample_aspect_ratio = SampleAspectOf(frame);
    FillBlack(*result, {0, 0, result->width, result->height});
    return result;
}

boost::intrusive_ptr<Proc::IDataVideo> Black::ReadVideo() {
    if (index >= Count())
        return {};
    if (!black)
        black = Draw();
    const std::int64_t begin = TimeOf(index);
    return new DataVideoFF(MakeFrameReference(*black), begin, TimeOf(++index) - begin);
}

void Black::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& result) const {
    result = Conf::IFormatCodecVideo::Create();
    result->SetProperty(format->GetProperty());
    result->SetPixelFormat(FromAv(PixelFormat()));
}

void Black::Seek(std::int64_t time, Proc::SeekMode) {
    const std::int64_t count = Count();
    const auto rate = format->GetFrameRate();
    index = rate > 0 ? std::clamp<std::int64_t>(TimeToFrames(time, rate), 0, count) : 0;
    if (index > 0 && TimeOf(index) > time)
        --index;
    if (time >= duration)
        index = count;
}

void Black::PreferFormat(const Conf::IFormatCodec& preferred) {
    const auto* video = dynamic_cast<const Conf::IFormatCodecVideo*>(&preferred);
    if (!video)
        return;
    if (ToAv(video->GetPixelFormat()) != AV_PIX_FMT_NONE)
        format->SetPixelFormat(video->GetPixelFormat());
    format->SetColour(video->GetColour());
    black.reset();
}

void Black::Reset() {
    index = 0;
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
