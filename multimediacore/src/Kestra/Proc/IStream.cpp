#include "Kestra/Proc/IStream.h"

namespace Kestra::Proc {

IStream::~IStream() = default;

} // namespace Kestra::Proc
