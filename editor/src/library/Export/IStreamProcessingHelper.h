// SPDX-License-Identifier: GPL-3.0-or-later
// Export::IStreamProcessingHelper: drives the engine through the passes of one export run.
#pragma once

#include "EditorExportExport.h"
#include "KTime/KTime.h"
#include <QObject>
#include <exception>

namespace Export {

/// Owned by the transcoder; used and destroyed on the thread that made it, at any time. Every signal but startFailed
/// comes from that thread's event loop, after start() has returned.
class EDITOREXPORT_EXPORT IStreamProcessingHelper : public QObject {
    Q_OBJECT

public:
    IStreamProcessingHelper();
    ~IStreamProcessingHelper() override;

    /// Begins the first pass; after the end of a run, a new run. Throws what making the processor throws; a
    /// std::exception from launching it is startFailed().
    virtual void start() = 0;
    /// Asks the running pass to end and drops further progress; stopped() follows when the engine has ended.
    virtual void stop() = 0;

Q_SIGNALS:
    /// Once a pass.
    void started();
    /// Of the whole run; `remaining` is KTime(-1) when unknown.
    void progressChanged(int percent, KTime remaining);
    /// The end, after the last pass or after stop().
    void stopped();
    /// The processor of a pass could not be launched; emitted inside start() for the first pass.
    void startFailed(std::exception_ptr);
    /// The engine failed while it ran. The run is not stopped by that.
    void processingFailed(std::exception_ptr);
};

} // namespace Export
