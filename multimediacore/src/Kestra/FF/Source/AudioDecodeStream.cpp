// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Source/AudioDecodeStream.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Wording.h"
#include "Kestra/FF/Data/DataAudioFF.h"
#include "Kestra/FF/Source/InterruptibleRead.h"
#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace Kestra::FF {

namespace {

// In time, not in blocks: those of Vorbis can last 3 ms.
constexpr std::int64_t LOOK_AHEADS_PER_SECOND = 2;
constexpr std::size_t ANCHOR_BLOCKS = 12;
constexpr std::int64_t ANCHORS_PER_SECOND = 4;
// Codecs settle over the blocks before the target: overlaps, bit reservoirs, predictors.
constexpr std::int64_t PREROLL = 3 * TIME_BASE / 10;
// Times within an Ogg page are counted from its ends: right ones are sure only after the next page has begun.
constexpr std::int64_t OGG_PREROLL = 5 * TIME_BASE / 2;
constexpr std::int64_t LEAST_PREROLL = TIME_BASE / 10;
constexpr int PREROLL_TRIES = 3;
constexpr int PREROLL_GROWTH = 8;
// Samples in a tick.
constexpr std::int64_t COARSE_CLOCK = 8;
constexpr std::int64_t SILENCE_BLOCK = 8192;
// An end that is missing by less is a matter of rounding.
constexpr std::int64_t MISSING_END = TIME_BASE / 20;
// A gap so near to damage comes of it.
constexpr std::int64_t DAMAGE_REACH = TIME_BASE;
constexpr int MAX_GAPS_TOLD = 20;
// Opus need not store silence; it then has a packet every 0.4 s.
constexpr std::int64_t UNSTORED_SILENCE = TIME_BASE / 2;

std::string ShapeText(int rate, const AVChannelLayout& layout) {
    std::array<char, 128> name{};
    av_channel_layout_describe(&layout, name.data(), name.size());
    return std::to_string(rate) + " Hz, " + name.data();
}

} // namespace

AudioDecodeStream::AudioDecodeStream(boost::intrusive_ptr<MediaSource> source)
    : source(std::move(source))
    , track(*this->source->GetInfo().audio)
    , duration(track.start + track.duration)
    , total(TimeToSamples(duration, track.sampleRate))
    , pendingSeek(0) {}

AudioDecodeStream::~AudioDecodeStream() {
    const MediaSource::Reading reading(*source); // closing a file may hang as well
    decoder.reset();
    demuxer.reset();
}

std::string AudioDecodeStream::Describe() const {
    return source->GetPath().ToUtf8();
}

std::int64_t AudioDecodeStream::GetPosition() const {
    return std::min(duration, SamplesToTime(pendingSeek.value_or(cursor), track.sampleRate));
}

void AudioDecodeStream::GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const {
    format = Conf::IFormatCodecAudio::Create();
    format->SetChannelLayout(track.channelLayout);
    format->SetSampleRate(track.sampleRate);
    format->SetSampleFormat(track.sampleFormat);
    format->SetSampleBits(track.sampleBits);
}

void AudioDecodeStream::Prepare() {
    if (decoder)
        return;
    const MediaSource::Reading reading(*source);
    InterruptibleRead(interrupted, [this] { Open(); });
}

void AudioDecodeStream::Open() {
    auto file = std::make_unique<Demuxer>(source->GetPath(), interrupted, source->GetDetails().limits,
                                          source->GetDetails().streams);
    file->SetEnd(source->GetDetails().end);
    file->Select({track.index});
    file->SetClock(source->GetDetails().clock);
    OpenDecoder(*file);
    const AVChannelLayout layout = ToAvLayout(track.channelLayout);
    normaliser = std::make_unique<SampleNormaliser>(ToAv(static_cast<Conf::SampleFormats>(track.sampleFormat)),
                                                    track.sampleRate, layout);
    drift = std::make_unique<AudioDrift>(track.sampleRate, source->GetDetails().audioJitter);
    demuxer = std::move(file);
}

void AudioDecodeStream::OpenDecoder(Demuxer& file) {
    decoder = std::make_unique<Decoder>(file.GetStream(track.index), 1, source->GetPath().ToUtf8(),
                                        source->GetDetails().limits);
    decoder->SetPacketSupply([this](AVPacket& packet) { return SupplyPacket(packet); });
    decoder->SetDamageReceiver([this](std::int64_t time, const std::string& reason) { OnDamage(time, reason); });
}

