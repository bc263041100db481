// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/PresetChoice.h"
#include "ExportCore/PresetCatalogue.h"
#include "ExportCore/Refusal.h"
#include <gtest/gtest.h>

using ExportCore::PresetCatalogue;
using ExportCore::PresetChoice;

namespace {

PresetChoice choice(const std::string& wanted, const char* output) {
    static const PresetCatalogue catalogue;
    return PresetChoice::of(wanted, QString::fromUtf8(output), catalogue);
}

std::string refusal(const std::string& wanted, const char* output) {
    try {
        return "chose " + choice(wanted, output).id;
    } catch (const ExportCore::Refusal& refused) {
        return refused.what();
    }
}

TEST(PresetChoice, IsThePresetThatIsNamedWithoutAWord) {
    const PresetChoice named = choice("webm-vp9-720p", "a.mp4");
    EXPECT_EQ(named.id, "webm-vp9-720p") << "who names it may be refused for it, but gets no other";
    EXPECT_EQ(named.reason, "");
}

TEST(PresetChoice, OfATagIsItsDefaultOrWhatTheExtensionWants) {
    EXPECT_EQ(choice("web", "a.mp4").id, PresetCatalogue().defaultOf("web"));
    EXPECT_EQ(choice("web", "a.mp4").reason, "the default of \"web\"");
    EXPECT_EQ(choice("web", "a.webm").id, "webm-vp9-1080p");
    EXPECT_EQ(choice("web", "a.webm").reason, "the first of \"web\" for .webm");
    EXPECT_EQ(choice("web", "a.wav").id, PresetCatalogue().defaultOf("web")) << "which is then refused by its name";
}

TEST(PresetChoice, IsMadeByTheExtension) {
    EXPECT_EQ(choice("", "a.mp4").id, PresetCatalogue().defaultOf("mp4"));
    EXPECT_EQ(choice("", "a.mp4").reason, "the default for .mp4");
    EXPECT_EQ(choice("", "A.M4V").id, PresetCatalogue().defaultOf("mp4"));
    EXPECT_EQ(choice("", "a.mp3").id, "mp3");
    EXPECT_EQ(choice("", "a.flac").id, "flac");
    EXPECT_EQ(choice("", "a.wav").id, "wav");
    EXPECT_EQ(choice("", "a.m4a").id, "m4a-aac");
    for (const char* const output : {"a.webm", "a.mov", "a.mkv"})
        EXPECT_EQ(choice("", output).id.find(output + 2), 0U) << output;
}

TEST(PresetChoice, IsRefusedWhereNothingTells) {
    EXPECT_EQ(refusal("", "a.xyz"), "No preset writes files that end in .xyz; name a preset (-p ID, see presets)");
    EXPECT_NE(refusal("", "folder.mp4/a").find("has no extension"), std::string::npos);
    EXPECT_NE(refusal("", ".mp4").find("has no extension"), std::string::npos);
    EXPECT_NE(refusal("mp4-h264-72p", "a.mp4").find("did you mean mp4-h264-720p"), std::string::npos);
    EXPECT_NE(refusal("audoi", "a.mp3").find("presets --tag audio"), std::string::npos);
}

} // namespace
