#include "Kestra/Core/IDataOutput.h"

namespace Kestra::Core {

IDataOutput::~IDataOutput() = default;

} // namespace Kestra::Core
