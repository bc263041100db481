#include "Kestra/FF/VideoDecodeStream.h"

#include "Kestra/FF/ColourNote.h"
#include "Kestra/FF/Convert.h"
#include "Kestra/FF/DataVideoFF.h"
#include "Kestra/FF/EncodePicture.h"
#include "Kestra/FF/PictureTags.h"
#include <algorithm>
#include <cstring>
#include <thread>
#include <utility>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

namespace {

// Targets that lie no further ahead are reached faster by decoding on than by seeking.
constexpr std::int64_t SHORTLY_AHEAD = TIME_BASE;
// Near the target every picture is decoded, so that the one that covers it is at hand.
constexpr std::int64_t SKIP_MARGIN = TIME_BASE / 2;
constexpr std::int64_t FIRST_STEP_BACK = TIME_BASE;
constexpr int STEP_BACK_GROWTH = 4;
constexpr std::int64_t BACKWARD_JUMP = TIME_BASE;

// Program streams give one picture in many a time; the others are counted on from it, wrongly if reading began between.
bool TellsTimesOnlyInOrder(const char* container) {
    return std::strcmp(container, "mpeg") == 0;
}

int DecoderThreads() {
    return std::clamp(static_cast<int>(std::thread::hardware_concurrency()) + 1, 2, 3);
}

} // namespace

VideoDecodeStream::VideoDecodeStream(boost::intrusive_ptr<MediaSource> source)
    : source(std::move(source))
    , track(*this->source->GetInfo().video)
    , duration(track.start + track.duration)
    , pendingSeek(SeekTarget{}) {}

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
    format->SetPixelFormat(
        FromAv(PictureRotator::OutputFormat(decoded, {track.rotation, source->GetDetails().flipped})));
    format->SetColour(track.colour);
    Core::Property tree = format->GetProperty();
    tree.SetChild(Conf::IFormatCodecVideo::TAG_INTERLACED, track.interlaced);
    format->SetProperty(tree);
}

void VideoDecodeStream::PreferFormat(const Conf::IFormatCodec& format) {
    const auto* video = dynamic_cast<const Conf::IFormatCodecVideo*>(&format);
    if (!video)
        return;
    const ColourChange change{track.colour, Completed(video->GetColour(), track.colour)};
    const std::string note = ColourNote(change, source->GetDetails().peak, source->GetDetails().tellsColour);
    if (!note.empty())
        source->Note(note);
}

void VideoDecodeStream::Prepare() {
    if (decoder)
        return;
    const MediaSource::Reading reading(*source);
    auto file = std::make_unique<Demuxer>(source->GetPath(), interrupted, source->GetDetails().limits,
                                          source->GetDetails().streams);
    file->Select({track.index});
    file->SetClock(source->GetDetails().clock);
    decoder = std::make_unique<Decoder>(file->GetStream(track.index), DecoderThreads(), source->GetPath().ToUtf8(),
                                        source->GetDetails().limits);
    decoder->SetPacketSupply([this](AVPacket& packet) { return SupplyPacket(packet); });
    decoder->SetDamageReceiver([this](std::int64_t time, const std::string& reason) { OnDamage(time, reason); });
    if (track.rotation != 0 || source->GetDetails().flipped)
        rotator = std::make_unique<PictureRotator>(Orientation{track.rotation, source->GetDetails().flipped});
    demuxer = std::move(file);
}

void VideoDecodeStream::Seek(std::int64_t time, Proc::SeekMode mode) {
    pendingSeek = SeekTarget{std::clamp<std::int64_t>(time, 0, duration), mode};
}

void VideoDecodeStream::Reset() {
    interrupted = false;
    ForgetPictures();
    pendingSeek = SeekTarget{};
}

boost::intrusive_ptr<Proc::IDataVideo> VideoDecodeStream::ReadVideo() {
    const MediaSource::Reading reading(*source);
    if (interrupted)
        return {};
    Prepare();
    if (pendingSeek)
        ApplySeek();
    if (current && !next)
        next = DecodeNext();
    if (interrupted || !current)
        return {};
    return Emit();
}

