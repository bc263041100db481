// Bitrates that a codec can sensibly be asked for, from its description.
#pragma once

#include "Kestra/Conf/IFormatCodecVideo.h"
#include <cstdint>

namespace Kestra::ClientAPI {

/// Audio, from a description tree with codec, sample rate and channel layout. bit/s.
KESTRA_EXPORT std::int64_t GetMinBitrate(const Core::Property& audioDescription);
KESTRA_EXPORT std::int64_t GetMaxBitrate(const Core::Property& audioDescription);

/// Video, from a description with codec, frame size and rate. bit/s.
KESTRA_EXPORT std::int64_t GetMinVideoBitrate(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format);
KESTRA_EXPORT std::int64_t GetMaxVideoBitrate(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format);
KESTRA_EXPORT std::int64_t GetDefaultVideoBitrate(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format);

} // namespace Kestra::ClientAPI
