#include "Kestra/Proc/IProcessingEvents.h"

namespace Kestra::Proc {

IProcessingEvents::~IProcessingEvents() = default;

} // namespace Kestra::Proc