boost::intrusive_ptr<Proc::IDataVideo> VideoDecodeStream::Emit() {
    Picture picture = std::move(*current);
    current = std::exchange(next, std::nullopt);
    const std::int64_t end = current ? current->time : duration;
    position = end;
    FrameHandle frame = rotator ? rotator->Rotate(*picture.frame) : std::move(picture.frame);
    return new DataVideoFF(std::move(frame), picture.time, end - picture.time);
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
    // The guess at the time of the last pictures of a joined part is made from packets of the next.
    const bool wrong = source->GetDetails().clock && frame.pts == AV_NOPTS_VALUE && time <= lastDecoded;
    if (time != TIME_UNKNOWN && !wrong)
        return time;
    return lastDecoded < 0 ? 0 : lastDecoded + (track.frameRate > 0 ? FramesToTime(1, track.frameRate) : 1);
}

std::optional<VideoDecodeStream::Picture> VideoDecodeStream::DecodeNext() {
    while (FrameHandle frame = decoder->Next()) {
        // After a seek, a picture without a time cannot be counted on from another.
        if (!atStart && lastDecoded < 0 && frame->best_effort_timestamp == AV_NOPTS_VALUE)
            continue;
        const std::int64_t time = TimeOf(*frame);
        // Two pictures at one time: the second would replace the first before it was shown.
        if (!atStart && time <= lastDecoded) {
            if (lastDecoded - time > BACKWARD_JUMP && !winding)
                source->Report(lastDecoded, "Timestamps run backwards; pictures are left out");
            continue;
        }
        ReportFlaws(*frame, time);
        if (time >= duration && !atStart)
            break;
        AVStream& stream = demuxer->GetStream(track.index);
        TagPicture(*frame, stream, demuxer->GetContext());
        GuessColour(*frame, stream.codecpar->codec_id);
        lastDecoded = time;
        // What begins late is shown from the start.
        return Picture{std::move(frame), std::exchange(atStart, false) ? 0 : time};
    }
    return {};
}

void VideoDecodeStream::ForgetPictures() {
    current.reset();
    next.reset();
    lastDecoded = -1;
}

void VideoDecodeStream::StartOver() {
    ForgetPictures();
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
    if (target.time >= duration) {
        ForgetPictures();
        position = duration;
    } else if (IsShortlyAhead(target.time)) {
        winding = true;
        WindTo(target.time);
    } else {
        SeekBack(target, true);
        // A picture that nothing refers to can last long: then it was passed over, though it covers the target.
        if (current && current->time < skippedUpTo)
            SeekBack(target, false);
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
    std::int64_t distance = 0;
    while (!LandBefore(target.time, distance) && !interrupted)
        distance = distance == 0 ? FIRST_STEP_BACK : distance * STEP_BACK_GROWTH;
    if (target.mode == Proc::SeekMode::Exact)
        WindTo(target.time);
}

bool VideoDecodeStream::LandBefore(std::int64_t time, std::int64_t distance) {
    if (time - distance <= track.start) {
        // Nothing is passed over at the start: its first picture has to be the one that linear reading gives.
        winding = time > track.start;
        StartOver();
        return true;
    }
    ForgetPictures();
    keysToPass = 0;
    if (TellsTimesOnlyInOrder(demuxer->GetFormatName())) {
        if (!LandByReading(time - distance))
            return false;
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

void VideoDecodeStream::ListKeyframes() {
    const AVRational timeBase = demuxer->GetStream(track.index).time_base;
    const PacketHandle packet = MakePacket();
    demuxer->Rewind();
    while (demuxer->Read(*packet)) {
        const std::int64_t timestamp = packet->pts != AV_NOPTS_VALUE ? packet->pts : packet->dts;
        if (packet->flags & AV_PKT_FLAG_KEY)
            keyTimes.push_back(ToEngineTime(timestamp, timeBase) - source->GetDetails().origin);
    }
}

bool VideoDecodeStream::LandByReading(std::int64_t time) {
    if (keyTimes.empty())
        ListKeyframes();
    const auto later = std::upper_bound(keyTimes.begin(), keyTimes.end(), time);
    if (later == keyTimes.begin())
        return false;
    keysToPass = static_cast<std::size_t>(later - keyTimes.begin()) - 1;
    demuxer->Rewind();
    return true;
}

void VideoDecodeStream::WindTo(std::int64_t time) {
    if (!next && current)
        next = DecodeNext();
    while (next && next->time <= time && !interrupted) {
        current = std::move(next);
        next = DecodeNext();
    }
    if (current)
        position = current->time;
}

} // namespace Kestra::FF
