// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/NamedPath.h"

namespace ExportCore {

QString NamedPath::in(const QString& sentence, const ExportRequest& request) {
    QString named;
    int place = -1;
    for (const QString& path : request.inputs + QStringList(request.outputPath)) {
        const int at = path.isEmpty() ? -1 : sentence.indexOf(QLatin1Char('"') + path + QLatin1Char('"'));
        if (at < 0 || (place >= 0 && (at > place || (at == place && path.size() <= named.size()))))
            continue;
        named = path;
        place = at;
    }
    return named;
}

} // namespace ExportCore
