// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::OutputOpening: makes the private file or folder of a request away from the event loop.
#pragma once

#include "ExportCore/BackgroundTask.h"
#include "ExportCore/ExportRequest.h"
#include "ExportCore/SequenceName.h"
#include <QByteArray>
#include <memory>
#include <optional>

namespace ExportCore {

class IOutputTransaction;

/// Looks whether the output is fit still, sweeps its folder and makes the private file beside it, or the private folder
/// for its pictures. Throws Refusal for what is not fit.
class OutputOpening : public BackgroundTask {
    Q_OBJECT
public:
    /// `extension` is the private file's; without `sequence` it is one.
    OutputOpening(const ExportRequest& request, const QByteArray& extension,
                  const std::optional<SequenceName>& sequence, QObject* parent = nullptr);

    /// After finished() without an error; null from then on.
    std::shared_ptr<IOutputTransaction> take() { return std::move(made->transaction); }
    /// After finished() without an error; as FreeSpace::beside().
    std::optional<qint64> freeBytes() const { return made->freeBytes; }

private:
    /// The thread's alone until it has finished. A thread that was left removes what it made.
    struct Made {
        std::shared_ptr<IOutputTransaction> transaction;
        std::optional<qint64> freeBytes;
    };

    OutputOpening(const std::shared_ptr<Made>& made, const ExportRequest& request, const QByteArray& extension,
                  const std::optional<SequenceName>& sequence, QObject* parent);
    static void makeFile(Made& made, const ExportRequest& request, const QByteArray& extension,
                         const std::atomic<bool>& interrupted);
    static void makeFolder(Made& made, const ExportRequest& request, const SequenceName& sequence,
                           const std::atomic<bool>& interrupted);

    const std::shared_ptr<Made> made;
};

} // namespace ExportCore
