// SPDX-License-Identifier: GPL-3.0-or-later
// The transcoder's lines in the application's log.
#pragma once

#include <string>

namespace Export::TranscoderLog {

enum class Severity { Info, Error };

/// One kind of line. The tag takes the place of the source line: support tells the lines apart by file and tag, so both
/// stay what they are when the sources move.
struct Line {
    int tag;
    Severity severity;
    const char* text;
};

inline constexpr Line TRYING_TO_START{259, Severity::Info, "EXPORT: Trying to start"};
inline constexpr Line PREPARE_ERROR{293, Severity::Error, "EXPORT prepare stream: errInfo: "};
inline constexpr Line PREPARE_DETAILS{
    294, Severity::Error, "EXPORT prepare stream: Exception has been caught while starting export. Details:\n"};
inline constexpr Line STARTED{355, Severity::Info, "EXPORT: Started"};
inline constexpr Line STOPPED{368, Severity::Info, "EXPORT: Stopped"};
inline constexpr Line START_ERROR{377, Severity::Error, "EXPORT start: errInfo: "};
inline constexpr Line START_PRESET{378, Severity::Error, "EXPORT start: presetInfo:\n"};
inline constexpr Line START_DETAILS{383, Severity::Error,
                                    "EXPORT start: Exception has been caught while starting export. Details:\n"};
inline constexpr Line PROCESS_ERROR{395, Severity::Error, "EXPORT process: errInfo: "};
inline constexpr Line PROCESS_PRESET{396, Severity::Error, "EXPORT process: presetInfo:\n"};
inline constexpr Line PROCESS_DETAILS{401, Severity::Error,
                                      "EXPORT process: Exception has been caught while processing export. Details:\n"};

/// Writes the line's text followed by `details`.
void write(const Line& line, const std::string& details = {});

} // namespace Export::TranscoderLog
