// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Core/IDataOutput.h"

namespace Kestra::Core {

IDataOutput::~IDataOutput() = default;

} // namespace Kestra::Core
