// SPDX-License-Identifier: GPL-3.0-or-later
// The two passes of a run whose video encoder sees the pictures twice.
#pragma once

#include "Export/ProcessingFactories.h"
#include <QString>
#include <vector>

namespace Export {

/// Makes the directory for the statistics under `temporaryDirectory` (one that cannot be made is the encoder's to
/// report) and returns the factories of both passes: the video encoder alone, without a muxer, and then everything.
/// They keep copies of what they are given and share one log file, its name fresh at every call.
std::vector<ProcessorFactory> makeTwoPasses(const EncoderFactory& videoEncoderFactory,
                                            const EncoderFactory& audioEncoderFactory, const MuxerFactory& muxerFactory,
                                            const QString& temporaryDirectory);

/// Makes `encoder`, which has not been read yet, one pass of two over `logFile`. Returns it. Throws what its
/// Initialize() throws.
boost::intrusive_ptr<Kestra::Proc::IEncoder>
applyTwoPassSettings(const QString& logFile, const boost::intrusive_ptr<Kestra::Proc::IEncoder>& encoder,
                     bool firstPass);

} // namespace Export
