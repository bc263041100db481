// SPDX-License-Identifier: GPL-3.0-or-later
// Where the tracks of a media file begin, and how they belong together.
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/DecoderPreroll.h"
#include "Kestra/FF/Av/Wording.h"
#include "Kestra/FF/Demux/EditList.h"
#include "Kestra/FF/Probe/ChunkStart.h"
#include "Kestra/FF/Probe/FragmentTimes.h"
#include "Kestra/FF/Probe/FrameGrain.h"
#include "Kestra/FF/Probe/MediaProbe.h"
#include <algorithm>
#include <cstring>

namespace Kestra::FF {

namespace {

// Pictures that lead an open group may be lost at the start of any recording; what is held for longer looks frozen.
constexpr std::int64_t LONGEST_LEAD = TIME_BASE / 5;
// A picture lasts no longer where an edit begins within it.
constexpr std::int64_t EDIT_SEARCH = 10 * TIME_BASE;

} // namespace

std::optional<VideoSpan> MediaProbe::VideoSpanOf() const {
    if (video.index < 0)
        return {};
    return VideoSpan{video.start, video.end, rate.rate};
}

std::optional<AudioSpan> MediaProbe::AudioSpanOf() {
    if (audio.index < 0)
        return {};
    const AVCodecParameters& parameters = *demuxer.GetStream(audio.index).codecpar;
    const AVFrame& first = *audio.first;
    const int block = std::max(audio.frameSize, first.nb_samples);
    return AudioSpan{audio.start, audio.end, SamplesToTime(PrimingSamples(parameters), first.sample_rate),
                     SamplesToTime(PaddingSamples(parameters, block), first.sample_rate)};
}

void MediaProbe::SettleOrigin() {
    NoteEdits();
    const std::int64_t audioShift = AlignChunkedTracks() + AlignEdits();
    if (choice.origin) {
        details.origin = *choice.origin;
    } else {
        details.origin = FindOrigin(VideoSpanOf(), AudioSpanOf());
        SkipUndecodableLead();
    }
    details.audioOrigin = details.origin - audioShift;
    SettleAudioGrid();
}

// Answers with what has been added to the times of the audio.
std::int64_t MediaProbe::AlignChunkedTracks() {
    if (video.index < 0 || audio.index < 0 || rate.rate <= 0 || video.firstDecodeTime == TIME_UNKNOWN ||
        video.secondDecodeTime == TIME_UNKNOWN)
        return 0;
    const bool fragments = demuxer.IsFilm();
    if (!fragments && std::strcmp(demuxer.GetFormatName(), "avi") != 0)
        return 0;
    const char* const tag = fragments ? "encoder" : "software";
    const AVDictionaryEntry* writer = av_dict_get(demuxer.GetContext().metadata, tag, nullptr, 0);
    const bool byLibav = writer && std::strncmp(writer->value, "Lavf", 4) == 0;
    const ChunkStart start{video.firstDecodeTime,
                           video.secondDecodeTime,
                           video.start,
                           FramesToTime(1, rate.rate),
                           byLibav,
                           audio.first ? audio.first->nb_samples : 0};
    const AVCodecParameters& sound = *demuxer.GetStream(audio.index).codecpar;
    const std::int64_t tick = ToEngineTime(1, demuxer.GetStream(video.index).time_base);
    ChunkShift shift = fragments ? AlignFragments(start, sound, tick) : AlignChunks(start, sound);
    if (fragments)
        audio.start += FirstBlockShift(start, AudioStartOf(), sound, tick);
    video.start += shift.firstFrame;
    if (shift.firstFrame > 0) {
        video.firstShown = video.start;
        video.firstMoves = shift.firstFrame;
        // With its first picture where it belongs, it may be a constant one.
        if (rate.variable)
            ChooseRate();
    } else if (fragments) {
        shift.audio = AlignFragmentsFromStart(byLibav);
    }
    for (std::int64_t* time : {&audio.start, &audio.end})
        *time += shift.audio;
    return shift.audio;
}

// The second packet may not have been read for the first frames, but libav lists it as soon as its fragment is known.
AudioStart MediaProbe::AudioStartOf() {
    AVStream& stream = demuxer.GetStream(audio.index);
    const AVIndexEntry* const first = avformat_index_get_entry(&stream, 0);
    const AVIndexEntry* const second = avformat_index_get_entry(&stream, 1);
    if (!second || audio.firstDecodeTime != ToEngineTime(first->timestamp, stream.time_base))
        return {};
    const std::int64_t end = audio.start + SamplesToTime(audio.first->nb_samples, audio.first->sample_rate);
    return {audio.firstDecodeTime, ToEngineTime(second->timestamp, stream.time_base) - end};
}

std::int64_t MediaProbe::AlignFragmentsFromStart(bool byLibav) {
    const AVStream& stream = demuxer.GetStream(video.index);
    const AVStream& sound = demuxer.GetStream(audio.index);
    const FragmentTimes times = FindFragmentTimes(path, stream.id, sound.id, interrupted);
    if (!times.fromStart)
        return 0;
    const std::int64_t late = ToEngineTime(times.late, stream.time_base);
    if (times.tellsPriming)
        return late;
    const UntoldPriming priming = FindUntoldPriming(*sound.codecpar, byLibav);
    if (priming.taken > 0 && sound.codecpar->initial_padding <= 0)
        details.notes.push_back("the file does not say what the sound's encoder put in front: " +
                                Seconds(priming.taken) + " are taken for that, and left out");
    if (priming.possible > 0)
        details.notes.push_back("the file does not say what the sound's encoder put in front: the sound may be up to " +
                                Seconds(priming.possible) + " late");
    return late - priming.taken;
}

void MediaProbe::NoteEdits() {
    for (const Track* track : Tracks()) {
        if (!demuxer.IsFilm())
            return;
        const EditList edits = FindEditList(path, demuxer.GetStream(track->index).id, interrupted);
        const std::string whose = track == &video ? "its picture" : "its sound";
        if (edits.changesSpeed)
            details.notes.push_back("its edit list changes the speed of " + whose +
                                    ", or holds it; that is not followed, and parts may be missing or come twice");
        if (edits.pauses)
            details.notes.push_back("its edit list has a pause in " + whose +
                                    "; that is not followed, and something else may come in its place");
    }
}

// The time of the packet as the sample has it; TIME_UNKNOWN where it is not found `near` there.
std::int64_t MediaProbe::UneditedTimeOf(const AVPacket& packet, std::int64_t near) {
    Demuxer samples(path, interrupted, demuxer.GetLimits());
    samples.SetEnd(details.end);
    samples.IgnoreEdits();
    samples.Select({packet.stream_index});
    const AVRational timeBase = samples.GetStream(packet.stream_index).time_base;
    if (near > FromEngineTime(EDIT_SEARCH, timeBase) && !samples.Seek(packet.stream_index, near))
        return TIME_UNKNOWN;
    const std::int64_t last = near + FromEngineTime(EDIT_SEARCH, timeBase);
    for (const PacketHandle found = MakePacket(); samples.Read(*found) && found->dts <= last;)
        if (found->pos == packet.pos)
            return found->pts;
    return TIME_UNKNOWN;
}

// An edit may begin within a picture. libav leaves that one out and lets the next begin with the edit: all pictures
// then come too early by what the one before was still to be seen.
std::int64_t MediaProbe::AlignEdits() {
    if (video.index < 0 || audio.index < 0 || !demuxer.IsFilm() || !video.opening || video.opening->pos < 0 ||
        video.opening->pts == AV_NOPTS_VALUE || !(video.opening->flags & AV_PKT_FLAG_DISCARD))
        return 0;
    const AVStream& stream = demuxer.GetStream(video.index);
    const EditList edits = FindEditList(path, stream.id, interrupted);
    if (edits.mediaTime <= 0 || edits.changesSpeed)
        return 0;
    const std::int64_t begin = edits.mediaTime - FromEngineTime(edits.wait, stream.time_base);
    const std::int64_t shown = UneditedTimeOf(*video.opening, video.opening->pts + begin);
    if (shown == TIME_UNKNOWN)
        return 0;
    const std::int64_t early = ToEngineTime(shown - begin - video.opening->pts, stream.time_base);
    if (early <= 0 || early > EDIT_SEARCH)
        return 0;
    for (std::int64_t* time : {&audio.start, &audio.end})
        *time -= early;
    return -early;
}

void MediaProbe::SettleAudioGrid() {
    if (audio.index < 0)
        return;
    const AVFrame& first = *audio.first;
    const FrameGrain grain = FindFrameGrain(demuxer.GetStream(audio.index), audio.frameSize, first.nb_samples);
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
    const std::int64_t begin = std::min(audio.index < 0 ? video.start : audio.start, video.firstShown);
    // Audio that begins with the pictures that can be shown, or later, had nothing cut off.
    details.origin = video.start;
    details.notes.push_back("begins without a keyframe: what lies before the first picture that can be decoded, " +
                            Seconds(video.start - begin) + ", is left out");
}

} // namespace Kestra::FF
