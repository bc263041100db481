// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/ImplNames.h"

namespace Kestra::Proc {

const char* const ImplNames::DEFAULT = "default";

} // namespace Kestra::Proc
