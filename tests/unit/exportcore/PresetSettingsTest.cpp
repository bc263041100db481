// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/PresetSettings.h"
#include "EditorPreset/Preset.h"
#include "ExportCore/PresetCatalogue.h"
#include "ExportCore/Refusal.h"
#include "Kestra/Conf/SampleInfo.h"
#include <functional>
#include <gmock/gmock.h>

using ExportCore::PresetCatalogue;
using ExportCore::PresetSettings;
using ExportCore::Refusal;
using ::testing::HasSubstr;

namespace {

using Texts = std::vector<std::string>;

std::string refusalOf(const std::function<void()>& action) {
    try {
        action();
        return {};
    } catch (const Refusal& refusal) {
        return refusal.what();
    }
}

std::string refusalOf(const Texts& texts) {
    return refusalOf([&] { PresetSettings::parse(texts); });
}

std::string misfit(const char* preset, const Texts& texts) {
    return refusalOf([&] { PresetSettings::parse(texts).requireFit(PresetCatalogue().preset(preset)); });
}

TEST(PresetSettings, NothingIsSetByNothing) {
    const PresetSettings settings = PresetSettings::parse({});
    EXPECT_TRUE(settings.empty());
    EXPECT_FALSE(settings.width || settings.height || settings.frameRate || settings.bitrateBps || settings.quality ||
                 settings.sampleRate || settings.channelLayout || settings.audioBitrateBps);
}

TEST(PresetSettings, EveryKeyIsRead) {
    const PresetSettings settings = PresetSettings::parse({"size=1280x720", "frame-rate=30000/1001", "bitrate=2.5M",
                                                           "sample-rate=44.1k", "channels=5.1", "audio-bitrate=96k"});
    EXPECT_EQ(settings.width, 1280);
    EXPECT_EQ(settings.height, 720);
    EXPECT_EQ(settings.frameRate, boost::rational<long long>(30000, 1001));
    EXPECT_EQ(settings.bitrateBps, 2'500'000);
    EXPECT_EQ(settings.sampleRate, 44'100);
    EXPECT_EQ(settings.channelLayout, std::uint32_t{Kestra::Conf::CHANNEL_LAYOUT_5POINT1});
    EXPECT_EQ(settings.audioBitrateBps, 96'000);
    EXPECT_EQ(PresetSettings::parse({"width=640"}).width, 640);
    EXPECT_EQ(PresetSettings::parse({"height=360"}).height, 360);
    EXPECT_EQ(PresetSettings::parse({"quality=23.5"}).quality, 23.5);
    EXPECT_EQ(PresetSettings::parse({"first-pass=full"}).halfFirstPass, false);
    EXPECT_EQ(PresetSettings::parse({"first-pass=half"}).halfFirstPass, true);
    EXPECT_EQ(PresetSettings::parse({"frame-rate=source"}).frameRate, boost::rational<long long>(0));
}

TEST(PresetSettings, ChannelsHaveNamesAndNumbers) {
    for (const auto& [name, number] : std::vector<std::pair<const char*, const char*>>{
             {"mono", "1"}, {"stereo", "2"}, {"quad", "4"}, {"5.0", "5"}, {"5.1", "6"}, {"7.1", "8"}}) {
        const auto byName = PresetSettings::parse({std::string("channels=") + name}).channelLayout;
        EXPECT_EQ(byName, PresetSettings::parse({std::string("channels=") + number}).channelLayout) << name;
        EXPECT_STREQ(Kestra::Conf::LayoutRecord::Find(byName.value())->name, name);
    }
}

TEST(PresetSettings, AnUnknownKeyIsRefusedWithNearNamesAndAllOfThem) {
    const std::string near = refusalOf(Texts{"bitrat=1M"});
    EXPECT_THAT(near, HasSubstr("There is no setting \"bitrat\"; did you mean bitrate"));
    const std::string far = refusalOf(Texts{"crf=20"});
    for (const PresetSettings::Key& key : PresetSettings::keys()) {
        EXPECT_THAT(near, HasSubstr(key.name));
        EXPECT_THAT(far, HasSubstr(key.name));
    }
    EXPECT_THAT(refusalOf(Texts{"=1"}), HasSubstr("There is no setting \"\""));
    EXPECT_THAT(refusalOf(Texts{"Bitrate=1M"}), HasSubstr("did you mean bitrate"));
}

TEST(PresetSettings, ATextWithoutASignIsNoSetting) {
    EXPECT_EQ(refusalOf(Texts{"width"}), "\"width\" is no setting; write KEY=VALUE");
    EXPECT_EQ(refusalOf(Texts{""}), "\"\" is no setting; write KEY=VALUE");
}

TEST(PresetSettings, AValueThatDoesNotParseIsRefusedWithTheWayToWriteIt) {
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"size=1280", "as 1280x720"},
        {"size=x720", "as 1280x720"},
        {"size=1280x720x3", "as 1280x720"},
        {"size=-2x2", "as 1280x720"},
        {"width=", "as 720"},
        {"height=1e3", "as 720"},
        {"frame-rate=30fps", "30000/1001"},
        {"frame-rate=30/0", "30000/1001"},
        {"frame-rate=-25", "30000/1001"},
        {"bitrate=fast", "2500k or 2.5M"},
        {"bitrate=-1", "2500k or 2.5M"},
        {"bitrate=1.5", "2500k or 2.5M"},
        {"quality=good", "own scale, as 23"},
        {"quality=-1", "own scale, as 23"},
        {"first-pass=quarter", "write full or half"},
        {"sample-rate=high", "48000 or 44.1k"},
        {"channels=3", "mono, stereo"},
        {"channels=two", "mono, stereo"},
        {"audio-bitrate=128kb", "2500k or 2.5M"},
    };
    for (const auto& [text, reason] : cases) {
        const std::string sentence = refusalOf(Texts{text});
        const std::string given(text);
        EXPECT_THAT(sentence, HasSubstr("Cannot set " + given.substr(0, given.find('=')) + " to \"" +
                                        given.substr(given.find('=') + 1) + '"'));
        EXPECT_THAT(sentence, HasSubstr(reason));
    }
}

TEST(PresetSettings, AValueThatNoEncoderTakesIsRefused) {
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"size=0x720", "at least 2x2"},
        {"size=1281x720", "1281 is odd, and encoders need even sides, as 1280 or 1282"},
        {"height=721", "721 is odd"},
        {"width=16386", "16384"},
        {"size=99999999999999999999x2", "16384"},
        {"frame-rate=0", "from 1 to 300"},
        {"frame-rate=1/2", "from 1 to 300"},
        {"frame-rate=301", "from 1 to 300"},
        {"bitrate=0", "from 1 to 2000000000"},
        {"bitrate=2000000001", "from 1 to 2000000000"},
        {"bitrate=99999999999999999999M", "from 1 to 2000000000"},
        {"audio-bitrate=0", "from 1 to 2000000000"},
        {"quality=0", "no codec's scale"},
        {"quality=1001", "no codec's scale"},
        {"sample-rate=0", "192000"},
        {"sample-rate=99999999999999999999", "192000"},
    };
    for (const auto& [text, reason] : cases)
        EXPECT_THAT(refusalOf(Texts{text}), HasSubstr(reason)) << text;
}

