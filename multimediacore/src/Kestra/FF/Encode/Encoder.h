// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::Encoder: the raw stream in front of an encoder's packet source.
#pragma once

#include "Kestra/FF/Encode/EncoderCore.h"
#include "Kestra/Proc/IEncoder.h"

namespace Kestra::FF {

/// Reads the packet source that it has at the time: its own core, or what was assigned onto it. Settings go to the
/// core.
class Encoder final : public Proc::IEncoder, public RefCountImpl {
public:
    explicit Encoder(const boost::intrusive_ptr<EncoderCore>& core);

    boost::intrusive_ptr<Proc::IDataRaw> ReadRaw() override { return packetSource->ReadPacket(); }
    void Initialize(const Core::Property& settings) override { core->Initialize(settings); }
    Core::Property GetSettings() const override { return core->GetSettings(); }
    std::int64_t GetDuration() const override { return packetSource->GetDuration(); }
    std::int64_t GetPosition() const override { return packetSource->GetPosition(); }
    boost::intrusive_ptr<Proc::IData> ReadData() override { return ReadRaw(); }
    /// Packets come from the start only: throws ProcException (NotSupported).
    void Seek(std::int64_t time, Proc::SeekMode mode) override;
    void Interrupt() override { packetSource->Interrupt(); }
    bool IsSeekable() const override { return false; }
    void GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const override;
    std::string Describe() const override { return packetSource->Describe(); }
    void PreferFormat(const Conf::IFormatCodec&) override {}
    void Prepare() override { packetSource->Prepare(); }
    void Reset() override { packetSource->Reset(); }

private:
    const boost::intrusive_ptr<EncoderCore> core;
};

} // namespace Kestra::FF
