// SPDX-License-Identifier: GPL-3.0-or-later
#include "Composition/Details/RangeViewBase.h"

template class Message::View<Composition::Range>;

namespace Composition::Details {

RangeViewBase::~RangeViewBase() = default;

void RangeViewBase::rangeAdded(const Composition::Range*) {}
void RangeViewBase::rangeRemoved(const Composition::Range*) {}
void RangeViewBase::rangeChanged(const Composition::Range*, const Composition::Range*, const Composition::Range*) {}
void RangeViewBase::rangeChanged(const Composition::Range*, const Composition::Range*) {}
void RangeViewBase::rangeChanged(const Composition::Range*) {}

} // namespace Composition::Details