TEST(PresetSettings, WhatExcludesEachOtherIsRefused) {
    EXPECT_EQ(refusalOf(Texts{"bitrate=1M", "bitrate=2M"}), "Cannot set bitrate twice");
    EXPECT_THAT(refusalOf(Texts{"size=2x2", "width=2"}), HasSubstr("both size and width"));
    EXPECT_THAT(refusalOf(Texts{"height=2", "size=2x2"}), HasSubstr("both size and height"));
    EXPECT_THAT(refusalOf(Texts{"quality=20", "bitrate=1M"}), HasSubstr("both bitrate and quality"));
    EXPECT_EQ(refusalOf(Texts{"width=2", "height=2"}), "");
}

TEST(PresetSettings, ASettingOfAStreamThatThePresetLacksIsRefused) {
    for (const char* const text : {"size=2x2", "width=2", "height=2", "frame-rate=25", "bitrate=1M", "quality=20"})
        EXPECT_THAT(misfit("mp3", {text}), HasSubstr("the preset \"mp3\" has no picture")) << text;
    Kestra::Core::Property tree;
    tree.SetChild("id", std::string("silent"));
    tree["video"].SetChild("codec", std::string("h264"));
    for (const char* const text : {"sample-rate=48000", "channels=mono", "audio-bitrate=96k"})
        EXPECT_THAT(refusalOf([&] { PresetSettings::parse({text}).requireFit(Preset(tree)); }),
                    HasSubstr("the preset \"silent\" has no sound"));
}

