// SPDX-License-Identifier: GPL-3.0-or-later
// Where the completions of descriptions come from.
#pragma once

#include "Kestra/Conf/CodecID.h"
#include "Kestra/Conf/IDataHelper.h"
#include <string>

namespace Kestra::Conf {

/// `key` is IPreset::KEY_FILTER_VIDEO_CODEC or KEY_FILTER_AUDIO_CODEC. What the codec fixes: pixel format and longest
/// keyframe distance of pictures, the sample rate of a codec that knows one only. Never null: a codec without fixed
/// settings gets a helper that adds nothing. Throws std::invalid_argument for any other key.
KESTRA_EXPORT boost::intrusive_ptr<IDataHelper> CreateDataHelper(const std::string& key, CodecID codecId);

/// `key` is IPreset::KEY_FORMAT. What the container asks of every encoder that writes into it. The same promises.
KESTRA_EXPORT boost::intrusive_ptr<IDataHelper> CreateDataHelper(const std::string& key,
                                                                 const std::string& containerId);

} // namespace Kestra::Conf
