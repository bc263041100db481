#include "ExportCore/PresetEdit.h"

#include "Export/PresetProvider.h"
#include "ExportCore/NameList.h"
#include "ExportCore/Refusal.h"
#include "Kestra/Base/SourcePlace.h"
#include "Kestra/ClientAPI/BitrateLimits.h"
#include "Kestra/ClientAPI/CodecLimits.h"
#include <algorithm>
#include <cmath>

namespace ExportCore {
namespace {

using Kestra::ClientAPI::BitrateRange;
using Kestra::ClientAPI::CodecLimits;
using Kestra::Conf::IFormatCodec;

[[noreturn]] void refuse(const std::string& what, const std::string& reason,
                         Kestra::SourcePlace place = Kestra::SourcePlace::Here()) {
    Kestra::ThrowFrom(Refusal("Cannot set " + what + ": " + reason), place);
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
        refuse(asked, std::string("the ") + other + " of the source's shape would be " +
                          std::to_string(std::llround(even)) + ", and the preset goes up to " + std::to_string(limit));
    return static_cast<int>(even);
}

void editSize(const PresetSettings& settings, const Media::Video& video, Preset& preset) {
    if (!settings.width && !settings.height)
        return;
    const double shape = shapeOf(video);
    const int width =
        settings.width ? *settings.width : otherSide(*settings.height * shape, preset.maxWidth(), "height", "width");
    const int height =
        settings.height ? *settings.height : otherSide(*settings.width / shape, preset.maxHeight(), "width", "height");
    if (std::min(width, height) < CodecLimits::SmallestSide(preset.videoCodec()))
        refuse("width or height", std::to_string(width) + 'x' + std::to_string(height) + " is too small for " +
                                      Kestra::Conf::CodecIDToString(preset.videoCodec()));
    preset.setWidth(width);
    preset.setHeight(height);
    preset.setFixedResolution(true);
}

void editPicture(const PresetSettings& settings, Preset& preset) {
    if (settings.frameRate)
        preset.setFrameRate(*settings.frameRate);
    if (settings.bitrateBps) {
        preset.setVideoBitrateMode(Export::BitrateMode::Variable);
        preset.setVideoBitrateBps(*settings.bitrateBps);
    }
    if (settings.quality) {
        preset.setVideoBitrateMode(Export::BitrateMode::Quality);
        preset.setVideoQuality(*settings.quality);
    }
}

void editSound(const PresetSettings& settings, Preset& preset) {
    if (settings.sampleRate)
        preset.setSampleRate(static_cast<std::uint32_t>(*settings.sampleRate));
    if (settings.channelLayout)
        preset.setChannelLayout(*settings.channelLayout);
    if (settings.audioBitrateBps)
        preset.setAudioBitrateBps(*settings.audioBitrateBps);
}

void requireInside(const char* key, std::int64_t bitrate, const BitrateRange& range, const std::string& subject) {
    if (bitrate < range.minimum || bitrate > range.maximum)
        refuse(std::string(key) + " to " + std::to_string(bitrate),
               subject + " takes " + std::to_string(range.minimum) + " to " + std::to_string(range.maximum) + " bit/s");
}

/// The codec's whole range for the picture as it comes out.
void requireVideoBitrate(std::int64_t bitrate, const Export::PresetProvider& provider, const Media::Video& video) {
    const auto format = provider.formatCodec(&video, nullptr);
    const Kestra::Conf::FrameInfo frame = format->GetFrameInfo();
    const std::string subject = std::string(Kestra::Conf::CodecIDToString(format->GetCodecID())) + " at " +
                                std::to_string(frame.width) + 'x' + std::to_string(frame.height);
    requireInside("bitrate", bitrate,
                  {Kestra::ClientAPI::GetMinVideoBitrate(format), Kestra::ClientAPI::GetMaxVideoBitrate(format)},
                  subject);
}

void requireStep(std::int64_t bitrate, const std::vector<std::int64_t>& steps, const std::string& subject) {
    if (steps.empty() || std::find(steps.begin(), steps.end(), bitrate) != steps.end())
        return;
    std::vector<std::string> all;
    all.reserve(steps.size());
    for (const std::int64_t step : steps)
        all.push_back(std::to_string(step));
    refuse("audio-bitrate to " + std::to_string(bitrate), subject + " takes " + NameList::joined(all) + " bit/s");
}

void requireAudioBitrate(std::int64_t bitrate, const Export::PresetProvider& provider, const Media::Audio& audio) {
    const auto format = provider.formatCodec(&audio);
    Kestra::Core::Property tree = format->GetProperty();
    // Decided already, it would be its own limit.
    tree.RemoveChild(IFormatCodec::TAG_BITRATE);
    const int rate = format->GetSampleRate() > 0 ? format->GetSampleRate() : audio.sampleRate;
    const std::string subject =
        std::string(Kestra::Conf::CodecIDToString(format->GetCodecID())) + " at " + std::to_string(rate) + " Hz";
    requireInside("audio-bitrate", bitrate,
                  {Kestra::ClientAPI::GetMinBitrate(tree), Kestra::ClientAPI::GetMaxBitrate(tree)}, subject);
    requireStep(bitrate, CodecLimits::AudioBitrateSteps(format->GetCodecID(), rate), subject);
}

} // namespace

void PresetEdit::apply(Export::PresetProvider& provider, const Media::Video& video, const Media::Audio& audio) const {
    if (!modifier.empty())
        provider.updatePreset(&video, provider.modifiedPreset(modifier));
    provider.updateResolutionPresetIfNeeded(&video);
    if (settings.empty())
        return;
    Preset edited = provider.preset();
    editSize(settings, video, edited);
    editPicture(settings, edited);
    editSound(settings, edited);
    provider.saveCustomPreset(edited);
    provider.updatePreset(&video, provider.customPreset());
    if (settings.bitrateBps)
        requireVideoBitrate(*settings.bitrateBps, provider, video);
    if (settings.audioBitrateBps)
        requireAudioBitrate(*settings.audioBitrateBps, provider, audio);
}

} // namespace ExportCore
