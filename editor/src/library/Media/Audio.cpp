// SPDX-License-Identifier: GPL-3.0-or-later
#include "Media/Audio.h"

namespace Media {

bool operator==(const Audio& left, const Audio& right) {
    return left.channelLayout == right.channelLayout && left.sampleRate == right.sampleRate &&
           left.sampleFormat == right.sampleFormat;
}

} // namespace Media
