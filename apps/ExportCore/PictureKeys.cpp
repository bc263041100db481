// SPDX-License-Identifier: GPL-3.0-or-later
// The settings of a request that are about its pictures.
#include "ExportCore/SettingKey.h"

#include "Export/PresetProvider.h"
#include "ExportCore/NearNames.h"
#include "ExportCore/OtherPresets.h"
#include "ExportCore/SettingText.h"
#include "ExportCore/SizeLimit.h"
#include "Kestra/ClientAPI/BitrateLimits.h"
#include "Kestra/ClientAPI/CodecLimits.h"
#include "Kestra/Conf/StandardRates.h"
#include "Kestra/Proc/Settings/SettingsFilterFrameRate.h"
#include <QString>
#include <algorithm>
#include <cmath>

namespace ExportCore {
namespace {

using Kestra::ClientAPI::CodecLimits;
using Kestra::Conf::CodecIDToString;

using Rate = boost::rational<long long>;

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
        entry.refuse(std::to_string(*side) + " is odd, and encoders need even sides, as " + std::to_string(*side - 1) +
                     " or " + std::to_string(*side + 1));
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

std::string sizeText(int width, int height) {
    return std::to_string(width) + 'x' + std::to_string(height);
}

/// And what takes such a picture.
std::string limitsOf(const Preset& preset, int width, int height) {
    return quoted(preset) + " is for pictures up to " + sizeText(preset.maxWidth(), preset.maxHeight()) +
           OtherPresets::holding(preset, width, height);
}

/// As far as one side tells; the other one may be open.
void requireSide(int side, const char* name, const PresetSettings& settings, const Preset& preset) {
    const int smallest = CodecLimits::SmallestSide(preset.videoCodec());
    const std::string what = "a " + std::string(name) + " of " + std::to_string(side);
    if (!isWithinLimits(side, 1, preset))
        SettingKey::refuse(what, limitsOf(preset, settings.width.value_or(1), settings.height.value_or(1)));
    if (side < smallest)
        SettingKey::refuse(what, std::string(CodecIDToString(preset.videoCodec())) + " takes no side below " +
                                     std::to_string(smallest));
}

void requireInside(int width, int height, const Preset& preset) {
    if (!isWithinLimits(width, height, preset))
        SettingKey::refuse("a size of " + sizeText(width, height), limitsOf(preset, width, height));
}

void requireSize(const PresetSettings& settings, const Preset& preset) {
    if (settings.width)
        requireSide(*settings.width, "width", settings, preset);
    if (settings.height)
        requireSide(*settings.height, "height", settings, preset);
    if (settings.width && settings.height)
        requireInside(*settings.width, *settings.height, preset);
}

double shapeOf(const Media::Video& video) {
    if (video.aspectNumerator != 0 && video.aspectDenominator != 0)
        return double(video.aspectNumerator) / video.aspectDenominator;
    return double(std::max(video.width, 1U)) / std::max(video.height, 1U);
}

/// The side that goes with `given`, which alone was asked for.
int otherSide(double length, int given, const char* asked, const char* other, const Preset& preset) {
    constexpr double LONGEST = 1.0e9; // of any shape
    const int even = 2 * static_cast<int>(std::round(std::clamp(length, 2.0, LONGEST) / 2.0));
    if (!isWithinLimits(even, given, preset))
        SettingKey::refuse(asked, std::string("the ") + other + " of the source's shape would be " +
                                      std::to_string(even) + ", and " + limitsOf(preset, even, given));
    return even;
}

void editSize(const PresetSettings& settings, const Media::Video& video, Preset& preset) {
    const double shape = shapeOf(video);
    const int width = settings.width ? *settings.width
                                     : otherSide(*settings.height * shape, *settings.height, "height", "width", preset);
    const int height = settings.height ? *settings.height
                                       : otherSide(*settings.width / shape, *settings.width, "width", "height", preset);
    const int smallest = CodecLimits::SmallestSide(preset.videoCodec());
    if (std::min(width, height) < smallest)
        SettingKey::refuse("width or height", sizeText(width, height) + " is too small for " +
                                                  CodecIDToString(preset.videoCodec()) +
                                                  ", which takes no side below " + std::to_string(smallest));
    requireInside(width, height, preset);
    preset.setWidth(width);
    preset.setHeight(height);
    preset.setFixedResolution(true);
}

void readFrameRate(const SettingEntry& entry, PresetSettings& settings) {
    if (SettingText::lowered(entry.value) == "source") {
        settings.frameRate = Kestra::Proc::SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE;
        return;
    }
    const auto rate = SettingText::frameRate(entry.value);
    if (!rate)
        entry.refuse("write frames a second, as 25, 29.97 or 30000/1001, film, pal, ntsc, ntsc-film or source" +
                     NearNames::question(entry.value, {"film", "pal", "ntsc", "ntsc-film", "source"}));
    if (*rate < 1 || *rate > HIGHEST_FRAME_RATE)
        entry.refuse("frame rates go from 1 to " + std::to_string(HIGHEST_FRAME_RATE));
    settings.frameRate = *rate;
}

std::string rateText(const Rate& rate) {
    const std::string above = std::to_string(rate.numerator());
    return rate.denominator() == 1 ? above : above + '/' + std::to_string(rate.denominator());
}

/// The usual ones, whole numbers, and periods of whole hundredths of a second.
std::vector<Rate> commonRates() {
    std::vector<Rate> rates = Kestra::Conf::StandardRates();
    for (int n = 1; n <= HIGHEST_FRAME_RATE; ++n) {
        rates.emplace_back(n);
        rates.emplace_back(100, n);
    }
    return rates;
}

/// How a refusal ends that names it.
std::string nearestRate(Kestra::Conf::CodecID codec, const Rate& rate) {
    std::vector<Rate> rates = commonRates();
    const auto isRefused = [codec](const Rate& one) { return !CodecLimits::TakesFrameRate(codec, one); };
    rates.erase(std::remove_if(rates.begin(), rates.end(), isRefused), rates.end());
    const auto distance = [wanted = boost::rational_cast<double>(rate)](const Rate& one) {
        return std::abs(boost::rational_cast<double>(one) - wanted);
    };
    const auto isNearer = [&distance](const Rate& a, const Rate& b) { return distance(a) < distance(b); };
    const auto nearest = std::min_element(rates.begin(), rates.end(), isNearer);
    return nearest == rates.end() ? std::string() : "; the nearest that it takes is " + rateText(*nearest);
}

void requireFrameRate(const PresetSettings& settings, const Preset& preset) {
    const Rate& rate = *settings.frameRate;
    if (rate != 0 && !CodecLimits::TakesFrameRate(preset.videoCodec(), rate))
        SettingKey::refuse("frame-rate", std::string(CodecIDToString(preset.videoCodec())) + " does not take " +
                                             rateText(rate) + nearestRate(preset.videoCodec(), rate));
}

void editFrameRate(const PresetSettings& settings, const Media::Video&, Preset& preset) {
    preset.setFrameRate(*settings.frameRate);
}

void readBitrate(const SettingEntry& entry, PresetSettings& settings) {
    settings.bitrateBps = SettingKey::bitrateOf(entry);
}

void requireBitrate(const PresetSettings&, const Preset& preset) {
    SettingKey::requireBitrate("bitrate", preset, true);
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
        entry.refuse("write a number on the codec's own scale, as 23 (--quality takes a preset's names)");
    if (*quality <= 0 || *quality > HIGHEST_QUALITY)
        entry.refuse("no codec's scale holds it");
    settings.quality = *quality;
}

void requireQuality(const PresetSettings& settings, const Preset& preset) {
    const double quality = *settings.quality;
    const auto range = CodecLimits::VideoQuality(preset.videoCodec());
    const std::string codec = CodecIDToString(preset.videoCodec());
    const std::string what = "quality to " + QString::number(quality).toStdString();
    if (!range.Exists())
        SettingKey::refuse("quality", codec + " has no scale of qualities" + OtherPresets::qualitiesOf(preset));
    if (preset.isVideoTwoPassEncodingEnabled() && preset.videoBitrateMode() != Export::BitrateMode::Quality)
        SettingKey::refuse("quality", quoted(preset) + " encodes in two passes, which aim at a bitrate" +
                                          OtherPresets::encodingIn(1, preset));
    if (!range.Holds(quality))
        SettingKey::refuse(what, codec + " takes " + std::to_string(std::min(range.best, range.worst)) + " to " +
                                     std::to_string(std::max(range.best, range.worst)));
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
        SettingKey::refuse("first-pass", quoted(preset) + " encodes in one pass" + OtherPresets::encodingIn(2, preset));
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
        {{"frame-rate", "RATE", "frames a second, as 25, 29.97 or 30000/1001; film, pal, ntsc, ntsc-film or source",
          true},
         readFrameRate,
         requireFrameRate,
         editFrameRate,
         insideAnyway},
        {{"bitrate", "BITS", "of the picture on average, bit/s, as 2500000, 2500k or 2.5M", true},
         readBitrate,
         ExportCore::requireBitrate,
         editBitrate,
         requireBitrateInside},
        {{"quality", "NUMBER",
          "constant quality on the codec's scale (CRF), lower is better; of webp 1 to 100, higher is better", true},
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
