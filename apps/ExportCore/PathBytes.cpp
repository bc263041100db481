// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/PathBytes.h"

namespace ExportCore {

std::string PathBytes::whyNone(const QString& text) {
    if (text.contains(QChar(0)))
        return "a NUL stands in it, which ends a name";
    return text.isValidUtf16() ? std::string() : "half of a surrogate pair stands in it, which is no letter";
}

} // namespace ExportCore
