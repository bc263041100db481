// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/EngineRelease.h"

#include "Export/Transcoder.h"
#include "Kestra/Proc/Processor/DeferredRelease.h"

namespace ExportCore {

struct EngineRelease::Held {
    std::shared_ptr<const void> run; ///< the thread's alone once it runs
};

EngineRelease::EngineRelease(QObject* parent)
    : QObject(parent)
    , held(std::make_shared<Held>())
    , task("end-engine", [held = held] { held->run.reset(); }) {
    connect(&task, &BoundedTask::ended, this, &EngineRelease::ended);
}

EngineRelease::~EngineRelease() = default;

void EngineRelease::start(std::unique_ptr<Export::Transcoder> transcoder) {
    {
        Kestra::Proc::DeferredRelease release;
        transcoder.reset();
        held->run = release.Take();
    }
    if (held->run)
        task.start();
    else
        Q_EMIT ended();
}

} // namespace ExportCore
