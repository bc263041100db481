// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Decode/SamplePlacement.h"
#include <gtest/gtest.h>

namespace Kestra::FF {
namespace {

constexpr int RATE = 48000;

TEST(SamplePlacement, ABlockNextToItsPlaceFollowsOn) {
    EXPECT_EQ(PlaceNext({{10020, 1024}}, 10000, RATE), 10000);
    EXPECT_EQ(PlaceNext({{9980, 1024}}, 10000, RATE), 10000);
}

TEST(SamplePlacement, ALostBlockLeavesAGap) {
    EXPECT_EQ(PlaceNext({{11024, 1024}, {12048, 1024}, {13072, 1024}}, 10000, RATE), 11024);
}

TEST(SamplePlacement, ARepeatedBlockOverlaps) {
    EXPECT_EQ(PlaceNext({{8976, 1024}, {10000, 1024}, {11024, 1024}}, 10000, RATE), 8976);
}

TEST(SamplePlacement, OneWrongTimestampIsJitter) {
    // The middle one is stamped like its successor.
    EXPECT_EQ(PlaceNext({{11024, 1024}, {11024, 1024}, {12048, 1024}}, 10000, RATE), 10000);
}

TEST(SamplePlacement, OneTimestampThatIsFarOffIsNoGap) {
    EXPECT_EQ(PlaceNext({{40000, 1024}, {11024, 1024}, {12048, 1024}}, 10000, RATE), 10000);
    EXPECT_EQ(PlaceNext({{40000, 1024}, {41024, 1024}, {42048, 1024}}, 10000, RATE), 40000);
}

TEST(SamplePlacement, WhatComesAfterAGapDoesNotMoveWhatComesBeforeIt) {
    EXPECT_EQ(PlaceNext({{10700, 1024}, {16024, 1024}, {17048, 1024}}, 10000, RATE), 10000);
}

TEST(SamplePlacement, JitterIsNoGap) {
    const std::vector<TimedBlock> blocks{{10900, 1024}, {11900, 1024}, {12900, 1024}, {13000, 1024}, {14100, 1024}};
    EXPECT_EQ(PlaceNext(blocks, 10000, RATE), 10900);
    EXPECT_EQ(PlaceNext(blocks, 10000, RATE, {0, 300}), 10000);
}

TEST(SamplePlacement, AGapIsFoundInJitterWithItsMeanLength) {
    EXPECT_EQ(
        PlaceNext({{15300, 1024}, {15724, 1024}, {17048, 1024}, {18372, 1024}, {18796, 1024}}, 10000, RATE, {0, 600}),
        15000);
}

TEST(SamplePlacement, ADriftThatIsKnownIsNoGap) {
    const std::vector<TimedBlock> blocks{{10700, 1024}, {11724, 1024}, {12748, 1024}};
    EXPECT_EQ(PlaceNext(blocks, 10000, RATE), 10700);
    EXPECT_EQ(PlaceNext(blocks, 10000, RATE, {500, 0}), 10000);
}

TEST(SamplePlacement, TheFirstOfJitteryBlocksIsPutWhereAllOfThemMean) {
    EXPECT_EQ(PlaceFirstOfJittery({{1300, 1024}, {1724, 1024}, {3048, 1024}, {4372, 1024}, {4796, 1024}}), 1000);
}

TEST(SamplePlacement, TheFirstBlockIsPutWhereTwoAgreeEarliest) {
    // Three of five carry the timestamp of their successor.
    EXPECT_EQ(PlaceFirst({{2024, 1024}, {3048, 1024}, {3048, 1024}, {4072, 1024}, {6120, 1024}}, RATE), 1000);
    EXPECT_EQ(PlaceFirst({{77, 1024}}, RATE), 77);
    EXPECT_EQ(PlaceFirst({{77, 1024}, {9999, 1024}}, RATE), 77);
}

TEST(SamplePlacement, RoundedTimestampsSnapToTheGridOfBlocks) {
    EXPECT_EQ(SnapToGrain(1024 * 7 + 10 + 20, 10, 1024, 48), 1024 * 7 + 10);
    EXPECT_EQ(SnapToGrain(1024 * 7 + 10 - 20, 10, 1024, 48), 1024 * 7 + 10);
    EXPECT_EQ(SnapToGrain(1024 * 7 + 10 + 49, 10, 1024, 48), 1024 * 7 + 59);
    EXPECT_EQ(SnapToGrain(-1020, 0, 1024, 48), -1024);
    EXPECT_EQ(SnapToGrain(123, 0, 0, 48), 123);
}

} // namespace
} // namespace Kestra::FF
