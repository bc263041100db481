// SPDX-License-Identifier: GPL-3.0-or-later
// The two export stream types and their views, which live in the export module's library.
#pragma once

#include "EditorExportExport.h"
#include "Kestra/Proc/IStreamAudio.h"
#include "Kestra/Proc/IStreamVideo.h"
#include "Media/Audio.h"
#include "Media/Video.h"
#include "Stream/View.h"

namespace Stream {

using VideoObject = Object<Media::Video, Kestra::Proc::IStreamVideo>;
using AudioObject = Object<Media::Audio, Kestra::Proc::IStreamAudio>;
using VideoView = View<Media::Video, Kestra::Proc::IStreamVideo>;
using AudioView = View<Media::Audio, Kestra::Proc::IStreamAudio>;

} // namespace Stream

extern template class EDITOREXPORT_EXPORT Message::View<Stream::VideoObject>;
extern template class EDITOREXPORT_EXPORT Message::View<Stream::AudioObject>;
extern template class EDITOREXPORT_EXPORT Stream::ObjectViewBase<Stream::VideoObject>;
extern template class EDITOREXPORT_EXPORT Stream::ObjectViewBase<Stream::AudioObject>;
extern template class EDITOREXPORT_EXPORT Stream::View<Media::Video, Kestra::Proc::IStreamVideo>;
extern template class EDITOREXPORT_EXPORT Stream::View<Media::Audio, Kestra::Proc::IStreamAudio>;
