// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::DataRawFF: an encoded packet over a counted AVPacket.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/FF/Av/Handles.h"
#include "Kestra/Proc/IDataRaw.h"

namespace Kestra::FF {

class DataRawFF final : public Proc::IDataRaw, public RefCountImpl {
public:
    /// Takes the packet; its timestamps are in `timeBase` and are carried in engine time from here on.
    DataRawFF(PacketHandle bytes, AVRational timeBase);

    std::int64_t GetTime() const override { return time; }
    void SetTime(std::int64_t value) override { time = value; }
    std::int64_t GetDuration() const override { return duration; }
    void SetDuration(std::int64_t value) override { duration = value; }
    std::size_t GetByteSize() const override { return static_cast<std::size_t>(packet->size); }
    std::int64_t GetDecodeTime() const override { return decodeTime; }
    void SetDecodeTime(std::int64_t value) override { decodeTime = value; }
    bool IsKeyframe() const override { return (packet->flags & AV_PKT_FLAG_KEY) != 0; }
    const std::uint8_t* GetBytes() const override { return packet->data; }
    std::size_t GetSize() const override { return static_cast<std::size_t>(packet->size); }
    std::int64_t GetTrimStart() const override { return trimStart; }
    std::int64_t GetTrimEnd() const override { return trimEnd; }
    void SetTrim(std::int64_t start, std::int64_t end) override;
    boost::intrusive_ptr<Proc::IDataRaw> Share() const override;

    const AVPacket& GetPacket() const { return *packet; }

private:
    DataRawFF(const DataRawFF& other);

    PacketHandle packet;
    std::int64_t time;
    std::int64_t decodeTime;
    std::int64_t duration;
    std::int64_t trimStart = 0;
    std::int64_t trimEnd = 0;
};

/// The packet behind a packet of this engine; throws std::invalid_argument for one of another making.
const AVPacket& PacketOf(const Proc::IDataRaw& data);

} // namespace Kestra::FF
