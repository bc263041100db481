// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Conf/IFormatCodecVideo.h"
#include "Kestra/Proc/IDataVideo.h"
#include "Kestra/Proc/IStream.h"

namespace Kestra::Proc {

/// A stream of pictures in presentation order, without gaps or overlaps: a frame lasts until the next one begins.
class KESTRA_EXPORT IStreamVideo : public virtual IStream {
public:
    ~IStreamVideo() override;
    virtual boost::intrusive_ptr<IDataVideo> ReadVideo() = 0;
    virtual void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const = 0;

protected:
    /// Answers GetFormatCodec from GetVideoFormat.
    void GetFormatCodecBase(boost::intrusive_ptr<Conf::IFormatCodec>& format) const;
};

} // namespace Kestra::Proc
