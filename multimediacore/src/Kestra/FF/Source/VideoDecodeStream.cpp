// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Source/VideoDecodeStream.h"

#include "Kestra/Conf/Draft.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Av/OlderCalls.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include "Kestra/FF/Picture/ColourNote.h"
#include "Kestra/FF/Picture/DynamicMetadata.h"
#include "Kestra/FF/Picture/EncoderInput.h"
#include "Kestra/FF/Picture/FieldOrder.h"
#include "Kestra/FF/Picture/FrameTags.h"
#include "Kestra/FF/Source/InterruptibleRead.h"
#include <algorithm>
#include <thread>
#include <utility>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

namespace {

// Targets that lie no further ahead are reached faster by decoding on than by seeking.
constexpr std::int64_t SHORTLY_AHEAD = TIME_BASE;
// Near the target every frame is decoded, so that the one that covers it is at hand.
constexpr std::int64_t SKIP_MARGIN = TIME_BASE / 2;
constexpr std::int64_t FIRST_STEP_BACK = TIME_BASE;
constexpr int STEP_BACK_GROWTH = 4;
constexpr std::int64_t BACKWARD_JUMP = TIME_BASE;
// From this many periods for each frame on, a consumer shows each field in one of its own.
constexpr double RATE_OF_FIELDS = 1.5;
// Frames from this many pixels on are deinterlaced by two threads.
constexpr int LARGE_FRAME = 1280 * 720;

// What each would take alone is what as many streams at a time take as would alone; more of them share it.
constexpr int STREAMS_UNSHARED = 4;

int DecoderThreads(int streams) {
    const int alone = std::clamp(static_cast<int>(std::thread::hardware_concurrency()) + 1, 2, 3);
    return std::clamp(STREAMS_UNSHARED * alone / std::max(1, streams), 1, alone);
}

} // namespace

VideoDecodeStream::VideoDecodeStream(boost::intrusive_ptr<MediaSource> source, int among)
    : source(std::move(source))
    , threads(DecoderThreads(among))
    , track(*this->source->GetInfo().video)
    , duration(track.start + track.duration)
    , pendingSeek(SeekTarget{}) {}

VideoDecodeStream::~VideoDecodeStream() {
    const MediaSource::Reading reading(*source); // closing a file may hang as well
    decoder.reset();
    demuxer.reset();
}

std::int64_t VideoDecodeStream::GetPosition() const {
    return pendingSeek ? pendingSeek->time : position;
}

std::string VideoDecodeStream::Describe() const {
    return source->GetPath().ToUtf8();
}

void VideoDecodeStream::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const {
    format = Conf::IFormatCodecVideo::Create();
    format->InitByFrameAspect(track.frame.width, track.frame.height, track.frame.aspectNumerator,
                              track.frame.aspectDenominator);
    if (track.frameRate > 0)
        format->SetFrameRate(track.frameRate);
    const AVPixelFormat decoded = av_get_pix_fmt(track.pixelFormat.c_str());
    format->SetPixelFormat(FromAv(FrameRotator::OutputFormat(decoded, {track.rotation, source->GetDetails().flipped})));
    format->SetColour(track.colour);
    source->GetDetails().hdr.TellIn(*format);
    Core::Property tree = format->GetProperty();
    tree.SetChild(Conf::IFormatCodecVideo::TAG_INTERLACED, track.interlaced && fields == Fields::Kept && IsOriented());
    format->SetProperty(tree);
}

void VideoDecodeStream::PreferFormat(const Conf::IFormatCodec& format) {
    const auto* video = dynamic_cast<const Conf::IFormatCodecVideo*>(&format);
    if (!video)
        return;
    PreferFields(*video);
    PreferDraft(Conf::Draft::Of(*video).has_value());
    const ColourChange change{track.colour, Completed(video->GetColour(), track.colour)};
    if (ColourConverter::IsNeeded(change) && !ColourConverter::IsPossible(change))
        Fail(Proc::TranscodingError::FilterFailed, "The colours of \"" + Describe() + "\" (" +
                                                       ColourCodes(change.before) + ") cannot be converted to " +
                                                       ColourCodes(change.after));
    const std::string note = ColourNote(change, source->GetDetails().peak, source->GetDetails().tellsColour);
    if (!note.empty())
        source->Note(note);
}

