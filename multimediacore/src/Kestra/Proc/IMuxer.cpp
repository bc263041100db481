#include "Kestra/Proc/IMuxer.h"

namespace Kestra::Proc {

IMuxer::~IMuxer() = default;

} // namespace Kestra::Proc
