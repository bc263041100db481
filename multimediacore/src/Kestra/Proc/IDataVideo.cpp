#include "Kestra/Proc/IDataVideo.h"

namespace Kestra::Proc {

IDataVideo::~IDataVideo() = default;

} // namespace Kestra::Proc
