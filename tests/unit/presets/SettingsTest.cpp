// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorSettings/Settings.h"
#include "support/CatalogueFixture.h"
#include <QFileInfo>
#include <QSettings>

using TestPresets::text;

class SettingsTest : public TestPresets::CatalogueFixture {};

TEST_F(SettingsTest, NothingIsRememberedAtFirst) {
    EXPECT_EQ(Settings::lastUsedPresetGroup(), "");
    EXPECT_EQ(Settings::lastUsedPresetId(), "");
}

TEST_F(SettingsTest, WhatIsSetReachesTheFileAtOnce) {
    Settings::setLastUsedPresetGroup("gr\xC3\xBC"
                                     "n/1, 2");
    EXPECT_TRUE(Settings::setLastUsedPresetId("mp3"));
    const QString file = folder.filePath(text("config/EditorExport/settings.ini"));
    ASSERT_TRUE(QFileInfo::exists(file));
    EXPECT_EQ(QSettings(file, QSettings::IniFormat).value(text("export/lastUsedPresetId")).toString(), text("mp3"));
    EXPECT_EQ(Settings::lastUsedPresetGroup(), "gr\xC3\xBC"
                                               "n/1, 2");
    EXPECT_EQ(Settings::lastUsedPresetId(), "mp3");
}

TEST_F(SettingsTest, TheCataloguePathFollowsTheEnvironment) {
    qputenv("EDITOR_EXPORT_PRESETS", "/somewhere/else.json");
    EXPECT_EQ(Settings::presetFilePath(), text("/somewhere/else.json"));
}

TEST_F(SettingsTest, WithoutAnEnvironmentTheCatalogueOfTheTreeIsFound) {
    for (const bool empty : {false, true}) {
        if (empty)
            qputenv("EDITOR_EXPORT_PRESETS", "");
        else
            qunsetenv("EDITOR_EXPORT_PRESETS");
        EXPECT_EQ(QFileInfo(Settings::presetFilePath()).canonicalFilePath(),
                  QFileInfo(text(INSTALLED_CATALOGUE)).canonicalFilePath());
    }
}

TEST_F(SettingsTest, TheUsersPresetsLieInTheConfigurationFolder) {
    EXPECT_EQ(Settings::userPresetFilePath(), folder.filePath(text("config/EditorExport/presets.json")));
}

TEST_F(SettingsTest, AWriteThatFailsIsToldWithTheFile) {
    // A file stands where the folder would have to be made.
    write(folder.filePath(text("config")), "in the way");
    static QString warning;
    warning.clear();
    const QtMessageHandler before = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& message) { warning += message; });
    const bool written = Settings::setLastUsedPresetId("mp3");
    qInstallMessageHandler(before);
    EXPECT_FALSE(written);
    EXPECT_TRUE(warning.contains(folder.filePath(text("config/EditorExport/settings.ini")))) << warning.toStdString();
    EXPECT_EQ(Settings::lastUsedPresetId(), "");
}
