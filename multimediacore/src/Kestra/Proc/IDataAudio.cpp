#include "Kestra/Proc/IDataAudio.h"

namespace Kestra::Proc {

IDataAudio::~IDataAudio() = default;

} // namespace Kestra::Proc
