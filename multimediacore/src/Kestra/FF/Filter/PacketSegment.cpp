// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Filter/PacketSegment.h"

#include "Kestra/Conf/ProgrammeInfo.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/DecoderPreroll.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Data/CodecParametersFF.h"
#include "Kestra/FF/Data/DataRawFF.h"
#include <algorithm>
#include <cstring>
#include <utility>

extern "C" {
#include <libavutil/intreadwrite.h>
}

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

constexpr int OPUS_RATE = 48000;
constexpr int OPUS_PRE_SKIP_OFFSET = 10;
constexpr int OPUS_HEADER_SIZE = 19;

void PatchOpusHeader(AVCodecParameters& parameters) {
    if (parameters.codec_id != AV_CODEC_ID_OPUS || parameters.extradata_size < OPUS_HEADER_SIZE)
        return;
    const std::int64_t skip = av_rescale(parameters.initial_padding, OPUS_RATE, parameters.sample_rate);
    AV_WL16(parameters.extradata + OPUS_PRE_SKIP_OFFSET, static_cast<std::uint16_t>(skip));
}

} // namespace

PacketSegment::PacketSegment(const boost::intrusive_ptr<Proc::IPacketSource>& source, std::int64_t start,
                             std::int64_t end)
    : source(source)
    , start(start)
    , end(end) {}

std::int64_t PacketSegment::Samples(std::int64_t time) const {
    return TimeToSamples(time, rate);
}

void PacketSegment::Prepare() {
    if (prepared)
        return;
    source->AlignTo(start, end);
    source->Prepare();
    ReadFormat();
    FindFirst();
    prepared = true;
}

void PacketSegment::ReadFormat() {
    source->GetFormat(format);
    const CodecParametersFF* known = format ? CodecParametersOf(*format) : nullptr;
    if (!known || known->GetParameters().sample_rate <= 0)
        Fail(TranscodingError::NotSupported, Describe() + " cannot be cut: it is no sound of this engine");
    const AVCodecParameters& parameters = known->GetParameters();
    rate = parameters.sample_rate;
    settling = PrerollSamples(parameters);
    bytesPerSample = av_get_bits_per_sample(parameters.codec_id) / 8 * parameters.ch_layout.nb_channels;
    first = Samples(start);
    last = first + Samples(end - start);
    const std::int64_t whole = source->GetDuration();
    if (whole != TIME_UNKNOWN)
        last = std::clamp(Samples(whole), first, last);
}

/// Whether a decoder that begins with a later packet is settled at the first sample that is kept.
bool PacketSegment::IsSettled(const Proc::IDataRaw& packet) const {
    return Samples(packet.GetTime() + packet.GetDuration()) <= first - settling;
}

void PacketSegment::FindFirst() {
    auto packet = source->ReadPacket();
    while (packet && packet->GetSize() > 0 && IsSettled(*packet))
        packet = source->ReadPacket();
    if (!packet)
        return;
    if (bytesPerSample == 0)
        padding = std::max<std::int64_t>(first - Samples(packet->GetTime()), 0);
    pending.push_back(packet);
}

boost::intrusive_ptr<Proc::IDataRaw> PacketSegment::NextKept() {
    if (pending.empty())
        return source->ReadPacket();
    auto packet = pending.front();
    pending.pop_front();
    return packet;
}

boost::intrusive_ptr<Proc::IDataRaw> PacketSegment::ReadPacket() {
    Prepare();
    const auto packet = NextKept();
    // What comes without bytes carries news of the stream as a whole.
    if (!packet || (packet->GetSize() > 0 && Samples(packet->GetTime()) >= last))
        return nullptr;
    auto result = packet->GetSize() > 0 && bytesPerSample > 0 ? CutBytes(*packet) : Cut(*packet);
    position = std::max(position, result->GetTime() + result->GetDuration() - result->GetTrimEnd());
    return result;
}

boost::intrusive_ptr<Proc::IDataRaw> PacketSegment::Cut(const Proc::IDataRaw& packet) const {
    auto result = packet.Share();
    const std::int64_t from = Samples(packet.GetTime());
    const std::int64_t to = Samples(packet.GetTime() + packet.GetDuration());
    const std::int64_t before = from < first && to > first ? first - from : 0;
    const std::int64_t after = std::max(Samples(packet.GetTrimEnd()), std::max<std::int64_t>(to - last, 0));
    const std::int64_t shift = SamplesToTime(first, rate);
    result->SetTrim(SamplesToTime(before, rate), SamplesToTime(std::min(after, to - from), rate));
    result->SetTime(packet.GetTime() - shift);
    result->SetDecodeTime(packet.GetDecodeTime() - shift);
    return result;
}

boost::intrusive_ptr<Proc::IDataRaw> PacketSegment::CutBytes(const Proc::IDataRaw& packet) const {
    const std::int64_t from = Samples(packet.GetTime());
    const auto count = static_cast<std::int64_t>(packet.GetSize()) / bytesPerSample;
    const std::int64_t begin = std::clamp<std::int64_t>(first - from, 0, count);
    const std::int64_t finish = std::clamp<std::int64_t>(last - from, begin, count);
    PacketHandle part = MakePacketReference(PacketOf(packet));
    part->data += begin * bytesPerSample;
    part->size = static_cast<int>((finish - begin) * bytesPerSample);
    part->pts = part->dts = from + begin - first;
    part->duration = finish - begin;
    return new DataRawFF(std::move(part), {1, rate});
}

void PacketSegment::GetFormat(boost::intrusive_ptr<Conf::IFormatCodec>& result) const {
    if (!prepared)
        return source->GetFormat(result);
    const CodecParametersFF& own = *CodecParametersOf(*format);
    CodecParametersHandle parameters = CopyCodecParameters(own.GetParameters());
    parameters->initial_padding = static_cast<int>(padding);
    PatchOpusHeader(*parameters);
    result = MakeAudioParameters(*parameters, own.GetTimeBase(), format->GetProperty());
    if (const auto programme = Conf::ProgrammeInfo::Of(*result); !programme.IsEmpty())
        programme.Part(start, end).TellIn(*result);
}

std::int64_t PacketSegment::GetDuration() const {
    if (prepared)
        return SamplesToTime(last - first, rate);
    const std::int64_t whole = source->GetDuration();
    return std::max<std::int64_t>((whole == TIME_UNKNOWN ? end : std::min(end, whole)) - start, 0);
}

void PacketSegment::Reset() {
    source->Reset();
    pending.clear();
    format.reset();
    padding = 0;
    position = 0;
    prepared = false;
}

/// Of each the same part.
std::vector<boost::intrusive_ptr<Proc::IPacketSource>> PacketSegment::GetFurtherTracks() const {
    std::vector<boost::intrusive_ptr<Proc::IPacketSource>> tracks;
    for (const auto& track : source->GetFurtherTracks())
        tracks.emplace_back(new PacketSegment(track, start, end));
    return tracks;
}

std::string PacketSegment::Describe() const {
    const auto milliseconds = [](std::int64_t time) {
        return std::to_string(MulDivRound(time, 1, TICKS_PER_MILLISECOND));
    };
    return "segment " + milliseconds(start) + " to " + milliseconds(end) + " ms of " + source->Describe();
}

} // namespace Kestra::FF
