// SPDX-License-Identifier: GPL-3.0-or-later
#include "Types/UniqueId.h"

#include <QUuid>

namespace Types {

QString nextUniqueId() {
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

} // namespace Types
