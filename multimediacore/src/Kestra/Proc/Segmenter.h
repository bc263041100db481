// SPDX-License-Identifier: GPL-3.0-or-later
// Segmenters: windows on a stream.
#pragma once

#include "Kestra/Proc/IStreamRaw.h"
#include "Kestra/Proc/IStreamVideo.h"

namespace Kestra::Proc {

/// The part [start, end) of `stream`, its own time beginning at 0. A frame that lies across a cut is shortened to it.
/// Throws std::invalid_argument for a null stream, a negative start or an end that is not after it.
KESTRA_EXPORT boost::intrusive_ptr<IStreamVideo> CreateVideoSegmenter(const boost::intrusive_ptr<IStreamVideo>& stream,
                                                                      std::int64_t start, std::int64_t end);

/// The same for encoded sound. A cut inside a packet becomes a trim on it, so that decoding yields exactly the samples
/// of [start, end); packets that the decoder needs to settle before `start` are kept with negative times. Reads the
/// packet source that `stream` has now, not `stream` itself: the result may be assigned onto `stream`.
KESTRA_EXPORT boost::intrusive_ptr<IStreamRaw> CreateAudioSegmenter(const boost::intrusive_ptr<IStreamRaw>& stream,
                                                                    std::int64_t start, std::int64_t end);

} // namespace Kestra::Proc
