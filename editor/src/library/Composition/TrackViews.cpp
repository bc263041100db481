#include "Composition/TrackViews.h"

template class Message::View<Composition::Track>;
template class Message::View<Composition::Clip>;
