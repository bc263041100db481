// SPDX-License-Identifier: GPL-3.0-or-later
// What the export dialog waits for: reading the catalogue, and deriving parameters while a slider moves.
#include "EditorPreset/PresetStorage.h"
#include "Export/PresetProvider.h"
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

/// The installed catalogue and a configuration folder without presets of a user.
class Surroundings {
public:
    Surroundings() {
        qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
        qputenv("EDITOR_EXPORT_PRESETS", INSTALLED_CATALOGUE);
    }

private:
    QTemporaryDir folder;
};

struct LoadedProvider {
    LoadedProvider()
        : provider(nullptr) {
        provider.load();
        provider.selectPreset(std::string("mp4-h264-1080p"));
        video.width = 3840;
        video.height = 2160;
        video.frameRateNumerator = 30000;
        video.frameRateDenominator = 1001;
        audio.channelLayout = Kestra::Conf::CHANNEL_LAYOUT_STEREO;
        audio.sampleRate = 48000;
        audio.sampleFormat = Kestra::Conf::SAMPLE_FORMAT_FLTP;
    }
    Surroundings surroundings;
    Export::PresetProvider provider;
    Media::Video video;
    Media::Audio audio;
};

void LoadCatalogue(benchmark::State& state) {
    const Surroundings surroundings;
    for (auto _ : state) {
        PresetStorage storage;
        if (!storage.loadPresets(Kestra::ioPath(INSTALLED_CATALOGUE)))
            state.SkipWithError(storage.lastError().c_str());
        benchmark::DoNotOptimize(storage);
    }
}
BENCHMARK(LoadCatalogue)->Unit(benchmark::kMicrosecond);

void ApplyPresetToVideo(benchmark::State& state) {
    const LoadedProvider loaded;
    for (auto _ : state)
        benchmark::DoNotOptimize(loaded.provider.applyPreset(&loaded.video));
}
BENCHMARK(ApplyPresetToVideo);

void BitrateOfVideo(benchmark::State& state) {
    const LoadedProvider loaded;
    for (auto _ : state)
        benchmark::DoNotOptimize(loaded.provider.bitrate(&loaded.video));
}
BENCHMARK(BitrateOfVideo);

void BitrateOfAudio(benchmark::State& state) {
    const LoadedProvider loaded;
    for (auto _ : state)
        benchmark::DoNotOptimize(loaded.provider.bitrate(&loaded.audio));
}
BENCHMARK(BitrateOfAudio);

void EncoderDataOfPreset(benchmark::State& state) {
    const LoadedProvider loaded;
    const Preset preset = loaded.provider.preset();
    for (auto _ : state) {
        benchmark::DoNotOptimize(preset.videoEncoderData());
        benchmark::DoNotOptimize(preset.audioEncoderData());
        benchmark::DoNotOptimize(preset.muxerData());
    }
}
BENCHMARK(EncoderDataOfPreset);

void SwitchTagAndBack(benchmark::State& state) {
    LoadedProvider loaded;
    for (auto _ : state) {
        loaded.provider.selectTag("audio");
        loaded.provider.selectTag("mp4");
    }
}
BENCHMARK(SwitchTagAndBack)->Unit(benchmark::kMicrosecond);

} // namespace
