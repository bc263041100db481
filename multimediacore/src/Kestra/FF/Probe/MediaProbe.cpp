// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Probe/MediaProbe.h"

#include "Kestra/Conf/Language.h"
#include "Kestra/Conf/StandardRates.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Av/OlderCalls.h"
#include "Kestra/FF/Av/Wording.h"
#include "Kestra/FF/Decode/Decoder.h"
#include "Kestra/FF/Decode/SamplePlacement.h"
#include "Kestra/FF/Demux/FileContents.h"
#include "Kestra/FF/Demux/FileTags.h"
#include "Kestra/FF/Demux/FollowingFile.h"
#include "Kestra/FF/Demux/ForeignSamples.h"
#include "Kestra/FF/Demux/StreamClaims.h"
#include "Kestra/FF/Picture/ColourConverter.h"
#include "Kestra/FF/Picture/DynamicMetadata.h"
#include "Kestra/FF/Picture/FieldOrder.h"
#include "Kestra/FF/Picture/FrameRotator.h"
#include "Kestra/FF/Picture/FrameTags.h"
#include "Kestra/FF/Picture/HdrMetadata.h"
#include "Kestra/FF/Picture/Orientation.h"
#include "Kestra/FF/Probe/DiscontinuityScan.h"
#include "Kestra/FF/Probe/FirstFrames.h"
#include "Kestra/FF/Probe/StartTimecode.h"
#include "Kestra/FF/Probe/TrackRate.h"
#include "Kestra/FF/Probe/TrackShape.h"
#include <algorithm>
#include <cmath>
#include <tuple>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

const boost::rational<long long> STILL_RATE(25);

bool IsPicture(const AVStream& stream) {
    return stream.codecpar->codec_type == AVMEDIA_TYPE_VIDEO &&
           !(stream.disposition & (AV_DISPOSITION_ATTACHED_PIC | AV_DISPOSITION_TIMED_THUMBNAILS));
}

// Audio that begins late, of which nothing has been read yet: libav counts it out until it knows what it is like.
int FindAnnouncedAudio(const AVFormatContext& context) {
    for (unsigned index = 0; index < context.nb_streams; ++index)
        if (context.streams[index]->codecpar->codec_type == AVMEDIA_TYPE_AUDIO &&
            Decoder::FindCodec(*context.streams[index]))
            return static_cast<int>(index);
    return -1;
}

bool IsChosen(const AVStream& stream, const Proc::TrackChoice& choice) {
    if (stream.codecpar->codec_type != AVMEDIA_TYPE_AUDIO)
        return false;
    return choice.sound ? stream.index == *choice.sound
                        : Conf::Language::AreSame(LanguageOf(stream), choice.soundLanguage);
}

int FindChosenAudio(const AVFormatContext& context, const Proc::TrackChoice& choice) {
    for (unsigned index = 0; index < context.nb_streams; ++index)
        if (IsChosen(*context.streams[index], choice))
            return static_cast<int>(index);
    return -1;
}

/// "1 (eng), 2": the container's numbers.
std::string AudioTracksOf(const AVFormatContext& context) {
    std::string names;
    for (unsigned index = 0; index < context.nb_streams; ++index) {
        const AVStream& stream = *context.streams[index];
        if (stream.codecpar->codec_type != AVMEDIA_TYPE_AUDIO)
            continue;
        const std::string language = LanguageOf(stream);
        names += (names.empty() ? "" : ", ") + std::to_string(stream.index) +
                 (language.empty() ? std::string() : " (" + language + ')');
    }
    return names;
}

// Better streams compare greater.
std::tuple<bool, bool, std::int64_t, std::int64_t> VideoRank(const AVStream& stream) {
    const AVCodecParameters& parameters = *stream.codecpar;
    return {Decoder::FindCodec(stream) != nullptr, (stream.disposition & AV_DISPOSITION_DEFAULT) != 0,
            static_cast<std::int64_t>(parameters.width) * parameters.height, parameters.bit_rate};
}

} // namespace

MediaProbe::MediaProbe(const ioPath& path, const std::atomic<bool>& interrupted, const Proc::MediaLimits& limits,
                       Proc::TrackChoice choice)
    : path(path)
    , interrupted(interrupted)
    , choice(std::move(choice))
    , demuxer(path, interrupted, limits) {
    details.limits = limits;
}

