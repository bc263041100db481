// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/ChunkTimes.h"

#include <cstring>
#include <utility>

namespace Kestra::FF {

namespace {

/// The description's bitrate is an average; blocks of a quarter of it are none of the codec's.
constexpr double LEAST_PART = 0.25;

bool IsCountedWrongly(const AVStream& stream) {
    const AVCodecParameters& sound = *stream.codecpar;
    if (sound.codec_type != AVMEDIA_TYPE_AUDIO || sound.block_align < 2 || sound.bit_rate <= 0)
        return false;
    const double bitsATick = 8.0 * sound.block_align;
    return bitsATick < LEAST_PART * static_cast<double>(sound.bit_rate) * av_q2d(stream.time_base);
}

} // namespace

bool ChunkTimes::AreNeeded(const char* container, const AVStream& stream) {
    return std::strcmp(container, "avi") == 0 && IsCountedWrongly(stream);
}

void ChunkTimes::Push(PacketHandle packet, const AVStream& stream) {
    if (IsCountedWrongly(stream) && packet->dts != AV_NOPTS_VALUE) {
        std::int64_t& chunk = next.try_emplace(stream.index, packet->dts).first->second;
        packet->dts = packet->pts = chunk++;
        packet->duration = 1;
    }
    ready.push_back(std::move(packet));
}

void ChunkTimes::Clear() {
    ready.clear();
    next.clear();
}

} // namespace Kestra::FF
