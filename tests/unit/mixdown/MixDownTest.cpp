// SPDX-License-Identifier: GPL-3.0-or-later
// How loud a mix becomes, and whose memory is touched on the way.
#include "Kestra/FF/Data/MixDown.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <new>

namespace {

/// Behind each block of memory lies so much that is nobody's. A number that is computed with becomes another one there,
/// even by a multiplication by one.
constexpr std::size_t GUARD = 64 * 64 * sizeof(double);
constexpr std::uint64_t SIGNALLING = 0x7FF0000000000001;

bool guarding = false;
bool touched = false;
char* guarded[64];
std::size_t sizes[64];
std::size_t count = 0;

void* granted(std::size_t size) {
    const std::size_t whole = (size + 7) / 8 * 8;
    char* const memory = static_cast<char*>(std::malloc(whole + GUARD));
    if (!memory)
        throw std::bad_alloc();
    if (guarding && count < std::size(guarded)) {
        for (std::size_t at = 0; at < GUARD; at += sizeof SIGNALLING)
            std::memcpy(memory + whole + at, &SIGNALLING, sizeof SIGNALLING);
        guarded[count] = memory;
        sizes[count++] = whole;
    }
    return memory;
}

bool isTouched(const char* guard) {
    for (std::size_t at = 0; at < GUARD; at += sizeof SIGNALLING)
        if (std::memcmp(guard + at, &SIGNALLING, sizeof SIGNALLING) != 0)
            return true;
    return false;
}

void taken(void* memory) noexcept {
    for (std::size_t i = 0; i < count; ++i)
        if (memory && guarded[i] == memory) {
            touched = touched || isTouched(guarded[i] + sizes[i]);
            guarded[i] = nullptr;
        }
    std::free(memory);
}

} // namespace

/// The program's own, and so the engine's too.
__attribute__((visibility("default"))) void* operator new(std::size_t size) {
    return granted(size);
}
__attribute__((visibility("default"))) void operator delete(void* memory) noexcept {
    taken(memory);
}
__attribute__((visibility("default"))) void operator delete(void* memory, std::size_t) noexcept {
    taken(memory);
}

namespace {

const AVChannelLayout MONO = AV_CHANNEL_LAYOUT_MONO;
const AVChannelLayout STEREO = AV_CHANNEL_LAYOUT_STEREO;
const AVChannelLayout SURROUND = AV_CHANNEL_LAYOUT_5POINT1;
const AVChannelLayout WIDE = AV_CHANNEL_LAYOUT_7POINT1;

TEST(LoudestMix, IsTheHighestSumOfWhatAChannelTakes) {
    EXPECT_DOUBLE_EQ(Kestra::FF::LoudestMix(STEREO, STEREO), 1);
    EXPECT_DOUBLE_EQ(Kestra::FF::LoudestMix(MONO, STEREO), M_SQRT1_2);
    EXPECT_NEAR(Kestra::FF::LoudestMix(SURROUND, STEREO), 1 + M_SQRT1_2 + M_SQRT1_2, 1e-9) << "front, centre, side";
    EXPECT_DOUBLE_EQ(Kestra::FF::LoudestMix(STEREO, SURROUND), 1);
}

TEST(LoudestMix, TouchesNobodysMemory) {
    for (const AVChannelLayout* from : {&MONO, &STEREO, &SURROUND, &WIDE})
        for (const AVChannelLayout* to : {&MONO, &STEREO, &SURROUND, &WIDE}) {
            count = 0;
            touched = false;
            guarding = true;
            Kestra::FF::LoudestMix(*from, *to);
            guarding = false;
            EXPECT_FALSE(touched) << from->nb_channels << " channels into " << to->nb_channels;
            EXPECT_TRUE(from == to || count > 0) << "nothing was looked at";
        }
}

TEST(LoudestMix, OfMoreChannelsThanAMixHasRoomForIsUnknown) {
    AVChannelLayout many = {};
    many.order = AV_CHANNEL_ORDER_UNSPEC;
    many.nb_channels = 65;
    EXPECT_EQ(Kestra::FF::LoudestMix(many, STEREO), 1);
    EXPECT_EQ(Kestra::FF::LoudestMix(STEREO, many), 1);
}

} // namespace
