// SPDX-License-Identifier: GPL-3.0-or-later
// A request's preset is the one of its name, whatever equals it.
#include "ExportCore/PresetSelection.h"
#include "EditorSettings/Settings.h"
#include "Export/PresetProvider.h"
#include "ExportCore/Refusal.h"
#include "support/CatalogueFixture.h"
#include <gmock/gmock.h>

using ExportCore::PresetSelection;
using ExportCore::Refusal;
using ::testing::HasSubstr;
using TestPresets::edited;
using TestPresets::object;
using TestPresets::smallCatalogue;

namespace {

class PresetSelectionTest : public TestPresets::CatalogueFixture {
protected:
    static std::string refusalOf(const std::function<void()>& action) {
        try {
            action();
            return {};
        } catch (const Refusal& refusal) {
            return refusal.what();
        }
    }
};

TEST_F(PresetSelectionTest, APresetIsFoundUnderWhateverTag) {
    writeCatalogue(smallCatalogue());
    const auto provider = PresetSelection::makeProvider();
    for (const char* const id : {"sound", "small", "large"}) {
        PresetSelection::select(*provider, id);
        EXPECT_EQ(provider->preset().id(), id);
        EXPECT_EQ(provider->originalPreset().id(), id);
    }
}

TEST_F(PresetSelectionTest, APresetThatEqualsTheDefaultOfItsTagIsSelectedByItsName) {
    QJsonObject catalogue = smallCatalogue();
    catalogue = edited(catalogue, "/presets/2/qualityModifiers", object("{'mine': {'video': {'multiplier': 2}}}"));
    writeCatalogue(catalogue);
    const auto provider = PresetSelection::makeProvider();
    ASSERT_EQ(provider->preset().id(), "large") << "the default, which \"twin\" equals";
    PresetSelection::select(*provider, "twin");
    EXPECT_EQ(provider->preset().id(), "twin");
    EXPECT_EQ(provider->qualityModifiers(), std::set<std::string>{"mine"});
    EXPECT_TRUE(provider->preset().hasVideo());
}

TEST_F(PresetSelectionTest, InATagOfEqualsEachIsSelectedByItsName) {
    QJsonObject catalogue = smallCatalogue();
    catalogue = edited(catalogue, "/tags/0/presets", QJsonArray{QStringLiteral("twin"), QStringLiteral("large")});
    catalogue = edited(catalogue, "/tags/1/presets", QJsonArray{QStringLiteral("sound"), QStringLiteral("small")});
    writeCatalogue(catalogue);
    const auto provider = PresetSelection::makeProvider();
    for (const char* const id : {"large", "twin", "large"}) {
        PresetSelection::select(*provider, id);
        EXPECT_EQ(provider->preset().id(), id);
    }
}

TEST_F(PresetSelectionTest, WhatWasRememberedDoesNotCount) {
    writeCatalogue(smallCatalogue());
    Settings::setLastUsedPresetGroup("audio");
    Settings::setLastUsedPresetId("sound");
    const auto provider = PresetSelection::makeProvider();
    EXPECT_EQ(provider->currentTag(), "audio") << "the provider was loaded, as its header asks";
    PresetSelection::select(*provider, "small");
    EXPECT_EQ(provider->preset().id(), "small");
}

TEST_F(PresetSelectionTest, AnUnknownPresetIsRefusedWithNearNames) {
    writeCatalogue(smallCatalogue());
    const auto provider = PresetSelection::makeProvider();
    EXPECT_EQ(refusalOf([&] { PresetSelection::select(*provider, "larg"); }),
              "There is no preset \"larg\"; did you mean large?");
}

TEST_F(PresetSelectionTest, ACatalogueThatCannotBeReadIsRefusedWithItsPlace) {
    writeCatalogue(edited(smallCatalogue(), "/presets/0/video/codec", QStringLiteral("h266")));
    EXPECT_THAT(refusalOf([] { PresetSelection::makeProvider(); }),
                HasSubstr("Cannot load the presets: " + cataloguePath().toStdString() + ": /presets/0/video/codec: "));
}

TEST_F(PresetSelectionTest, OwnPresetsWithAnErrorAreLeftOutAndToldOf) {
    writeCatalogue(smallCatalogue());
    write(Settings::userPresetFilePath(), "{\"version\": 2, \"presets\": []}");
    const auto provider = PresetSelection::makeProvider();
    EXPECT_THAT(provider->catalogueWarning(),
                HasSubstr("left out: " + Settings::userPresetFilePath().toStdString() + ": /"));
    PresetSelection::select(*provider, "large");
    EXPECT_EQ(provider->preset().id(), "large");
}

} // namespace
