// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/counting/CountedOutput.h"

namespace Kestra::Fakes {

using Packet = boost::intrusive_ptr<Proc::IDataRaw>;
using Format = boost::intrusive_ptr<Conf::IFormatCodec>;

CountedPacketSource::CountedPacketSource(boost::intrusive_ptr<Proc::IPacketSource> inner, Counter counter,
                                         std::string name)
    : inner(std::move(inner))
    , counter(std::move(counter))
    , name(std::move(name)) {}

void CountedPacketSource::Prepare() {
    Call("Prepare");
    inner->Prepare();
}

Packet CountedPacketSource::ReadPacket() {
    Call("ReadPacket");
    return inner->ReadPacket();
}

void CountedPacketSource::GetFormat(Format& format) const {
    Call("GetFormat");
    inner->GetFormat(format);
}

std::int64_t CountedPacketSource::GetDuration() const {
    Call("GetDuration");
    return inner->GetDuration();
}

std::int64_t CountedPacketSource::GetPosition() const {
    Call("GetPosition");
    return inner->GetPosition();
}

void CountedPacketSource::AlignTo(std::int64_t start, std::int64_t end) {
    Call("AlignTo");
    inner->AlignTo(start, end);
}

void CountedPacketSource::Reset() {
    Call("Reset");
    inner->Reset();
}

std::vector<boost::intrusive_ptr<Proc::IPacketSource>> CountedPacketSource::GetFurtherTracks() const {
    Call("GetFurtherTracks");
    std::vector<boost::intrusive_ptr<Proc::IPacketSource>> tracks;
    for (const auto& track : inner->GetFurtherTracks())
        tracks.emplace_back(new CountedPacketSource(track, counter, name));
    return tracks;
}

std::string CountedPacketSource::Describe() const {
    Call("Describe");
    return inner->Describe();
}

CountedEncoder::CountedEncoder(const boost::intrusive_ptr<Proc::IEncoder>& inner, const Counter& counter,
                               const std::string& name)
    : inner(inner)
    , counter(counter)
    , name(name) {
    packetSource = new CountedPacketSource(inner->GetPacketSource(), counter, name + "Packets");
}

Packet CountedEncoder::ReadRaw() {
    Call("ReadRaw");
    return packetSource->ReadPacket();
}

void CountedEncoder::Initialize(const Core::Property& settings) {
    Call("Initialize");
    inner->Initialize(settings);
}

Core::Property CountedEncoder::GetSettings() const {
    Call("GetSettings");
    return inner->GetSettings();
}

std::int64_t CountedEncoder::GetDuration() const {
    Call("GetDuration");
    return packetSource->GetDuration();
}

std::int64_t CountedEncoder::GetPosition() const {
    Call("GetPosition");
    return packetSource->GetPosition();
}

void CountedEncoder::Seek(std::int64_t time, Proc::SeekMode mode) {
    Call("Seek");
    inner->Seek(time, mode);
}

bool CountedEncoder::IsSeekable() const {
    Call("IsSeekable");
    return inner->IsSeekable();
}

void CountedEncoder::GetFormatCodec(Format& format) const {
    Call("GetFormatCodec");
    packetSource->GetFormat(format);
}

std::string CountedEncoder::Describe() const {
    Call("Describe");
    return packetSource->Describe();
}

void CountedEncoder::PreferFormat(const Conf::IFormatCodec& format) {
    Call("PreferFormat");
    inner->PreferFormat(format);
}

void CountedEncoder::Prepare() {
    Call("Prepare");
    packetSource->Prepare();
}

void CountedEncoder::Reset() {
    Call("Reset");
    packetSource->Reset();
}

CountedMuxer::CountedMuxer(boost::intrusive_ptr<Proc::IMuxer> inner, Counter counter)
    : inner(std::move(inner))
    , counter(std::move(counter)) {}

int CountedMuxer::AddStream(const Format& format) {
    counter->Call("Muxer.AddStream");
    return inner->AddStream(format);
}

void CountedMuxer::Open() {
    counter->Call("Muxer.Open");
    inner->Open();
}

void CountedMuxer::Write(int index, const Packet& packet) {
    counter->Call("Muxer.Write");
    inner->Write(index, packet);
}

void CountedMuxer::Finish() {
    counter->Call("Muxer.Finish");
    inner->Finish();
}

CountedDataOutput::CountedDataOutput(boost::intrusive_ptr<Core::IDataOutput> inner, Counter counter)
    : inner(std::move(inner))
    , counter(std::move(counter)) {}

void CountedDataOutput::Call(const char* method) const {
    counter->Call(std::string("DataOutput.") + method);
}

void CountedDataOutput::Open() {
    Call("Open");
    inner->Open();
}

void CountedDataOutput::Write(const void* bytes, std::size_t size) {
    Call("Write");
    inner->Write(bytes, size);
}

void CountedDataOutput::Seek(std::int64_t offset) {
    Call("Seek");
    inner->Seek(offset);
}

std::int64_t CountedDataOutput::GetPosition() const {
    Call("GetPosition");
    return inner->GetPosition();
}

std::int64_t CountedDataOutput::GetSize() const {
    Call("GetSize");
    return inner->GetSize();
}

void CountedDataOutput::Close() {
    Call("Close");
    inner->Close();
}

} // namespace Kestra::Fakes
