// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/FreeSpace.h"

#include <algorithm>
#include <limits>
#include <sys/statvfs.h>

namespace ExportCore {

std::optional<qint64> FreeSpace::beside(const QString& outputPath) {
    const QByteArray path = outputPath.toUtf8();
    const int slash = path.lastIndexOf('/');
    const QByteArray folder = slash < 0 ? QByteArray(".") : path.left(slash + 1);
    struct statvfs state = {};
    if (::statvfs(folder.constData(), &state) != 0)
        return std::nullopt;
    const double bytes = static_cast<double>(state.f_bavail) * static_cast<double>(state.f_frsize);
    constexpr qint64 most = std::numeric_limits<qint64>::max();
    return bytes < static_cast<double>(most) ? static_cast<qint64>(state.f_bavail * state.f_frsize) : most;
}

} // namespace ExportCore
