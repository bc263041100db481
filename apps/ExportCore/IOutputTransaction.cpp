#include "ExportCore/IOutputTransaction.h"

namespace ExportCore {

IOutputTransaction::~IOutputTransaction() = default;

} // namespace ExportCore
