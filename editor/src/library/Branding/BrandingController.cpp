// SPDX-License-Identifier: GPL-3.0-or-later
#include "Branding/BrandingController.h"

#include "Branding/OutroLength.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/Filters/FiltersSpecial/FrameStretch.h"
#include "Kestra/Proc/Filters/StreamOneFrameVideo.h"
#include "Kestra/Proc/IDataVideoFFFactory.h"
#include "Kestra/Proc/IEffectFactory.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "Kestra/Util/ImageUtils.h"
#include "Types/Time.h"

namespace {

using Kestra::Core::CoreManager;
using Kestra::Proc::ImplNames;
using Video = boost::intrusive_ptr<Kestra::Proc::IStreamVideo>;
using Audio = boost::intrusive_ptr<Kestra::Proc::IStreamAudio>;

const std::int64_t OUTRO = Types::toAvTime(OUTRO_LENGTH);
const std::int64_t FADE_IN = Types::toAvTime(KTime(1000));
const std::int64_t FADE_OUT = Types::toAvTime(KTime(1000));

/// The outro's opacity. Where both fades overlap they multiply.
double envelope(const std::int64_t& time, const std::int64_t& start, const std::int64_t& end) {
    const double fadeIn =
        time - start < FADE_IN ? static_cast<double>(time - start) / static_cast<double>(FADE_IN) : 1.0;
    if (end - time >= FADE_OUT) {
        return fadeIn;
    }
    return static_cast<double>(end - time) * fadeIn / static_cast<double>(FADE_OUT);
}

Video makeStill(const QPixmap& picture) {
    return Kestra::Proc::StreamOneFrameVideo::Create(
        Kestra::Util::ImageUtils::PixmapToFrame(picture, CoreManager::Instance().GetDataVideoFFFactory()));
}

Kestra::Proc::SettingsResizer resizerSettings(const Kestra::Conf::IFormatCodecVideo& format) {
    Kestra::Proc::SettingsResizer settings;
    settings.target = format.GetFrameInfo();
    settings.aspectMode = Kestra::Proc::AspectMode::Letterbox;
    settings.interpolation = Kestra::Proc::Interpolation::Lanczos;
    settings.oddSides = true; // the frame is the one that it follows
    return settings;
}

Video addEffects(const Video& stream) {
    auto& core = CoreManager::Instance();
    const auto host = core.GetFilterFactory().CreateEffectHost(stream, ImplNames::DEFAULT);
    host->AddEffect(core.GetEffectFactory().CreateColorspaceConverter(
        Kestra::Proc::SettingsColorspaceConverter(Kestra::Conf::PixelFormat::BGRA, true), ImplNames::DEFAULT));
    Kestra::Proc::TimeToProgress progress(envelope);
    progress.SetStart(0);
    progress.SetEnd(OUTRO);
    host->AddEffect(core.GetEffectFactory().CreateEffect(Kestra::Proc::SettingsEffectVideoAlphaEnvelope::CLASS_ID,
                                                         progress, ImplNames::DEFAULT));
    return host;
}

} // namespace

BrandingController::BrandingController() = default;
BrandingController::BrandingController(const BrandingController& other) = default;
BrandingController::BrandingController(BrandingController&& other) noexcept = default;
BrandingController& BrandingController::operator=(const BrandingController& other) = default;
BrandingController& BrandingController::operator=(BrandingController&& other) noexcept = default;
BrandingController::~BrandingController() = default;

void BrandingController::setBranding(const QPixmap& newPicture) {
    picture = newPicture;
}

Audio BrandingController::addBranding(const Audio& audio) {
    if (picture.isNull() || !audio) {
        return audio;
    }
    Kestra::Proc::SettingsFilterDurationTrimmer settings;
    settings.SetDuration(audio->GetDuration() + OUTRO);
    return CoreManager::Instance().GetFilterFactory().CreateDurationTrimmer(audio, settings, ImplNames::DEFAULT);
}

Video BrandingController::addBranding(const Video& video) {
    if (picture.isNull() || !video) {
        return video;
    }
    boost::intrusive_ptr<Kestra::Conf::IFormatCodecVideo> format;
    video->GetVideoFormat(format);
    const Video stretched = Kestra::Proc::CreateFrameStretch(makeStill(picture), OUTRO);
    auto& filters = CoreManager::Instance().GetFilterFactory();
    const Video resized = filters.CreateResizer(stretched, resizerSettings(*format), ImplNames::DEFAULT);
    const Video paced = filters.CreateFrameRate(resized, ImplNames::DEFAULT);
    // Goes to no filter, on purpose: the outro's rate is left to what the consumer of the whole stream prefers.
    Kestra::Proc::SettingsFilterFrameRate frameRate;
    frameRate.SetFrameRate(format->GetFrameRate());
    const Video outro = addEffects(paced);
    const auto whole = filters.CreateConcatenation(ImplNames::DEFAULT);
    whole->Append(video);
    whole->Append(outro);
    return whole;
}
