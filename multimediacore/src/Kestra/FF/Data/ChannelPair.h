// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::ChannelPair: the layouts of a conversion of audio, such that the resampler can tell what becomes of what.
#pragma once

#include "Kestra/FF/Av/Handles.h"

extern "C" {
#include <libavutil/channel_layout.h>
}

namespace Kestra::FF {

/// Channels without speakers go over one by one where there are as many on both sides; else they are taken for the
/// usual speakers of their number. Throws ProcException for numbers that have none.
struct ChannelPair {
    ChannelPair(const AVChannelLayout& from, const AVChannelLayout& to);

    AVChannelLayout input;
    AVChannelLayout output;
};

/// `block` for libavfilter, which takes no channels of which nobody says where they are heard: they get speakers, for
/// filters that treat each channel by itself. Throws ProcException (NotSupported) for more than there are speakers.
FrameHandle WithSpeakers(const AVFrame& block);

} // namespace Kestra::FF
