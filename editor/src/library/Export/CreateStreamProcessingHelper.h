#pragma once

#include "EditorExportExport.h"
#include "Export/IStreamProcessingHelper.h"
#include "Export/ProcessingFactories.h"
#include <QString>
#include <memory>

namespace Export {

/// The runner of an export: one pass over video and audio into the muxer for `passMode` 0, null for a mode that there
/// is none for. The runner keeps copies of the factories and calls them on this thread, once a pass.
/// `temporaryDirectory` is borrowed as a path: it must stand until the run has ended.
EDITOREXPORT_EXPORT std::unique_ptr<IStreamProcessingHelper>
createStreamProcessingHelper(int passMode, const EncoderFactory& videoEncoderFactory,
                             const EncoderFactory& audioEncoderFactory, const MuxerFactory& muxerFactory,
                             const QString& temporaryDirectory);

} // namespace Export
