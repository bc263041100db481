// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::IOutputTransaction: an output that stands at its place whole or not at all.
#pragma once

#include <QByteArray>

namespace ExportCore {

/// What is made stands under a private name until commit(); without one it goes with the transaction, and what stood at
/// the place before stays. The lock that is held on it tells other runs that its writer lives: see LeftoverSweep.
///
/// Thread-safe, as every call may hang in a folder that does not answer, and another thread has to clean up then.
/// Failures are ProcException with the cause (disk full, not writable ...).
class IOutputTransaction {
public:
    IOutputTransaction() = default;
    virtual ~IOutputTransaction();

    /// Absolute, UTF-8: the file that is to be written, or the folder that is to be written into.
    virtual const QByteArray& privatePath() const = 0;
    /// Waits until what was written has reached the disk.
    virtual void sync() const = 0;
    /// Puts what was made at its place. What has appeared there meanwhile is replaced only when replacing was allowed.
    /// False when it stands there, but its folder could not be brought to the disk. Once, and fails after forbid().
    virtual bool commit() = 0;
    /// Keeps a commit from being made, also one that has begun and hangs, unless it has come to the step that cannot be
    /// taken back, which it completes. Does not wait for it.
    virtual void forbid() noexcept = 0;
    /// Forbids the commit and removes what was made. After a commit that was made it does nothing.
    virtual void rollback() noexcept = 0;
    /// An end of the process on the spot leaves what was made from now on: its folder does not answer.
    virtual void leave() noexcept = 0;
    /// Whether what was made stands at its place.
    virtual bool isCommitted() const = 0;

    IOutputTransaction(const IOutputTransaction&) = delete;
    IOutputTransaction& operator=(const IOutputTransaction&) = delete;
};

} // namespace ExportCore
