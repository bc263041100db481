// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorPreset/PresetStorage.h"
#include "EditorSettings/Settings.h"
#include "support/CatalogueFixture.h"

using TestPresets::edited;
using TestPresets::object;
using TestPresets::smallCatalogue;
using TestPresets::text;

class PresetStorageTest : public TestPresets::CatalogueFixture {
protected:
    void writeOwn(const char* json) { write(Settings::userPresetFilePath(), QJsonDocument(object(json)).toJson()); }
    static std::deque<std::string> idsOf(const PresetStorage& storage, const std::string& tag) {
        std::deque<std::string> ids;
        for (const Preset& preset : storage.presets(tag))
            ids.push_back(preset.id());
        return ids;
    }
    PresetStorage storage;
};

TEST_F(PresetStorageTest, IsEmptyBeforeItIsLoaded) {
    EXPECT_TRUE(storage.tags().empty());
    EXPECT_TRUE(storage.presets("video").empty());
    EXPECT_FALSE(storage.isPresetExists(""));
    EXPECT_EQ(storage.preset("large").id(), "");
}

TEST_F(PresetStorageTest, KeepsTheOrdersOfTheCatalogue) {
    writeCatalogue(smallCatalogue());
    ASSERT_TRUE(load(storage)) << storage.lastError();
    EXPECT_EQ(storage.lastError(), "");
    EXPECT_EQ(storage.tags(), (std::deque<std::string>{"video", "audio"}));
    EXPECT_EQ(idsOf(storage, "video"), (std::deque<std::string>{"small", "large", "twin"}));
    EXPECT_EQ(storage.defaultPresetIndex("video"), 1u);
    EXPECT_EQ(storage.defaultPresetIndex("none"), 0u);
    EXPECT_TRUE(storage.isPresetExists("sound"));
    EXPECT_FALSE(storage.isPresetExists("none"));
}

TEST_F(PresetStorageTest, ModifiersAreSparse) {
    writeCatalogue(smallCatalogue());
    ASSERT_TRUE(load(storage)) << storage.lastError();
    EXPECT_EQ(storage.qualityModifierTags("large"), (std::set<std::string>{"high", "low"}));
    EXPECT_TRUE(storage.qualityModifierTags("small").empty());
    EXPECT_TRUE(storage.qualityModifierTags("none").empty());
    EXPECT_EQ(storage.qualityModifierData("large", "high").ToString(), "video/multiplier = 1.5\n");
    EXPECT_EQ(storage.qualityModifierData("large", "none"), Kestra::Core::Property());
    EXPECT_EQ(storage.qualityModifierData("none", "high"), Kestra::Core::Property());
}

TEST_F(PresetStorageTest, TwoPassIsRead) {
    writeCatalogue(edited(smallCatalogue(), "/presets/0/video/twoPass", true));
    ASSERT_TRUE(load(storage)) << storage.lastError();
    EXPECT_TRUE(storage.preset("small").isVideoTwoPassEncodingEnabled());
    EXPECT_FALSE(storage.preset("large").isVideoTwoPassEncodingEnabled());
}

TEST_F(PresetStorageTest, TwoPassMayBeEnabledInEveryBitrateMode) {
    for (const char* const mode : {"constant", "automatic", "variable", "quality"}) {
        QJsonObject catalogue = edited(smallCatalogue(), "/presets/0/video/twoPass", true);
        catalogue = edited(catalogue, "/presets/0/video/bitrateMode", text(mode));
        catalogue = edited(catalogue, "/presets/0/video/bitrate", 2'000'000);
        writeCatalogue(edited(catalogue, "/presets/0/video/quality", 20));
        ASSERT_TRUE(load(storage)) << storage.lastError();
        EXPECT_TRUE(storage.preset("small").isVideoTwoPassEncodingEnabled()) << mode;
    }
}

TEST_F(PresetStorageTest, ARefusedCatalogueLeavesTheContentAsItWas) {
    writeCatalogue(smallCatalogue());
    ASSERT_TRUE(load(storage));
    writeCatalogue(edited(smallCatalogue(), "/presets/3/audio/codec", text("h264")));
    EXPECT_FALSE(load(storage));
    EXPECT_NE(storage.lastError(), "");
    EXPECT_EQ(storage.tags().size(), 2u);
    EXPECT_EQ(storage.preset("sound").audioCodec(), Kestra::Conf::CodecID::FLAC);
    writeCatalogue(smallCatalogue());
    EXPECT_TRUE(load(storage));
    EXPECT_EQ(storage.lastError(), "");
}

TEST_F(PresetStorageTest, TheUsersPresetReplacesTheInstalledOneOfItsId) {
    writeCatalogue(smallCatalogue());
    writeOwn("{'version': 1, 'presets': [{'id': 'large', 'container': {'id': 'mkv'}, 'video': {'codec': 'vp9'}}]}");
    ASSERT_TRUE(load(storage)) << storage.lastError();
    EXPECT_EQ(storage.preset("large").containerId(), "mkv");
    EXPECT_FALSE(storage.preset("large").hasAudio());
    EXPECT_TRUE(storage.qualityModifierTags("large").empty());
    EXPECT_EQ(idsOf(storage, "video"), (std::deque<std::string>{"small", "large", "twin"}));
    EXPECT_EQ(storage.tags().size(), 2u);
}

