// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Filters/AudioFilterBase.h"

namespace Kestra::Proc {

AudioFilterBase::~AudioFilterBase() = default;

boost::intrusive_ptr<IDataAudio> AudioFilterBase::ReadAudio() {
    return source->ReadAudio();
}

void AudioFilterBase::GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const {
    source->GetAudioFormat(format);
}

} // namespace Kestra::Proc
