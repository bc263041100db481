// SPDX-License-Identifier: GPL-3.0-or-later
// Exports made in this process, for tests that measure what comes out.
#pragma once

#include "ExportCore/ExportOutcome.h"
#include "ExportCore/ExportRequest.h"

namespace TestExport {

/// Runs the request in the event loop to its end.
ExportCore::ExportOutcome run(const ExportCore::ExportRequest& request);
/// A request for one input.
ExportCore::ExportRequest requestOf(const std::string& input, const char* preset, const std::string& output);
/// Without sound: of inputs that have none, none is made.
ExportCore::ExportRequest requestOfPictures(const std::string& input, const char* preset, const std::string& output);

} // namespace TestExport
