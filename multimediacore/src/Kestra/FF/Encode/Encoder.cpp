// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/Encoder.h"

#include "Kestra/FF/Av/Error.h"

namespace Kestra::FF {

Encoder::Encoder(const boost::intrusive_ptr<EncoderCore>& core)
    : IEncoder(core)
    , core(core) {}

void Encoder::Seek(std::int64_t, Proc::SeekMode) {
    Fail(Proc::TranscodingError::NotSupported, Describe() + " cannot seek");
}

void Encoder::GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const {
    packetSource->GetFormat(format);
}

} // namespace Kestra::FF
