// SPDX-License-Identifier: GPL-3.0-or-later
#include "Media/View.h"

template class Message::View<Media::Video>;
template class Message::View<Media::Audio>;
template class Media::View<Media::Video>;
template class Media::View<Media::Audio>;
