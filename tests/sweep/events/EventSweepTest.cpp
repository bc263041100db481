// SPDX-License-Identifier: GPL-3.0-or-later
// Events in any order, twice, late, from runs that are over, under clocks that jump: the runner and the transcoder do
// what their models do, step by step, signal by signal.
#include "fakes/editor/TestCatalogue.h"
#include "sweep/ReferenceExport.h"
#include "sweep/events/ModelOfTranscoder.h"
#include "sweep/events/RealTranscoder.h"
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>
#include <sstream>

using namespace Sweep;

namespace {

using Make = std::function<std::unique_ptr<World>()>;

Trace traceOf(const Make& make, const Steps& steps, std::size_t count) {
    const std::unique_ptr<World> world = make();
    for (std::size_t at = 0; at < count; ++at)
        world->play(steps[at]);
    return world->trace();
}

std::string joined(const Trace& trace) {
    std::string text;
    for (const std::string& line : trace)
        text += "\n  " + line;
    return text;
}

/// Empty when both do the same; otherwise the shortest beginning of the script that tells them apart.
std::string difference(const Make& real, const Make& model, const Steps& steps) {
    if (traceOf(real, steps, steps.size()) == traceOf(model, steps, steps.size()))
        return "";
    std::size_t count = 0;
    Trace found, expected;
    while (found == expected && count < steps.size()) {
        ++count;
        found = traceOf(real, steps, count);
        expected = traceOf(model, steps, count);
    }
    std::ostringstream text;
    text << "after " << count << " steps:";
    for (std::size_t at = 0; at < count; ++at)
        text << "\n  " << steps[at];
    text << "\nit did:" << joined(found) << "\nin place of:" << joined(expected);
    return text.str();
}

/// Plays `count` scripts on what `real` and `model` make of a kind; with `streams` the scripts deal with those too.
template <class Real, class Model>
void sweep(int count, bool streams, const std::function<RunKind(std::uint64_t)>& kindOf, const Real& real,
           const Model& model) {
    constexpr int worst = 3;
    int differences = 0;
    for (std::uint64_t seed = 0; seed < static_cast<std::uint64_t>(count) && differences < worst; ++seed) {
        const RunKind kind = kindOf(seed);
        const std::string told =
            difference([&] { return real(kind); }, [&] { return model(kind); }, randomSteps(seed, streams));
        if (told.empty())
            continue;
        ++differences;
        ADD_FAILURE() << "seed " << seed << (kind.twoPasses ? ", two passes" : ", one pass")
                      << (kind.video ? ", video" : "") << (kind.audio ? ", audio" : "") << (kind.muxer ? ", muxer" : "")
                      << ", " << told;
    }
}

/// Of every kind that a runner can be made for.
RunKind runnerKind(std::uint64_t seed) {
    const std::uint64_t media = seed % 3 == 0 ? seed / 7 % 8 : 7;
    return {seed % 2 == 0, (media & 1) != 0, (media & 2) != 0, (media & 4) != 0};
}

TEST(EventSweep, TheRunnerDoesAsItsModelWhateverHappensInWhateverOrder) {
    sweep(
        countOr(10'000), false, &runnerKind, [](const RunKind& kind) { return std::make_unique<RealRunner>(kind); },
        [](const RunKind& kind) { return std::make_unique<RunnerWorld>(kind); });
}

/// A provider for each kind of run that a preset can ask for.
class Presets {
public:
    std::unique_ptr<World> transcoder(const RunKind& kind) {
        const char* name = kind.twoPasses ? "two-pass" : !kind.video ? "sound" : !kind.audio ? "pictures" : "av";
        auto& provider = providers[name];
        if (!provider) {
            provider = std::make_unique<Export::PresetProvider>(nullptr);
            provider->load();
            provider->selectPreset(std::string(name));
        }
        return std::make_unique<RealTranscoder>(*provider, folder.filePath(QStringLiteral("film")));
    }

private:
    const EditorFakes::TestCatalogue catalogue;
    const QTemporaryDir folder;
    std::map<std::string, std::unique_ptr<Export::PresetProvider>> providers;
};

RunKind transcoderKind(std::uint64_t seed) {
    constexpr RunKind kinds[] = {
        {false, true, true, true}, {true, true, true, true}, {false, false, true, true}, {false, true, false, true}};
    return kinds[seed % 4];
}

TEST(EventSweep, TheTranscoderDoesAsItsModelWhateverHappensInWhateverOrder) {
    Presets presets;
    sweep(
        countOr(2'000), true, &transcoderKind, [&](const RunKind& kind) { return presets.transcoder(kind); },
        [](const RunKind& kind) { return std::make_unique<ModelOfTranscoder>(kind); });
}

/// A sweep in which nothing happens proves nothing.
TEST(EventSweep, ItsScriptsLetRunsBeginFailAndEnd) {
    std::map<std::string, int> lines;
    for (std::uint64_t seed = 0; seed < 2'000; ++seed) {
        const RunKind kind = transcoderKind(seed);
        const Steps steps = randomSteps(seed, true);
        for (const std::string& line :
             traceOf([&] { return std::make_unique<ModelOfTranscoder>(kind); }, steps, steps.size()))
            ++lines[line];
    }
    for (const char* line :
         {"signal started", "signal stopped", "signal failed odd", "signal failed fault in the engine",
          "signal failed fault in initialize", "signal failed fault in start", "out: odd", "out: fault in video",
          "out: fault in muxer", "stop", "discard", "release 2", "a file"})
        EXPECT_GE(lines[line], 3) << line;
}

} // namespace
