// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Filter/AudioSegmenter.h"

#include "Kestra/Base/Exception.h"
#include "Kestra/FF/Filter/PacketSegment.h"
#include "Kestra/Proc/PacketStream.h"
#include <stdexcept>

namespace Kestra::FF {

boost::intrusive_ptr<Proc::IStreamRaw> CreateAudioSegmenter(const boost::intrusive_ptr<Proc::IStreamRaw>& stream,
                                                            std::int64_t start, std::int64_t end) {
    if (!stream || !stream->GetPacketSource())
        KESTRA_THROW(std::invalid_argument("a segment needs a stream of packets; it was given none"));
    if (start < 0 || end <= start)
        KESTRA_THROW(std::invalid_argument("a segment from " + std::to_string(start) + " to " + std::to_string(end) +
                                           " (engine time) of a stream is empty or begins before it"));
    return new Proc::PacketStream(new PacketSegment(stream->GetPacketSource(), start, end));
}

} // namespace Kestra::FF
