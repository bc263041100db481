// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Conf/IFormatCodecAudio.h"
#include "Kestra/Proc/IDataAudio.h"
#include "Kestra/Proc/IStream.h"
#include <vector>

namespace Kestra::Proc {

/// A stream of samples without gaps or overlaps.
class KESTRA_EXPORT IStreamAudio : public virtual IStream {
public:
    ~IStreamAudio() override;
    virtual boost::intrusive_ptr<IDataAudio> ReadAudio() = 0;
    virtual void GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const = 0;
    /// Further tracks of sound for the file that this one gets into, in their order: as long and in the same format,
    /// each of them a stream for a thread of its own that no call on this one reaches. A filter answers with its
    /// source's, treated like it. Called before anything is read; another call may answer with new streams over the
    /// same tracks, of which one is read at a time. None unless overridden.
    virtual std::vector<boost::intrusive_ptr<IStreamAudio>> GetFurtherTracks() const;

protected:
    /// Answers GetFormatCodec from GetAudioFormat.
    void GetFormatCodecBase(boost::intrusive_ptr<Conf::IFormatCodec>& format) const;
};

} // namespace Kestra::Proc
