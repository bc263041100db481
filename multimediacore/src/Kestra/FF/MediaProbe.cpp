#include "Kestra/FF/MediaProbe.h"

#include "Kestra/FF/ClockScan.h"
#include "Kestra/FF/ColourConverter.h"
#include "Kestra/FF/Convert.h"
#include "Kestra/FF/Decoder.h"
#include "Kestra/FF/Error.h"
#include "Kestra/FF/FieldOrder.h"
#include "Kestra/FF/FirstFrames.h"
#include "Kestra/FF/LeftOut.h"
#include "Kestra/FF/PictureRotator.h"
#include "Kestra/FF/PictureTags.h"
#include "Kestra/FF/SamplePlacement.h"
#include "Kestra/FF/SoundGrain.h"
#include "Kestra/FF/StreamClaims.h"
#include "Kestra/FF/TrackShape.h"
#include "Kestra/FF/Wording.h"
#include <algorithm>
#include <cstring>
#include <tuple>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

constexpr std::int64_t NEAR_WINDOW = 3 * TIME_BASE;
constexpr std::int64_t FAR_WINDOW = 20 * TIME_BASE;
// Lengths in an edit list are rounded to the movie's clock; what is cut by less was not meant to be cut.
constexpr std::int64_t EDIT_ROUNDING = TIME_BASE / 500;
// Enough for every decoder to settle.
constexpr std::size_t TAIL_PACKETS = 8;
// Pictures that lead an open group may be lost at the start of any recording; what is held for longer looks frozen.
constexpr std::int64_t LONGEST_LEAD = TIME_BASE / 5;
// How much longer than its period a last frame is believed to be.
constexpr std::int64_t LONGEST_GUESS = TIME_BASE;
const boost::rational<long long> STILL_RATE(25);

bool IsPicture(const AVStream& stream) {
    return stream.codecpar->codec_type == AVMEDIA_TYPE_VIDEO &&
           !(stream.disposition & (AV_DISPOSITION_ATTACHED_PIC | AV_DISPOSITION_TIMED_THUMBNAILS));
}

// Better streams compare greater.
std::tuple<bool, bool, std::int64_t, std::int64_t> PictureRank(const AVStream& stream) {
    const AVCodecParameters& parameters = *stream.codecpar;
    return {Decoder::FindCodec(stream) != nullptr, (stream.disposition & AV_DISPOSITION_DEFAULT) != 0,
            static_cast<std::int64_t>(parameters.width) * parameters.height, parameters.bit_rate};
}

} // namespace

MediaProbe::MediaProbe(const ioPath& path, const std::atomic<bool>& interrupted, const Proc::MediaLimits& limits)
    : path(path)
    , interrupted(interrupted)
    , demuxer(path, interrupted, limits) {
    details.limits = limits;
}

void MediaProbe::Run() {
    info.container = demuxer.GetFormatName();
    details.streams = demuxer.GetKnownStreams();
    ChooseTracks();
    DecodeFirstFrames();
    RequireTracks();
    SettleOrigin();
    JoinClocks();
    FindEnds();
    // What was read until then says nothing of the file.
    if (interrupted)
        Fail(TranscodingError::SourceUnreadable, "Reading \"" + path.ToUtf8() + "\" was interrupted");
    DescribeVideo();
    DescribeAudio();
    ReportShortage();
    NoteWhatIsLeftOut(demuxer.GetContext(), video.index, audio.index, details.notes);
}

void MediaProbe::RequireTracks() const {
    if (video.index >= 0 || audio.index >= 0)
        return;
    std::string reasons;
    for (const Proc::DamageReport& report : details.damage)
        reasons += (reasons.empty() ? " (" : ", ") + report.what;
    Fail(TranscodingError::SourceUnreadable, "Cannot read \"" + path.ToUtf8() +
                                                 "\": it holds neither picture nor sound that can be decoded" +
                                                 reasons + (reasons.empty() ? "" : ")"));
}

