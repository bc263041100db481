// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::OutputTransaction: a file that stands at its place whole or not at all.
#pragma once

#include "ExportCore/IOutputTransaction.h"
#include "ExportCore/OutputTarget.h"
#include "Kestra/Util/RemovalOnTheSpot.h"
#include <QByteArray>
#include <atomic>
#include <optional>

namespace ExportCore {

/// The file is written under a private name in the target's folder and renamed over the target by commit().
/// RemovalOnTheSpot has it in mind from before it is made. A rollback removes it also from under a commit that hangs,
/// which fails then.
class OutputTransaction final : public IOutputTransaction {
public:
    /// Makes the private file, empty.
    OutputTransaction(OutputTarget target, QByteArray extension);
    ~OutputTransaction() override;

    const QByteArray& privatePath() const override { return path; }
    void sync() const override;
    bool commit() override;
    void forbid() noexcept override { forbidden = true; }
    void rollback() noexcept override;
    void leave() noexcept override { removal.reset(); }
    bool isCommitted() const override;

private:
    int create();
    void takeOverAccess() const;
    void requireOwnFile() const;
    void requireNotForbidden() const;
    void moveIntoPlace() const;
    bool syncFolder() const;

    OutputTarget target;
    QByteArray extension;
    QByteArray path;
    std::optional<Kestra::Util::RemovalOnTheSpot> removal; ///< of the private file
    int file = -1;
    std::atomic<bool> forbidden{false};
    std::atomic<bool> standing{false}; ///< the private name is ours to remove
    std::atomic<bool> committed{false};
};

} // namespace ExportCore
