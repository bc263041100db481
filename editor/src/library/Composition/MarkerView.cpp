// SPDX-License-Identifier: GPL-3.0-or-later
#include "Composition/MarkerView.h"

namespace Composition {

MarkerView::~MarkerView() = default;

} // namespace Composition