void AudioDecodeStream::Seek(std::int64_t time, Proc::SeekMode) {
    pendingSeek = std::clamp<std::int64_t>(TimeToSamples(time, track.sampleRate), 0, total);
}

void AudioDecodeStream::Reset() {
    interrupted = false;
    ForgetBlocks();
    anchored = false;
    pendingSeek = 0;
}

boost::intrusive_ptr<Proc::IDataAudio> AudioDecodeStream::ReadAudio() {
    const MediaSource::Reading reading(*source);
    return InterruptibleRead(interrupted, [this] { return ReadOn(); });
}

boost::intrusive_ptr<Proc::IDataAudio> AudioDecodeStream::ReadOn() {
    Prepare();
    if (pendingSeek)
        ApplySeek();
    while (cursor < total) {
        if (!front)
            PlaceFront();
        RefuseInterrupted(interrupted);
        if (!front || *front > cursor)
            return Silence(front.value_or(total));
        if (auto block = TakeFront())
            return block;
    }
    return {};
}

bool AudioDecodeStream::SupplyPacket(AVPacket& packet) {
    if (demuxer->Read(packet)) {
        if (packet.flags & AV_PKT_FLAG_CORRUPT)
            lastDamage = TimeOf(packet.pts);
        return true;
    }
    if (!demuxer->GetTrouble().empty())
        source->Report(SamplesToTime(flow, track.sampleRate), "Reading ended early: " + demuxer->GetTrouble(), true);
    return false;
}

// In the stream; where decoding is when there is no timestamp.
std::int64_t AudioDecodeStream::TimeOf(std::int64_t timestamp) const {
    const std::int64_t time = ToEngineTime(timestamp, demuxer->GetStream(track.index).time_base);
    return time == TIME_UNKNOWN ? SamplesToTime(EndOfBlocks(), track.sampleRate)
                                : time - source->GetDetails().audioOrigin;
}

void AudioDecodeStream::OnDamage(std::int64_t timestamp, const std::string& reason) {
    if (settling)
        return;
    lastDamage = TimeOf(timestamp);
    source->Report(lastDamage, "A block of sound could not be decoded: " + reason);
}

// How far a timestamp may be off the sample that it means.
std::int64_t AudioDecodeStream::Rounding() const {
    const std::int64_t tick =
        TimeToSamples(ToEngineTime(1, demuxer->GetStream(track.index).time_base), track.sampleRate) + 1;
    if (source->GetDetails().grainOfContainer)
        return tick / 2 + 1;
    // Where the clock is coarse, the times of blocks that share a packet are counted on with what is rounded already.
    return tick < COARSE_CLOCK ? tick : std::max<std::int64_t>(tick, source->GetDetails().audioGrain / 8);
}

std::int64_t AudioDecodeStream::PlaceOf(const AVFrame& frame) {
    const std::int64_t time = ToEngineTime(frame.best_effort_timestamp, demuxer->GetStream(track.index).time_base);
    if (time == TIME_UNKNOWN)
        return EndOfBlocks() + normaliser->GetDelay();
    const TrackDetails& details = source->GetDetails();
    const std::int64_t place = TimeToSamples(time - details.audioOrigin, track.sampleRate);
    // The very first block may be cut at its start; its place is where the track begins.
    const bool first = !anchored && !settling && blocks.empty();
    const bool offGrid =
        frame.sample_rate != track.sampleRate || (details.grainOfContainer && frame.nb_samples > details.audioGrain);
    return first || offGrid ? place : SnapToGrain(place, details.audioPhase, details.audioGrain, Rounding());
}

bool AudioDecodeStream::DecodeBlock() {
    FrameHandle frame = decoder->Next();
    if (!frame) {
        drained = true;
        Keep(normaliser->Drain(), EndOfBlocks());
        return false;
    }
    if (frame->nb_samples <= 0)
        return true;
    if (!normaliser->HasShape(*frame))
        TellChange(*frame);
    const std::int64_t place = PlaceOf(*frame);
    for (SampleNormaliser::Piece& piece : normaliser->Normalise(std::move(frame)))
        Keep(std::move(piece.samples), piece.isRest ? EndOfBlocks() : place - piece.early);
    return true;
}

