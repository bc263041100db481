#include "Export/IStreamProcessingHelper.h"

namespace Export {

IStreamProcessingHelper::IStreamProcessingHelper() = default;
IStreamProcessingHelper::~IStreamProcessingHelper() = default;

} // namespace Export
