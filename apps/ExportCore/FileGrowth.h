// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::FileGrowth: how large an output under way is.
#pragma once

#include "ExportCore/SequenceName.h"
#include "Kestra/Base/LeavableThread.h"
#include <QByteArray>
#include <QElapsedTimer>
#include <atomic>
#include <chrono>
#include <functional>
#include <memory>

namespace ExportCore {

/// Looks on a thread of its own, as a folder may not answer; that thread is left at the end then. Bound to one thread.
class FileGrowth {
public:
    explicit FileGrowth(const QByteArray& path);
    /// Of pictures that are written one after the other, from 0 on.
    explicit FileGrowth(const SequenceName& pictures);

    /// The bytes that were found by the last look that has come to its end, -1 before, and as long as there are none;
    /// begins another one when half a second has gone since, or none were found yet. Returns in some milliseconds.
    qint64 bytes();
    /// The same of what is complete, by a look that begins now; -1 also where the folder does not answer. Returns in
    /// some 40 milliseconds at most.
    qint64 bytesNow();

private:
    struct Look {
        std::atomic<qint64> bytes{-1};
        std::atomic<bool> ended{true};
    };

    /// Called by one look at a time; -1 where it cannot tell.
    using Measure = std::function<qint64()>;
    explicit FileGrowth(Measure measure);
    void lookAgain(std::chrono::milliseconds patience);

    const Measure measure;
    const std::shared_ptr<Look> look;
    Kestra::LeavableThread thread;
    QElapsedTimer sinceLook;
};

} // namespace ExportCore
