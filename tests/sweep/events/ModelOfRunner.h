// SPDX-License-Identifier: GPL-3.0-or-later
// Sweep::ModelOfRunner: what a runner has to do, told anew and without its code.
#pragma once

#include "sweep/events/World.h"
#include <deque>
#include <functional>
#include <optional>

namespace Sweep {

/// What a run is made of.
struct RunKind {
    bool twoPasses = false;
    bool video = true;
    bool audio = true;
    bool muxer = true;
};

/// Who makes a transcoder's model of it hears its signals in place of the world.
class ModelOfRunner {
public:
    struct Signals {
        std::function<void()> started;
        std::function<void(int percent, std::int64_t remaining)> progressChanged;
        std::function<void()> stopped;
        std::function<void(std::exception_ptr)> startFailed;
        std::function<void(std::exception_ptr)> processingFailed;
    };
    /// Events that have been told and not yet been heard. They go with the runner.
    using Queue = std::deque<std::function<void()>>;

    /// `made` counts the processors of all runners.
    ModelOfRunner(World& world, const RunKind& kind, Signals signals, int& made);

    void start();
    void stop();
    void tell(const EngineEvent& event);
    /// Hears one event; false when there is none. What that lets out is thrown. May destroy this.
    bool hearOne();
    /// Releases its processor, whose last events are not heard.
    void destroy();

private:
    struct Processor {
        int number = 0;
        ProcessorPlan plan;
        bool hasReceiver = false;
    };

    void runPass();
    void makeEngine() const;
    void release();
    void finished();
    void progress(const EngineEvent& event);
    std::int64_t remaining(const EngineEvent& event) const;
    std::int64_t estimate(const EngineEvent& event) const;
    std::int64_t clock() const { return world.now() / 1'000'000; }
    int passes() const { return kind.twoPasses ? 2 : 1; }
    void tell(const EngineEvents& events, const Processor& by);

    World& world;
    const RunKind kind;
    const Signals signals;
    int& made;
    Queue queue;
    std::int64_t startTime = 0;
    bool isStopped = true;
    int pass = 0;
    std::optional<Processor> processor;
};

} // namespace Sweep