TEST(PresetSettings, ASizeBeyondThePresetIsRefused) {
    EXPECT_EQ(misfit("mp4-h264-720p", {"size=1280x720"}), "");
    EXPECT_THAT(misfit("mp4-h264-720p", {"size=1282x720"}),
                HasSubstr("width of 1282: the preset \"mp4-h264-720p\" is for pictures up to 1280x720"));
    EXPECT_THAT(misfit("mp4-h264-720p", {"height=1282"}), HasSubstr("height of 1282"));
    EXPECT_THAT(misfit("mp4-h264-720p", {"size=960x722"}), HasSubstr("size of 960x722"));
    EXPECT_EQ(misfit("mp4-h264-720p", {"size=720x1280"}), "");
    EXPECT_THAT(misfit("mp4-hevc-1080p", {"size=16x14"}), HasSubstr("hevc takes no side below 16"));
}

TEST(PresetSettings, ASizeBeyondThePresetIsRefusedWithTheNextLargerOneThatHoldsIt) {
    const auto wayOut = [](const char* preset, const char* setting) {
        const std::string refusal = misfit(preset, {setting});
        return refusal.substr(refusal.find(" is for pictures up to "));
    };
    EXPECT_EQ(wayOut("mp4-h264-720p", "size=1282x720"),
              " is for pictures up to 1280x720; \"mp4-h264-1080p\" takes up to 1920x1080");
    EXPECT_EQ(wayOut("mp4-h264-1080p", "size=1440x2560"),
              " is for pictures up to 1920x1080; \"mp4-h264-1440p\" takes up to 2560x1440");
    EXPECT_THAT(wayOut("mp4-h264-1080p", "size=3840x3000"), HasSubstr("\"mp4-h264-source\" takes up to 8192x8192"));
    EXPECT_THAT(wayOut("mp4-h264-1080p-2pass", "width=3840"), HasSubstr("\"mp4-h264-2160p\""));
    EXPECT_EQ(wayOut("mp4-h264-1080p", "width=9000"), " is for pictures up to 1920x1080");
}

TEST(PresetSettings, TheLargerPresetKeepsTransparencyDynamicRangeAndSilence) {
    EXPECT_THAT(misfit("mov-prores-1080p", {"width=3840"}), HasSubstr("; \"mov-prores-2160p\" takes"));
    EXPECT_THAT(misfit("mov-prores-1080p-4444", {"width=3840"}), HasSubstr("; \"mov-prores-2160p-4444\" takes"));
    EXPECT_THAT(misfit("webm-vp9-1080p-hdr", {"width=3840"}), HasSubstr("; \"webm-vp9-2160p-hdr\" takes"));
    EXPECT_THAT(misfit("webm-vp9-1080p", {"width=3840"}), HasSubstr("; \"webm-vp9-2160p\" takes"));
    for (const char* const preset : {"webm-vp9-1080p-alpha", "mp4-h264-1080p-silent"})
        EXPECT_THAT(misfit(preset, {"width=3840"}), ::testing::EndsWith("is for pictures up to 1920x1080"));
}

