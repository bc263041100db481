// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/streams/UnalignedRaw.h"

namespace Fakes {

using namespace Kestra;

namespace {

class UnalignedSource final : public Proc::IPacketSource, public RefCountImpl {
public:
    explicit UnalignedSource(const boost::intrusive_ptr<Proc::IPacketSource>& source)
        : source(source) {}

    void Prepare() override { source->Prepare(); }
    boost::intrusive_ptr<Proc::IDataRaw> ReadPacket() override { return source->ReadPacket(); }
    void GetFormat(boost::intrusive_ptr<Conf::IFormatCodec>& format) const override { source->GetFormat(format); }
    std::int64_t GetDuration() const override { return source->GetDuration(); }
    std::int64_t GetPosition() const override { return source->GetPosition(); }
    void AlignTo(std::int64_t, std::int64_t) override {}
    void Interrupt() override { source->Interrupt(); }
    void Reset() override { source->Reset(); }
    std::string Describe() const override { return source->Describe(); }

private:
    const boost::intrusive_ptr<Proc::IPacketSource> source;
};

} // namespace

UnalignedRaw::UnalignedRaw(const boost::intrusive_ptr<Proc::IEncoder>& encoder)
    : IStreamRaw(new UnalignedSource(encoder->GetPacketSource())) {}

} // namespace Fakes
