#include "Kestra/Proc/Filters/AudioFilterBase.h"

namespace Kestra::Proc {

AudioFilterBase::~AudioFilterBase() = default;

boost::intrusive_ptr<IDataAudio> AudioFilterBase::ReadAudio() {
    return source->ReadAudio();
}

void AudioFilterBase::GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const {
    source->GetAudioFormat(format);
}

boost::intrusive_ptr<IData> AudioFilterBase::ReadData() {
    return ReadAudio();
}

} // namespace Kestra::Proc
