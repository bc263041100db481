// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Models/PresetObstacle.h"

#include "Kestra/ClientAPI/CodecLimits.h"
#include "Kestra/Proc/Settings/SettingsFilterFrameRate.h"
#include "dialog/Models/PeoplesText.h"
#include "dialog/Models/PresetText.h"
#include "dialog/Models/SourceMedia.h"
#include <algorithm>

namespace Dialog {
namespace {

using Kestra::ClientAPI::CodecLimits;

QString streamObstacle(bool picture, bool sound, const SourceMedia& source) {
    if (!picture && sound && !source.hasSound())
        return PresetObstacle::tr("The source has no sound");
    if (picture && !sound && !source.hasPictures())
        return PresetObstacle::tr("The source has no picture");
    return {};
}

QString rateObstacle(const Preset& preset, const SourceMedia& source) {
    const bool ofTheSource = preset.frameRate() == Kestra::Proc::SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE;
    const auto rate = source.rate();
    if (!ofTheSource || !rate || CodecLimits::TakesFrameRate(preset.videoCodec(), *rate))
        return {};
    return PresetObstacle::tr("%1 does not take %2")
        .arg(PresetText::codec(preset.videoCodec()), PeoplesText::frameRate(*rate));
}

QString sizeObstacle(const Preset& preset, const SourceMedia& source) {
    if (preset.hasFixedResolution() || !source.hasPictures())
        return {};
    const Media::Video& video = source.project().video();
    const int smallest = CodecLimits::SmallestSide(preset.videoCodec());
    if (static_cast<int>(std::min(video.width, video.height)) >= smallest)
        return {};
    return PresetObstacle::tr("%1 takes no side below %2 pixels")
        .arg(PresetText::codec(preset.videoCodec()))
        .arg(smallest);
}

} // namespace

QString PresetObstacle::of(const Preset& preset, const SourceMedia& source, bool withPicture, bool withSound) {
    if (!source.isReady())
        return {};
    const bool picture = preset.hasVideo() && withPicture, sound = preset.hasAudio() && withSound;
    if (QString reason = streamObstacle(picture, sound, source); !reason.isEmpty() || !picture)
        return reason;
    const QString reason = rateObstacle(preset, source);
    return reason.isEmpty() ? sizeObstacle(preset, source) : reason;
}

} // namespace Dialog