void MediaProbe::Run() {
    info.container = demuxer.GetFormatName();
    if (demuxer.IsFilm() && HasForeignSamples(path, interrupted))
        Fail(TranscodingError::SourceUnreadable,
             "Cannot read \"" + path.ToUtf8() + "\": its pictures or sound stand in another file, which it names");
    details.end = FindFollowingFile(path, info.container, interrupted);
    demuxer.SetEnd(details.end);
    details.streams = demuxer.GetStreamInfoCache();
    ChooseTracks();
    DecodeFirstFrames();
    RequireTracks();
    FindEarliestStart();
    JoinClocks();
    FindEnds();
    ChooseRate();
    RefuseInterrupted();
    SettleOrigin();
    NoteRate();
    ReportJoints();
    SettleEnds();
    ReportLostAudio();
    DescribeVideo();
    DescribeAudio();
    ReportShortage();
    RefuseInterrupted();
    if (const std::string newcomer = demuxer.GetNewcomer(); !newcomer.empty())
        details.damage.push_back({path, info.duration, newcomer, true});
    info.contents = ContentsOf(demuxer.GetContext(), details.origin, details.notes);
    info.origin = details.origin;
}

// What was read until then says nothing of the file.
void MediaProbe::RefuseInterrupted() const {
    if (interrupted)
        Fail(TranscodingError::SourceUnreadable, "Reading \"" + path.ToUtf8() + "\" was interrupted");
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
        if (IsPicture(stream) && (video.index < 0 || VideoRank(stream) > VideoRank(*context.streams[video.index])))
            video.index = static_cast<int>(index);
    }
    ChooseAudio();
}

void MediaProbe::ChooseAudio() {
    AVFormatContext& context = demuxer.GetContext();
    if (choice.IsMade() && info.audioTracks > 0) {
        audio.index = FindChosenAudio(context, choice);
        if (audio.index < 0)
            RefuseChoice("it has no such sound track; it has " + AudioTracksOf(context));
        return;
    }
    audio.index = std::max(-1, av_find_best_stream(&context, AVMEDIA_TYPE_AUDIO, -1, video.index, nullptr, 0));
    if (audio.index < 0)
        audio.index = FindAnnouncedAudio(context);
}

void MediaProbe::RefuseChoice(const std::string& reason, SourcePlace place) const {
    const std::string wanted =
        choice.sound ? std::to_string(*choice.sound) : "in the language \"" + choice.soundLanguage + '"';
    Fail(TranscodingError::SourceUnreadable,
         "Cannot take sound track " + wanted + " of \"" + path.ToUtf8() + "\": " + reason, place);
}

void MediaProbe::DecodeFirstFrames() {
    std::vector<int> indices;
    for (const Track* track : Tracks())
        indices.push_back(track->index);
    demuxer.Select(indices);
    FirstFrames frames(demuxer, video, audio);
    for (Track* track : Tracks()) {
        const bool announced = track == &audio && demuxer.GetStream(track->index).codecpar->sample_rate <= 0;
        const std::string trouble = frames.Decode(*track);
        if (!trouble.empty())
            Drop(*track, announced && frames.IsEmpty(*track) ? std::string() : trouble);
    }
    frames.TakeBufferedTimes();
    for (Track* track : {&video, &audio})
        track->waiting.clear();
}

// Without a reason it was nothing but an announcement, which is named as left out.
void MediaProbe::Drop(Track& track, const std::string& reason) {
    if (&track == &audio && choice.IsMade())
        RefuseChoice(reason.empty() ? "nothing of it ever comes" : reason);
    if (!reason.empty())
        details.damage.push_back({path, 0, reason, !demuxer.GetTrouble().empty()});
    track.index = -1;
    track.first.reset();
}

void MediaProbe::FindEarliestStart() {
    details.origin = INT64_MAX;
    for (const Track* track : Tracks())
        details.origin = std::min(details.origin, track->start);
}

void MediaProbe::ChooseRate() {
    if (video.index < 0 || interrupted)
        return;
    const TrackRate found = FindTrackRate(demuxer, video);
    rate = found.choice;
    rateOfAll = found.whole;
    if (rate.rate > Conf::HIGHEST_FRAME_RATE || (rate.rate == 0 && ClaimsTooHighRate(demuxer.GetStream(video.index))))
        Fail(TranscodingError::SourceUnreadable, "Cannot read \"" + path.ToUtf8() + "\": it claims more than " +
                                                     std::to_string(Conf::HIGHEST_FRAME_RATE) + " frames a second");
}

void MediaProbe::NoteRate() {
    if (video.index < 0)
        return;
    const AVStream& stream = demuxer.GetStream(video.index);
    // Of MPEG-4 that shares times, libav knows neither these nor the rate.
    if (info.container == "mpeg" && stream.codecpar->codec_id == AV_CODEC_ID_MPEG4 && stream.avg_frame_rate.num == 0)
        details.notes.push_back(
            "the file does not say when most of its pictures are shown, nor how many a second; both "
            "are reckoned, and some pictures may be missing");
}

