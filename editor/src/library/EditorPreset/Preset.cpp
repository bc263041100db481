#include "EditorPreset/Preset.h"

#include "EditorPreset/PresetTags.h"
#include "EditorPreset/TreeAccess.h"
#include "Kestra/ClientAPI/CodecLimits.h"
#include "Kestra/Conf/PixelFormat.h"
#include "Kestra/Conf/SampleInfo.h"
#include "Kestra/Proc/Settings/SettingsFilterFrameRate.h"
#include <utility>

using namespace EditorPreset;

namespace {

using Kestra::Core::Property;

struct ModeName {
    Export::BitrateMode mode;
    const char* catalogueName;
    const char* encoderName;
};
constexpr ModeName MODES[] = {
    {Export::BitrateMode::Constant, "constant", "cbr"},
    {Export::BitrateMode::Automatic, "automatic", "abr"},
    {Export::BitrateMode::Variable, "variable", "vbr"},
    {Export::BitrateMode::Quality, "quality", "quality"},
};

struct LayoutName {
    const char* name;
    std::uint32_t layout;
};
constexpr LayoutName LAYOUTS[] = {
    {"mono", Kestra::Conf::CHANNEL_LAYOUT_MONO},   {"stereo", Kestra::Conf::CHANNEL_LAYOUT_STEREO},
    {"quad", Kestra::Conf::CHANNEL_LAYOUT_QUAD},   {"5.0", Kestra::Conf::CHANNEL_LAYOUT_5POINT0},
    {"5.1", Kestra::Conf::CHANNEL_LAYOUT_5POINT1}, {"7.1", Kestra::Conf::CHANNEL_LAYOUT_7POINT1},
};

struct ResizeName {
    const char* name;
    Kestra::Proc::AspectMode mode;
};
constexpr ResizeName RESIZE_MODES[] = {
    {"stretch", Kestra::Proc::AspectMode::Stretch},     {"keepSize", Kestra::Proc::AspectMode::KeepSize},
    {"fitInside", Kestra::Proc::AspectMode::FitInside}, {"crop", Kestra::Proc::AspectMode::Crop},
    {"letterbox", Kestra::Proc::AspectMode::Letterbox},
};

struct InterpolationName {
    const char* name;
    Kestra::Proc::Interpolation interpolation;
};
constexpr InterpolationName INTERPOLATIONS[] = {
    {"nearest", Kestra::Proc::Interpolation::Nearest},
    {"bilinear", Kestra::Proc::Interpolation::Bilinear},
    {"bicubic", Kestra::Proc::Interpolation::Bicubic},
    {"lanczos", Kestra::Proc::Interpolation::Lanczos},
};

/// What a preset without limits is taken to be meant for: more than the largest frame in use.
constexpr int NO_SIZE_LIMIT = 16384;

int readSide(const Property& tree, const char* tag, int neutral) {
    return static_cast<int>(readNumber(tree, TAG_VIDEO, tag, neutral));
}

} // namespace

Preset::Preset() = default;

Preset::Preset(Property newTree)
    : tree(std::move(newTree)) {}

std::string Preset::id() const {
    return readString(tree, TAG_ID);
}

std::string Preset::title() const {
    const std::string given = readString(tree, TAG_TITLE);
    return given.empty() ? id() : given;
}

std::string Preset::containerId() const {
    return readString(tree, TAG_CONTAINER, TAG_ID);
}

bool Preset::hasVideo() const {
    return videoCodec() != Kestra::Conf::CodecID::None;
}

bool Preset::hasAudio() const {
    return audioCodec() != Kestra::Conf::CodecID::None;
}

Kestra::Conf::CodecID Preset::videoCodec() const {
    return Kestra::Conf::CodecIDFromString(readString(tree, TAG_VIDEO, TAG_CODEC));
}

Kestra::Conf::CodecID Preset::audioCodec() const {
    return Kestra::Conf::CodecIDFromString(readString(tree, TAG_AUDIO, TAG_CODEC));
}

int Preset::width() const {
    return readSide(tree, TAG_WIDTH, 0);
}

int Preset::height() const {
    return readSide(tree, TAG_HEIGHT, 0);
}

void Preset::setWidth(int pixels) {
    writeNumber(tree, TAG_VIDEO, TAG_WIDTH, pixels);
}

void Preset::setHeight(int pixels) {
    writeNumber(tree, TAG_VIDEO, TAG_HEIGHT, pixels);
}

int Preset::maxWidth() const {
    return readSide(tree, TAG_MAX_WIDTH, NO_SIZE_LIMIT);
}

int Preset::maxHeight() const {
    return readSide(tree, TAG_MAX_HEIGHT, NO_SIZE_LIMIT);
}

bool Preset::hasFixedResolution() const {
    return readFlag(tree, TAG_VIDEO, TAG_FIXED_RESOLUTION);
}

void Preset::setFixedResolution(bool fixed) {
    writeValue(tree, TAG_VIDEO, TAG_FIXED_RESOLUTION, fixed);
    const std::string mode = readString(tree, TAG_VIDEO, TAG_RESIZE);
    if (fixed && (mode == "fitInside" || mode == "keepSize"))
        tree[TAG_VIDEO].RemoveChild(TAG_RESIZE);
}

