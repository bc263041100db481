// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "EditorSettings/Settings.h"
#include "Export/PresetProvider.h"
#include "support/CatalogueFixture.h"
#include <QAbstractItemModel>
#include <memory>
#include <string>
#include <vector>

/// A provider over the small catalogue, with everything that it signals written down in order.
class ProviderFixture : public TestPresets::CatalogueFixture {
protected:
    ProviderFixture() { writeCatalogue(TestPresets::smallCatalogue()); }

    Export::PresetProvider& make() {
        log.clear();
        provider = std::make_unique<Export::PresetProvider>(nullptr);
        using Export::PresetProvider;
        QObject::connect(provider.get(), &PresetProvider::tagChanged,
                         [this](const std::string& tag) { log.push_back("tag " + tag); });
        QObject::connect(provider.get(), &PresetProvider::presetChanged,
                         [this](int row) { log.push_back("preset " + std::to_string(row)); });
        QObject::connect(provider.get(), &PresetProvider::qualityChanged, [this] { log.push_back("quality"); });
        return *provider;
    }
    Export::PresetProvider& makeLoaded() {
        make().load();
        log.clear();
        return *provider;
    }
    /// A loaded provider on a preset of the small catalogue with one place of it changed.
    Export::PresetProvider& makeSelected(const std::string& id, const char* pointer = nullptr,
                                         const QJsonValue& value = {}) {
        if (pointer != nullptr)
            writeCatalogue(TestPresets::edited(TestPresets::smallCatalogue(), pointer, value));
        makeLoaded();
        if (id == "sound")
            provider->selectTag("audio");
        provider->selectPreset(id);
        EXPECT_EQ(provider->preset().id(), id);
        log.clear();
        return *provider;
    }

    static Media::Video video(std::uint32_t width, std::uint32_t height, std::uint32_t rate = 30,
                              std::uint32_t per = 1) {
        Media::Video result;
        result.width = width;
        result.height = height;
        result.frameRateNumerator = rate;
        result.frameRateDenominator = per;
        return result;
    }
    static Media::Audio audio(std::uint32_t layout, std::int32_t rate, std::int32_t format) {
        Media::Audio result;
        result.channelLayout = layout;
        result.sampleRate = rate;
        result.sampleFormat = format;
        return result;
    }

    using Log = std::vector<std::string>;
    using Ids = std::vector<std::string>;
    Log log;
    std::unique_ptr<Export::PresetProvider> provider;
};
