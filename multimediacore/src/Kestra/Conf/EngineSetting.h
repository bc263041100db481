// SPDX-License-Identifier: GPL-3.0-or-later
// What encoders and muxers can be told in their descriptions, and the nodes that tell it.
#pragma once

namespace Kestra::Conf {

// A new one is a line and a case here. It does not compile before the encoder or the muxer obeys it (its Obey has no
// case) and before presets can say it (their table has no row).

enum class VideoSetting {
    Codec,
    Bitrate,
    BitrateMode,
    Quality,
    Profile,
    PixelFormat,
    DynamicRange,
    GopSeconds,
    Fields,
    FirstPass,
    Options,
};

enum class AudioSetting {
    Codec,
    Bitrate,
    SampleRate,
    ChannelLayout,
    Options,
};

enum class ContainerSetting {
    Id,
    Options,
};

/// Null for a number that is none.
constexpr const char* TagOf(VideoSetting setting) {
    switch (setting) {
    case VideoSetting::Codec:
        return "codecId";
    case VideoSetting::Bitrate:
        return "bitrate";
    case VideoSetting::BitrateMode:
        return "bitrateMode";
    case VideoSetting::Quality:
        return "quality";
    case VideoSetting::Profile:
        return "profile";
    case VideoSetting::PixelFormat:
        return "pixelFormat";
    case VideoSetting::DynamicRange:
        return "dynamicRange";
    case VideoSetting::GopSeconds:
        return "gopSeconds";
    case VideoSetting::Fields:
        return "interlaced";
    case VideoSetting::FirstPass:
        return "firstPass";
    case VideoSetting::Options:
        return "encodeOptions";
    }
    return nullptr;
}

constexpr const char* TagOf(AudioSetting setting) {
    switch (setting) {
    case AudioSetting::Codec:
        return TagOf(VideoSetting::Codec);
    case AudioSetting::Bitrate:
        return TagOf(VideoSetting::Bitrate);
    case AudioSetting::SampleRate:
        return "sampleRate";
    case AudioSetting::ChannelLayout:
        return "channelLayout";
    case AudioSetting::Options:
        return TagOf(VideoSetting::Options);
    }
    return nullptr;
}

constexpr const char* TagOf(ContainerSetting setting) {
    switch (setting) {
    case ContainerSetting::Id:
        return "containerId";
    case ContainerSetting::Options:
        return "muxerOptions";
    }
    return nullptr;
}

/// How many there are of a kind.
template <class Setting>
constexpr int CountOf() {
    int count = 0;
    while (TagOf(static_cast<Setting>(count)) != nullptr)
        ++count;
    return count;
}

} // namespace Kestra::Conf
