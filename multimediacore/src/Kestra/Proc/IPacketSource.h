// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::IPacketSource: what stands behind a raw stream and makes its packets.
#pragma once

#include "Kestra/Conf/IFormatCodec.h"
#include "Kestra/Proc/IDataRaw.h"
#include <string>
#include <vector>

namespace Kestra::Proc {

/// Same threading and time rules as IStream. A source never refers to the raw stream in front of it, so that routing
/// one raw stream onto another cannot close a cycle of references.
class KESTRA_EXPORT IPacketSource : public virtual IRefCountable {
public:
    ~IPacketSource() override;
    /// Opens the codec; after it GetFormat is complete (extradata, delay). A second call does nothing.
    virtual void Prepare() = 0;
    /// The next packet in decode order, null at the end; throws Interrupted as a read of IStream does.
    virtual boost::intrusive_ptr<IDataRaw> ReadPacket() = 0;
    virtual void GetFormat(boost::intrusive_ptr<Conf::IFormatCodec>& format) const = 0;
    virtual std::int64_t GetDuration() const = 0;
    virtual std::int64_t GetPosition() const = 0;
    /// Tells a maker of packets that only [start, end) will be kept, before the first read. One whose packets cannot
    /// carry a trim (FLAC) begins and ends its packets on these times; every other may ignore it.
    virtual void AlignTo(std::int64_t start, std::int64_t end) = 0;
    /// Tells a maker of packets, before Prepare(), that others are at work at the same time: what would run beside
    /// itself to be faster keeps to the thread that reads it, and may do so in a better way.
    virtual void RunBesideOthers() {}
    virtual void Interrupt() = 0;
    virtual void Reset() = 0;
    virtual std::string Describe() const = 0;
    /// The packets of further tracks for the same file, in their order: sources of their own, which whoever reads this
    /// one reads, resets and interrupts beside it. Before the first read, as IStreamAudio::GetFurtherTracks(). None
    /// unless overridden.
    virtual std::vector<boost::intrusive_ptr<IPacketSource>> GetFurtherTracks() const { return {}; }
};

} // namespace Kestra::Proc
