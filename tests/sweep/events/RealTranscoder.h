// SPDX-License-Identifier: GPL-3.0-or-later
// Sweep::RealTranscoder: the module's transcoder between a fake model and the fake engine.
#pragma once

#include "Export/PresetProvider.h"
#include "Export/Transcoder.h"
#include "fakes/editor/FakeModel.h"
#include "sweep/events/RealRunner.h"
#include <QString>

namespace Sweep {

class RealTranscoder final : public World {
public:
    /// The provider's selected preset says what is needed. Nothing is at `output` yet.
    RealTranscoder(Export::PresetProvider& presets, QString output);
    ~RealTranscoder() override;

protected:
    void start() override {}
    void stop() override;
    void tell(const EngineEvent& event) override { engine.tell(event); }
    void turn() override;
    void destroy() override { transcoder.reset(); }
    void setReady(bool video, bool value) override;
    void setTaken(bool video, bool value) override;
    void touch(bool video) override;
    void write() override;

private:
    void listen();

    const QString output;
    std::uint64_t lastVersion = 0;
    FakeEngine engine;
    EventTurner turner;
    EditorFakes::FakeModel model;
    std::unique_ptr<Export::Transcoder> transcoder;
};

} // namespace Sweep
