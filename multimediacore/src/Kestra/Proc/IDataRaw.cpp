#include "Kestra/Proc/IDataRaw.h"

namespace Kestra::Proc {

IDataRaw::~IDataRaw() = default;

} // namespace Kestra::Proc
