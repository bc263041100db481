// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/kestra/FakeEncoder.h"
#include "Kestra/Proc/ProcException.h"
#include <utility>

namespace Kestra::Fakes {

FakeEncoder::FakeEncoder(PacketPlan plan, std::shared_ptr<Script> script)
    : FakeEncoder(boost::intrusive_ptr<FakePacketSource>(new FakePacketSource(std::move(plan), script)), script) {}

FakeEncoder::FakeEncoder(const boost::intrusive_ptr<Proc::IStream>& stream, std::shared_ptr<Script> script)
    : FakeEncoder(boost::intrusive_ptr<FakePacketSource>(new FakePacketSource(stream, script)), script) {}

FakeEncoder::FakeEncoder(const boost::intrusive_ptr<FakePacketSource>& source, std::shared_ptr<Script> script)
    : IEncoder(source)
    , ownSource(source)
    , script(std::move(script)) {}

FakeEncoder::~FakeEncoder() {
    script->GetLog()->Add("~FakeEncoder");
}

void FakeEncoder::Initialize(const Core::Property& settings) {
    script->Call("Initialize");
    givenSettings.push_back(settings);
}

Core::Property FakeEncoder::GetSettings() const {
    Core::Property all;
    for (const Core::Property& settings : givenSettings) {
        all.Merge(settings);
    }
    return all;
}

void FakeEncoder::Seek(std::int64_t, Proc::SeekMode) {
    script->Call("Seek");
    throw Proc::FilterException("An encoder cannot seek.");
}

void FakeEncoder::PreferFormat(const Conf::IFormatCodec&) {
    script->Call("PreferFormat");
}

} // namespace Kestra::Fakes
