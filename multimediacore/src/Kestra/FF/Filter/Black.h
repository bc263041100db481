// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Proc/IStreamVideo.h"

namespace Kestra::FF {

/// `duration` of black in the frame, rate, pixel format and colour of `format`; where the consumer prefers a pixel
/// format or a colour, in those. All its frames share their pixels. Without a rate it is one frame. Throws
/// std::invalid_argument for a null format or a negative duration.
boost::intrusive_ptr<Proc::IStreamVideo> MakeBlack(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format,
                                                   std::int64_t duration);

} // namespace Kestra::FF
