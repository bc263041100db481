#include "ExportCore/Refusal.h"

namespace ExportCore {

Refusal::~Refusal() noexcept = default;

} // namespace ExportCore
