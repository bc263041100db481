// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Fakes::FakeEncoder: an encoder whose packets come from a fake source.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Proc/IEncoder.h"
#include "fakes/kestra/FakePacketSource.h"

namespace Kestra::Fakes {

/// Its script is its source's too: "Initialize", "Seek", and the calls of FakePacketSource. "~FakeEncoder" is recorded.
class FakeEncoder : public Proc::IEncoder, public RefCountImpl {
public:
    explicit FakeEncoder(PacketPlan plan = {}, std::shared_ptr<Script> script = std::make_shared<Script>());
    explicit FakeEncoder(const boost::intrusive_ptr<Proc::IStream>& stream,
                         std::shared_ptr<Script> script = std::make_shared<Script>());
    ~FakeEncoder() override;

    const std::shared_ptr<Script>& GetScript() const { return script; }
    void SetStubborn(bool value) { ownSource->SetStubborn(value); }
    void AddFurtherTrack(boost::intrusive_ptr<Proc::IPacketSource> track) {
        ownSource->AddFurtherTrack(std::move(track));
    }
    /// What Initialize was given, in order.
    const std::vector<Core::Property>& GetGivenSettings() const { return givenSettings; }

    boost::intrusive_ptr<Proc::IDataRaw> ReadRaw() override { return packetSource->ReadPacket(); }
    void Initialize(const Core::Property& settings) override;
    Core::Property GetSettings() const override;
    std::int64_t GetDuration() const override { return packetSource->GetDuration(); }
    std::int64_t GetPosition() const override { return packetSource->GetPosition(); }
    boost::intrusive_ptr<Proc::IData> ReadData() override { return ReadRaw(); }
    void Seek(std::int64_t time, Proc::SeekMode mode) override;
    void Interrupt() override { packetSource->Interrupt(); }
    bool IsSeekable() const override { return false; }
    void GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const override {
        packetSource->GetFormat(format);
    }
    std::string Describe() const override { return packetSource->Describe(); }
    void PreferFormat(const Conf::IFormatCodec& format) override;
    void Prepare() override { packetSource->Prepare(); }
    void Reset() override { packetSource->Reset(); }

private:
    FakeEncoder(const boost::intrusive_ptr<FakePacketSource>& source, std::shared_ptr<Script> script);

    const boost::intrusive_ptr<FakePacketSource> ownSource;
    const std::shared_ptr<Script> script;
    std::vector<Core::Property> givenSettings;
};

} // namespace Kestra::Fakes