std::vector<MediaProbe::Track*> MediaProbe::Tracks() {
    std::vector<Track*> tracks;
    for (Track* track : {&video, &audio})
        if (track->index >= 0)
            tracks.push_back(track);
    return tracks;
}

void MediaProbe::CountTrack(const AVStream& stream) {
    if (IsPicture(stream))
        ++info.videoTracks;
    else if (stream.codecpar->codec_type == AVMEDIA_TYPE_AUDIO)
        ++info.audioTracks;
    else
        ++info.otherTracks;
}

void MediaProbe::ChooseTracks() {
    AVFormatContext& context = demuxer.GetContext();
    for (unsigned index = 0; index < context.nb_streams; ++index) {
        const AVStream& stream = *context.streams[index];
        CountTrack(stream);
        if (IsPicture(stream) && (video.index < 0 || PictureRank(stream) > PictureRank(*context.streams[video.index])))
            video.index = static_cast<int>(index);
    }
    audio.index = std::max(-1, av_find_best_stream(&context, AVMEDIA_TYPE_AUDIO, -1, video.index, nullptr, 0));
}

void MediaProbe::DecodeFirstFrames() {
    std::vector<int> indices;
    for (const Track* track : Tracks())
        indices.push_back(track->index);
    demuxer.Select(indices);
    FirstFrames frames(demuxer, video, audio);
    for (Track* track : Tracks()) {
        const std::string trouble = frames.Decode(*track);
        if (!trouble.empty())
            Drop(*track, trouble);
    }
    for (Track* track : {&video, &audio})
        track->waiting.clear();
}

void MediaProbe::Drop(Track& track, const std::string& reason) {
    details.damage.push_back({path, 0, reason});
    track.index = -1;
    track.first.reset();
}

void MediaProbe::SettleOrigin() {
    details.origin = INT64_MAX;
    for (const Track* track : Tracks())
        details.origin = std::min(details.origin, track->start);
    SkipUndecodableLead();
    if (audio.index < 0)
        return;
    const AVFrame& first = *audio.first;
    const SoundGrain grain = FindSoundGrain(demuxer.GetStream(audio.index), audio.frameSize, first.nb_samples);
    details.audioGrain = grain.samples;
    details.grainOfContainer = grain.ofContainer;
    if (details.audioGrain > 0)
        details.audioPhase =
            (TimeToSamples(audio.start - details.origin, first.sample_rate) + first.nb_samples) % details.audioGrain;
}

// A recording that was cut out of a longer one need not begin with a keyframe. It begins where it can be shown.
void MediaProbe::SkipUndecodableLead() {
    if (video.index < 0 || video.firstShown == TIME_UNKNOWN || video.start - video.firstShown <= LONGEST_LEAD)
        return;
    const std::int64_t begin = std::min(details.origin, video.firstShown);
    // Sound that begins with the pictures that can be shown, or later, had nothing cut off.
    details.origin = video.start;
    details.notes.push_back("begins without a keyframe: what lies before the first picture that can be decoded, " +
                            Seconds(video.start - begin) + ", is left out");
}

void MediaProbe::JoinClocks() {
    if (!ClockScan::IsNeeded(demuxer))
        return;
    std::vector<int> indices;
    for (const Track* track : Tracks())
        indices.push_back(track->index);
    ClockScan scan(demuxer, indices);
    scan.Run();
    if (scan.GetJoints().empty())
        return;
    details.clock = std::make_shared<ClockMap>(scan.GetMap());
    demuxer.SetClock(details.clock);
    for (const ClockScan::Joint& joint : scan.GetJoints())
        details.damage.push_back(
            {path, joint.time - details.origin,
             "Timestamps jump by " + Seconds(joint.jump) + "; what follows was joined on without a gap"});
}

