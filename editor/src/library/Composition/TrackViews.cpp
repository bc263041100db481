// SPDX-License-Identifier: GPL-3.0-or-later
#include "Composition/TrackViews.h"

template class Message::View<Composition::Track>;
template class Message::View<Composition::Clip>;
