// SPDX-License-Identifier: GPL-3.0-or-later
// What somebody may do who has no rights but those of others.
#pragma once

#include <QtGlobal>
#include <unistd.h>

namespace TestSystem {

/// Root may do everything, so permissions are tried as somebody else.
class AsSomebody {
public:
    AsSomebody() {
        if (geteuid() == 0 && seteuid(65534) != 0)
            qFatal("Cannot become nobody");
    }
    ~AsSomebody() {
        if (getuid() == 0 && seteuid(0) != 0)
            qFatal("Cannot become root again");
    }
};

} // namespace TestSystem