std::int64_t MediaProbe::ClaimedEnd(const Track& track) {
    const AVStream& stream = demuxer.GetStream(track.index);
    if (stream.duration != AV_NOPTS_VALUE && stream.duration > 0) {
        const std::int64_t start = stream.start_time != AV_NOPTS_VALUE ? stream.start_time : 0;
        return ToEngineTime(start + stream.duration, stream.time_base);
    }
    const AVFormatContext& context = demuxer.GetContext();
    if (context.duration == AV_NOPTS_VALUE || context.duration <= 0)
        return TIME_UNKNOWN;
    return details.origin + ToEngineTime(context.duration, {1, AV_TIME_BASE});
}

// The length of a track that an edit list cuts out of the middle is counted in different ways by different files. The
// table of samples tells what there is.
std::int64_t MediaProbe::PromisedEnd(const Track& track) {
    AVStream& stream = demuxer.GetStream(track.index);
    const std::int64_t claim = ClaimedEnd(track);
    if (std::strncmp(demuxer.GetFormatName(), "mov", 3) != 0 || stream.nb_frames <= 0)
        return claim;
    for (int index = avformat_index_get_entries_count(&stream) - 1; index >= 0; --index) {
        const AVIndexEntry& entry = *avformat_index_get_entry(&stream, index);
        const std::int64_t listed = ToEngineTime(entry.timestamp, stream.time_base);
        if (!(entry.flags & AVINDEX_DISCARD_FRAME))
            return listed + SHORTAGE < claim ? listed : claim;
    }
    return claim;
}

void MediaProbe::FindEnds() {
    std::vector<Track*> unknown;
    for (Track* track : Tracks())
        if (details.clock || (!FindEndNear(*track, NEAR_WINDOW) && !FindEndNear(*track, FAR_WINDOW)))
            unknown.push_back(track);
    if (!unknown.empty())
        ScanToEnd(unknown);
    SteadySound();
    for (Track* track : Tracks())
        if (track != &audio || details.audioJitter == 0)
            FinishEnd(*track);
}

bool MediaProbe::FindEndNear(Track& track, std::int64_t window) {
    const std::int64_t claim = ClaimedEnd(track);
    // Short files are read through: that is as fast, and counts what there really is.
    if (claim == TIME_UNKNOWN || claim - window <= track.start)
        return false;
    demuxer.Select({track.index});
    const AVRational timeBase = demuxer.GetStream(track.index).time_base;
    if (!demuxer.Seek(track.index, FromEngineTime(claim - window, timeBase)))
        return false;
    if (&track == &audio)
        BeginLevels(false);
    ReadEnds();
    return track.packets > 0;
}

void MediaProbe::ScanToEnd(const std::vector<Track*>& tracks) {
    std::vector<int> indices;
    indices.reserve(tracks.size());
    for (const Track* track : tracks)
        indices.push_back(track->index);
    demuxer.Select(indices);
    demuxer.Rewind();
    if (std::find(tracks.begin(), tracks.end(), &audio) != tracks.end())
        BeginLevels(true);
    ReadEnds();
}

void MediaProbe::ReadEnds() {
    const PacketHandle packet = MakePacket();
    while (demuxer.Read(*packet))
        TakePacket(packet->stream_index == video.index ? video : audio, *packet);
}

std::int64_t MediaProbe::LengthOf(const Track& track, const AVPacket& packet) {
    const AVStream& stream = demuxer.GetStream(track.index);
    const std::int64_t length = packet.duration > 0 ? ToEngineTime(packet.duration, stream.time_base) : 0;
    const boost::rational<long long> rate = track.index == video.index ? NominalRate(stream) : 0;
    const std::int64_t exact = rate > 0 ? FramesToTime(1, rate) : 0;
    // Clocks of a millisecond round the length; the exact one is known.
    const std::int64_t tick = ToEngineTime(1, stream.time_base);
    return exact > 0 && (length == 0 || std::abs(length - exact) <= tick) ? exact : length;
}

