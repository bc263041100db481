#include "Kestra/Proc/IPacketSource.h"

namespace Kestra::Proc {

IPacketSource::~IPacketSource() = default;

} // namespace Kestra::Proc
