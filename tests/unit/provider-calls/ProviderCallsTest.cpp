// SPDX-License-Identifier: GPL-3.0-or-later
// Which calls the provider makes, in which order, and what catalogues do to it that no reader lets through.
#include "CallsFixture.h"
#include "Kestra/Base/Exception.h"
#include <stdexcept>

using Export::PresetProvider;

class ProviderCallsTest : public CallsFixture {};

TEST_F(ProviderCallsTest, ConstructionLoadsThenAsksForTagsAndTheirDefaults) {
    make();
    EXPECT_EQ(script.log, (Log{"presetFilePath", "loadPresets /catalogue.json", "tags", "defaultPresetIndex first",
                               "defaultPresetIndex second"}));
}

TEST_F(ProviderCallsTest, AFailedLoadIsTheLastCallAndIsNotLogged) {
    script.loads = false;
    testing::internal::CaptureStderr();
    EXPECT_THROW(make(), Kestra::Exception);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(script.log, (Log{"presetFilePath", "loadPresets /catalogue.json"}));
}

TEST_F(ProviderCallsTest, TagsAreAskedForOnce) {
    make();
    script.tags = {"other"};
    provider->load();
    EXPECT_EQ(provider->tags(), (Log{"first", "second"}));
    EXPECT_EQ(std::count(script.log.begin(), script.log.end(), "tags"), 1);
}

TEST_F(ProviderCallsTest, ATagThatStandsTwiceKeepsItsLaterDefault) {
    script.tags = {"first", "second", "first"};
    script.defaults["first"] = {0, 1};
    make().load();
    EXPECT_EQ(provider->tags(), (Log{"first", "second", "first"}));
    EXPECT_EQ(provider->preset().id(), "two");
}

TEST_F(ProviderCallsTest, LoadingAsksForTheGroupFirstAndForTheIdLast) {
    script.group = "second";
    script.id = "three";
    make();
    script.log.clear();
    provider->load();
    EXPECT_EQ(script.log, (Log{"lastUsedPresetGroup", "signal tag second", "presets second", "preset three",
                               "signal preset 0", "lastUsedPresetId", "preset three"}));
}

TEST_F(ProviderCallsTest, AnEmptyIdIsNotLookedFor) {
    make();
    // A row without an id would be found by an empty one.
    script.presets["first"].push_back(Preset());
    provider->load();
    EXPECT_EQ(script.log.back(), "lastUsedPresetId");
    EXPECT_EQ(provider->preset().id(), "one");
}

TEST_F(ProviderCallsTest, ADefaultBeyondTheRowsSelectsNothing) {
    script.defaults["first"] = {2};
    make().load();
    EXPECT_EQ(provider->model()->rowCount(), 2);
    EXPECT_EQ(std::count(script.log.begin(), script.log.end(), "signal preset 2"), 0);
    EXPECT_FALSE(provider->modelIndexForCurrentPreset().isValid());
    script.log.clear();
    EXPECT_FALSE(provider->isPresetExists());
    EXPECT_EQ(provider->preset().id(), "");
    provider->commit();
    EXPECT_EQ(script.log, (Log{"isPresetExists ", "preset "}));
}

TEST_F(ProviderCallsTest, AfterATagWithADefaultBeyondItsRowsTheOldPresetStays) {
    script.defaults["second"] = {5};
    makeLoaded().selectTag("second");
    EXPECT_EQ(script.log, (Log{"presets second", "signal tag second"}));
    EXPECT_EQ(provider->preset().id(), "one");
    provider->commit();
    EXPECT_EQ(script.log.back(), "setLastUsedPresetId one");
}

TEST_F(ProviderCallsTest, ADefaultTooLargeForARowIsNarrowed) {
    script.defaults["first"] = {(std::size_t{1} << 32) + 1};
    make().load();
    EXPECT_EQ(provider->preset().id(), "two");
}

TEST_F(ProviderCallsTest, CommitWritesTheGroupAndThenTheId) {
    makeLoaded().selectPreset(1);
    script.log.clear();
    provider->commit();
    provider->commit();
    EXPECT_EQ(script.log, (Log{"setLastUsedPresetGroup first", "setLastUsedPresetId two",
                               "setLastUsedPresetGroup first", "setLastUsedPresetId two"}));
}

TEST_F(ProviderCallsTest, AFillThatThrowsLeavesTheGuard) {
    PresetProvider& provider = makeLoaded();
    script.throwing = "presets second";
    EXPECT_THROW(provider.selectTag("second"), std::runtime_error);
    script.throwing.clear();
    provider.selectTag("first");
    script.log.clear();
    provider.selectPreset(1);
    EXPECT_EQ(script.log, (Log{"preset two", "signal preset 1"}));
}

