// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Proc/IStreamRaw.h"

namespace Kestra::FF {

/// As Proc::CreateAudioSegmenter() says.
boost::intrusive_ptr<Proc::IStreamRaw> CreateAudioSegmenter(const boost::intrusive_ptr<Proc::IStreamRaw>& stream,
                                                            std::int64_t start, std::int64_t end);

} // namespace Kestra::FF
