// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Composition/Details/ObjectViewBase.h"

namespace Composition {

/// Observes or owns compositions; empty at first. Bound to the thread of the bus.
class EDITORMODEL_EXPORT CompositionView : protected Details::ObjectViewBase {
public:
    CompositionView() = default;
    CompositionView(const CompositionView&) = default;
    ~CompositionView() override;
};

} // namespace Composition
