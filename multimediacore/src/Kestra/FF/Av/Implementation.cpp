// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Av/Implementation.h"

#include "Kestra/Proc/ImplNames.h"
#include "Kestra/Proc/ProcException.h"

namespace Kestra::FF {

void RequireImplementation(const char* what, const std::string& implName, SourcePlace place) {
    if (implName != Proc::ImplNames::DEFAULT)
        ThrowFrom(Proc::FilterException(Proc::TranscodingError::NotSupported,
                                        "There is no implementation \"" + implName + "\" of the " + what),
                  place);
}

} // namespace Kestra::FF