void VideoDecodeStream::PreferFields(const Conf::IFormatCodecVideo& format) {
    const Core::Property& tree = format.GetProperty();
    if (decoder || !tree.ChildExists(Conf::IFormatCodecVideo::TAG_INTERLACED))
        return;
    const double own = boost::rational_cast<double>(track.frameRate);
    const bool each = own > 0 && boost::rational_cast<double>(format.GetFrameRate()) >= RATE_OF_FIELDS * own;
    const bool kept = tree[Conf::IFormatCodecVideo::TAG_INTERLACED].GetBool() && IsOriented();
    fields = kept ? Fields::Kept : each ? Fields::FramePerField : Fields::OneFrame;
}

// Only from a keyframe on: a reset goes back to one, and a decoder that is handed on has been reset.
void VideoDecodeStream::PreferDraft(bool preferred) {
    draft = preferred;
    if (decoder)
        decoder->SkipLoopFilter(draft);
}

void VideoDecodeStream::Prepare() {
    if (decoder)
        return;
    const MediaSource::Reading reading(*source);
    InterruptibleRead(interrupted, [this] { Open(); });
}

void VideoDecodeStream::Open() {
    auto file = std::make_unique<Demuxer>(source->GetPath(), interrupted, source->GetDetails().limits,
                                          source->GetDetails().streams);
    file->SetEnd(source->GetDetails().end);
    file->Select({track.index});
    file->SetClock(source->GetDetails().clock);
    decoder = std::make_unique<Decoder>(file->GetStream(track.index), threads, source->GetPath().ToUtf8(),
                                        source->GetDetails().limits);
    decoder->SkipLoopFilter(draft);
    decoder->SetPacketSupply([this](AVPacket& packet) { return SupplyPacket(packet); });
    decoder->SetDamageReceiver([this](std::int64_t time, const std::string& reason) { OnDamage(time, reason); });
    if (!IsOriented())
        rotator = std::make_unique<FrameRotator>(Orientation{track.rotation, source->GetDetails().flipped});
    demuxer = std::move(file);
}

void VideoDecodeStream::Seek(std::int64_t time, Proc::SeekMode mode) {
    pendingSeek = SeekTarget{std::clamp<std::int64_t>(time, 0, duration), mode};
}

void VideoDecodeStream::Reset() {
    interrupted = false;
    ForgetFrames();
    pendingSeek = SeekTarget{};
}

boost::intrusive_ptr<Proc::IDataVideo> VideoDecodeStream::ReadVideo() {
    const MediaSource::Reading reading(*source);
    return InterruptibleRead(interrupted, [this] { return ReadOn(); });
}

boost::intrusive_ptr<Proc::IDataVideo> VideoDecodeStream::ReadOn() {
    Prepare();
    if (pendingSeek)
        ApplySeek();
    while (ready.empty() && current && !interrupted) {
        if (!next)
            next = DecodeNext();
        if (!interrupted)
            Present();
    }
    RefuseInterrupted(interrupted);
    if (ready.empty())
        return {};
    boost::intrusive_ptr<Proc::IDataVideo> picture = std::move(ready.front());
    ready.pop_front();
    position = picture->GetTime() + picture->GetDuration();
    return picture;
}

