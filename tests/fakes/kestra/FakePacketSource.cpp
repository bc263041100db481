// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/kestra/FakePacketSource.h"
#include "Kestra/Conf/IFormatCodecAudio.h"
#include "Kestra/Conf/IFormatCodecVideo.h"
#include "Kestra/Proc/Interrupted.h"
#include "fakes/kestra/FakeData.h"
#include <utility>

namespace Kestra::Fakes {

FakePacketSource::FakePacketSource(PacketPlan plan, std::shared_ptr<Script> script)
    : plan(std::move(plan))
    , script(std::move(script)) {}

FakePacketSource::FakePacketSource(boost::intrusive_ptr<Proc::IStream> stream, std::shared_ptr<Script> script)
    : stream(std::move(stream))
    , script(std::move(script)) {}

void FakePacketSource::Prepare() {
    script->Call("Prepare");
    if (stream != nullptr) {
        stream->Prepare();
    }
}

boost::intrusive_ptr<Proc::IDataRaw> FakePacketSource::ReadPacket() {
    script->Call("ReadRaw " + std::to_string(next));
    if (interrupted) {
        throw Proc::Interrupted();
    }
    auto packet = stream != nullptr ? MakeFromStream() : MakePlanned();
    if (packet != nullptr) {
        ++next;
        position = packet->GetTime() + packet->GetDuration();
    }
    return packet;
}

boost::intrusive_ptr<Proc::IDataRaw> FakePacketSource::MakePlanned() {
    if (next >= plan.count) {
        return nullptr;
    }
    return new FakePacket(next * plan.period, plan.period, plan.size, plan.lifeToken);
}

boost::intrusive_ptr<Proc::IDataRaw> FakePacketSource::MakeFromStream() {
    const auto piece = stream->ReadData();
    return piece == nullptr ? nullptr : new FakePacket(piece->GetTime(), piece->GetDuration(), plan.size);
}

void FakePacketSource::GetFormat(boost::intrusive_ptr<Conf::IFormatCodec>& format) const {
    if (stream != nullptr) {
        stream->GetFormatCodec(format);
    } else if (plan.sound) {
        format = Conf::IFormatCodecAudio::Create();
    } else {
        format = Conf::IFormatCodecVideo::Create();
    }
}

std::int64_t FakePacketSource::GetDuration() const {
    script->Call("GetDuration");
    if (stream != nullptr) {
        return stream->GetDuration();
    }
    return plan.saidDuration == -1 ? plan.count * plan.period : plan.saidDuration;
}

void FakePacketSource::AlignTo(std::int64_t start, std::int64_t end) {
    script->Call("AlignTo " + std::to_string(start) + " " + std::to_string(end));
}

void FakePacketSource::Interrupt() {
    interrupted = true;
    script->Call("Interrupt");
    if (stream != nullptr) {
        stream->Interrupt();
    }
    if (!stubborn) {
        script->OpenGates();
    }
}

void FakePacketSource::Reset() {
    script->Call("Reset");
    if (stream != nullptr) {
        stream->Reset();
    }
    interrupted = false;
    next = 0;
    position = 0;
}

} // namespace Kestra::Fakes
