#pragma once

#include "Kestra/Conf/IFormatCodecAudio.h"
#include "Kestra/Proc/IDataAudio.h"
#include "Kestra/Proc/IStream.h"

namespace Kestra::Proc {

/// A stream of samples without gaps or overlaps.
class KESTRA_EXPORT IStreamAudio : public virtual IStream {
public:
    ~IStreamAudio() override;
    virtual boost::intrusive_ptr<IDataAudio> ReadAudio() = 0;
    virtual void GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const = 0;

protected:
    /// Answers GetFormatCodec from GetAudioFormat.
    void GetFormatCodecBase(boost::intrusive_ptr<Conf::IFormatCodec>& format) const;
};

} // namespace Kestra::Proc
