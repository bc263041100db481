// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/FlacJoiner.h"

#include "Kestra/FF/Av/Error.h"
#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

extern "C" {
#include <libavutil/bswap.h>
#include <libavutil/crc.h>
#include <libavutil/intreadwrite.h>
}

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

// A frame's header: two bytes of sync, two of codes, the number in as many as it needs, what the codes left open (block
// size, then rate), a checksum. The last two bytes of a frame are the checksum of the rest.
constexpr int NUMBER_AT = 4;
constexpr int END_SIZE = 2;

// What begins the list of bytes that follow tells their count, as in UTF-8.
int SizeOfNumber(std::uint8_t first) {
    int ones = 0;
    while (ones < 8 && (first & (0x80 >> ones)) != 0)
        ++ones;
    return std::max(ones, 1);
}

/// Of those behind the number.
int SizeOfRest(const std::uint8_t* frame) {
    const int blockSize = frame[2] >> 4;
    const int rate = frame[2] & 15;
    const int ofBlock = blockSize == 6 ? 1 : blockSize == 7 ? 2 : 0;
    const int ofRate = rate == 12 ? 1 : rate == 13 || rate == 14 ? 2 : 0;
    return ofBlock + ofRate;
}

struct Number {
    std::array<std::uint8_t, 7> bytes{};
    int size = 0;
};

Number Coded(std::int64_t number) {
    constexpr int bitsOfEach = 6;
    Number result;
    if (number < 0x80) {
        result.bytes[0] = static_cast<std::uint8_t>(number);
        result.size = 1;
        return result;
    }
    result.size = 2;
    while (number >> (bitsOfEach * (result.size - 1) + 7 - result.size) != 0)
        ++result.size;
    for (int index = 0; index < result.size; ++index) {
        const std::int64_t part = number >> (bitsOfEach * (result.size - 1 - index));
        const int mark = index == 0 ? 0xFF00 >> result.size : 0x80;
        result.bytes[static_cast<std::size_t>(index)] =
            static_cast<std::uint8_t>((index == 0 ? part : part & 0x3F) | (mark & 0xFF));
    }
    return result;
}

std::uint32_t Crc16(const std::uint8_t* bytes, int size) {
    const auto* const table = av_crc_get_table(AV_CRC_16_ANSI);
    return av_bswap16(static_cast<std::uint16_t>(av_crc(table, 0, bytes, static_cast<std::size_t>(size))));
}

// Polynomials over two, modulo that of the checksum.
std::uint32_t Times(std::uint32_t a, std::uint32_t b) {
    std::uint32_t product = 0;
    for (int bit = 15; bit >= 0; --bit) {
        product <<= 1;
        product ^= (product & 0x10000) != 0 ? 0x18005 : 0;
        product ^= (b >> bit & 1) != 0 ? a : 0;
    }
    return product;
}

/// What `checksum` becomes when so many bytes of zero follow.
std::uint32_t Followed(std::uint32_t checksum, int bytes) {
    constexpr std::uint32_t byByte = 1 << 8;
    std::uint32_t square = byByte;
    for (std::uint32_t left = static_cast<std::uint32_t>(bytes); left > 0; left >>= 1) {
        checksum = (left & 1) != 0 ? Times(checksum, square) : checksum;
        square = Times(square, square);
    }
    return checksum;
}

/// A packet of the frame's bytes in which a number of `size` bytes has room in the place of one of `before`.
PacketHandle WithRoom(PacketHandle frame, int before, int size) {
    if (before == size) {
        Check(av_packet_make_writable(frame.get()), TranscodingError::OutOfMemory, "packet");
        return frame;
    }
    PacketHandle result = MakePacket();
    Check(av_new_packet(result.get(), frame->size + size - before), TranscodingError::OutOfMemory, "packet");
    Check(av_packet_copy_props(result.get(), frame.get()), TranscodingError::OutOfMemory, "packet");
    std::memcpy(result->data, frame->data, NUMBER_AT);
    std::memcpy(result->data + NUMBER_AT + size, frame->data + NUMBER_AT + before,
                static_cast<std::size_t>(frame->size - NUMBER_AT - before));
    return result;
}

int SizeOfHeader(const std::uint8_t* frame, int sizeOfNumber) {
    return NUMBER_AT + sizeOfNumber + SizeOfRest(frame) + 1;
}

void SealHeader(std::uint8_t* frame, int size) {
    const auto* const table = av_crc_get_table(AV_CRC_8_ATM);
    frame[size - 1] = static_cast<std::uint8_t>(av_crc(table, 0, frame, static_cast<std::size_t>(size - 1)));
}

} // namespace

FlacJoiner::FlacJoiner()
    : sum(Allocated(av_md5_alloc())) {
    av_md5_init(sum.get());
}

// Whole bytes of each sample, the lowest first.
void FlacJoiner::Hear(const AVFrame& frame) {
    const auto count =
        static_cast<std::size_t>(frame.nb_samples) * static_cast<std::size_t>(frame.ch_layout.nb_channels);
    samples += frame.nb_samples;
    if (frame.format == AV_SAMPLE_FMT_S16)
        return av_md5_update(sum.get(), frame.data[0], 2 * count);
    constexpr int above = 8; // 24 of 32 bits are kept
    packed.resize(3 * count);
    const auto* from = reinterpret_cast<const std::int32_t*>(frame.data[0]);
    for (std::size_t index = 0; index < count; ++index)
        AV_WL24(&packed[3 * index], from[index] >> above);
    av_md5_update(sum.get(), packed.data(), packed.size());
}

void FlacJoiner::Place(PacketHandle& packet, std::int64_t number) const {
    if (packet->size == 0)
        return;
    const int before = SizeOfNumber(packet->data[NUMBER_AT]);
    const Number placed = Coded(number);
    if (before == placed.size && std::memcmp(packet->data + NUMBER_AT, placed.bytes.data(), placed.size) == 0)
        return;
    const std::uint32_t header = Crc16(packet->data, SizeOfHeader(packet->data, before));
    packet = WithRoom(std::move(packet), before, placed.size);
    std::uint8_t* const data = packet->data;
    std::memcpy(data + NUMBER_AT, placed.bytes.data(), static_cast<std::size_t>(placed.size));
    const int size = SizeOfHeader(data, placed.size);
    SealHeader(data, size);
    // The sum of a frame is linear in its bytes: what follows the header need not be summed up again.
    std::uint8_t* const end = data + packet->size - END_SIZE;
    AV_WB16(end, AV_RB16(end) ^ Followed(header ^ Crc16(data, size), packet->size - END_SIZE - size));
}

void FlacJoiner::Join(AVPacket& packet) {
    if (packet.size > 0) {
        shortest = shortest == 0 ? packet.size : std::min(shortest, packet.size);
        longest = std::max(longest, packet.size);
    }
    std::size_t size = 0;
    std::uint8_t* const header = av_packet_get_side_data(&packet, AV_PKT_DATA_NEW_EXTRADATA, &size);
    if (header && size >= 34 && shortest > 0)
        Tell(header);
}

// The part of the header that is known last.
void FlacJoiner::Tell(std::uint8_t* header) {
    constexpr std::uint64_t lengthOnly = (std::uint64_t{1} << 36) - 1;
    AV_WB24(header + 4, shortest);
    AV_WB24(header + 7, longest);
    AV_WB64(header + 10, (AV_RB64(header + 10) & ~lengthOnly) | static_cast<std::uint64_t>(samples));
    av_md5_final(sum.get(), header + 18);
}

} // namespace Kestra::FF