Kestra::Proc::SettingsResizer Preset::resizerSettings() const {
    Kestra::Proc::SettingsResizer settings;
    settings.target.width = static_cast<std::uint32_t>(width());
    settings.target.height = static_cast<std::uint32_t>(height());
    settings.aspectMode =
        hasFixedResolution() ? Kestra::Proc::AspectMode::Letterbox : Kestra::Proc::AspectMode::FitInside;
    settings.interpolation = Kestra::Proc::Interpolation::Bicubic;
    settings.oddSides =
        Kestra::ClientAPI::CodecLimits::TakesOddSides(videoCodec(), readString(tree, TAG_VIDEO, TAG_PIXEL_FORMAT));
    const std::string mode = readString(tree, TAG_VIDEO, TAG_RESIZE);
    for (const ResizeName& entry : RESIZE_MODES) {
        if (mode == entry.name)
            settings.aspectMode = entry.mode;
    }
    const std::string interpolation = readString(tree, TAG_VIDEO, TAG_INTERPOLATION);
    for (const InterpolationName& entry : INTERPOLATIONS) {
        if (interpolation == entry.name)
            settings.interpolation = entry.interpolation;
    }
    return settings;
}

Preset::Rational Preset::frameRate() const {
    const Property* const node = findNode(tree, TAG_VIDEO, TAG_FRAME_RATE);
    return node == nullptr ? Kestra::Proc::SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE : node->GetRational();
}

void Preset::setFrameRate(const Rational& rate) {
    writeValue(tree, TAG_VIDEO, TAG_FRAME_RATE, rate);
}

std::int64_t Preset::videoBitrateBps() const {
    return readNumber(tree, TAG_VIDEO, TAG_BITRATE, 0);
}

void Preset::setVideoBitrateBps(std::int64_t bitsPerSecond) {
    writeNumber(tree, TAG_VIDEO, TAG_BITRATE, bitsPerSecond);
}

Export::BitrateMode Preset::videoBitrateMode() const {
    const std::string name = readString(tree, TAG_VIDEO, TAG_BITRATE_MODE);
    for (const ModeName& entry : MODES) {
        if (name == entry.catalogueName)
            return entry.mode;
    }
    return Export::BitrateMode::Automatic;
}

void Preset::setVideoBitrateMode(Export::BitrateMode mode) {
    for (const ModeName& entry : MODES) {
        if (mode == entry.mode)
            writeValue(tree, TAG_VIDEO, TAG_BITRATE_MODE, std::string(entry.catalogueName));
    }
}

std::string Preset::modeToString(Export::BitrateMode mode) {
    for (const ModeName& entry : MODES) {
        if (mode == entry.mode)
            return entry.encoderName;
    }
    return {};
}

double Preset::videoBitrateMultiplier() const {
    const Property* const node = findNode(tree, TAG_VIDEO, TAG_MULTIPLIER);
    return node == nullptr ? 1.0 : node->GetDouble();
}

double Preset::videoQuality() const {
    const Property* const node = findNode(tree, TAG_VIDEO, TAG_QUALITY);
    return node == nullptr ? 0.0 : node->GetDouble();
}

void Preset::setVideoQuality(double quality) {
    writeValue(tree, TAG_VIDEO, TAG_QUALITY, quality);
}

bool Preset::isVideoTwoPassEncodingEnabled() const {
    return readFlag(tree, TAG_VIDEO, TAG_TWO_PASS);
}

bool Preset::keepsDynamicRange() const {
    return readString(tree, TAG_VIDEO, TAG_DYNAMIC_RANGE) == VALUE_SOURCE;
}

std::int64_t Preset::audioBitrateBps() const {
    return readNumber(tree, TAG_AUDIO, TAG_BITRATE, 0);
}

void Preset::setAudioBitrateBps(std::int64_t bitsPerSecond) {
    writeNumber(tree, TAG_AUDIO, TAG_BITRATE, bitsPerSecond);
}

std::uint32_t Preset::channelLayout() const {
    const std::string name = readString(tree, TAG_AUDIO, TAG_CHANNEL_LAYOUT);
    for (const LayoutName& entry : LAYOUTS) {
        if (name == entry.name)
            return entry.layout;
    }
    return Kestra::Conf::CHANNEL_LAYOUT_UNKNOWN;
}

void Preset::setChannelLayout(std::uint32_t layout) {
    if (layout == Kestra::Conf::CHANNEL_LAYOUT_UNKNOWN)
        writeValue(tree, TAG_AUDIO, TAG_CHANNEL_LAYOUT, std::string(VALUE_SOURCE));
    for (const LayoutName& entry : LAYOUTS) {
        if (layout == entry.layout)
            writeValue(tree, TAG_AUDIO, TAG_CHANNEL_LAYOUT, std::string(entry.name));
    }
}

std::uint32_t Preset::sampleRate() const {
    return static_cast<std::uint32_t>(readNumber(tree, TAG_AUDIO, TAG_SAMPLE_RATE, 0));
}

void Preset::setSampleRate(std::uint32_t samplesPerSecond) {
    writeNumber(tree, TAG_AUDIO, TAG_SAMPLE_RATE, samplesPerSecond);
}