void VideoDecodeStream::Present() {
    const std::int64_t begin = current->time;
    const std::int64_t end = next ? next->time : duration;
    if (end > showFrom) {
        NoteDynamicMetadata(*current->frame);
        NoteSize(*current->frame);
    }
    std::vector<FrameHandle> shown = ShowCurrent();
    // The second field is due half a period after the first, also where the frame then stands for longer.
    const std::int64_t period = track.frameRate > 0 ? FramesToTime(1, track.frameRate) : end - current->ownTime;
    const std::int64_t half = current->ownTime + std::min(period, end - current->ownTime) / 2;
    const bool two = shown.size() > 1;
    Push(std::move(shown.front()), begin, two ? half : end);
    if (two)
        Push(std::move(shown[1]), half, end);
    previous = fields == Fields::Kept ? std::nullopt : std::move(current);
    current = std::exchange(next, std::nullopt);
}

void VideoDecodeStream::Push(FrameHandle frame, std::int64_t begin, std::int64_t end) {
    if (end <= showFrom)
        return;
    FrameHandle upright = rotator ? rotator->Rotate(*frame) : std::move(frame);
    ready.push_back(new DataVideoFF(std::move(upright), begin, end - begin));
}

// Any frame may be the first that has such.
void VideoDecodeStream::NoteDynamicMetadata(const AVFrame& frame) {
    if (dynamicNoted)
        return;
    const std::string dynamic = DynamicMetadataOf(frame, demuxer->GetStream(track.index));
    dynamicNoted = !dynamic.empty();
    if (dynamicNoted)
        source->Note(dynamic + " left out: its pictures are shown as they are without it");
}

void VideoDecodeStream::NoteSize(const AVFrame& frame) {
    const bool sideways = track.rotation % 180 != 0;
    const auto width = static_cast<std::uint32_t>(sideways ? frame.height : frame.width);
    const auto height = static_cast<std::uint32_t>(sideways ? frame.width : frame.height);
    if (sizeNoted || (width == track.frame.width && height == track.frame.height))
        return;
    sizeNoted = true;
    source->Note("its pictures change to " + std::to_string(width) + "x" + std::to_string(height) +
                 " on the way; they are fitted like those of " + std::to_string(track.frame.width) + "x" +
                 std::to_string(track.frame.height) + " with which it begins");
}

// What is not interlaced stays on its own pixels.
std::vector<FrameHandle> VideoDecodeStream::ShowCurrent() {
    if (fields != Fields::Kept && HoldsFields(*current->frame))
        return Deinterlace();
    std::vector<FrameHandle> shown;
    shown.push_back(fields == Fields::Kept ? std::move(current->frame) : MakeFrameReference(*current->frame));
    return shown;
}

std::vector<FrameHandle> VideoDecodeStream::Deinterlace() {
    const AVFrame& frame = *current->frame;
    const bool doubled = fields == Fields::FramePerField;
    if (!deinterlacer) {
        const int threads = frame.width * frame.height >= LARGE_FRAME ? 2 : 1;
        deinterlacer = std::make_unique<Deinterlacer>(
            doubled ? Deinterlacer::Output::Fields : Deinterlacer::Output::Frame, threads);
        source->Note(std::string("interlaced (") + FieldOrderText(IsTopFieldFirst(frame)) +
                     (doubled ? "), deinterlaced to a picture for each field" : "), deinterlaced"));
    }
    std::vector<FrameHandle> shown = deinterlacer->Deinterlace(previous ? previous->frame.get() : nullptr, frame,
                                                               next ? next->frame.get() : nullptr);
    if (shown.empty())
        Fail(Proc::TranscodingError::FilterFailed, "Deinterlacing gave no picture of " + Describe());
    return shown;
}

bool VideoDecodeStream::PassesKeyGate(const AVPacket& packet) {
    if (!awaitsKey || !(packet.flags & AV_PKT_FLAG_KEY))
        return !awaitsKey;
    awaitsKey = keysToPass > 0;
    if (awaitsKey)
        --keysToPass;
    return !awaitsKey;
}