TEST_F(PresetStorageTest, TheUsersNewPresetsAppearUnderATagOfTheirOwn) {
    writeCatalogue(smallCatalogue());
    writeOwn(
        "{'version': 1, 'presets': [{'id': 'mine', 'container': {'id': 'wav'}, 'audio': {'codec': 'pcm_s24le'}}]}");
    ASSERT_TRUE(load(storage)) << storage.lastError();
    EXPECT_EQ(storage.tags(), (std::deque<std::string>{"video", "audio", PresetStorage::TAG_OWN_PRESETS}));
    EXPECT_EQ(idsOf(storage, PresetStorage::TAG_OWN_PRESETS), (std::deque<std::string>{"mine"}));
}

TEST_F(PresetStorageTest, TheUsersTagsMayNameInstalledPresets) {
    writeCatalogue(smallCatalogue());
    writeOwn("{'version': 1,"
             " 'tags': [{'name': 'mine', 'default': 1, 'presets': ['sound', 'own']},"
             "          {'name': 'audio', 'default': 0, 'presets': ['own']}],"
             " 'presets': [{'id': 'own', 'container': {'id': 'mp3'}, 'audio': {'codec': 'mp3', 'bitrate': 128000}}]}");
    ASSERT_TRUE(load(storage)) << storage.lastError();
    EXPECT_EQ(storage.tags(), (std::deque<std::string>{"video", "audio", "mine"}));
    EXPECT_EQ(idsOf(storage, "mine"), (std::deque<std::string>{"sound", "own"}));
    EXPECT_EQ(idsOf(storage, "audio"), (std::deque<std::string>{"own"}));
    EXPECT_EQ(storage.defaultPresetIndex("mine"), 1u);
}

TEST_F(PresetStorageTest, ABrokenFileOfTheUserIsLeftOutAndNamed) {
    writeCatalogue(smallCatalogue());
    ASSERT_TRUE(load(storage));
    EXPECT_EQ(storage.warning(), "");
    const std::string start = "Your own presets are left out: " + Settings::userPresetFilePath().toStdString() + ": ";
    for (const char* const broken :
         {"{", "{\"version\": 1, \"presets\": [{\"id\": \"mine\", \"container\": {\"id\": \"avi\"}}]}"}) {
        write(Settings::userPresetFilePath(), broken);
        ASSERT_TRUE(load(storage)) << storage.lastError();
        EXPECT_EQ(storage.warning().find(start), 0u) << storage.warning();
        EXPECT_EQ(storage.tags(), (std::deque<std::string>{"video", "audio"}));
        EXPECT_TRUE(storage.isPresetExists("large"));
        EXPECT_FALSE(storage.isPresetExists("mine"));
    }
    EXPECT_NE(storage.warning().find("/presets/0/container/id"), std::string::npos) << storage.warning();
    ASSERT_TRUE(QFile::remove(Settings::userPresetFilePath()));
    ASSERT_TRUE(load(storage));
    EXPECT_EQ(storage.warning(), "");
}

TEST_F(PresetStorageTest, TheUsersModifiersAreThoseOfTheirPreset) {
    writeCatalogue(smallCatalogue());
    writeOwn("{'version': 1, 'presets': [{'id': 'large', 'container': {'id': 'mkv'}, 'video': {'codec': 'vp9'},"
             " 'qualityModifiers': {'tiny': {'video': {'multiplier': 0.125}}}}]}");
    ASSERT_TRUE(load(storage)) << storage.lastError();
    EXPECT_EQ(storage.qualityModifierTags("large"), std::set<std::string>{"tiny"});
    EXPECT_EQ(storage.qualityModifierData("large", "tiny").ToString(), "video/multiplier = 0.125\n");
}

TEST_F(PresetStorageTest, FrameRatesAreReadAsTheyAreWritten) {
    for (const auto& [text, rate] : std::initializer_list<std::pair<const char*, Preset::Rational>>{
             {"30000/1001", {30000, 1001}}, {"25", 25}, {"50/2", 25}, {"source", 0}}) {
        writeCatalogue(edited(smallCatalogue(), "/presets/0/video/frameRate", TestPresets::text(text)));
        ASSERT_TRUE(load(storage)) << storage.lastError();
        EXPECT_EQ(storage.preset("small").frameRate(), rate) << text;
    }
}

TEST_F(PresetStorageTest, ValuesAreTypedByTheirPlaceNotByTheirName) {
    // An option of the muxer that happens to be called as the picture's frame rate is: known to none, so the user's
    // file is left out for that and for nothing else.
    writeCatalogue(smallCatalogue());
    writeOwn("{'version': 1, 'presets': [{'id': 'mine', 'container': {'id': 'mp4', 'options': {'frameRate': 'fast'}},"
             " 'video': {'codec': 'h264'}}]}");
    ASSERT_TRUE(load(storage)) << storage.lastError();
    EXPECT_NE(storage.warning().find("/presets/0/container/options/frameRate: "), std::string::npos);
    EXPECT_NE(storage.warning().find("knows no option \"frameRate\""), std::string::npos) << storage.warning();
}

TEST_F(PresetStorageTest, TextOfEveryScriptIsAccepted) {
    const QString title = QString::fromUtf8("Видео — فيديو וידאו 映画 é");
    writeCatalogue(edited(smallCatalogue(), "/presets/1/title", title));
    ASSERT_TRUE(load(storage)) << storage.lastError();
    EXPECT_EQ(storage.preset("large").title(), title.toStdString());
}

TEST_F(PresetStorageTest, AnOptionThatTheEncoderKnowsIsAccepted) {
    const QJsonObject options = object("{'preset': 'fast', 'x264-params': 'ref=2', 'bf': 2, 'flags': '+cgop'}");
    writeCatalogue(edited(smallCatalogue(), "/presets/1/video/options", options));
    EXPECT_TRUE(load(storage)) << storage.lastError();
}
