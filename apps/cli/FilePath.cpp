// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/FilePath.h"

namespace Cli {

QString filePath(const std::string& name) {
    const QString path = QString::fromStdString(name);
    return path.startsWith(QLatin1Char(':')) ? QStringLiteral("./") + path : path;
}

} // namespace Cli
