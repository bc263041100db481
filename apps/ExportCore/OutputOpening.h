// ExportCore::OutputOpening: makes the private file of a request away from the event loop.
#pragma once

#include "ExportCore/BackgroundTask.h"
#include "ExportCore/ExportRequest.h"
#include <QByteArray>
#include <memory>
#include <optional>

namespace ExportCore {

class OutputTransaction;

/// Looks whether the output is fit still, sweeps its folder and makes the private file beside it. Throws Refusal for
/// what is not fit.
class EXPORTCORE_EXPORT OutputOpening : public BackgroundTask {
    Q_OBJECT
public:
    OutputOpening(const ExportRequest& request, const QByteArray& extension, QObject* parent = nullptr);

    /// After finished() without an error; null from then on.
    std::shared_ptr<OutputTransaction> take() { return std::move(made->transaction); }
    /// After finished() without an error; as FreeSpace::beside().
    std::optional<qint64> freeBytes() const { return made->freeBytes; }

private:
    /// The thread's alone until it has finished. A thread that was left removes what it made.
    struct Made {
        std::shared_ptr<OutputTransaction> transaction;
        std::optional<qint64> freeBytes;
    };

    OutputOpening(const std::shared_ptr<Made>& made, const ExportRequest& request, const QByteArray& extension,
                  QObject* parent);

    const std::shared_ptr<Made> made;
};

} // namespace ExportCore
