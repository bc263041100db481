#include "Kestra/Proc/IMediaSource.h"

namespace Kestra::Proc {

IMediaSource::~IMediaSource() = default;

} // namespace Kestra::Proc
