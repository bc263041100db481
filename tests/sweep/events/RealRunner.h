// SPDX-License-Identifier: GPL-3.0-or-later
// Sweep::RealRunner: the module's runner over the fake engine.
#pragma once

#include "Export/CreateStreamProcessingHelper.h"
#include "sweep/events/FakeEngine.h"
#include "sweep/events/ModelOfRunner.h"
#include <QObject>

namespace Sweep {

/// Runs the event loop until nothing is due; what an event lets out is noted in the world and goes no further.
class EventTurner : public QObject {
public:
    explicit EventTurner(World& world);
    void turn();

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    World& world;
    int events = 0;
};

class RealRunner final : public World {
public:
    explicit RealRunner(const RunKind& kind);
    ~RealRunner() override;

protected:
    void start() override;
    void stop() override;
    void tell(const EngineEvent& event) override;
    void turn() override { turner.turn(); }
    void destroy() override { runner.reset(); }
    void setReady(bool, bool) override {}
    void setTaken(bool, bool) override {}
    void touch(bool) override {}
    void write() override {}

private:
    void listen();

    FakeEngine engine;
    EventTurner turner;
    std::unique_ptr<Export::IStreamProcessingHelper> runner;
};

/// The model of a runner as a world of its own.
class RunnerWorld final : public World {
public:
    explicit RunnerWorld(const RunKind& kind);

protected:
    void start() override;
    void stop() override;
    void tell(const EngineEvent& event) override;
    void turn() override;
    void destroy() override;
    void setReady(bool, bool) override {}
    void setTaken(bool, bool) override {}
    void touch(bool) override {}
    void write() override {}

private:
    ModelOfRunner::Signals signals();

    int made = 0;
    bool lives = true;
    ModelOfRunner runner;
};

} // namespace Sweep
