// The settings of a request that are about its pictures.
#include "ExportCore/SettingKey.h"

#include "Export/PresetProvider.h"
#include "ExportCore/SettingText.h"
#include "Kestra/ClientAPI/BitrateLimits.h"
#include "Kestra/ClientAPI/CodecLimits.h"
#include "Kestra/Proc/Settings/SettingsFilterFrameRate.h"
#include <QString>
#include <algorithm>
#include <cmath>

namespace ExportCore {
namespace {

using Kestra::ClientAPI::CodecLimits;
using Kestra::Conf::CodecIDToString;

constexpr int LARGEST_SIDE = 16384;
constexpr int HIGHEST_FRAME_RATE = 300;
constexpr double HIGHEST_QUALITY = 1000;

std::string quoted(const Preset& preset) {
    return "the preset \"" + preset.id() + '"';
}

int sideOf(const std::string& text, const SettingEntry& entry) {
    const auto side = SettingText::wholeNumber(text);
    if (!side)
        entry.refuse(entry.key == "size" ? "write pixels, as 1280x720" : "write pixels, as 720");
    if (*side < 2)
        entry.refuse("a picture has at least 2x2 pixels");
    if (*side > LARGEST_SIDE)
        entry.refuse("no side is longer than " + std::to_string(LARGEST_SIDE) + " pixels");
    if (*side % 2 != 0)
        entry.refuse(std::to_string(*side) + " is odd, and encoders need even sides");
    return static_cast<int>(*side);
}

void readSize(const SettingEntry& entry, PresetSettings& settings) {
    const std::size_t by = entry.value.find('x');
    if (by == std::string::npos)
        entry.refuse("write pixels, as 1280x720");
    settings.width = sideOf(entry.value.substr(0, by), entry);
    settings.height = sideOf(entry.value.substr(by + 1), entry);
}

void readWidth(const SettingEntry& entry, PresetSettings& settings) {
    settings.width = sideOf(entry.value, entry);
}

void readHeight(const SettingEntry& entry, PresetSettings& settings) {
    settings.height = sideOf(entry.value, entry);
}

[[noreturn]] void refuseTooLarge(const std::string& what, const Preset& preset) {
    SettingKey::refuse(what, quoted(preset) + " is for pictures up to " + std::to_string(preset.maxWidth()) + 'x' +
                                 std::to_string(preset.maxHeight()));
}

void requireSide(int side, int limit, const char* name, const Preset& preset) {
    const int smallest = CodecLimits::SmallestSide(preset.videoCodec());
    const std::string what = "a " + std::string(name) + " of " + std::to_string(side);
    if (side > limit)
        refuseTooLarge(what, preset);
    if (side < smallest)
        SettingKey::refuse(what, std::string(CodecIDToString(preset.videoCodec())) + " takes no side below " +
                                     std::to_string(smallest));
}

/// The limits hold for pictures that lie and for those that stand.
void requireInside(int width, int height, const Preset& preset) {
    const auto [shorter, longer] = std::minmax({preset.maxWidth(), preset.maxHeight()});
    if (std::min(width, height) > shorter || std::max(width, height) > longer)
        refuseTooLarge("a size of " + std::to_string(width) + 'x' + std::to_string(height), preset);
}

void requireSize(const PresetSettings& settings, const Preset& preset) {
    const int longest = std::max(preset.maxWidth(), preset.maxHeight());
    if (settings.width)
        requireSide(*settings.width, longest, "width", preset);
    if (settings.height)
        requireSide(*settings.height, longest, "height", preset);
    if (settings.width && settings.height)
        requireInside(*settings.width, *settings.height, preset);
}

double shapeOf(const Media::Video& video) {
    if (video.aspectNumerator != 0 && video.aspectDenominator != 0)
        return double(video.aspectNumerator) / video.aspectDenominator;
    return double(std::max(video.width, 1U)) / std::max(video.height, 1U);
}

/// The side that goes with the other one, which alone was asked for.
int otherSide(double length, int limit, const char* asked, const char* other) {
    const double even = std::max(2.0, 2.0 * std::round(length / 2.0));
    if (even > limit)
        SettingKey::refuse(asked, std::string("the ") + other + " of the source's shape would be " +
                                      std::to_string(std::llround(even)) + ", and the preset goes up to " +
                                      std::to_string(limit));
    return static_cast<int>(even);
}

void editSize(const PresetSettings& settings, const Media::Video& video, Preset& preset) {
    const double shape = shapeOf(video);
    const int width =
        settings.width ? *settings.width : otherSide(*settings.height * shape, preset.maxWidth(), "height", "width");
    const int height =
        settings.height ? *settings.height : otherSide(*settings.width / shape, preset.maxHeight(), "width", "height");
    if (std::min(width, height) < CodecLimits::SmallestSide(preset.videoCodec()))
        SettingKey::refuse("width or height", std::to_string(width) + 'x' + std::to_string(height) +
                                                  " is too small for " + CodecIDToString(preset.videoCodec()));
    requireInside(width, height, preset);
    preset.setWidth(width);
    preset.setHeight(height);
    preset.setFixedResolution(true);
}

void readFrameRate(const SettingEntry& entry, PresetSettings& settings) {
    if (entry.value == "source") {
        settings.frameRate = Kestra::Proc::SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE;
        return;
    }
    const auto rate = SettingText::frameRate(entry.value);
    if (!rate)
        entry.refuse("write frames a second, as 25, 29.97 or 30000/1001, or source");
    if (*rate < 1 || *rate > HIGHEST_FRAME_RATE)
        entry.refuse("frame rates go from 1 to " + std::to_string(HIGHEST_FRAME_RATE));
    settings.frameRate = *rate;
}

void requireFrameRate(const PresetSettings& settings, const Preset& preset) {
    const boost::rational<long long>& rate = *settings.frameRate;
    if (rate != 0 && !CodecLimits::TakesFrameRate(preset.videoCodec(), rate))
        SettingKey::refuse("frame-rate", std::string(CodecIDToString(preset.videoCodec())) + " does not take " +
                                             std::to_string(rate.numerator()) + '/' +
                                             std::to_string(rate.denominator()));
}

void editFrameRate(const PresetSettings& settings, const Media::Video&, Preset& preset) {
    preset.setFrameRate(*settings.frameRate);
}

void readBitrate(const SettingEntry& entry, PresetSettings& settings) {
    settings.bitrateBps = SettingKey::bitrateOf(entry);
}

void requireBitrate(const PresetSettings&, const Preset& preset) {
    SettingKey::requireBitrate("bitrate", preset.videoCodec());
}

void editBitrate(const PresetSettings& settings, const Media::Video&, Preset& preset) {
    preset.setVideoBitrateMode(Export::BitrateMode::Variable);
    preset.setVideoBitrateBps(*settings.bitrateBps);
}

/// The codec's whole range for the picture as it comes out.
void requireBitrateInside(const PresetSettings& settings, const Export::PresetProvider& provider,
                          const Media::Video& video, const Media::Audio&) {
    const auto format = provider.formatCodec(&video, nullptr);
    const Kestra::Conf::FrameInfo frame = format->GetFrameInfo();
    const std::string subject = std::string(CodecIDToString(format->GetCodecID())) + " at " +
                                std::to_string(frame.width) + 'x' + std::to_string(frame.height);
    SettingKey::requireRange("bitrate", *settings.bitrateBps, Kestra::ClientAPI::GetMinVideoBitrate(format),
                             Kestra::ClientAPI::GetMaxVideoBitrate(format), subject);
}

void readQuality(const SettingEntry& entry, PresetSettings& settings) {
    const auto quality = SettingText::decimal(entry.value);
    if (!quality)
        entry.refuse("write a number on the codec's own scale, as 23");
    if (*quality <= 0 || *quality > HIGHEST_QUALITY)
        entry.refuse("no codec's scale holds it");
    settings.quality = *quality;
}

void requireQuality(const PresetSettings& settings, const Preset& preset) {
    const double quality = *settings.quality;
    const auto range = CodecLimits::VideoQuality(preset.videoCodec());
    const std::string codec = CodecIDToString(preset.videoCodec());
    const std::string what = "quality to " + QString::number(quality).toStdString();
    if (range.worst == 0)
        SettingKey::refuse("quality", codec + " has no scale of qualities");
    if (preset.isVideoTwoPassEncodingEnabled() && preset.videoBitrateMode() != Export::BitrateMode::Quality)
        SettingKey::refuse("quality", quoted(preset) + " encodes in two passes, which aim at a bitrate");
    if (quality < range.best || quality > range.worst)
        SettingKey::refuse(what, codec + " takes " + std::to_string(range.best) + " to " + std::to_string(range.worst));
    if (!range.fractions && std::trunc(quality) != quality)
        SettingKey::refuse(what, codec + " takes whole numbers");
}

void editQuality(const PresetSettings& settings, const Media::Video&, Preset& preset) {
    preset.setVideoBitrateMode(Export::BitrateMode::Quality);
    preset.setVideoQuality(*settings.quality);
}

void readFirstPass(const SettingEntry& entry, PresetSettings& settings) {
    if (entry.value != "full" && entry.value != "half")
        entry.refuse("write full or half");
    settings.halfFirstPass = entry.value == "half";
}

void requireTwoPasses(const PresetSettings& settings, const Preset& preset) {
    if (!preset.isVideoTwoPassEncodingEnabled() || preset.videoBitrateMode() == Export::BitrateMode::Quality)
        SettingKey::refuse("first-pass", quoted(preset) + " encodes in one pass");
    if (*settings.halfFirstPass && preset.videoCodec() != Kestra::Conf::CodecID::H264)
        SettingKey::refuse("first-pass",
                           std::string("that of ") + CodecIDToString(preset.videoCodec()) + " looks at whole pictures");
}

void editFirstPass(const PresetSettings& settings, const Media::Video&, Preset& preset) {
    preset.setHalfFirstPass(*settings.halfFirstPass);
}

} // namespace

std::vector<SettingKey> SettingKey::ofPicture() {
    return {
        {{"size", "WxH", "exactly this frame, with black bars where the picture has another shape", true},
         readSize,
         requireSize,
         editSize,
         insideAnyway},
        {{"width", "PIXELS", "this width, and the height of the source's shape", true},
         readWidth,
         requireSize,
         editSize,
         insideAnyway},
        {{"height", "PIXELS", "this height, and the width of the source's shape", true},
         readHeight,
         requireSize,
         editSize,
         insideAnyway},
        {{"frame-rate", "RATE", "frames a second, as 25, 29.97 or 30000/1001, or source", true},
         readFrameRate,
         requireFrameRate,
         editFrameRate,
         insideAnyway},
        {{"bitrate", "BITS", "of the picture on average, bit/s, as 2500000, 2500k or 2.5M", true},
         readBitrate,
         ExportCore::requireBitrate,
         editBitrate,
         requireBitrateInside},
        {{"quality", "NUMBER", "constant quality on the codec's scale (CRF), lower is better", true},
         readQuality,
         requireQuality,
         editQuality,
         insideAnyway},
        {{"first-pass", "SIZE", "full or half: of the pictures that the first of two passes looks at", true},
         readFirstPass,
         requireTwoPasses,
         editFirstPass,
         insideAnyway},
    };
}

} // namespace ExportCore
