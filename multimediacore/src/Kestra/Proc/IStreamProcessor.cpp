#include "Kestra/Proc/IStreamProcessor.h"

namespace Kestra::Proc {

IStreamProcessor::~IStreamProcessor() = default;

} // namespace Kestra::Proc
