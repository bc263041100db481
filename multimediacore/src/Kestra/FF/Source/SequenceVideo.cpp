// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Source/SequenceVideo.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include "Kestra/FF/Source/InterruptibleRead.h"
#include "Kestra/FF/Source/VideoDecodeStream.h"
#include <algorithm>
#include <boost/exception/get_error_info.hpp>
#include <utility>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

using Missing = Proc::SettingsImageSequence::Missing;
using Proc::TranscodingError;

namespace {

std::string MouldOf(std::uint32_t width, std::uint32_t height, const std::string& format) {
    return std::to_string(width) + "x" + std::to_string(height) + " " + format;
}

} // namespace

std::string SequenceVideo::FormatFor(const std::string& first) {
    const AVPixelFormat own = av_get_pix_fmt(first.c_str());
    const AVPixFmtDescriptor* const descriptor = av_pix_fmt_desc_get(own);
    if (own == AV_PIX_FMT_PAL8)
        return av_get_pix_fmt_name(AV_PIX_FMT_RGBA);
    if (descriptor && descriptor->nb_components == 1 && descriptor->comp[0].depth == 1)
        return av_get_pix_fmt_name(AV_PIX_FMT_GRAY8);
    return first;
}

SequenceVideo::SequenceVideo(boost::intrusive_ptr<SequenceSource> given)
    : source(std::move(given))
    , told(source->GetFirst().CreateVideoStream())
    , format(av_get_pix_fmt(source->GetInfo().video->pixelFormat.c_str()))
    , grid(source->GetSettings().rate)
    , count(source->GetCount())
    , reader(interrupted, source->GetFirst().GetDetails().limits) {}

void SequenceVideo::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& result) const {
    told->GetVideoFormat(result);
    result->SetFrameRate(grid.GetRate());
    result->SetPixelFormat(FromAv(format));
}

void SequenceVideo::PreferFormat(const Conf::IFormatCodec& preferred) {
    told->PreferFormat(preferred);
}

void SequenceVideo::Seek(std::int64_t time, Proc::SeekMode) {
    index = std::clamp(grid.Covering(Ticks(std::max<std::int64_t>(time, 0))), FrameIndex(0), count);
}

void SequenceVideo::Reset() {
    interrupted = false;
    index = FrameIndex(0);
}

boost::intrusive_ptr<Proc::IDataVideo> SequenceVideo::ReadVideo() {
    if (index >= count)
        return {};
    const MediaSource::Reading reading(source->GetFirst());
    return InterruptibleRead(interrupted, [this] { return ReadOn(); });
}

boost::intrusive_ptr<Proc::IDataVideo> SequenceVideo::ReadOn() {
    FrameHandle picture = Picture(index.Value());
    const Ticks begin = grid.Begin(index);
    ++index;
    return new DataVideoFF(std::move(picture), begin.Value(), (grid.Begin(index) - begin).Value());
}

FrameHandle SequenceVideo::Picture(std::int64_t number) {
    if (source->GetSettings().missing == Missing::Refused)
        return Read(number);
    FrameHandle picture = TryRead(number);
    return picture ? std::move(picture) : Substitute(number);
}

FrameHandle SequenceVideo::Read(std::int64_t number) {
    if (!held || heldNumber != number) {
        const auto onFlaw = [&](const std::string& what) {
            Report(number, what + ": \"" + source->GetFiles().NameOf(number) + "\"");
        };
        held = Conform(reader.Read(source->GetFiles().PathOf(number), onFlaw), number);
        heldNumber = number;
    }
    return MakeFrameReference(*held);
}

FrameHandle SequenceVideo::Conform(const FrameHandle& frame, std::int64_t number) {
    const Proc::VideoTrackInfo& first = *source->GetFirst().GetInfo().video;
    const std::string wanted = MouldOf(first.frame.width, first.frame.height, first.pixelFormat);
    const char* const own = av_get_pix_fmt_name(static_cast<AVPixelFormat>(frame->format));
    const std::string mould =
        MouldOf(static_cast<std::uint32_t>(frame->width), static_cast<std::uint32_t>(frame->height), own ? own : "");
    if (mould != wanted)
        source->NoteConformed(number, mould, wanted);
    FrameTarget target;
    target.width = static_cast<int>(first.frame.width);
    target.height = static_cast<int>(first.frame.height);
    target.sampleAspect = SampleAspectOf(first.frame);
    target.format = format;
    target.colour = first.colour;
    target.source = {0, 0, frame->width, frame->height};
    target.place = {0, 0, target.width, target.height};
    return converter.Convert(*frame, target);
}

FrameHandle SequenceVideo::TryRead(std::int64_t number) {
    try {
        return Read(number);
    } catch (const Proc::ProcException& error) {
        RefuseInterrupted(interrupted);
        const int* const code = boost::get_error_info<TagErrorCode>(error);
        const int cause = code ? *code : static_cast<int>(TranscodingError::Unknown);
        if (cause == static_cast<int>(TranscodingError::SourceNotFound))
            source->NoteMissing(number);
        else if (cause == static_cast<int>(TranscodingError::SourceUnreadable))
            Report(number, error.what());
        else
            throw;
        return {};
    }
}

void SequenceVideo::Report(std::int64_t number, const std::string& what) {
    source->GetFirst().Report(grid.Begin(FrameIndex(number)).Value(), what);
}

FrameHandle SequenceVideo::Substitute(std::int64_t number) {
    if (source->GetSettings().missing == Missing::Black)
        return Black();
    const SequenceFiles& files = source->GetFiles();
    // What was there when the folder was listed may be gone, or not be readable either.
    for (auto other = files.PresentBefore(number); other; other = files.PresentBefore(*other))
        if (FrameHandle picture = TryRead(*other))
            return picture;
    for (auto other = files.PresentBehind(number); other; other = files.PresentBehind(*other))
        if (FrameHandle picture = TryRead(*other))
            return picture;
    Fail(TranscodingError::SourceNotFound,
         "No picture is left that could stand for \"" + files.PathOf(number).ToUtf8() + "\", which is missing");
}

FrameHandle SequenceVideo::Black() {
    if (!black) {
        const Proc::VideoTrackInfo& first = *source->GetInfo().video;
        black = FramePool().Get(format, static_cast<int>(first.frame.width), static_cast<int>(first.frame.height));
        SetColour(*black, first.colour);
        black->sample_aspect_ratio = SampleAspectOf(first.frame);
        FillClear(*black);
    }
    return MakeFrameReference(*black);
}

} // namespace Kestra::FF
