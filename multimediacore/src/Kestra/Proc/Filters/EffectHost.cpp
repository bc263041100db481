// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Filters/EffectHost.h"

#include "Kestra/Base/Exception.h"
#include "Kestra/Proc/Filters/NotImplemented.h"
#include <stdexcept>

namespace Kestra::Proc {

EffectHost::EffectHost(const boost::intrusive_ptr<IStreamVideo>& source)
    : source(source) {
    if (!source)
        KESTRA_THROW(std::invalid_argument("The host of effects was given no source"));
}

void EffectHost::AddEffect(const boost::intrusive_ptr<IEffectVideo>& effect) {
    if (!effect)
        KESTRA_THROW(std::invalid_argument("A null effect cannot be added"));
    if (begun)
        KESTRA_THROW(FilterException(TranscodingError::InvalidArgument,
                                     "Effects are added before the first read, not after it"));
    effects.push_back(effect);
}

boost::intrusive_ptr<IDataVideo> EffectHost::ReadVideo() {
    begun = true;
    auto picture = source->ReadVideo();
    if (!picture)
        return {};
    for (const auto& effect : effects)
        picture = effect->Apply(picture);
    return picture;
}

void EffectHost::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const {
    source->GetVideoFormat(format);
    for (const auto& effect : effects)
        effect->ChangeFormat(*format);
}

void EffectHost::Initialize(const Core::Property&) {
    KESTRA_NOT_IMPLEMENTED();
}

Core::Property EffectHost::GetSettings() const {
    KESTRA_NOT_IMPLEMENTED();
}

void EffectHost::PreferFormat(const Conf::IFormatCodec& format) {
    const auto wish = Conf::IFormatCodecVideo::Create();
    wish->SetProperty(format.GetProperty());
    for (auto effect = effects.rbegin(); effect != effects.rend(); ++effect)
        (*effect)->ChangePreference(*wish);
    source->PreferFormat(*wish);
}

void EffectHost::Reset() {
    source->Reset();
    for (const auto& effect : effects)
        effect->Reset();
    begun = false;
}

} // namespace Kestra::Proc
