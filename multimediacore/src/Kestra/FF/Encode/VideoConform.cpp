// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/VideoConform.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/OlderCalls.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include <algorithm>
#include <thread>
#include <utility>

namespace Kestra::FF {

namespace {

/// Frames from this many pixels on are worth several threads.
constexpr int LARGE_FRAME = 1920 * 1080;
constexpr int MOST_THREADS = 8;

FrameTarget TargetFor(const EncoderInput& input) {
    FrameTarget target;
    target.width = input.width;
    target.height = input.height;
    target.sampleAspect = input.sampleAspect;
    target.format = PlainFormat(input.format);
    target.colour = input.colour;
    target.place = {0, 0, input.width, input.height};
    if (input.width * input.height >= LARGE_FRAME)
        target.threads = std::clamp(static_cast<int>(std::thread::hardware_concurrency()) / 2, 1, MOST_THREADS);
    return target;
}

bool SamePixels(const AVFrame& a, const AVFrame& b) {
    return a.data[0] == b.data[0] && a.data[1] == b.data[1] && a.format == b.format && a.width == b.width &&
           a.height == b.height && a.linesize[0] == b.linesize[0];
}

} // namespace

VideoConform::VideoConform(const boost::intrusive_ptr<Proc::IStreamVideo>& source, const EncoderInput& input,
                           const std::optional<Conf::Draft>& draft)
    : VideoFilterBase(source, "conform")
    , input(input)
    , target(draft ? DraftOf(TargetFor(input), *draft) : TargetFor(input)) {
    boost::intrusive_ptr<Conf::IFormatCodecVideo> format;
    source->GetVideoFormat(format);
    const AVPixelFormat own = ToAv(format->GetPixelFormat());
    streamColour =
        CompleteColour(format->GetColour(), input.width, input.height, own == AV_PIX_FMT_NONE ? input.format : own,
                       format->GetColour().range == AVCOL_RANGE_JPEG);
}

boost::intrusive_ptr<Proc::IDataVideo> VideoConform::ReadVideo() {
    const auto data = source->ReadVideo();
    if (!data)
        return nullptr;
    const AVFrame& frame = FrameOf(*data);
    if (!lastSource || !SamePixels(frame, *lastSource)) {
        lastResult = Conform(frame);
        lastSource = MakeFrameReference(frame);
    }
    return new DataVideoFF(MakeFrameReference(*lastResult), data->GetTime(), data->GetDuration());
}

FrameHandle VideoConform::Conform(const AVFrame& frame) {
    FrameHandle source = MakeFrameReference(frame);
    source->format = PlainFormat(static_cast<AVPixelFormat>(frame.format));
    if (IsFullRangeFormat(static_cast<AVPixelFormat>(frame.format)))
        source->color_range = AVCOL_RANGE_JPEG;
    // A frame that says nothing of its colour is taken for one of the stream that it came in.
    SetColour(*source, Completed(ColourOf(*source), streamColour));
    target.source = {0, 0, frame.width, frame.height};
    FrameHandle result = converter.Convert(*source, target);
    result->format = input.format;
    SetColour(*result, input.colour);
    const bool keepsFields = KeepsFields(frame);
    SetHoldsFields(*result, keepsFields && HoldsFields(frame));
    SetTopFieldFirst(*result, keepsFields && IsTopFieldFirst(frame));
    return result;
}

// Of a draft, frames come in either size.
bool VideoConform::KeepsFields(const AVFrame& frame) const {
    return input.interlaced && (frame.height == input.height || frame.height == target.height);
}

void VideoConform::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const {
    source->GetVideoFormat(format);
    FF::Describe(input, *format);
}

void VideoConform::Reset() {
    VideoFilterBase::Reset();
    lastSource.reset();
    lastResult.reset();
}

void Describe(const EncoderInput& input, Conf::IFormatCodecVideo& format) {
    const Conf::FrameInfo frame = MakeFrameInfo(input.width, input.height, input.sampleAspect);
    format.InitByFrameAspect(frame.width, frame.height, frame.aspectNumerator, frame.aspectDenominator);
    format.SetPixelFormat(FromAv(input.format));
    format.SetColour(input.colour);
    Core::Property tree = format.GetProperty();
    tree.SetChild(Conf::IFormatCodecVideo::TAG_INTERLACED, input.interlaced);
    format.SetProperty(tree);
}

} // namespace Kestra::FF
