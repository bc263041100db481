#include "Kestra/Proc/IEncoder.h"

namespace Kestra::Proc {

IEncoder::~IEncoder() = default;

} // namespace Kestra::Proc
