// SPDX-License-Identifier: GPL-3.0-or-later
// The factories by which a run makes its engine objects, pass by pass.
#pragma once

#include "Kestra/Proc/IEncoder.h"
#include "Kestra/Proc/IMuxer.h"
#include "Kestra/Proc/IStreamProcessor.h"
#include <functional>

namespace Export {

/// Each call makes a new object. An empty factory stands for a stream, or a muxer, that the run does not have.
using EncoderFactory = std::function<boost::intrusive_ptr<Kestra::Proc::IEncoder>()>;
using MuxerFactory = std::function<boost::intrusive_ptr<Kestra::Proc::IMuxer>()>;
/// Makes the processor of one pass; never empty.
using ProcessorFactory = std::function<boost::intrusive_ptr<Kestra::Proc::IStreamProcessor>()>;

} // namespace Export
