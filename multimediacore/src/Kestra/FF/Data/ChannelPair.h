// Kestra::FF::ChannelPair: the layouts of a conversion of audio, such that the resampler can tell what becomes of what.
#pragma once

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

} // namespace Kestra::FF
