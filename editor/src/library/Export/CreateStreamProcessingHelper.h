// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "EditorExportExport.h"
#include "Export/IStreamProcessingHelper.h"
#include "Export/ProcessingFactories.h"
#include <QString>
#include <memory>

namespace Export {

/// The runner of an export: for `passMode` 0 one pass over video and audio into the muxer, for 1 a pass of the video
/// encoder alone before it, which leaves its statistics in a file under `temporaryDirectory`; null for any other mode.
/// The runner keeps copies of the factories and calls them on this thread, those of audio and muxer in the last pass
/// only. `temporaryDirectory` is borrowed as a path: it must stand until the run has ended, and its owner removes it.
EDITOREXPORT_EXPORT std::unique_ptr<IStreamProcessingHelper>
createStreamProcessingHelper(int passMode, const EncoderFactory& videoEncoderFactory,
                             const EncoderFactory& audioEncoderFactory, const MuxerFactory& muxerFactory,
                             const QString& temporaryDirectory);

} // namespace Export
