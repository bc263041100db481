#include "Kestra/Proc/IData.h"

namespace Kestra::Proc {

IData::~IData() = default;

} // namespace Kestra::Proc
