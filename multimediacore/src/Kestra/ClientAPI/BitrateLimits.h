// SPDX-License-Identifier: GPL-3.0-or-later
// Bitrates that a codec can sensibly be asked for, from its description.
#pragma once

#include "Kestra/Conf/IFormatCodecVideo.h"
#include <cstdint>

namespace Kestra::ClientAPI {

/// Audio, from a description tree with codec, sample rate and channel layout; what is open counts as 48 kHz stereo.
/// bit/s; 0 without a known codec. A bitrate in the description is a decision: it is the highest then, within what the
/// codec takes.
KESTRA_EXPORT std::int64_t GetMinBitrate(const Core::Property& audioDescription);
KESTRA_EXPORT std::int64_t GetMaxBitrate(const Core::Property& audioDescription);

/// Video, from a description with codec, frame size and rate; an open rate counts as 30. bit/s; 0 without a known codec
/// or without a size. The model is written down in docs/bitrates.md.
KESTRA_EXPORT std::int64_t GetMinVideoBitrate(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format);
KESTRA_EXPORT std::int64_t GetMaxVideoBitrate(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format);
KESTRA_EXPORT std::int64_t GetDefaultVideoBitrate(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format);

} // namespace Kestra::ClientAPI