void AudioDecodeStream::Keep(FrameHandle samples, std::int64_t place) {
    if (!samples || samples->nb_samples <= 0)
        return;
    decodedAhead += samples->nb_samples;
    blocks.push_back({std::move(samples), place});
}

void AudioDecodeStream::ForgetBlocks() {
    blocks.clear();
    decodedAhead = 0;
    front.reset();
    if (normaliser)
        normaliser->Reset();
    if (drift)
        drift->Settle();
}

std::int64_t AudioDecodeStream::EndOfBlocks() const {
    return blocks.empty() ? flow : blocks.back().place + blocks.back().frame->nb_samples;
}

void AudioDecodeStream::LookAhead(std::size_t count, std::int64_t samples) {
    while (!drained && (blocks.size() < count || decodedAhead < samples) && !interrupted)
        DecodeBlock();
}

void AudioDecodeStream::LookAheadToAnchor() {
    LookAhead(ANCHOR_BLOCKS, track.sampleRate / ANCHORS_PER_SECOND);
}

std::vector<TimedBlock> AudioDecodeStream::Timings() const {
    std::vector<TimedBlock> timings;
    timings.reserve(blocks.size());
    for (const Block& block : blocks)
        timings.push_back({block.place, block.frame->nb_samples});
    return timings;
}

std::int64_t AudioDecodeStream::NextPlace() {
    const TimestampHabit habit = drift->GetHabit();
    const std::int64_t deviation = std::abs(blocks.front().place - flow - habit.drift);
    if (deviation <= GapTolerance(habit.jitter, track.sampleRate))
        return flow;
    LookAhead(1, track.sampleRate / LOOK_AHEADS_PER_SECOND);
    return PlaceNext(Timings(), flow, track.sampleRate, habit);
}

void AudioDecodeStream::PlaceFront() {
    if (settling)
        LookAheadToAnchor();
    else
        LookAhead(1, 0);
    if (blocks.empty())
        return;
    // The first timestamps after a seek can be off, so the way to the target does not follow on but listens to each.
    if (settling)
        front = PlaceFirst(Timings(), track.sampleRate);
    else
        front = anchored ? NextPlace() : TimeToSamples(source->GetDetails().audioStart, track.sampleRate);
    if (anchored && !settling && *front == flow)
        FollowDrift();
    else
        drift->Settle();
    if (anchored && *front > flow && !settling)
        TellGap(*front - flow);
    anchored = true;
    flow = *front + blocks.front().frame->nb_samples;
}

// The block at the front follows on; what its timestamp says otherwise is averaged, and corrected over many samples.
void AudioDecodeStream::FollowDrift() {
    drift->Take(blocks.front().place - flow, blocks.front().frame->nb_samples);
    const std::int64_t correction = drift->IsDue() ? drift->Correct() : 0;
    if (correction == 0)
        return;
    normaliser->Stretch(correction, drift->Distance());
    source->Note("the timestamps of its sound drift away from its samples; it is stretched to follow them");
}

void AudioDecodeStream::TellGap(std::int64_t length) {
    const std::int64_t begin = SamplesToTime(flow, track.sampleRate);
    const std::int64_t duration = SamplesToTime(length, track.sampleRate);
    // What lies before the start is not heard; that is where the container means it to end, if it can say so.
    if (TimeToSamples(begin + duration, track.sampleRate) <= Rounding())
        return;
    if (lastDamage != TIME_UNKNOWN && begin - DAMAGE_REACH < lastDamage && lastDamage < begin + duration + DAMAGE_REACH)
        return source->Report(begin, "Sound is missing; silence stands in for it");
    if ((track.codec == "opus" && duration < UNSTORED_SILENCE) || gapsTold > MAX_GAPS_TOLD)
        return;
    source->Note(gapsTold++ < MAX_GAPS_TOLD
                     ? "its sound has a gap of " + Seconds(duration) + " at " + Seconds(begin) + ", filled with silence"
                     : "its sound has more gaps, all filled with silence");
}

void AudioDecodeStream::TellChange(const AVFrame& frame) {
    const AVChannelLayout layout = ToAvLayout(track.channelLayout);
    source->Note("its sound changes to " + ShapeText(frame.sample_rate, frame.ch_layout) +
                 " on the way; it is converted to " + ShapeText(track.sampleRate, layout) + ", as it begins");
}