// AVI and program streams leave presentation times out where reordering would make them differ. The picture that is
// shown last then is as late after the last decoding time as the first one after the first.
std::int64_t MediaProbe::TimeOf(Track& track, const AVPacket& packet) {
    const AVRational timeBase = demuxer.GetStream(track.index).time_base;
    const std::int64_t shown = ToEngineTime(packet.pts, timeBase);
    track.untimed = track.untimed || shown == TIME_UNKNOWN;
    if (!track.untimed || packet.dts == AV_NOPTS_VALUE || track.firstDecodeTime == TIME_UNKNOWN)
        return shown;
    const std::int64_t delay = std::max<std::int64_t>(track.start - track.firstDecodeTime, 0);
    return std::max(shown, ToEngineTime(packet.dts, timeBase) + delay);
}

void MediaProbe::TakePacket(Track& track, const AVPacket& packet) {
    const std::int64_t time = TimeOf(track, packet);
    if (time == TIME_UNKNOWN && track.index == video.index && track.end != TIME_UNKNOWN)
        track.end += LengthOf(track, packet);
    if (track.index == audio.index && !(packet.flags & AV_PKT_FLAG_DISCARD))
        levels.Take(time, packetSamples->LengthOf(packet));
    if (time == TIME_UNKNOWN || (packet.flags & AV_PKT_FLAG_DISCARD))
        return;
    ++track.packets;
    if (track.index == audio.index)
        KeepTail(track, packet);
    const std::int64_t length = LengthOf(track, packet);
    if (track.end != TIME_UNKNOWN && time + length <= track.end)
        return;
    track.end = time + length;
    track.lastLength = length;
    track.guessed = packet.duration <= 0;
}

void MediaProbe::KeepTail(Track& track, const AVPacket& packet) {
    if (track.waiting.size() >= TAIL_PACKETS)
        track.waiting.pop_front();
    track.waiting.push_back(MakePacketReference(packet));
}

// Only the decoder knows how many samples the last blocks hold, after what is to be discarded.
void MediaProbe::DecodeTail(Track& track) {
    const AVStream& stream = demuxer.GetStream(track.index);
    const int rate = track.first->sample_rate;
    const std::int64_t begin = TimeToSamples(track.start - details.origin, rate);
    const std::int64_t tolerance = TimeToSamples(ToEngineTime(1, stream.time_base), rate) + 1;
    Decoder decoder(stream, 1, path.ToUtf8(), demuxer.GetLimits());
    decoder.SetPacketSupply([&track](AVPacket& packet) { return track.TakeWaiting(packet); });
    std::int64_t end = -1;
    while (const FrameHandle block = decoder.Next()) {
        const std::int64_t time = ToEngineTime(block->best_effort_timestamp, stream.time_base);
        if (time == TIME_UNKNOWN || block->sample_rate != rate)
            continue;
        std::int64_t place = TimeToSamples(time - details.origin, rate);
        // The first block may be cut at its start, and so lie off the grid.
        if (place > begin)
            place = SnapToGrain(place, details.audioPhase, details.audioGrain, tolerance);
        end = std::max(end, place + block->nb_samples);
    }
    if (end > begin)
        track.end = details.origin + SamplesToTime(end, rate);
}

void MediaProbe::FinishEnd(Track& track) {
    const bool isAudio = track.index == audio.index;
    const std::int64_t shortest = isAudio ? SamplesToTime(track.first->nb_samples, track.first->sample_rate) : 1;
    if (track.end == TIME_UNKNOWN || track.end < track.start + shortest)
        track.end = track.start + std::max(shortest, track.lastLength);
    if (isAudio)
        DecodeTail(track);
    if (std::strncmp(demuxer.GetFormatName(), "mov", 3) == 0)
        FitToEditList(track, isAudio);
}

