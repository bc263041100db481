// SPDX-License-Identifier: GPL-3.0-or-later
#include "Composition/RangeView.h"

namespace Composition {

RangeView::~RangeView() = default;

} // namespace Composition
