// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Base/Time.h"
#include "Kestra/Conf/ProgrammeInfo.h"
#include "Kestra/Proc/Filters/VideoFilterBase.h"
#include "Kestra/Proc/Segmenter.h"
#include <algorithm>
#include <stdexcept>

namespace Kestra::Proc {
namespace {

class VideoSegmenter final : public VideoFilterBase {
public:
    VideoSegmenter(const boost::intrusive_ptr<IStreamVideo>& source, std::int64_t start, std::int64_t end)
        : VideoFilterBase(source, "segment")
        , start(start)
        , end(end) {}

    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override { return position; }
    boost::intrusive_ptr<IDataVideo> ReadVideo() override;
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override;
    void Seek(std::int64_t time, SeekMode mode) override;
    std::string Describe() const override;
    void Reset() override;

private:
    void GoToStart();
    boost::intrusive_ptr<IDataVideo> ReadFromStart();
    void CutToWindow(IDataVideo& frame) const;

    const std::int64_t start;
    const std::int64_t end;
    std::int64_t position = 0;
    /// Whether the source stands where the next read begins.
    bool positioned = false;
};

std::int64_t VideoSegmenter::GetDuration() const {
    const std::int64_t whole = source->GetDuration();
    return whole == TIME_UNKNOWN ? TIME_UNKNOWN : std::max<std::int64_t>(std::min(end, whole) - start, 0);
}

void VideoSegmenter::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const {
    source->GetVideoFormat(format);
    if (const auto programme = Conf::ProgrammeInfo::Of(*format); !programme.IsEmpty())
        programme.Part(start, end).TellIn(*format);
}

boost::intrusive_ptr<IDataVideo> VideoSegmenter::ReadVideo() {
    if (position >= end - start) {
        return nullptr;
    }
    auto frame = ReadFromStart();
    if (frame == nullptr) {
        return nullptr;
    }
    if (frame->GetTime() >= end) {
        position = end - start;
        return nullptr;
    }
    CutToWindow(*frame);
    position = frame->GetTime() + frame->GetDuration();
    return frame;
}

// Frames that are over before the window begins are passed by: a source that cannot seek, or one that landed on an
// earlier keyframe, still has them before it.
boost::intrusive_ptr<IDataVideo> VideoSegmenter::ReadFromStart() {
    GoToStart();
    for (;;) {
        auto frame = source->ReadVideo();
        if (frame == nullptr || frame->GetTime() >= start || frame->GetTime() + frame->GetDuration() > start) {
            return frame;
        }
    }
}

void VideoSegmenter::GoToStart() {
    // A source that stands there already is left alone: a seek may cost it what it has decoded ahead.
    if (!positioned && source->IsSeekable() && source->GetPosition() != start) {
        source->Seek(start, SeekMode::Exact);
    }
    positioned = true;
}

void VideoSegmenter::CutToWindow(IDataVideo& frame) const {
    const std::int64_t from = std::max(frame.GetTime(), start);
    const std::int64_t to = std::min(frame.GetTime() + frame.GetDuration(), end);
    frame.SetTime(from - start);
    frame.SetDuration(std::max<std::int64_t>(to - from, 0));
}

void VideoSegmenter::Seek(std::int64_t time, SeekMode mode) {
    const std::int64_t length = GetDuration() == TIME_UNKNOWN ? end - start : GetDuration();
    position = std::max<std::int64_t>(std::min(time, length), 0);
    source->Seek(start + position, mode);
    positioned = true;
}

std::string VideoSegmenter::Describe() const {
    const auto milliseconds = [](std::int64_t time) {
        return std::to_string(MulDivRound(time, 1, TICKS_PER_MILLISECOND));
    };
    return "segment " + milliseconds(start) + " to " + milliseconds(end) + " ms of " + source->Describe();
}

void VideoSegmenter::Reset() {
    source->Reset();
    position = 0;
    positioned = false;
}

} // namespace

boost::intrusive_ptr<IStreamVideo> CreateVideoSegmenter(const boost::intrusive_ptr<IStreamVideo>& stream,
                                                        std::int64_t start, std::int64_t end) {
    if (stream == nullptr) {
        KESTRA_THROW(std::invalid_argument("A segment needs a stream; it was given none."));
    }
    if (start < 0 || end <= start) {
        KESTRA_THROW(std::invalid_argument("A segment from " + std::to_string(start) + " to " + std::to_string(end) +
                                           " (engine time) of a stream is empty or begins before it."));
    }
    return boost::intrusive_ptr<IStreamVideo>(new VideoSegmenter(stream, start, end));
}

} // namespace Kestra::Proc
