// How much of the transcoder's log is written.
#pragma once

#include "EditorExportExport.h"

namespace Export {

/// For the whole process. Without the log a program that talks to a user itself has its standard error to itself.
enum class TranscoderLogOutput { None, StandardError };
EDITOREXPORT_EXPORT void setTranscoderLogOutput(TranscoderLogOutput output);

} // namespace Export