TEST_F(ProviderCallsTest, AFillWithinAFillKeepsTheGuardToItsEnd) {
    PresetProvider& provider = makeLoaded();
    bool nested = false;
    QObject::connect(provider.model(), &QAbstractItemModel::rowsInserted, [&] {
        if (!std::exchange(nested, true))
            provider.selectTag("first");
        // The inner fill is over, the outer one is not.
        provider.selectPreset(1);
    });
    provider.selectTag("second");
    EXPECT_TRUE(nested);
    for (const std::string& line : script.log)
        EXPECT_NE(line, "preset two");
    EXPECT_EQ(provider.preset().id(), "one");
}

TEST_F(ProviderCallsTest, TheIdOfTheRowIsWhatIsSelected) {
    PresetProvider& provider = makeLoaded();
    script.presetById["two"] = preset("alias", 7);
    provider.selectPreset(1);
    EXPECT_EQ(provider.preset().id(), "alias");
    script.log.clear();
    provider.originalPreset();
    provider.isPresetExists();
    provider.qualityModifiers();
    provider.commit();
    EXPECT_EQ(script.log, (Log{"preset two", "isPresetExists two", "qualityModifierTags two",
                               "setLastUsedPresetGroup first", "setLastUsedPresetId two"}));
    // Edits and custom presets go by the preset's own.
    EXPECT_FALSE(provider.updatePreset(nullptr, preset("alias", 8)));
    provider.saveCustomPreset(preset("whatever", 9));
    EXPECT_TRUE(provider.customPresetExists());
    provider.saveCustomPreset(preset("alias", 10));
    EXPECT_EQ(provider.customPreset().videoBitrateBps(), 10);
}

TEST_F(ProviderCallsTest, ThePresetIsACopyOfTheStorages) {
    PresetProvider& provider = makeLoaded();
    script.presetById["one"] = preset("one", 4711);
    script.log.clear();
    EXPECT_EQ(provider.preset().videoBitrateBps(), 1000);
    EXPECT_EQ(script.log, (Log{}));
    EXPECT_EQ(provider.originalPreset().videoBitrateBps(), 4711);
}

TEST_F(ProviderCallsTest, OfRowsWithOneIdTheFirstIsSelected) {
    script.presets["first"] = {preset("one", 1), preset("two", 2), preset("two", 3)};
    makeLoaded().selectPreset(std::string("two"));
    EXPECT_EQ(script.log.back(), "signal preset 1");
}

TEST_F(ProviderCallsTest, AModifiedPresetIsTheStoragesWithTheModifiersData) {
    script.modifiers["one"]["high"]["video"].SetChild("bitrate", std::int64_t{5000});
    PresetProvider& provider = makeLoaded();
    EXPECT_EQ(provider.modifiedPreset("high").videoBitrateBps(), 5000);
    EXPECT_EQ(script.log, (Log{"preset one", "qualityModifierData one high"}));
    script.log.clear();
    EXPECT_EQ(provider.modifiedPreset("unknown").videoBitrateBps(), 1000);
    EXPECT_EQ(script.log.back(), "qualityModifierData one unknown");
}

TEST_F(ProviderCallsTest, ModifiersAreTriedInOrderUpToTheFirstMatch) {
    for (const char* const name : {"d", "b", "a", "c"})
        script.modifiers["one"][name]["video"].SetChild("bitrate", std::int64_t{name[0] < 'c' ? 1 : 1000});
    const PresetProvider& provider = makeLoaded();
    EXPECT_EQ(provider.findQualityModifier(nullptr), "c");
    const Log calls(script.log.begin(), script.log.begin() + 2);
    EXPECT_EQ(calls, (Log{"preset one", "qualityModifierTags one"}));
    Log tried;
    for (const std::string& line : script.log) {
        if (line.rfind("qualityModifierData", 0) == 0)
            tried.push_back(line);
    }
    EXPECT_EQ(tried, (Log{"qualityModifierData one a", "qualityModifierData one b", "qualityModifierData one c"}));
}

TEST_F(ProviderCallsTest, ACandidatesDataIsAskedForByItsOwnId) {
    script.modifiers["one"]["a"] = Property();
    const PresetProvider& provider = makeLoaded();
    script.presetById["one"] = preset("alias", 1000);
    EXPECT_EQ(provider.findQualityModifier(nullptr), "a");
    EXPECT_EQ(std::count(script.log.begin(), script.log.end(), "qualityModifierData alias a"), 1);
}

TEST_F(ProviderCallsTest, WhatTheStorageThrowsPassesThrough) {
    script.modifiers["one"]["a"] = Property();
    PresetProvider& provider = makeLoaded();
    script.throwing = "qualityModifierData";
    EXPECT_THROW(provider.modifiedPreset("a"), std::runtime_error);
    EXPECT_THROW(provider.findQualityModifier(nullptr), std::runtime_error);
    script.throwing = "preset two";
    EXPECT_THROW(provider.selectPreset(1), std::runtime_error);
    script.throwing.clear();
    EXPECT_EQ(provider.preset().id(), "one");
    EXPECT_EQ(provider.modelIndexForCurrentPreset().row(), 0);
}
