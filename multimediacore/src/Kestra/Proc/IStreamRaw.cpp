// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/IStreamRaw.h"
#include <utility>

namespace Kestra::Proc {

IStreamRaw::IStreamRaw(boost::intrusive_ptr<IPacketSource> source)
    : packetSource(std::move(source)) {}

IStreamRaw::~IStreamRaw() = default;

// Only the way to the packets moves over: count, settings and position stay each stream's own.
IStreamRaw& IStreamRaw::operator=(const IStreamRaw& other) {
    packetSource = other.packetSource;
    return *this;
}

} // namespace Kestra::Proc
