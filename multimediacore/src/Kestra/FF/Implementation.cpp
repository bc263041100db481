#include "Kestra/FF/Implementation.h"

#include "Kestra/Proc/ImplNames.h"
#include "Kestra/Proc/ProcException.h"

namespace Kestra::FF {

void RequireImplementation(const char* what, const std::string& implName) {
    if (implName != Proc::ImplNames::DEFAULT)
        KESTRA_THROW(Proc::FilterException(Proc::TranscodingError::NotSupported,
                                           "There is no implementation \"" + implName + "\" of the " + what));
}

} // namespace Kestra::FF
