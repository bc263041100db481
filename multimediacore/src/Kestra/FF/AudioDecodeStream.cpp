#include "Kestra/FF/AudioDecodeStream.h"

#include "Kestra/FF/Convert.h"
#include "Kestra/FF/DataAudioFF.h"
#include <algorithm>
#include <cstring>
#include <utility>

namespace Kestra::FF {

namespace {

constexpr std::size_t LOOK_AHEAD = 5;
constexpr std::size_t ANCHOR_BLOCKS = 12;
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

} // namespace

AudioDecodeStream::AudioDecodeStream(boost::intrusive_ptr<MediaSource> source)
    : source(std::move(source))
    , track(*this->source->GetInfo().audio)
    , duration(track.start + track.duration)
    , total(TimeToSamples(duration, track.sampleRate))
    , pendingSeek(0) {}

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
}

void AudioDecodeStream::Prepare() {
    if (decoder)
        return;
    auto file = std::make_unique<Demuxer>(source->GetPath(), interrupted, source->GetDetails().streams);
    file->Select({track.index});
    file->SetClock(source->GetDetails().clock);
    decoder = std::make_unique<Decoder>(file->GetStream(track.index), 1, source->GetPath().ToUtf8());
    decoder->SetPacketSupply([this](AVPacket& packet) { return SupplyPacket(packet); });
    decoder->SetDamageReceiver([this](std::int64_t time, const std::string& reason) { OnDamage(time, reason); });
    AVChannelLayout layout = ToAvLayout(track.channelLayout, track.channels);
    normaliser = std::make_unique<SampleNormaliser>(ToAv(static_cast<Conf::SampleFormats>(track.sampleFormat)),
                                                    track.sampleRate, layout);
    demuxer = std::move(file);
}

void AudioDecodeStream::Seek(std::int64_t time, Proc::SeekMode) {
    pendingSeek = std::clamp<std::int64_t>(TimeToSamples(time, track.sampleRate), 0, total);
}

void AudioDecodeStream::Reset() {
    interrupted = false;
    blocks.clear();
    anchored = false;
    pendingSeek = 0;
}

boost::intrusive_ptr<Proc::IDataAudio> AudioDecodeStream::ReadAudio() {
    if (interrupted)
        return {};
    Prepare();
    if (pendingSeek)
        ApplySeek();
    while (!interrupted && cursor < total) {
        if (!front)
            PlaceFront();
        if (interrupted)
            break;
        if (!front || *front > cursor)
            return Silence(front.value_or(total));
        if (auto block = TakeFront())
            return block;
    }
    return {};
}

bool AudioDecodeStream::SupplyPacket(AVPacket& packet) {
    if (demuxer->Read(packet))
        return true;
    if (!demuxer->GetTrouble().empty())
        source->Report(SamplesToTime(flow, track.sampleRate), "Reading ended early: " + demuxer->GetTrouble(), true);
    return false;
}

void AudioDecodeStream::OnDamage(std::int64_t timestamp, const std::string& reason) {
    if (settling)
        return;
    const std::int64_t time = ToEngineTime(timestamp, demuxer->GetStream(track.index).time_base);
    source->Report(time == TIME_UNKNOWN ? SamplesToTime(flow, track.sampleRate) : time - source->GetDetails().origin,
                   "A block of sound could not be decoded: " + reason);
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
        return blocks.empty() ? flow : blocks.back().place + blocks.back().frame->nb_samples;
    const TrackDetails& details = source->GetDetails();
    const std::int64_t place = TimeToSamples(time - details.origin, track.sampleRate);
    // The very first block may be cut at its start; its place is where the track begins.
    const bool first = !anchored && !settling && blocks.empty();
    const bool offGrid = details.grainOfContainer && frame.nb_samples > details.audioGrain;
    return first || offGrid ? place : SnapToGrain(place, details.audioPhase, details.audioGrain, Rounding());
}

bool AudioDecodeStream::DecodeBlock() {
    FrameHandle frame = decoder->Next();
    if (!frame) {
        drained = true;
        return false;
    }
    if (frame->nb_samples <= 0)
        return true;
    Block block;
    block.place = PlaceOf(*frame);
    block.frame = normaliser->Normalise(std::move(frame));
    if (block.frame->nb_samples > 0)
        blocks.push_back(std::move(block));
    return true;
}

void AudioDecodeStream::LookAhead(std::size_t count) {
    while (!drained && blocks.size() < count && !interrupted)
        DecodeBlock();
}

std::vector<TimedBlock> AudioDecodeStream::Timings() const {
    std::vector<TimedBlock> timings;
    for (const Block& block : blocks)
        timings.push_back({block.place, block.frame->nb_samples});
    return timings;
}

void AudioDecodeStream::PlaceFront() {
    LookAhead(settling ? ANCHOR_BLOCKS : LOOK_AHEAD);
    if (blocks.empty())
        return;
    if (settling) {
        // The first timestamps after a seek can be off, so the way to the target does not follow on but listens to
        // each.
        front = PlaceFirst(Timings(), track.sampleRate);
    } else {
        front = anchored ? PlaceNext(Timings(), flow, track.sampleRate) : blocks.front().place;
    }
    // Silence of an Opus stream need not be stored; elsewhere a gap is a loss.
    if (anchored && *front > flow && !settling && track.codec != "opus")
        source->Report(SamplesToTime(flow, track.sampleRate), "Sound is missing; silence stands in for it");
    anchored = true;
    flow = *front + blocks.front().frame->nb_samples;
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

void AudioDecodeStream::ApplySeek() {
    const std::int64_t target = *pendingSeek;
    const bool ahead = anchored && target >= cursor && target - cursor < track.sampleRate;
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
    blocks.clear();
    front.reset();
    demuxer->Rewind();
    decoder->Flush();
    anchored = false;
    drained = false;
    settling = false;
    flow = 0;
}

bool AudioDecodeStream::LandBefore(std::int64_t sample, std::int64_t preroll) {
    const std::int64_t landing = sample - preroll;
    if (landing <= TimeToSamples(track.start, track.sampleRate)) {
        StartOver();
        return true;
    }
    const std::int64_t time = SamplesToTime(landing, track.sampleRate) + source->GetDetails().origin;
    if (!demuxer->Seek(track.index, FromEngineTime(time, demuxer->GetStream(track.index).time_base)))
        return false;
    decoder->Flush();
    blocks.clear();
    front.reset();
    drained = false;
    anchored = false;
    settling = true;
    LookAhead(ANCHOR_BLOCKS);
    if (blocks.empty())
        return false;
    flow = PlaceFirst(Timings(), track.sampleRate);
    anchored = true;
    return flow <= sample - TimeToSamples(LEAST_PREROLL, track.sampleRate);
}

} // namespace Kestra::FF
