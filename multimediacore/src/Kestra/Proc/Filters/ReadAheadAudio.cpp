// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Filters/ReadAheadAudio.h"

namespace Kestra::Proc {

namespace {

constexpr std::size_t MAX_BYTES = std::size_t{32} << 20;

} // namespace

ReadAheadAudio::ReadAheadAudio(const boost::intrusive_ptr<IStreamAudio>& source, int blocks)
    : ReadAheadBase(source, "kestra-read-aud", blocks, MAX_BYTES) {}

boost::intrusive_ptr<IDataAudio> ReadAheadAudio::ReadAudio() {
    return boost::static_pointer_cast<IDataAudio>(Pop());
}

void ReadAheadAudio::GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& result) const {
    const Conf::IFormatCodec* const known = FormatAtStart();
    if (!known)
        return AudioFilterBase::GetAudioFormat(result);
    result = Conf::IFormatCodecAudio::Create();
    result->SetProperty(known->GetProperty());
}

} // namespace Kestra::Proc
