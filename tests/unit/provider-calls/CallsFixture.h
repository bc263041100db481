// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Export/PresetProvider.h"
#include "ScriptedPlatform.h"
#include <QAbstractItemModel>
#include <gtest/gtest.h>
#include <memory>

/// Presets "one" and "two" in the tag "first", "three" in "second"; calls to the platform and signals in one log.
class CallsFixture : public ::testing::Test {
protected:
    using Log = std::vector<std::string>;
    using Property = Kestra::Core::Property;

    CallsFixture() {
        script = ScriptedPlatform();
        script.tags = {"first", "second"};
        script.presets = {{"first", {preset("one", 1000), preset("two", 2000)}}, {"second", {preset("three", 3000)}}};
        for (const auto& entry : script.presets) {
            for (const Preset& each : entry.second)
                script.presetById[each.id()] = each;
        }
    }

    static Preset preset(const std::string& id, std::int64_t bitrate, const char* mode = "variable") {
        Property tree;
        tree.SetChild("id", id);
        tree["container"].SetChild("id", std::string("mp4"));
        tree["video"].SetChild("codec", std::string("h264"));
        tree["video"].SetChild("bitrateMode", std::string(mode));
        tree["video"].SetChild("bitrate", bitrate);
        tree["video"].SetChild("quality", 21.0);
        tree["audio"].SetChild("codec", std::string("aac"));
        tree["audio"].SetChild("bitrate", std::int64_t{96'000});
        tree["audio"].SetChild("channelLayout", std::string("stereo"));
        tree["audio"].SetChild("sampleRate", std::int64_t{48'000});
        return Preset(tree);
    }

    Export::PresetProvider& make() {
        using Export::PresetProvider;
        provider = std::make_unique<PresetProvider>(nullptr);
        QObject::connect(provider.get(), &PresetProvider::tagChanged,
                         [this](const std::string& tag) { script.log.push_back("signal tag " + tag); });
        QObject::connect(provider.get(), &PresetProvider::presetChanged,
                         [this](int row) { script.log.push_back("signal preset " + std::to_string(row)); });
        QObject::connect(provider.get(), &PresetProvider::qualityChanged,
                         [this] { script.log.push_back("signal quality"); });
        return *provider;
    }
    Export::PresetProvider& makeLoaded() {
        make().load();
        script.log.clear();
        return *provider;
    }

    static Media::Video video() {
        Media::Video source;
        source.width = 640;
        source.height = 360;
        source.frameRateNumerator = 25;
        source.frameRateDenominator = 1;
        source.aspectNumerator = 16;
        source.aspectDenominator = 9;
        return source;
    }
    static Media::Audio audio() {
        Media::Audio source;
        source.channelLayout = 3;
        source.sampleRate = 48000;
        source.sampleFormat = 8;
        return source;
    }

    ScriptedPlatform& script = ScriptedPlatform::instance();
    std::unique_ptr<Export::PresetProvider> provider;
};
