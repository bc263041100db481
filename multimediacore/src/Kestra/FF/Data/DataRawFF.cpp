// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Data/DataRawFF.h"

#include "Kestra/Base/Exception.h"
#include "Kestra/FF/Av/Convert.h"
#include <stdexcept>
#include <utility>

namespace Kestra::FF {

DataRawFF::DataRawFF(PacketHandle bytes, AVRational timeBase)
    : packet(std::move(bytes))
    , time(ToEngineTime(packet->pts, timeBase))
    , decodeTime(ToEngineTime(packet->dts, timeBase))
    , duration(ToEngineTime(packet->duration, timeBase)) {}

DataRawFF::DataRawFF(const DataRawFF& other)
    : packet(MakePacketReference(*other.packet))
    , time(other.time)
    , decodeTime(other.decodeTime)
    , duration(other.duration)
    , trimStart(other.trimStart)
    , trimEnd(other.trimEnd) {}

void DataRawFF::SetTrim(std::int64_t start, std::int64_t end) {
    trimStart = start;
    trimEnd = end;
}

boost::intrusive_ptr<Proc::IDataRaw> DataRawFF::Share() const {
    return new DataRawFF(*this);
}

const AVPacket& PacketOf(const Proc::IDataRaw& data) {
    const auto* own = dynamic_cast<const DataRawFF*>(&data);
    if (!own)
        KESTRA_THROW(std::invalid_argument("a packet that this engine did not make"));
    return own->GetPacket();
}

} // namespace Kestra::FF
