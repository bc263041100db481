// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::IStreamRaw: a stream of encoded packets over a counted, exchangeable packet source.
#pragma once

#include "Kestra/Proc/IDataRaw.h"
#include "Kestra/Proc/IPacketSource.h"
#include "Kestra/Proc/IStream.h"

namespace Kestra::Proc {

/// Assigning one raw stream onto another makes the left one read the right one's packets from then on (before the first
/// read); both then share the source. Nothing else is assigned.
class KESTRA_EXPORT IStreamRaw : public virtual IStream {
public:
    ~IStreamRaw() override;
    IStreamRaw& operator=(const IStreamRaw& other);

    virtual boost::intrusive_ptr<IDataRaw> ReadRaw() = 0;

    const boost::intrusive_ptr<IPacketSource>& GetPacketSource() const { return packetSource; }

protected:
    IStreamRaw() = default;
    explicit IStreamRaw(boost::intrusive_ptr<IPacketSource> source);

    boost::intrusive_ptr<IPacketSource> packetSource;
};

} // namespace Kestra::Proc