TEST(PresetSettings, WhatDoesNotApplyIsRefusedWithWhatDoes) {
    const std::string qualities = "; choose one of the preset's qualities (--quality high, medium, low or draft)";
    EXPECT_EQ(misfit("mov-prores-1080p", {"bitrate=50M"}),
              "Cannot set bitrate: prores does not let its bitrate be chosen" + qualities);
    EXPECT_EQ(misfit("mov-prores-1080p", {"quality=3"}),
              "Cannot set quality: prores has no scale of qualities" + qualities);
    EXPECT_EQ(misfit("flac", {"audio-bitrate=500k"}), "Cannot set audio-bitrate: flac does not let its bitrate be "
                                                      "chosen; presets that do: m4a-aac, mp3 or opus");
    EXPECT_THAT(misfit("mov-prores-1080p", {"audio-bitrate=128k"}),
                HasSubstr("; presets that do: mov-h264-1080p or mov-h264-2160p"));
    EXPECT_THAT(misfit("mp4-h264-1080p", {"first-pass=half"}), HasSubstr("; \"mp4-h264-1080p-2pass\" encodes in two"));
    EXPECT_THAT(misfit("mp4-h264-1080p-2pass", {"quality=20"}), HasSubstr("; \"mp4-h264-1080p\" encodes in one"));
    EXPECT_THAT(refusalOf(Texts{"quality=high"}), HasSubstr("(--quality takes a preset's names)"));
}

TEST(PresetSettings, AFrameRateIsRefusedWithTheNearestThatTheCodecTakes) {
    EXPECT_EQ(misfit("gif-gif-480p", {"frame-rate=30"}),
              "Cannot set frame-rate: gif does not take 30; the nearest that it takes is 100/3");
    EXPECT_THAT(misfit("gif-gif-480p", {"frame-rate=60"}), HasSubstr("the nearest that it takes is 50"));
    EXPECT_THAT(misfit("mp4-mpeg4-720p", {"frame-rate=119881/1000"}),
                HasSubstr("mpeg4 does not take 119881/1000; the nearest that it takes is 120"));
}

TEST(PresetSettings, WhatTheCodecDoesNotTakeIsRefusedWithWhatItTakes) {
    EXPECT_THAT(misfit("webm-vp9-720p", {"sample-rate=44100"}), HasSubstr("opus does not take 44100, only 48000"));
    EXPECT_THAT(misfit("mp3", {"channels=5.1"}), HasSubstr("mp3 does not take 5.1, only mono and stereo"));
    EXPECT_THAT(misfit("mp4-mpeg4-720p", {"frame-rate=119881/1000"}), HasSubstr("mpeg4 does not take 119881/1000"));
    EXPECT_THAT(misfit("mp4-h264-720p", {"quality=52"}), HasSubstr("h264 takes 1 to 51"));
    EXPECT_THAT(misfit("webm-vp9-720p", {"quality=30.5"}), HasSubstr("vp9 takes whole numbers"));
    EXPECT_THAT(misfit("mov-prores-1080p", {"quality=3"}), HasSubstr("prores has no scale of qualities"));
    EXPECT_THAT(misfit("mov-prores-1080p", {"bitrate=50M"}), HasSubstr("prores does not let its bitrate be chosen"));
    EXPECT_THAT(misfit("flac", {"audio-bitrate=500k"}), HasSubstr("flac does not let its bitrate be chosen"));
    EXPECT_EQ(misfit("mp4-h264-720p", {"quality=51", "frame-rate=source", "channels=7.1", "sample-rate=96000"}), "");
}

TEST(PresetSettings, AFirstPassIsSetWhereThereAreTwo) {
    EXPECT_EQ(misfit("mp4-h264-1080p-2pass", {"first-pass=half"}), "");
    EXPECT_THAT(misfit("mp4-h264-1080p", {"first-pass=half"}), HasSubstr("encodes in one pass"));
}

TEST(PresetSettings, AHalfFirstPassIsSetWhereTheEncoderHasOne) {
    EXPECT_THAT(misfit("mp4-hevc-1080p-2pass", {"first-pass=half"}), HasSubstr("hevc looks at whole pictures"));
    EXPECT_EQ(misfit("mp4-hevc-1080p-2pass", {"first-pass=full"}), "");
}

TEST(PresetSettings, TwoPassesAndAQualityExcludeEachOther) {
    EXPECT_THAT(misfit("mp4-h264-1080p-2pass", {"quality=20"}), HasSubstr("encodes in two passes"));
    EXPECT_EQ(misfit("mp4-h264-1080p-2pass", {"bitrate=3M"}), "");
    EXPECT_EQ(misfit("mp4-h264-source", {"quality=20"}), "");
}

} // namespace
