// ExportCore::OutputTransaction: a file that stands at its place whole or not at all.
#pragma once

#include "ExportCore/OutputTarget.h"
#include "ExportCoreExport.h"
#include "Kestra/Util/RemovalOnTheSpot.h"
#include <QByteArray>
#include <atomic>
#include <optional>

namespace ExportCore {

/// The file is written under a private name in the target's folder and renamed over the target by commit(). Until then
/// the target stays what it was; without a commit the private file goes with the transaction. The lock that is held on
/// the private file tells other runs that its writer lives: see LeftoverSweep. RemovalOnTheSpot has it in mind from
/// before it is made.
///
/// Thread-safe, as every call may hang in a folder that does not answer, and another thread has to clean up then.
/// Failures are ProcException with the cause (disk full, not writable ...).
class EXPORTCORE_EXPORT OutputTransaction {
public:
    /// Makes the private file, empty.
    OutputTransaction(OutputTarget target, QByteArray extension);
    ~OutputTransaction();

    /// Absolute, UTF-8; what is to be written.
    const QByteArray& privatePath() const { return path; }

    /// Waits until what was written has reached the disk.
    void sync() const;
    /// Puts the file at the target's place. A file that has appeared there meanwhile is replaced only when replacing
    /// was allowed. False when the file stands there, but its folder could not be brought to the disk. Once, and fails
    /// after forbid().
    bool commit();
    /// Keeps a commit that has not begun from being made. Does not wait for one that has.
    void forbid() noexcept { forbidden = true; }
    /// Forbids the commit and removes the private file, also from under a commit that hangs, which fails then. After
    /// one that was made it does nothing.
    void rollback() noexcept;
    /// An end of the process on the spot leaves the private file from now on: its folder does not answer.
    void leave() noexcept { removal.reset(); }
    /// Whether the file stands at the target's place.
    bool isCommitted() const;

    OutputTransaction(const OutputTransaction&) = delete;
    OutputTransaction& operator=(const OutputTransaction&) = delete;

private:
    int create();
    void takeOverAccess() const;
    void requireOwnFile() const;
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
