// SPDX-License-Identifier: GPL-3.0-or-later
// Render::createPictureStream, createSoundStream: a sequence as engine streams.
#pragma once

#include "EditorRenderExport.h"
#include "Kestra/Conf/FrameInfo.h"
#include "Kestra/Conf/SampleInfo.h"
#include "Kestra/Proc/IStreamAudio.h"
#include "Kestra/Proc/IStreamVideo.h"
#include "Render/Sequence.h"
#include "Render/Window.h"

namespace Render {

/// Exactly the window's number of frames, in that frame; the window has pictures. Media are opened when a frame shows
/// them and closed when none does, so no more are open than lie above each other. What hides everything below it passes
/// its pixels untouched, everything else is blended in one pixel format. Read errors of a medium name its file. Throws
/// Kestra::Proc::ProcException (NotSupported) for media whose pixel format is unknown to the engine.
EDITORRENDER_EXPORT boost::intrusive_ptr<Kestra::Proc::IStreamVideo>
createPictureStream(const Sequence& sequence, const Window& window, const Kestra::Conf::FrameInfo& frame);
/// Exactly the window's number of samples: sound that ends before its clip is followed by silence, what is over is cut.
/// One voice passes its samples untouched, several are mixed in floating point. `format` has a rate and a layout; an
/// open sample format is float until a consumer prefers one. The sequence's further sounds are the stream's further
/// tracks, in the same format and as long.
EDITORRENDER_EXPORT boost::intrusive_ptr<Kestra::Proc::IStreamAudio>
createSoundStream(const Sequence& sequence, const Window& window, const Kestra::Conf::SampleInfo& format);

} // namespace Render
