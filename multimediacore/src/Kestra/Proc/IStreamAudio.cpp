#include "Kestra/Proc/IStreamAudio.h"

namespace Kestra::Proc {

IStreamAudio::~IStreamAudio() = default;

void IStreamAudio::GetFormatCodecBase(boost::intrusive_ptr<Conf::IFormatCodec>& format) const {
    boost::intrusive_ptr<Conf::IFormatCodecAudio> audio;
    GetAudioFormat(audio);
    format = audio;
}

} // namespace Kestra::Proc
