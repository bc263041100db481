// How much of the transcoder's log is written.
#pragma once

#include "EditorExportExport.h"
#include <string>

namespace Export {

/// For the whole process. Without the log a program that talks to a user itself has its standard error to itself.
enum class TranscoderLogOutput { None, StandardError };
EDITOREXPORT_EXPORT void setTranscoderLogOutput(TranscoderLogOutput output);

/// For the whole process, once: lines that would go to standard error go there instead, one a call, without a line
/// end; on whichever thread writes them.
EDITOREXPORT_EXPORT void setTranscoderLogReceiver(void (*receiver)(const std::string& line));

} // namespace Export
