#include "Kestra/FF/VideoConform.h"

#include "Kestra/FF/Convert.h"
#include "Kestra/FF/DataVideoFF.h"
#include <utility>

namespace Kestra::FF {

namespace {

bool SamePixels(const AVFrame& a, const AVFrame& b) {
    return a.data[0] == b.data[0] && a.data[1] == b.data[1] && a.format == b.format && a.width == b.width &&
           a.height == b.height && a.linesize[0] == b.linesize[0];
}

} // namespace

VideoConform::VideoConform(const boost::intrusive_ptr<Proc::IStreamVideo>& source, const EncodePicture& picture)
    : VideoFilterBase(source, "conform")
    , picture(picture)
    , conformer(picture) {}

boost::intrusive_ptr<Proc::IDataVideo> VideoConform::ReadVideo() {
    const auto data = source->ReadVideo();
    if (!data)
        return nullptr;
    const AVFrame& frame = FrameOf(*data);
    if (!lastSource || !SamePixels(frame, *lastSource)) {
        lastResult = conformer.Convert(frame);
        lastSource = MakeFrameReference(frame);
    }
    return new DataVideoFF(MakeFrameReference(*lastResult), data->GetTime(), data->GetDuration());
}

void VideoConform::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const {
    source->GetVideoFormat(format);
    FF::Describe(picture, *format);
}

void VideoConform::Reset() {
    VideoFilterBase::Reset();
    lastSource.reset();
    lastResult.reset();
}

void Describe(const EncodePicture& picture, Conf::IFormatCodecVideo& format) {
    const Conf::FrameInfo frame = MakeFrameInfo(picture.width, picture.height, picture.sampleAspect);
    format.InitByFrameAspect(frame.width, frame.height, frame.aspectNumerator, frame.aspectDenominator);
    format.SetPixelFormat(FromAv(picture.format));
    format.SetColour(picture.colour);
}

} // namespace Kestra::FF
