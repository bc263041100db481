// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::SequenceTransaction: pictures that stand at their place all or not at all.
#pragma once

#include "ExportCore/IOutputTransaction.h"
#include "ExportCore/SequenceTarget.h"
#include "Kestra/Util/RemovalOnTheSpot.h"
#include <atomic>
#include <optional>

namespace ExportCore {

/// The pictures are written into a private folder. A folder that is not there yet it becomes by one renaming. One that
/// is there stays what it is, with its rights and with whatever else it holds: there the private folder stands inside
/// of it, and PictureSwap moves the pictures out when they are complete.
///
/// RemovalOnTheSpot has the private folder in mind from before it is made until pictures are moved.
class SequenceTransaction final : public IOutputTransaction {
public:
    /// Makes the private folder, empty.
    explicit SequenceTransaction(SequenceTarget target);
    ~SequenceTransaction() override;

    const QByteArray& privatePath() const override { return path; }
    void sync() const override;
    bool commit() override;
    void forbid() noexcept override { forbidden = true; }
    /// Under a commit that hangs it leaves everything as it is: LeftoverSweep brings that to an end.
    void rollback() noexcept override;
    void leave() noexcept override { removal->withdraw(); }
    bool isCommitted() const override;

private:
    /// Who moves pictures and who removes them do not meet.
    enum class State { Written, Moving, Committed, Removed };

    int create();
    bool enter(State from, State to) noexcept { return state.compare_exchange_strong(from, to); }
    void requireOwnFolder() const;
    void requireNoRemoval();
    void requireNotForbidden() const;
    void move();
    void moveFolder() const;
    void swapPictures();

    SequenceTarget target;
    QByteArray path;
    std::optional<Kestra::Util::RemovalOnTheSpot> removal; ///< of the private folder
    int folder = -1;                                       ///< the private one
    bool stuck = false;                                    ///< a swap could be neither completed nor undone
    std::atomic<bool> forbidden{false};
    std::atomic<State> state{State::Written};
};

} // namespace ExportCore
