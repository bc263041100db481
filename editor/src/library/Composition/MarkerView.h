// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Composition/Details/MarkerViewBase.h"

namespace Composition {

/// Observes or owns markers; empty at first. Bound to the thread of the bus.
class EDITORMODEL_EXPORT MarkerView : protected Details::MarkerViewBase {
public:
    MarkerView() = default;
    MarkerView(const MarkerView&) = default;
    ~MarkerView() override;
};

} // namespace Composition
