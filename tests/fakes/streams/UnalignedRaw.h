// SPDX-License-Identifier: GPL-3.0-or-later
// Fakes::UnalignedRaw: an encoder's packets from a source that ignores where they will be cut.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Proc/IEncoder.h"

namespace Fakes {

class UnalignedRaw final : public Kestra::Proc::IStreamRaw, public Kestra::RefCountImpl {
public:
    explicit UnalignedRaw(const boost::intrusive_ptr<Kestra::Proc::IEncoder>& encoder);

    boost::intrusive_ptr<Kestra::Proc::IDataRaw> ReadRaw() override { return packetSource->ReadPacket(); }
    void Initialize(const Kestra::Core::Property&) override {}
    Kestra::Core::Property GetSettings() const override { return Kestra::Core::Property(); }
    std::int64_t GetDuration() const override { return packetSource->GetDuration(); }
    std::int64_t GetPosition() const override { return packetSource->GetPosition(); }
    boost::intrusive_ptr<Kestra::Proc::IData> ReadData() override { return ReadRaw(); }
    void Seek(std::int64_t, Kestra::Proc::SeekMode) override {}
    void Interrupt() override { packetSource->Interrupt(); }
    bool IsSeekable() const override { return false; }
    void GetFormatCodec(boost::intrusive_ptr<Kestra::Conf::IFormatCodec>& format) const override {
        packetSource->GetFormat(format);
    }
    std::string Describe() const override { return packetSource->Describe(); }
    void PreferFormat(const Kestra::Conf::IFormatCodec&) override {}
    void Prepare() override { packetSource->Prepare(); }
    void Reset() override { packetSource->Reset(); }
};

} // namespace Fakes
