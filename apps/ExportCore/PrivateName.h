// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::PrivateName: how the files of unfinished exports are called.
#pragma once

#include <QByteArray>
#include <optional>
#include <sys/types.h>

namespace ExportCore {

/// Hidden, unique in the system, with the process that writes the file told by its id and its start time, since ids
/// are used again. A checksum over that is the mark of our own: a file that somebody else named does not carry it. The
/// name of the target is no part of it: that may be as long as names can be.
struct PrivateName {
    pid_t process = 0;
    /// In the kernel's clock ticks since it was booted.
    quint64 processStart = 0;

    /// A new name for a file of this process; no two are the same.
    static QByteArray make(const QByteArray& extension);
    /// The process's name number `counter`.
    QByteArray toName(unsigned counter, const QByteArray& extension) const;
    /// Whose file a name tells of; nothing for a name that was not made by toName.
    static std::optional<PrivateName> read(const QByteArray& name);
    /// Whether that very process runs, as far as it can be seen from here.
    bool isAlive() const;
};

} // namespace ExportCore
