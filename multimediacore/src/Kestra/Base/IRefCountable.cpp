#include "Kestra/Base/IRefCountable.h"

namespace Kestra {

IRefCountable::~IRefCountable() = default;

} // namespace Kestra
