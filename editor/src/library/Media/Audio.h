// SPDX-License-Identifier: GPL-3.0-or-later
// Media::Audio: how the sound of a composition or of an export is sampled.
#pragma once

#include "EditorModelExport.h"
#include "PubSub/Object.h"
#include <cstdint>

namespace Media {

/// A value. Layout and format are the engine's enumerations, Kestra::Conf::ChannelLayout and
/// Kestra::Conf::SampleFormats; the defaults are what the engine takes for "not known".
class EDITORMODEL_EXPORT Audio : public virtual PubSub::Object {
public:
    std::uint32_t channelLayout = 0;
    std::int32_t sampleRate = -1; ///< samples a second
    std::int32_t sampleFormat = -1;
};

EDITORMODEL_EXPORT bool operator==(const Audio& left, const Audio& right);
inline bool operator!=(const Audio& left, const Audio& right) {
    return !(left == right);
}

} // namespace Media