void MediaProbe::JoinClocks() {
    if (!DiscontinuityScan::IsNeeded(demuxer))
        return;
    std::vector<int> indices;
    for (const Track* track : Tracks())
        indices.push_back(track->index);
    DiscontinuityScan scan(demuxer, indices);
    FrameTimes times;
    scan.Run([&](const AVPacket& packet) {
        if (packet.stream_index == video.index)
            times.Take(packet, demuxer.GetStream(video.index));
    });
    joints = scan.GetJoints();
    if (joints.empty()) {
        times.SetWhole();
        video.times = std::move(times);
        return;
    }
    details.clock = std::make_shared<TimestampMap>(scan.GetMap());
    demuxer.SetClock(details.clock);
}

void MediaProbe::ReportJoints() {
    for (const DiscontinuityScan::Joint& joint : joints) {
        const std::string how =
            joint.gap == 0 ? "without a gap"
                           : "with the picture held for " + Seconds(joint.gap) + ", in which its sound goes on";
        details.damage.push_back({path, joint.time - details.origin,
                                  "Timestamps jump by " + Seconds(joint.jump) + "; what follows was joined on " + how});
    }
}

void MediaProbe::DescribeFields(Proc::VideoTrackInfo& track, AVFrame& first, const AVCodecParameters& parameters) {
    if (IsLoneField(first, parameters.codec_id))
        details.notes.push_back("coded field by field; each field is shown as a picture of its own");
    details.fieldsByTrack = OnlyTrackTells(first, parameters);
    TagFields(first, parameters, details.fieldsByTrack);
    const bool flagged = HoldsFields(first);
    track.interlaced = flagged || SaysInterlaced(parameters);
    track.topFieldFirst = flagged ? IsTopFieldFirst(first) : SaysTopFieldFirst(parameters);
}

void MediaProbe::DescribeVideo() {
    if (video.index < 0)
        return;
    AVStream& stream = demuxer.GetStream(video.index);
    const AVFrame& first = *video.first;
    Proc::VideoTrackInfo track;
    track.index = video.index;
    track.codec = avcodec_get_name(stream.codecpar->codec_id);
    TagFrame(*video.first, stream, demuxer.GetContext());
    details.tellsColour = TellsColour(first);
    GuessColour(*video.first, stream.codecpar->codec_id);
    details.peak = ColourConverter::PeakOf(first, first.color_trc);
    details.hdr = InfoOf(HdrMetadataOf(first));
    const Orientation orientation = FindOrientation(stream, &first);
    track.rotation = orientation.rotation;
    details.flipped = orientation.flipped;
    if (orientation.askew != 0)
        details.notes.push_back("its pictures are to be turned by " +
                                std::to_string(std::lround(orientation.rotation + orientation.askew)) +
                                " degrees, and are turned by " + std::to_string(orientation.rotation));
    const bool sideways = track.rotation % 180 != 0;
    const AVRational aspect = first.sample_aspect_ratio;
    track.frame = sideways ? MakeFrameInfo(first.height, first.width, {aspect.den, aspect.num})
                           : MakeFrameInfo(first.width, first.height, aspect);
    const char* name =
        av_get_pix_fmt_name(FrameRotator::OutputFormat(static_cast<AVPixelFormat>(first.format), orientation));
    track.pixelFormat = name ? name : "";
    // Whoever cannot handle a pixel format refuses this one by its name.
    if (const std::string foreign = ForeignColourModel(stream); !foreign.empty())
        track.pixelFormat += " (" + foreign + ")";
    track.colour = ColourOf(first);
    track.frameRate = rate.rate;
    track.variableFrameRate = rate.variable;
    track.leftOut = DescribeLeftOut(rate, rateOfAll);
    DescribeFields(track, *video.first, *stream.codecpar);
    track.stillPicture = IsImageFormat(demuxer.GetFormatName()) && video.packets <= 1;
    if (track.stillPicture) {
        track.frameRate = STILL_RATE;
        video.end = video.start + FramesToTime(1, STILL_RATE);
    }
    track.start = video.start - details.origin;
    track.duration = video.end - video.start;
    info.duration = std::max(info.duration, video.end - details.origin);
    if (const auto timecode = FindStartTimecode(demuxer.GetContext(), video, rate.rate)) {
        info.timecode = timecode->time;
        info.timecodeDropsNumbers = timecode->dropsNumbers;
    }
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
    details.audioStart = audio.start - details.origin;
    track.start = std::max<std::int64_t>(details.audioStart, 0);
    track.duration = std::max<std::int64_t>(audio.end - details.origin - track.start, 0);
    info.duration = std::max(info.duration, audio.end - details.origin);
    info.audio = track;
}

} // namespace Kestra::FF
