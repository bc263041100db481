// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Composition/Details/RangeViewBase.h"

namespace Composition {

/// Observes or owns named ranges; empty at first. Bound to the thread of the bus.
class EDITORMODEL_EXPORT RangeView : protected Details::RangeViewBase {
public:
    RangeView() = default;
    RangeView(const RangeView&) = default;
    ~RangeView() override;
};

} // namespace Composition
