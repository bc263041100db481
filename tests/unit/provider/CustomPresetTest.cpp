// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProviderFixture.h"

using Export::BitrateMode;
using Export::PresetProvider;
using TestPresets::object;
using TestPresets::text;

class CustomPresetTest : public ProviderFixture {
protected:
    /// The selected preset with another sound bitrate, by which the tests tell presets apart.
    Preset edited(std::int64_t audioBitrate) const {
        Preset result = provider->preset();
        result.setAudioBitrateBps(audioBitrate);
        return result;
    }
    Preset catalogue(const char* id) const {
        PresetStorage storage;
        EXPECT_TRUE(load(storage));
        return storage.preset(id);
    }
};

TEST_F(CustomPresetTest, WithoutASavedOneItIsThePreset) {
    PresetProvider& provider = makeSelected("large");
    EXPECT_FALSE(provider.customPresetExists());
    ASSERT_TRUE(provider.updatePreset(nullptr, edited(64'000)));
    EXPECT_EQ(provider.customPreset().audioBitrateBps(), 64'000);
}

TEST_F(CustomPresetTest, SavingTwiceKeepsTheLast) {
    PresetProvider& provider = makeSelected("large");
    provider.saveCustomPreset(edited(64'000));
    provider.saveCustomPreset(edited(80'000));
    EXPECT_TRUE(provider.customPresetExists());
    EXPECT_EQ(provider.customPreset().audioBitrateBps(), 80'000);
}

TEST_F(CustomPresetTest, SavingChangesNeitherPresetNorSettingsAndSignalsNothing) {
    PresetProvider& provider = makeSelected("large");
    provider.saveCustomPreset(edited(64'000));
    EXPECT_EQ(provider.preset().audioBitrateBps(), 192'000);
    EXPECT_EQ(log, (Log{}));
    EXPECT_FALSE(QFileInfo::exists(folder.filePath(text("config"))));
}

TEST_F(CustomPresetTest, AForeignIdIsStoredUnderTheCurrentOne) {
    PresetProvider& provider = makeSelected("large");
    provider.saveCustomPreset(catalogue("small"));
    EXPECT_TRUE(provider.customPresetExists());
    EXPECT_EQ(provider.customPreset().id(), "small");
    provider.selectPreset(std::string("small"));
    EXPECT_FALSE(provider.customPresetExists());
}

TEST_F(CustomPresetTest, AForeignIdDoesNotReplaceAnEntryOfTheCurrentOne) {
    PresetProvider& provider = makeSelected("large");
    provider.saveCustomPreset(edited(64'000));
    provider.saveCustomPreset(catalogue("small"));
    EXPECT_EQ(provider.customPreset().id(), "large");
    EXPECT_EQ(provider.customPreset().audioBitrateBps(), 64'000);
}

TEST_F(CustomPresetTest, AnEntryOfAnotherIdIsOverwrittenFromAnywhere) {
    PresetProvider& provider = makeSelected("small");
    provider.saveCustomPreset(edited(64'000));
    Preset again = edited(80'000);
    provider.selectPreset(std::string("large"));
    provider.saveCustomPreset(again);
    EXPECT_FALSE(provider.customPresetExists());
    provider.selectPreset(std::string("small"));
    EXPECT_EQ(provider.customPreset().audioBitrateBps(), 80'000);
}

TEST_F(CustomPresetTest, ReturningToAPresetFindsItsCustomVersion) {
    PresetProvider& provider = makeSelected("large");
    provider.saveCustomPreset(edited(64'000));
    provider.selectTag("audio");
    EXPECT_FALSE(provider.customPresetExists());
    provider.selectTag("video");
    EXPECT_TRUE(provider.customPresetExists());
    EXPECT_EQ(provider.preset().audioBitrateBps(), 192'000);
}

TEST_F(CustomPresetTest, TheOriginalIgnoresEveryEdit) {
    PresetProvider& provider = makeSelected("large");
    provider.saveCustomPreset(edited(64'000));
    ASSERT_TRUE(provider.updatePreset(nullptr, edited(80'000)));
    EXPECT_TRUE(provider.originalPreset().equalsTo(catalogue("large")));
}

class QualityModifierTest : public CustomPresetTest {
protected:
    PresetProvider& makeWith(const char* modifiers, const char* mode = "automatic") {
        QJsonObject changed =
            TestPresets::edited(TestPresets::smallCatalogue(), "/presets/1/video/bitrateMode", text(mode));
        changed = TestPresets::edited(changed, "/presets/1/video/bitrate", 4'000'000);
        // Twins would be equal to the changed preset no more; nothing here depends on them.
        writeCatalogue(TestPresets::edited(changed, "/presets/1/qualityModifiers", object(modifiers)));
        return makeSelected("large");
    }
};

TEST_F(QualityModifierTest, APresetWithoutModifiersHasNone) {
    const PresetProvider& provider = makeSelected("small");
    const Media::Video source = video(640, 360);
    EXPECT_TRUE(provider.qualityModifiers().empty());
    EXPECT_EQ(provider.findQualityModifier(&source), "");
}

TEST_F(QualityModifierTest, NamesComeSorted) {
    const PresetProvider& provider = makeWith("{'low': {}, 'best': {}, 'high': {}}");
    EXPECT_EQ(provider.qualityModifiers(), (std::set<std::string>{"best", "high", "low"}));
}

TEST_F(QualityModifierTest, AModifiedPresetIsTheCataloguesWithTheModifier) {
    PresetProvider& provider = makeSelected("large");
    ASSERT_TRUE(provider.updatePreset(nullptr, edited(64'000)));
    const Preset high = provider.modifiedPreset("high");
    EXPECT_EQ(high.videoBitrateMultiplier(), 1.5);
    EXPECT_EQ(high.audioBitrateBps(), 192'000);
    EXPECT_TRUE(provider.modifiedPreset("none").equalsTo(provider.originalPreset()));
}

TEST_F(QualityModifierTest, TheModifierOfTheCurrentPresetIsFound) {
    PresetProvider& provider = makeSelected("large");
    const Media::Video source = video(1280, 720);
    EXPECT_EQ(provider.findQualityModifier(&source), "");
    ASSERT_TRUE(provider.updatePreset(&source, provider.modifiedPreset("low")));
    provider.updateResolutionPresetIfNeeded(&source);
    EXPECT_EQ(provider.findQualityModifier(&source), "low");
    ASSERT_TRUE(provider.updatePreset(&source, edited(64'000)));
    EXPECT_EQ(provider.findQualityModifier(&source), "");
}

TEST_F(QualityModifierTest, CandidatesGetTheSizeThatTheSourceWouldGive) {
    PresetProvider& provider = makeSelected("large");
    const Media::Video source = video(1280, 720);
    ASSERT_TRUE(provider.updatePreset(&source, provider.modifiedPreset("low")));
    // Still 1920x1080 where the source would give 1280x720.
    EXPECT_EQ(provider.findQualityModifier(&source), "");
    EXPECT_EQ(provider.findQualityModifier(nullptr), "low");
}

TEST_F(QualityModifierTest, OfTwoThatMatchTheFirstByNameIsFound) {
    const PresetProvider& provider = makeWith("{'b': {}, 'a': {}}");
    EXPECT_EQ(provider.findQualityModifier(nullptr), "a");
}

TEST_F(QualityModifierTest, InModesOneAndThreeTheUsersBitrateIsCarriedIntoEveryCandidate) {
    for (const char* const mode : {"automatic", "quality"}) {
        PresetProvider& provider = makeWith("{'same': {}}", mode);
        Preset edited = provider.preset();
        edited.setVideoBitrateBps(7'000'000);
        ASSERT_TRUE(provider.updatePreset(nullptr, edited));
        EXPECT_EQ(provider.findQualityModifier(nullptr), "same") << mode;
    }
}

TEST_F(QualityModifierTest, ACarriedBitrateIsWhatAModifierOverrides) {
    PresetProvider& provider = makeWith("{'fixed': {'video': {'bitrate': 5000000}}}", "quality");
    Preset edited = provider.preset();
    edited.setVideoBitrateBps(7'000'000);
    ASSERT_TRUE(provider.updatePreset(nullptr, edited));
    EXPECT_EQ(provider.findQualityModifier(nullptr), "");
    edited.setVideoBitrateBps(5'000'000);
    ASSERT_TRUE(provider.updatePreset(nullptr, edited));
    EXPECT_EQ(provider.findQualityModifier(nullptr), "fixed");
}

TEST_F(QualityModifierTest, TheModeOfTheSelectedPresetTellsWhetherItsBitrateIsCarried) {
    PresetProvider& provider = makeWith("{'by-quality': {'video': {'bitrateMode': 'quality'}}}", "variable");
    Preset edited = provider.preset();
    edited.setVideoBitrateMode(BitrateMode::Quality);
    edited.setVideoBitrateBps(7'000'000);
    ASSERT_TRUE(provider.updatePreset(nullptr, edited));
    EXPECT_EQ(provider.findQualityModifier(nullptr), "by-quality");

    PresetProvider& other = makeWith("{'by-bitrate': {'video': {'bitrateMode': 'variable'}}}", "quality");
    edited = other.preset();
    edited.setVideoBitrateMode(BitrateMode::Variable);
    edited.setVideoBitrateBps(7'000'000);
    ASSERT_TRUE(other.updatePreset(nullptr, edited));
    EXPECT_EQ(other.findQualityModifier(nullptr), "");
}

TEST_F(QualityModifierTest, CandidatesKeepWithinTheLimitsOfTheSelectedPreset) {
    const Media::Video source = video(1920, 1080);
    PresetProvider& provider = makeWith("{'same': {}}");
    Kestra::Core::Property limits;
    limits["video"].SetChild("maxWidth", std::int64_t{1280});
    limits["video"].SetChild("maxHeight", std::int64_t{720});
    Preset edited = provider.preset();
    edited.applyQualityModifier(limits);
    ASSERT_TRUE(provider.updatePreset(&source, edited));
    provider.updateResolutionPresetIfNeeded(&source);
    ASSERT_EQ(provider.preset().width(), 1280);
    EXPECT_EQ(provider.findQualityModifier(&source), "same");
}

TEST_F(QualityModifierTest, CandidatesKeepTheirSizeWhereThatOfTheSelectedPresetIsFixed) {
    const Media::Video source = video(1280, 720);
    PresetProvider& provider = makeWith("{'fixed': {'video': {'fixedResolution': true}}}");
    ASSERT_TRUE(provider.updatePreset(&source, provider.modifiedPreset("fixed")));
    EXPECT_EQ(provider.findQualityModifier(&source), "fixed");
}

TEST_F(QualityModifierTest, InModeTwoCandidatesStartFromTheCataloguesBitrate) {
    PresetProvider& provider = makeWith("{'same': {}}", "variable");
    EXPECT_EQ(provider.findQualityModifier(nullptr), "same");
    Preset edited = provider.preset();
    edited.setVideoBitrateBps(7'000'000);
    ASSERT_TRUE(provider.updatePreset(nullptr, edited));
    EXPECT_EQ(provider.findQualityModifier(nullptr), "");
}
