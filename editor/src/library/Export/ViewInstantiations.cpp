// SPDX-License-Identifier: GPL-3.0-or-later
#include "Export/ExportStreams.h"

template class Message::View<Stream::VideoObject>;
template class Message::View<Stream::AudioObject>;
template class Stream::ObjectViewBase<Stream::VideoObject>;
template class Stream::ObjectViewBase<Stream::AudioObject>;
template class Stream::View<Media::Video, Kestra::Proc::IStreamVideo>;
template class Stream::View<Media::Audio, Kestra::Proc::IStreamAudio>;
