// SPDX-License-Identifier: GPL-3.0-or-later
// Export::PresetProvider: what follows from the selected preset for the streams of an export.
#include "Export/PresetProvider.h"
#include "Kestra/ClientAPI/BitrateLimits.h"
#include "Kestra/Conf/CreateDataHelper.h"
#include "Kestra/Proc/Settings/SettingsFilterFrameRate.h"
#include <QSize>
#include <algorithm>
#include <limits>

namespace Export {

namespace {

using Kestra::ClientAPI::BitrateRange;
using Kestra::Conf::FrameInfo;
using Kestra::Conf::IFormatCodec;
using Kestra::Conf::IFormatCodecAudio;
using Kestra::Conf::IFormatCodecVideo;
using Kestra::Conf::IPreset;
using Kestra::Conf::LayoutRecord;
using Kestra::Conf::SampleFmtRecord;
using Kestra::Conf::SampleInfo;
using Kestra::Proc::SettingsFilterFrameRate;

FrameInfo sourceFrame(const Media::Video& video) {
    return {video.width, video.height, video.aspectNumerator, video.aspectDenominator};
}

/// A size counts in signed numbers; no side that long is any picture's.
int sideOf(std::uint32_t pixels) {
    return static_cast<int>(std::min<std::uint32_t>(pixels, std::numeric_limits<int>::max()));
}

FrameInfo outputFrame(const Media::Video& video, const Preset& preset) {
    return preset.resizerSettings().GetOutputFrameSize(sourceFrame(video));
}

/// Adds what codec and container fix, in this order: the codec's word goes first.
void complete(IFormatCodec& format, const char* codecKey, const Preset& preset, Kestra::Conf::CodecID codec) {
    Kestra::Core::Property tree = format.GetProperty();
    Kestra::Conf::CreateDataHelper(codecKey, codec)->Apply(tree);
    Kestra::Conf::CreateDataHelper(IPreset::KEY_FORMAT, preset.containerId())->Apply(tree);
    format.SetProperty(tree);
}

BitrateRange automaticRange(const boost::intrusive_ptr<IFormatCodecVideo>& format, const Preset& preset) {
    const double standard = static_cast<double>(Kestra::ClientAPI::GetDefaultVideoBitrate(format));
    const auto bitrate = static_cast<long long>(standard * preset.videoBitrateMultiplier());
    return {bitrate, bitrate};
}

} // namespace

bool PresetProvider::audioExists(const Media::Audio* audio) const {
    return audio != nullptr && storage.isPresetExists(currentPresetId) && currentPreset->hasAudio();
}

bool PresetProvider::videoExists(const Media::Video* video) const {
    return video != nullptr && storage.isPresetExists(currentPresetId) && currentPreset->hasVideo();
}

boost::intrusive_ptr<IFormatCodecVideo> PresetProvider::formatCodec(const Media::Video* video,
                                                                    const Preset* const preset) const {
    const Preset chosen = preset != nullptr ? *preset : this->preset();
    const Kestra::Conf::CodecID codec = chosen.videoCodec();
    const boost::rational<long long> rate = chosen.frameRate();
    const FrameInfo out = outputFrame(*video, chosen);
    boost::intrusive_ptr<IFormatCodecVideo> format = IFormatCodecVideo::Create();
    format->InitByFrameAspect(out.width, out.height, out.aspectNumerator, out.aspectDenominator);
    format->SetCodecID(codec);
    if (rate != SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE)
        format->SetFrameRate(rate);
    else
        format->SetFrameRate(video->frameRateNumerator, video->frameRateDenominator);
    format->SetBitrate(chosen.videoBitrateBps());
    format->SetBitrateMode(Preset::modeToString(chosen.videoBitrateMode()));
    format->SetQuality(chosen.videoQuality());
    complete(*format, IPreset::KEY_FILTER_VIDEO_CODEC, chosen, codec);
    return format;
}

boost::intrusive_ptr<IFormatCodecAudio> PresetProvider::formatCodec(const Media::Audio* audio) const {
    const Preset chosen = preset();
    const Kestra::Conf::CodecID codec = chosen.audioCodec();
    const SampleInfo merged = sampleInfoPre(audio);
    boost::intrusive_ptr<IFormatCodecAudio> format = IFormatCodecAudio::Create();
    // Layout and rate as the preset stores them, open ones included; only the sample format is the merged one.
    format->SetChannelLayout(chosen.channelLayout());
    format->SetSampleRate(static_cast<int>(chosen.sampleRate()));
    format->SetSampleFormat(merged.GetFormatRecord()->format);
    format->SetCodecID(codec);
    format->SetBitrate(chosen.audioEncoderData()[IFormatCodec::TAG_BITRATE].GetInt64());
    complete(*format, IPreset::KEY_FILTER_AUDIO_CODEC, chosen, codec);
    return format;
}

const FrameInfo PresetProvider::frameInfo(const Media::Video* video, const Preset* const preset) const {
    return outputFrame(*video, preset != nullptr ? *preset : this->preset());
}

const boost::rational<long long> PresetProvider::frameRate(const Media::Video* video) const {
    return formatCodec(video, nullptr)->GetFrameRate();
}

const SampleInfo PresetProvider::sampleInfoPre(const Media::Audio* audio) const {
    const Preset chosen = preset();
    SampleInfo info;
    info.Init(-1, -1, 0);
    info.SetLayoutRecord(LayoutRecord::Find(chosen.channelLayout()));
    info.SetRate(static_cast<int>(chosen.sampleRate()));
    info.SetFormatRecord(SampleFmtRecord::Find(audio->sampleFormat));
    SampleInfo source;
    source.Init(info.GetFormatRecord()->format, audio->sampleRate, audio->channelLayout);
    info.MergeWith(source, SampleInfo::MergeStrategy::FillOpen);
    return info;
}

const SampleInfo PresetProvider::sampleInfo(const Media::Audio* audio) const {
    const boost::intrusive_ptr<IFormatCodecAudio> format = formatCodec(audio);
    SampleInfo info;
    info.Init(-1, -1, 0);
    info.SetLayoutRecord(LayoutRecord::Find(format->GetChannelLayout()));
    info.SetRate(format->GetSampleRate());
    info.SetFormatRecord(SampleFmtRecord::Find(format->GetSampleFormat()));
    return info;
}

const BitrateRange PresetProvider::bitrate(const Media::Audio* audio) const {
    if (!audioExists(audio))
        return {0, 0};
    const Kestra::Core::Property tree = formatCodec(audio)->GetProperty();
    return {Kestra::ClientAPI::GetMinBitrate(tree), Kestra::ClientAPI::GetMaxBitrate(tree)};
}

const BitrateRange PresetProvider::bitrate(const Media::Video* video) const {
    if (!videoExists(video))
        return {0, 0};
    const Preset chosen = preset();
    const boost::intrusive_ptr<IFormatCodecVideo> format = formatCodec(video, &chosen);
    switch (chosen.videoBitrateMode()) {
    case BitrateMode::Quality:
        return {Kestra::ClientAPI::GetMinVideoBitrate(format), Kestra::ClientAPI::GetMaxVideoBitrate(format)};
    case BitrateMode::Variable:
        return {format->GetBitrate(), format->GetBitrate()};
    default:
        return automaticRange(format, chosen);
    }
}

const BitrateRange PresetProvider::autoBitrate(const Media::Video* video, const Preset& preset) const {
    // Whether there is a video to encode is the selected preset's say, not that of the one asked for.
    if (!videoExists(video))
        return {0, 0};
    return automaticRange(formatCodec(video, &preset), preset);
}

Media::Video PresetProvider::applyPreset(const Media::Video* video) const {
    if (video == nullptr)
        return {};
    Media::Video result = *video;
    if (!videoExists(video))
        return result;
    const FrameInfo out = outputFrame(*video, *currentPreset);
    const boost::rational<long long> rate = formatCodec(video, nullptr)->GetFrameRate();
    result.width = out.width;
    result.height = out.height;
    result.aspectNumerator = out.aspectNumerator;
    result.aspectDenominator = out.aspectDenominator;
    result.frameRateNumerator = static_cast<std::uint32_t>(rate.numerator());
    result.frameRateDenominator = static_cast<std::uint32_t>(rate.denominator());
    return result;
}

Media::Audio PresetProvider::applyPreset(const Media::Audio* audio) const {
    if (audio == nullptr)
        return {};
    Media::Audio result = *audio;
    if (!audioExists(audio))
        return result;
    const boost::intrusive_ptr<IFormatCodecAudio> format = formatCodec(audio);
    result.channelLayout = LayoutRecord::Find(format->GetChannelLayout())->layout;
    result.sampleRate = format->GetSampleRate();
    result.sampleFormat = SampleFmtRecord::Find(format->GetSampleFormat())->format;
    return result;
}

bool PresetProvider::fixupPresetResolution(const Media::Video* video, Preset* preset) const {
    if (!videoExists(video) || currentPreset->hasFixedResolution())
        return false;
    // The limits are always the selected preset's; the size compared and changed is that of the preset passed in.
    const QSize limit(currentPreset->maxWidth(), currentPreset->maxHeight());
    QSize size(sideOf(video->width), sideOf(video->height));
    if (size.width() > limit.width() || size.height() > limit.height())
        size.scale(limit, Qt::KeepAspectRatio);
    const int width = size.width() & ~1;
    const int height = size.height() & ~1;
    if (width == preset->width() && height == preset->height())
        return false;
    preset->setWidth(width);
    preset->setHeight(height);
    return true;
}

void PresetProvider::updateResolutionPresetIfNeeded(const Media::Video* video) {
    if (fixupPresetResolution(video, currentPreset.get()))
        Q_EMIT presetChanged(selectedRowByTag[currentTagName]);
}

bool PresetProvider::updatePreset(const Media::Video*, const Preset& preset) {
    if (preset.id() != currentPresetId)
        return false;
    if (preset.equalsTo(*currentPreset))
        return true;
    currentPreset = std::make_unique<Preset>(preset);
    Q_EMIT presetChanged(selectedRowByTag[currentTagName]);
    return true;
}

} // namespace Export
