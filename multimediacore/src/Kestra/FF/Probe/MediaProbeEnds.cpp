// SPDX-License-Identifier: GPL-3.0-or-later
// What a media file promises and what it holds: where its audio lies by its samples, and where it ends too early.
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Wording.h"
#include "Kestra/FF/Demux/ContainerEnd.h"
#include "Kestra/FF/Probe/MediaProbe.h"
#include <algorithm>
#include <cstdlib>

namespace Kestra::FF {

namespace {

// Where the promise is counted, or bytes are known to be missing, it is this, and some packets.
constexpr std::int64_t SMALL_SHORTAGE = 3 * TIME_BASE / 50;
constexpr std::int64_t ROUNDED_PACKETS = 3;
// Sound that is missing, in time and as a share of what is heard, beyond what codecs put in front and behind.
constexpr std::int64_t LEAST_LOSS = TIME_BASE;
constexpr std::int64_t LOST_SHARE = 50;

} // namespace

void MediaProbe::BeginLevels(bool ofAll) {
    levelsOfAll = ofAll;
    levels.Clear();
    packetSamples = std::make_unique<PacketSamples>(demuxer.GetStream(audio.index));
}

void MediaProbe::SteadyAudio() {
    if (audio.index < 0)
        return;
    details.audioStandsStill = demuxer.StandsStill(audio.index);
    if (details.audioStandsStill)
        details.notes.push_back("many packets of its sound have one time; they follow each other");
    if (!levels.AreJittery())
        return;
    // Rare enough to be read through: then not one sample is taken for jitter.
    if (!levelsOfAll)
        ScanToEnd({&audio});
    const std::int64_t end = levels.GetEnd();
    if (audio.waiting.empty() || end <= audio.start)
        return;
    details.audioJitter = std::max<std::int64_t>(TimeToSamples(levels.GetJitter(), audio.first->sample_rate), 1);
    audio.start += levels.GetStartCorrection();
    // What is skipped of the first packet is known to the sample, where a coarse clock rounds it.
    const std::int64_t skipped =
        levels.GetFirstLength() - SamplesToTime(audio.first->nb_samples, audio.first->sample_rate);
    const std::int64_t tick = ToEngineTime(1, demuxer.GetStream(audio.index).time_base);
    if (std::abs(levels.GetStart() + skipped - audio.start) <= tick)
        audio.start = levels.GetStart() + skipped;
    audio.end = end - packetSamples->PaddingOf(*audio.waiting.back());
}

// Where a clock hardly goes on, or back again and again, most of the samples have no place. Of parts that are joined,
// headers count like packets.
void MediaProbe::ReportLostAudio() {
    if (audio.index < 0 || !levelsOfAll || details.clock)
        return;
    const std::int64_t heard = audio.end - audio.start;
    const std::int64_t lost = levels.GetLength() - heard;
    if (lost > LEAST_LOSS && lost > heard / LOST_SHARE)
        details.damage.push_back({path, audio.end - details.origin,
                                  "Its sound lasts for " + Seconds(levels.GetLength()) +
                                      ", but its timestamps only for " + Seconds(heard) + "; the rest is left out"});
}

std::int64_t MediaProbe::ClaimedLength() {
    const AVFormatContext& context = demuxer.GetContext();
    // What a file with several clocks claims is the distance of timestamps on different ones.
    if (details.clock || (info.video && info.video->stillPicture))
        return 0;
    // Reckoned from the size of the file and the rate of bits that its beginning has.
    if (context.duration_estimation_method == AVFMT_DURATION_FROM_BITRATE)
        return 0;
    std::int64_t claim = 0;
    for (const Track* track : Tracks()) {
        const AVStream& stream = demuxer.GetStream(track->index);
        if (stream.duration != AV_NOPTS_VALUE && stream.duration > 0)
            claim = std::max(claim, PromisedEnd(*track) - details.origin);
    }
    // The container's own length may be that of its subtitles, or of a sound track that was not chosen.
    if (claim == 0 && context.nb_streams == Tracks().size() &&
        context.duration_estimation_method == AVFMT_DURATION_FROM_STREAM && context.duration > 0)
        claim = ToEngineTime(context.duration, {1, AV_TIME_BASE});
    return claim;
}

void MediaProbe::ReportShortage() {
    const std::string format = demuxer.GetFormatName();
    const ContainerEnd end = FindContainerEnd(path, format, interrupted);
    const bool counted = format == "flac" || format == "mp3";
    const std::int64_t small = std::max(SMALL_SHORTAGE, ROUNDED_PACKETS * std::max(video.lastLength, audio.lastLength));
    const std::int64_t claim = ClaimedLength();
    const std::string begin = "The file ends at " + Seconds(info.duration) + ", ";
    const std::string bytes = std::to_string(end.missing) + " bytes";
    // Audio behind the picture is there, whether it is heard or not.
    const std::int64_t held = std::max(info.duration, audioEnd - details.origin);
    // A track that could not be searched for to the end of the file is missing behind all that was found.
    for (Proc::DamageReport& report : details.damage)
        report.time = report.incomplete ? info.duration : report.time;
    if (details.end > 0)
        details.damage.push_back({path, info.duration,
                                  begin + "and another file of its kind, which is not read, follows behind it: it is "
                                          "incomplete",
                                  true});
    else if (claim > held + (counted || end.missing > 0 ? std::min(small, SHORTAGE) : SHORTAGE))
        details.damage.push_back(
            {path, info.duration, begin + "but its header claims " + Seconds(claim) + ": it is incomplete", true});
    else if (end.ofMedia)
        details.damage.push_back(
            {path, info.duration, begin + "and " + bytes + " that it announces are missing: it is incomplete", true});
    else if (end.missing > 0)
        details.damage.push_back({path, info.duration, "Behind what can be seen and heard, " + bytes + " are missing"});
    else if (end.unmarked)
        details.damage.push_back({path, info.duration, "The file has no last page; it may have been cut off"});
    else if (end.withinPacket)
        details.damage.push_back(
            {path, info.duration, "The file ends within a packet: it was cut off, and what it ended with is missing"});
}

} // namespace Kestra::FF
