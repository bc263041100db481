// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::PacketSegment: a window on the packets of an audio encoder.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/FF/Av/Handles.h"
#include "Kestra/Proc/IPacketSource.h"
#include <deque>

namespace Kestra::FF {

/// Sample round(start x rate) of the source gets time 0. Packets before it that a decoder needs to settle keep negative
/// times, and the format's initial padding says how many samples these are. Samples that are not compressed are cut in
/// the bytes.
class PacketSegment final : public Proc::IPacketSource, public RefCountImpl {
public:
    PacketSegment(const boost::intrusive_ptr<Proc::IPacketSource>& source, std::int64_t start, std::int64_t end);

    void Prepare() override;
    boost::intrusive_ptr<Proc::IDataRaw> ReadPacket() override;
    void GetFormat(boost::intrusive_ptr<Conf::IFormatCodec>& format) const override;
    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override { return position; }
    void AlignTo(std::int64_t, std::int64_t) override {}
    void RunBesideOthers() override { source->RunBesideOthers(); }
    void Interrupt() override { source->Interrupt(); }
    void Reset() override;
    std::string Describe() const override;
    std::vector<boost::intrusive_ptr<Proc::IPacketSource>> GetFurtherTracks() const override;

private:
    void ReadFormat();
    void FindFirst();
    boost::intrusive_ptr<Proc::IDataRaw> NextKept();
    bool IsSettled(const Proc::IDataRaw& packet) const;
    boost::intrusive_ptr<Proc::IDataRaw> Cut(const Proc::IDataRaw& packet) const;
    boost::intrusive_ptr<Proc::IDataRaw> CutBytes(const Proc::IDataRaw& packet) const;
    std::int64_t Samples(std::int64_t time) const;

    const boost::intrusive_ptr<Proc::IPacketSource> source;
    const std::int64_t start;
    const std::int64_t end;

    boost::intrusive_ptr<Conf::IFormatCodec> format; ///< the source's
    int rate = 0;
    int bytesPerSample = 0;    ///< of all channels; 0 when the packets cannot be cut in their bytes
    std::int64_t first = 0;    ///< sample of the source that gets time 0
    std::int64_t last = 0;     ///< sample of the source after the last one
    std::int64_t settling = 0; ///< samples that a decoder needs before `first`
    std::int64_t padding = 0;  ///< samples that come before time 0
    std::deque<boost::intrusive_ptr<Proc::IDataRaw>> pending;
    std::int64_t position = 0;
    bool prepared = false;
};

} // namespace Kestra::FF
