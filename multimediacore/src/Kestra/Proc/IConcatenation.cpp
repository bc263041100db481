#include "Kestra/Proc/IConcatenation.h"

namespace Kestra::Proc {

IConcatenation::~IConcatenation() = default;

} // namespace Kestra::Proc
