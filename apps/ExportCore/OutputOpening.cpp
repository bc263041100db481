#include "ExportCore/OutputOpening.h"

#include "ExportCore/FreeSpace.h"
#include "ExportCore/LeftoverSweep.h"
#include "ExportCore/OutputTransaction.h"
#include "ExportCore/RequestCheck.h"

namespace ExportCore {

OutputOpening::OutputOpening(const ExportRequest& request, const QByteArray& extension, QObject* parent)
    : OutputOpening(std::make_shared<Made>(), request, extension, parent) {}

OutputOpening::OutputOpening(const std::shared_ptr<Made>& made, const ExportRequest& request,
                             const QByteArray& extension, QObject* parent)
    : BackgroundTask(
          "make-output",
          [=](const std::atomic<bool>& interrupted) {
              // The inputs may have taken long to open: what stands at the output now is what counts.
              const OutputTarget target = RequestCheck::output(request);
              LeftoverSweep::run(target.folder);
              made->freeBytes = FreeSpace::beside(QString::fromUtf8(target.path));
              if (!interrupted)
                  made->transaction = std::make_shared<OutputTransaction>(target, extension);
          },
          parent)
    , made(made) {}

} // namespace ExportCore
