// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/IStreamAudio.h"

namespace Kestra::Proc {

IStreamAudio::~IStreamAudio() = default;

std::vector<boost::intrusive_ptr<IStreamAudio>> IStreamAudio::GetFurtherTracks() const {
    return {};
}

void IStreamAudio::GetFormatCodecBase(boost::intrusive_ptr<Conf::IFormatCodec>& format) const {
    boost::intrusive_ptr<Conf::IFormatCodecAudio> audio;
    GetAudioFormat(audio);
    format = audio;
}

} // namespace Kestra::Proc
