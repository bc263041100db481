// SPDX-License-Identifier: GPL-3.0-or-later
// What the first of two passes says of its statistics when they are complete.
#pragma once

#include <cstdint>
#include <string>

namespace Kestra::FF {

/// Written next to the log, as "<log>.manifest": the number of frames, and size and checksum of the log and of the side
/// files that an encoder put next to it. Encoders trust what they read back: some go on without statistics that are cut
/// short, some fail in ways that name nothing, some end the process. So nothing reaches them that the manifest does not
/// confirm. Each of these throws ProcException that names the file.
namespace StatisticsManifest {

/// Forgets an earlier first pass over the same log.
void Remove(const std::string& logPath);
/// Files that are missing but the log itself are left out: it depends on the settings which there are.
void Write(const std::string& logPath, std::int64_t frames);
/// Reads every file again. Returns the number of frames.
std::int64_t Verify(const std::string& logPath);

} // namespace StatisticsManifest

} // namespace Kestra::FF
