// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::ReadAheadVideo: reads its source on a thread of its own, ahead of the consumer.
#pragma once

#include "Kestra/Proc/Filters/ReadAheadBase.h"
#include "Kestra/Proc/Filters/VideoFilterBase.h"
#include "KestraExport.h"

namespace Kestra::Proc {

class KESTRA_EXPORT ReadAheadVideo final : public ReadAheadBase<VideoFilterBase> {
public:
    ReadAheadVideo(const boost::intrusive_ptr<IStreamVideo>& source, int pictures);

    boost::intrusive_ptr<IDataVideo> ReadVideo() override;
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override;
};

} // namespace Kestra::Proc