boost::intrusive_ptr<Proc::IDataAudio> AudioDecodeStream::Silence(std::int64_t until) {
    if (!front && SamplesToTime(until - cursor, track.sampleRate) > MISSING_END && until == total && flow == cursor)
        source->Report(SamplesToTime(cursor, track.sampleRate),
                       "Sound is missing at the end; silence stands in for it");
    const std::int64_t count = std::min({until - cursor, total - cursor, SILENCE_BLOCK});
    return Emit(normaliser->MakeSilence(static_cast<int>(count)), 0);
}

boost::intrusive_ptr<Proc::IDataAudio> AudioDecodeStream::TakeFront() {
    FrameHandle frame = std::move(blocks.front().frame);
    blocks.pop_front();
    decodedAhead -= frame->nb_samples;
    const std::int64_t from = cursor - *front;
    front.reset();
    if (from >= frame->nb_samples)
        return {};
    settling = false;
    return Emit(std::move(frame), from);
}

boost::intrusive_ptr<Proc::IDataAudio> AudioDecodeStream::Emit(FrameHandle frame, std::int64_t from) {
    const std::int64_t time = SamplesToTime(cursor, track.sampleRate);
    const std::int64_t count = std::min(frame->nb_samples - from, total - cursor);
    const bool whole = from == 0 && count == frame->nb_samples;
    cursor += count;
    boost::intrusive_ptr<Proc::IDataAudio> block = new DataAudioFF(std::move(frame), time);
    if (!whole)
        block = block->Slice(from, count);
    block->SetTime(time);
    // Ends are rounded once, from the start of the stream, so that blocks touch.
    block->SetDuration(SamplesToTime(cursor, track.sampleRate) - time);
    return block;
}

// Where timestamps jitter or stand still, only that tells which sample is which.
bool AudioDecodeStream::IsReadThrough() const {
    return source->GetDetails().audioJitter > 0 || source->GetDetails().audioStandsStill;
}

void AudioDecodeStream::ApplySeek() {
    const std::int64_t target = *pendingSeek;
    // Then whatever lies ahead is reached by reading on: from the start it would be further.
    const bool near = target - cursor < track.sampleRate || IsReadThrough();
    const bool ahead = anchored && target >= cursor && near;
    if (!ahead) {
        const bool ogg = std::strcmp(demuxer->GetFormatName(), "ogg") == 0;
        std::int64_t preroll = TimeToSamples(ogg ? OGG_PREROLL : PREROLL, track.sampleRate);
        int tries = 0;
        while (!LandBefore(target, preroll) && ++tries < PREROLL_TRIES && !interrupted)
            preroll *= PREROLL_GROWTH;
        if (tries == PREROLL_TRIES)
            StartOver();
    }
    cursor = target;
    if (!interrupted)
        pendingSeek.reset();
}

void AudioDecodeStream::StartOver() {
    ForgetBlocks();
    demuxer->Rewind();
    // One that is emptied does not leave out again what the codec puts in front.
    OpenDecoder(*demuxer);
    // What comes has to be what came the first time.
    drift = std::make_unique<AudioDrift>(track.sampleRate, source->GetDetails().audioJitter);
    anchored = false;
    drained = false;
    settling = false;
    flow = 0;
}

bool AudioDecodeStream::LandBefore(std::int64_t sample, std::int64_t preroll) {
    const std::int64_t landing = sample - preroll;
    if (landing <= TimeToSamples(track.start, track.sampleRate) || IsReadThrough()) {
        StartOver();
        return true;
    }
    const std::int64_t time = SamplesToTime(landing, track.sampleRate) + source->GetDetails().audioOrigin;
    if (!demuxer->Seek(track.index, FromEngineTime(time, demuxer->GetStream(track.index).time_base)))
        return false;
    decoder->Flush();
    ForgetBlocks();
    drained = false;
    anchored = false;
    settling = true;
    LookAheadToAnchor();
    if (blocks.empty())
        return false;
    flow = PlaceFirst(Timings(), track.sampleRate);
    anchored = true;
    return flow <= sample - TimeToSamples(LEAST_PREROLL, track.sampleRate);
}

} // namespace Kestra::FF
