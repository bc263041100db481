// The destructors of the effect interfaces: their tables of functions live in this library.
#include "Kestra/Proc/IEffectHost.h"

namespace Kestra::Proc {

IEffectVideo::~IEffectVideo() = default;
IEffectHost::~IEffectHost() = default;

} // namespace Kestra::Proc