void MediaProbe::FitToEditList(Track& track, bool isAudio) {
    const std::int64_t claim = ClaimedEnd(track);
    if (claim == TIME_UNKNOWN || claim <= track.start)
        return;
    const std::int64_t over = track.end - claim;
    const bool cut = over > 0 && over < track.lastLength && (isAudio || over > EDIT_ROUNDING);
    // Where the last frame's own length is not stored, the track's is.
    const bool stretched = track.guessed && over < 0 && -over < LONGEST_GUESS;
    if (cut || stretched)
        track.end = claim;
}

void MediaProbe::DescribeFields(Proc::VideoTrackInfo& track, AVFrame& first, const AVCodecParameters& parameters) {
    if (IsLoneField(first, parameters.codec_id))
        details.notes.push_back("coded field by field; each field is shown as a picture of its own");
    details.fieldsByTrack = OnlyTrackTells(first, parameters);
    TagFields(first, parameters, details.fieldsByTrack);
    const bool flagged = first.interlaced_frame != 0;
    track.interlaced = flagged || SaysInterlaced(parameters);
    track.topFieldFirst = flagged ? first.top_field_first != 0 : SaysTopFieldFirst(parameters);
}

void MediaProbe::DescribeVideo() {
    if (video.index < 0)
        return;
    AVStream& stream = demuxer.GetStream(video.index);
    const AVFrame& first = *video.first;
    Proc::VideoTrackInfo track;
    track.index = video.index;
    track.codec = avcodec_get_name(stream.codecpar->codec_id);
    TagPicture(*video.first, stream, demuxer.GetContext());
    details.tellsColour = TellsColour(first);
    GuessColour(*video.first, stream.codecpar->codec_id);
    details.peak = ColourConverter::PeakOf(first, first.color_trc);
    const Orientation orientation = FindOrientation(stream, &first);
    track.rotation = orientation.rotation;
    details.flipped = orientation.flipped;
    const bool sideways = track.rotation % 180 != 0;
    const AVRational aspect = first.sample_aspect_ratio;
    track.frame = sideways ? MakeFrameInfo(first.height, first.width, {aspect.den, aspect.num})
                           : MakeFrameInfo(first.width, first.height, aspect);
    const char* name =
        av_get_pix_fmt_name(PictureRotator::OutputFormat(static_cast<AVPixelFormat>(first.format), orientation));
    track.pixelFormat = name ? name : "";
    track.colour = ColourOf(first);
    track.frameRate = NominalRate(stream);
    track.variableFrameRate = RatesDisagree(stream);
    DescribeFields(track, *video.first, *stream.codecpar);
    track.stillPicture = IsPictureFormat(demuxer.GetFormatName()) && video.packets <= 1;
    if (track.stillPicture) {
        track.frameRate = STILL_RATE;
        video.end = video.start + FramesToTime(1, STILL_RATE);
    }
    track.start = video.start - details.origin;
    track.duration = video.end - video.start;
    info.duration = std::max(info.duration, video.end - details.origin);
    info.video = track;
}

void MediaProbe::DescribeAudio() {
    if (audio.index < 0)
        return;
    const AVFrame& first = *audio.first;
    Proc::AudioTrackInfo track;
    track.index = audio.index;
    track.codec = avcodec_get_name(demuxer.GetStream(audio.index).codecpar->codec_id);
    track.sampleRate = first.sample_rate;
    track.channels = first.ch_layout.nb_channels;
    track.channelLayout = FromAv(first.ch_layout);
    track.sampleFormat = FromAv(static_cast<AVSampleFormat>(first.format));
    track.sampleBits =
        SampleBitsOf(*demuxer.GetStream(audio.index).codecpar, static_cast<AVSampleFormat>(first.format));
    track.start = std::max<std::int64_t>(audio.start - details.origin, 0);
    track.duration = std::max<std::int64_t>(audio.end - details.origin - track.start, 0);
    info.duration = std::max(info.duration, audio.end - details.origin);
    info.audio = track;
}

} // namespace Kestra::FF
