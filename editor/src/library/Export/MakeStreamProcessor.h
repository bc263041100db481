// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Export/ProcessingFactories.h"

namespace Export {

/// Calls each factory that is not empty once, in the order video, audio, muxer, and makes a processor of the results:
/// video first, then audio; the muxer null without its factory. Lets through what the factories and the engine throw.
boost::intrusive_ptr<Kestra::Proc::IStreamProcessor> makeStreamProcessor(const EncoderFactory& videoEncoderFactory,
                                                                         const EncoderFactory& audioEncoderFactory,
                                                                         const MuxerFactory& muxerFactory);

} // namespace Export
