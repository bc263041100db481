// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::PacketStream: a raw stream that is nothing but its packet source.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Base/SourcePlace.h"
#include "Kestra/Proc/IStreamRaw.h"

namespace Kestra::Proc {

/// Takes no settings and goes to no other place: throws ProcException (NotSupported).
class KESTRA_EXPORT PacketStream final : public IStreamRaw, public RefCountImpl {
public:
    /// The source is not null.
    explicit PacketStream(const boost::intrusive_ptr<IPacketSource>& source);
    ~PacketStream() override;

    boost::intrusive_ptr<IDataRaw> ReadRaw() override { return packetSource->ReadPacket(); }
    void Initialize(const Core::Property&) override { Refuse("be initialized"); }
    Core::Property GetSettings() const override { return Core::Property(); }
    std::int64_t GetDuration() const override { return packetSource->GetDuration(); }
    std::int64_t GetPosition() const override { return packetSource->GetPosition(); }
    boost::intrusive_ptr<IData> ReadData() override { return ReadRaw(); }
    void Seek(std::int64_t, SeekMode) override { Refuse("seek"); }
    void Interrupt() override { packetSource->Interrupt(); }
    bool IsSeekable() const override { return false; }
    void GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const override {
        packetSource->GetFormat(format);
    }
    std::string Describe() const override { return packetSource->Describe(); }
    void PreferFormat(const Conf::IFormatCodec&) override {}
    void Prepare() override { packetSource->Prepare(); }
    void Reset() override { packetSource->Reset(); }

private:
    [[noreturn]] void Refuse(const char* what, SourcePlace place = SourcePlace::Here()) const;
};

} // namespace Kestra::Proc
