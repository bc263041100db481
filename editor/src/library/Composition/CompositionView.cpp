// SPDX-License-Identifier: GPL-3.0-or-later
#include "Composition/CompositionView.h"

namespace Composition {

CompositionView::~CompositionView() = default;

} // namespace Composition