bool VideoDecodeStream::SupplyPacket(AVPacket& packet) {
    do {
        if (!demuxer->Read(packet)) {
            if (!demuxer->GetTrouble().empty())
                source->Report(std::max<std::int64_t>(lastDecoded, 0), "Reading ended early: " + demuxer->GetTrouble(),
                               true);
            return false;
        }
    } while (!PassesKeyGate(packet));
    if (const std::string newcomer = demuxer->GetNewcomer(); !newcomer.empty())
        source->Report(duration, newcomer, true);
    ChooseSkipping(packet);
    return true;
}

void VideoDecodeStream::ChooseSkipping(const AVPacket& packet) {
    const std::int64_t timestamp = ToEngineTime(packet.pts, demuxer->GetStream(track.index).time_base);
    const bool known = timestamp != TIME_UNKNOWN;
    const std::int64_t time = known ? timestamp - source->GetDetails().origin : 0;
    const bool skip = known && time < skipBefore;
    if (skip)
        skippedUpTo = std::max(skippedUpTo, time);
    decoder->SkipUnreferenced(skip);
}

void VideoDecodeStream::OnDamage(std::int64_t timestamp, const std::string& reason) {
    // Before the target of a seek, references may be missing that nobody will see missing.
    if (winding)
        return;
    const std::int64_t time = ToEngineTime(timestamp, demuxer->GetStream(track.index).time_base);
    source->Report(time == TIME_UNKNOWN ? std::max<std::int64_t>(lastDecoded, 0) : time - source->GetDetails().origin,
                   "A picture could not be decoded: " + reason);
}

void VideoDecodeStream::ReportFlaws(const AVFrame& frame, std::int64_t time) {
    if (!winding && ((frame.flags & AV_FRAME_FLAG_CORRUPT) != 0 || frame.decode_error_flags != 0))
        source->Report(time, "A damaged picture was concealed");
}

std::int64_t VideoDecodeStream::TimeOf(const AVFrame& frame) {
    const std::int64_t timestamp = ToEngineTime(frame.best_effort_timestamp, demuxer->GetStream(track.index).time_base);
    const std::int64_t time = timestamp == TIME_UNKNOWN ? TIME_UNKNOWN : timestamp - source->GetDetails().origin;
    // The guess at the time of the last frames of a joined part is made from packets of the next.
    const bool wrong = source->GetDetails().clock && frame.pts == AV_NOPTS_VALUE && time <= lastDecoded;
    if (time != TIME_UNKNOWN && !wrong)
        return time;
    return lastDecoded < 0 ? 0 : lastDecoded + (track.frameRate > 0 ? FramesToTime(1, track.frameRate) : 1);
}

std::optional<VideoDecodeStream::Shown> VideoDecodeStream::DecodeNext() {
    while (FrameHandle frame = decoder->Next()) {
        // After a seek, a frame without a time cannot be counted on from another.
        if (!atStart && lastDecoded < 0 && frame->best_effort_timestamp == AV_NOPTS_VALUE)
            continue;
        const std::int64_t time = TimeOf(*frame);
        // Two frames at one time: the second would replace the first before it was shown.
        if (!atStart && time <= lastDecoded) {
            if (lastDecoded - time > BACKWARD_JUMP && !winding)
                source->Report(lastDecoded, "Timestamps run backwards; pictures are left out");
            continue;
        }
        ReportFlaws(*frame, time);
        if (time >= duration && !atStart)
            break;
        AVStream& stream = demuxer->GetStream(track.index);
        TagFrame(*frame, stream, demuxer->GetContext());
        GuessColour(*frame, stream.codecpar->codec_id);
        TagFields(*frame, *stream.codecpar, source->GetDetails().fieldsByTrack);
        lastDecoded = time;
        // What begins late is shown from the start.
        return Shown{std::move(frame), std::exchange(atStart, false) ? 0 : time, std::max<std::int64_t>(time, 0)};
    }
    return {};
}

void VideoDecodeStream::ForgetFrames() {
    ready.clear();
    previous.reset();
    current.reset();
    next.reset();
    lastDecoded = -1;
}

