// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/OutputOpening.h"

#include "ExportCore/FreeSpace.h"
#include "ExportCore/LeftoverSweep.h"
#include "ExportCore/OutputTransaction.h"
#include "ExportCore/RequestCheck.h"
#include "ExportCore/SequenceTransaction.h"

namespace ExportCore {

OutputOpening::OutputOpening(const ExportRequest& request, const QByteArray& extension,
                             const std::optional<SequenceName>& sequence, QObject* parent)
    : OutputOpening(std::make_shared<Made>(), request, extension, sequence, parent) {}

OutputOpening::OutputOpening(const std::shared_ptr<Made>& made, const ExportRequest& request,
                             const QByteArray& extension, const std::optional<SequenceName>& sequence, QObject* parent)
    : BackgroundTask(
          "make-output",
          [=](const std::atomic<bool>& interrupted) {
              if (sequence)
                  makeFolder(*made, request, *sequence, interrupted);
              else
                  makeFile(*made, request, extension, interrupted);
          },
          parent)
    , made(made) {}

// The inputs may have taken long to open: what stands at the output now is what counts.
void OutputOpening::makeFile(Made& made, const ExportRequest& request, const QByteArray& extension,
                             const std::atomic<bool>& interrupted) {
    const OutputTarget target = RequestCheck::output(request);
    LeftoverSweep::run(target.folder);
    made.freeBytes = FreeSpace::beside(QString::fromUtf8(target.path));
    if (!interrupted)
        made.transaction = std::make_shared<OutputTransaction>(target, extension);
}

// Swept first: what a dead run was about to put there may arrive by that.
void OutputOpening::makeFolder(Made& made, const ExportRequest& request, const SequenceName& sequence,
                               const std::atomic<bool>& interrupted) {
    LeftoverSweep::run(sequence.folder);
    const SequenceTarget target = RequestCheck::sequence(request, sequence);
    LeftoverSweep::run(target.place());
    made.freeBytes = FreeSpace::beside(QString::fromUtf8(target.place() + "/."));
    if (!interrupted)
        made.transaction = std::make_shared<SequenceTransaction>(target);
}

} // namespace ExportCore
