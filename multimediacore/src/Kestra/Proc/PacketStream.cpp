// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/PacketStream.h"

#include "Kestra/Proc/Failure.h"

namespace Kestra::Proc {

PacketStream::PacketStream(const boost::intrusive_ptr<IPacketSource>& source)
    : IStreamRaw(source) {}

PacketStream::~PacketStream() = default;

void PacketStream::Refuse(const char* what, SourcePlace place) const {
    Fail(TranscodingError::NotSupported, Describe() + " cannot " + what, place);
}

} // namespace Kestra::Proc
