// SPDX-License-Identifier: GPL-3.0-or-later
// How much of the transcoder's log is written.
#pragma once

#include "EditorExportExport.h"
#include <string>

namespace Export {

/// For the whole process. Without the log a program that talks to a user itself has its standard error to itself.
enum class TranscoderLogOutput { None, StandardError };
EDITOREXPORT_EXPORT void setTranscoderLogOutput(TranscoderLogOutput output);

/// For the whole process, once. Initialises glog unless that is done; since glog takes it once in a process, a host
/// that initialises it does so before. Lines that would go to standard error go there instead, one a call, without a
/// line end; on whichever thread writes them.
EDITOREXPORT_EXPORT void setTranscoderLogReceiver(void (*receiver)(const std::string& line));

} // namespace Export
