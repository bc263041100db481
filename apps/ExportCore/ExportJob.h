// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::ExportJob: one export from the request to the checked file at its place.
#pragma once

#include "ExportCore/ExportOutcome.h"
#include "ExportCore/ExportProgress.h"
#include "ExportCore/ExportRequest.h"
#include "ExportCoreExport.h"
#include <QObject>
#include <exception>
#include <functional>
#include <memory>

namespace Kestra::Proc {
class PictureBox;
} // namespace Kestra::Proc

namespace ExportCore {

class ExportRun;

/// For one run: construct, connect, start(), wait for finished(). Lives on the thread of the model; every signal comes
/// from that thread's event loop. Any number may run at once. Destruction ends a run that is under way; the output
/// stays what it was.
///
/// Whatever touches files does so on other threads. One that hangs in a file that is gone, or in the output's folder,
/// is left after some seconds, through which the event loop goes on: by the stop of the run, by its failure. After
/// finished() destruction waits for nobody; before, it waits so long itself.
class EXPORTCORE_EXPORT ExportJob : public QObject {
    Q_OBJECT
public:
    explicit ExportJob(ExportRequest request, QObject* parent = nullptr);
    ~ExportJob() override;

    /// For who wants to see what is being encoded; its pictures are those of the inputs, without an outro.
    std::shared_ptr<Kestra::Proc::PictureBox> watchPictures();
    /// Has it call that with the path of what was made, checked and brought to the disk, right before it is put at the
    /// output's place: a file, or the pattern of pictures. On another thread, maybe when nobody waits for the export
    /// any more. What is thrown there fails the export. Before start().
    void callBeforePlacing(std::function<void(const QString& made)> call);
    /// Once. Returns at once.
    void start();
    /// Ends the run soon; the outcome is Stopped unless the run had failed or ended before.
    void stop();
    /// Ends the run.
    void fail(const std::exception_ptr& error);
    /// For what the event loop caught in an event of `receiver`: a start of the engine that fails leaves as an
    /// exception. Ends the run where that is a part of it, and, with words that say so, where nobody can tell whose it
    /// is.
    void failInEventLoop(const std::exception_ptr& error, QObject* receiver);

Q_SIGNALS:
    void started();
    void progressChanged(const ExportCore::ExportProgress& progress);
    /// Once, as the last signal.
    void finished(const ExportCore::ExportOutcome& outcome);

private:
    const std::unique_ptr<ExportRun> run;
};

} // namespace ExportCore