void VideoDecodeStream::StartOver() {
    ForgetFrames();
    demuxer->Rewind();
    decoder->Flush();
    atStart = true;
    awaitsKey = false;
    current = DecodeNext();
}

bool VideoDecodeStream::IsShortlyAhead(std::int64_t time) const {
    return current && time >= current->time && time - current->time < SHORTLY_AHEAD;
}

void VideoDecodeStream::ApplySeek() {
    const SeekTarget target = *pendingSeek;
    ready.clear();
    showFrom = target.mode == Proc::SeekMode::Exact ? target.time : 0;
    if (target.time >= duration) {
        ForgetFrames();
        position = duration;
    } else if (IsShortlyAhead(target.time)) {
        winding = true;
        WindTo(target.time);
    } else {
        SeekBack(target, true);
        // A frame that nothing refers to can last long: then it was passed over, though it covers the target.
        const Shown* earliest = previous ? &*previous : current ? &*current : nullptr;
        if (earliest && earliest->ownTime < skippedUpTo)
            SeekBack(target, false);
        FetchPrevious(target);
    }
    winding = false;
    skipBefore = -1;
    if (!interrupted)
        pendingSeek.reset();
}

void VideoDecodeStream::SeekBack(const SeekTarget& target, bool skipUnreferenced) {
    winding = true;
    skippedUpTo = -1;
    skipBefore = skipUnreferenced ? target.time - SKIP_MARGIN : -1;
    // An index can lie, and some containers have none: land ever further back until the target is not behind.
    const bool exact = target.mode == Proc::SeekMode::Exact;
    const std::int64_t time = exact ? LeadOf(target.time) : target.time;
    std::int64_t distance = 0;
    while (!LandBefore(time, distance) && !interrupted)
        distance = distance == 0 ? FIRST_STEP_BACK : distance * STEP_BACK_GROWTH;
    if (exact)
        WindTo(target.time);
}

// Frames of uneven lengths may put the landing on the very one that covers the target.
void VideoDecodeStream::FetchPrevious(const SeekTarget& target) {
    if (fields == Fields::Kept || target.mode != Proc::SeekMode::Exact || !current || previous ||
        current->ownTime <= track.start)
        return;
    SeekBack({current->ownTime - 1, target.mode}, false);
    WindTo(target.time);
}

// To deinterlace a frame, the one before is needed too.
std::int64_t VideoDecodeStream::LeadOf(std::int64_t time) const {
    return fields == Fields::Kept || track.frameRate <= 0 ? time : time - FramesToTime(3, track.frameRate * 2);
}

bool VideoDecodeStream::LandBefore(std::int64_t time, std::int64_t distance) {
    if (time - distance <= track.start) {
        // Nothing is passed over at the start: its first frame has to be the one that linear reading gives.
        winding = time > track.start;
        StartOver();
        return true;
    }
    ForgetFrames();
    keysToPass = 0;
    if (KeyframeList::IsNeededFor(*demuxer)) {
        const auto before = keyframes.CountBefore(time - distance, *demuxer, track.index, source->GetDetails().origin);
        if (!before)
            return false;
        keysToPass = *before;
    } else {
        const AVRational timeBase = demuxer->GetStream(track.index).time_base;
        if (!demuxer->Seek(track.index, FromEngineTime(time - distance + source->GetDetails().origin, timeBase)))
            return false;
    }
    decoder->Flush();
    atStart = false;
    awaitsKey = true;
    current = DecodeNext();
    return current && current->time <= time;
}

void VideoDecodeStream::WindTo(std::int64_t time) {
    if (!next && current)
        next = DecodeNext();
    while (next && next->time <= time && !interrupted) {
        previous = fields == Fields::Kept ? std::nullopt : std::move(current);
        current = std::move(next);
        next = DecodeNext();
    }
    if (current)
        position = current->time;
}

} // namespace Kestra::FF
