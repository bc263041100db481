// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Filters/NotImplemented.h"

namespace Kestra::Proc {

void ThrowNotImplemented(const char* function, const char* file, int line) {
    const std::string text = "Method not implemented";
    FilterException exception(TranscodingError::NotSupported, text);
    exception << TagDescription(text) << TagCallStack(GetCallStack());
    ThrowFrom(exception, function, file, line);
}

} // namespace Kestra::Proc
