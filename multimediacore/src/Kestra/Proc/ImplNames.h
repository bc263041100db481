// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::ImplNames: the names of implementations among which a factory may choose.
#pragma once

#include "KestraExport.h"

namespace Kestra::Proc {

class KESTRA_EXPORT ImplNames {
public:
    /// The engine's own choice. Every filter and effect has it.
    static const char* const DEFAULT;

    ImplNames() = delete;
};

} // namespace Kestra::Proc
