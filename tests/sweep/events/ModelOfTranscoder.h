// SPDX-License-Identifier: GPL-3.0-or-later
// Sweep::ModelOfTranscoder: what a transcoder has to do from its initialization on, told anew and without its code.
#pragma once

#include "sweep/events/ModelOfRunner.h"
#include <memory>

namespace Sweep {

class ModelOfTranscoder final : public World {
public:
    explicit ModelOfTranscoder(const RunKind& kind);
    ~ModelOfTranscoder() override;

protected:
    void start() override {}
    void stop() override;
    void tell(const EngineEvent& event) override;
    void turn() override;
    void destroy() override;
    void setReady(bool video, bool value) override;
    void setTaken(bool video, bool value) override;
    void touch(bool video) override;
    void write() override { fileIsThere = true; }

private:
    struct Medium {
        bool needed = false;
        bool ready = false;
        bool taken = false;
    };

    bool readyToStart() const;
    void attempt();
    void launch();
    bool turnOnce();
    void fail(const std::exception_ptr& error, bool processing);
    ModelOfRunner::Signals signals();
    Medium& medium(bool isVideo) { return isVideo ? video : audio; }
    void changed(const Medium& which);

    const RunKind kind;
    Medium video, audio;
    bool lives = true;
    bool pending = false;
    bool connected = false;
    bool fileIsThere = false;
    int made = 0;
    std::unique_ptr<ModelOfRunner> runner;
    /// Runners that went while they were heard.
    std::vector<std::unique_ptr<ModelOfRunner>> gone;
};

} // namespace Sweep
