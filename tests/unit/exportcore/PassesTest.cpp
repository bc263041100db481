// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/Passes.h"
#include "Export/PresetProvider.h"
#include <gtest/gtest.h>
#include <string>

using ExportCore::Passes;

namespace {

Preset presetOf(const char* tag, const char* id) {
    Export::PresetProvider provider(nullptr);
    provider.selectTag(tag);
    provider.selectPreset(std::string(id));
    EXPECT_EQ(provider.preset().id(), id);
    return provider.preset();
}

TEST(PassesOfAnExport, AreTwoWhereThePresetLooksTwiceAtPictures) {
    const Preset twice = presetOf("two-pass", "mp4-h264-1080p-2pass");
    EXPECT_EQ(Passes::of(twice).count, 2);
    EXPECT_EQ(Passes::of(twice, false).count, 1) << "there is nothing to look at";
    EXPECT_EQ(Passes::of(presetOf("mp4", "mp4-h264-1080p")).count, 1);
}

TEST(PassesOfAnExport, CostTheSameWhereReadingIsAllThatTheyDo) {
    for (const char* const id : {"mp4-h264-1080p-2pass", "mp4-hevc-1080p-2pass", "webm-vp9-1080p-2pass"}) {
        const Preset preset = presetOf("two-pass", id);
        EXPECT_GE(Passes::of(preset, true, 0.0001).laterCosts, 1) << id;
        EXPECT_LE(Passes::of(preset, true, 0.0001).laterCosts, 2.01) << id << ": sound is made once";
    }
}

TEST(PassesOfAnExport, DifferTheMoreTheMorePixelsAreEncoded) {
    const Preset preset = presetOf("two-pass", "mp4-h264-1080p-2pass");
    double before = 0;
    for (const double scale : {0.01, 0.1, 0.5, 1.0, 4.0}) {
        const double costs = Passes::of(preset, true, scale).laterCosts;
        EXPECT_GT(costs, before) << scale;
        before = costs;
    }
    EXPECT_GT(Passes::of(presetOf("two-pass", "webm-vp9-1080p-2pass")).laterCosts, before)
        << "the first pass of VP9 is the cheapest one";
}

} // namespace
