// SPDX-License-Identifier: GPL-3.0-or-later
#include "Export/IStreamProcessingHelper.h"

namespace Export {

IStreamProcessingHelper::IStreamProcessingHelper() = default;
IStreamProcessingHelper::~IStreamProcessingHelper() = default;

} // namespace Export
