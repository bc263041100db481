// Names of the nodes of a preset's tree: those of the catalogue.
#pragma once

namespace EditorPreset {

constexpr const char* TAG_ID = "id";
constexpr const char* TAG_TITLE = "title";
constexpr const char* TAG_CONTAINER = "container";
constexpr const char* TAG_VIDEO = "video";
constexpr const char* TAG_AUDIO = "audio";
constexpr const char* TAG_QUALITY_MODIFIERS = "qualityModifiers";

constexpr const char* TAG_CODEC = "codec";
constexpr const char* TAG_OPTIONS = "options";
constexpr const char* TAG_BITRATE = "bitrate";

constexpr const char* TAG_WIDTH = "width";
constexpr const char* TAG_HEIGHT = "height";
constexpr const char* TAG_MAX_WIDTH = "maxWidth";
constexpr const char* TAG_MAX_HEIGHT = "maxHeight";
constexpr const char* TAG_FIXED_RESOLUTION = "fixedResolution";
constexpr const char* TAG_RESIZE = "resize";
constexpr const char* TAG_INTERPOLATION = "interpolation";
constexpr const char* TAG_FRAME_RATE = "frameRate";
constexpr const char* TAG_BITRATE_MODE = "bitrateMode";
constexpr const char* TAG_MULTIPLIER = "multiplier";
constexpr const char* TAG_QUALITY = "quality";
constexpr const char* TAG_TWO_PASS = "twoPass";
constexpr const char* TAG_PROFILE = "profile";
constexpr const char* TAG_PIXEL_FORMAT = "pixelFormat";
constexpr const char* TAG_DYNAMIC_RANGE = "dynamicRange";
constexpr const char* TAG_FIELDS = "fields";
constexpr const char* TAG_GOP_SECONDS = "gopSeconds";

constexpr const char* TAG_SAMPLE_RATE = "sampleRate";
constexpr const char* TAG_CHANNEL_LAYOUT = "channelLayout";

/// "As the source", for frame rate, fields, channel layout and dynamic range.
constexpr const char* VALUE_SOURCE = "source";

} // namespace EditorPreset
