// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::ReadAheadAudio: reads its source on a thread of its own, ahead of the consumer.
#pragma once

#include "Kestra/Proc/Filters/AudioFilterBase.h"
#include "Kestra/Proc/Filters/ReadAheadBase.h"
#include "KestraExport.h"

namespace Kestra::Proc {

class KESTRA_EXPORT ReadAheadAudio final : public ReadAheadBase<AudioFilterBase> {
public:
    ReadAheadAudio(const boost::intrusive_ptr<IStreamAudio>& source, int blocks);

    boost::intrusive_ptr<IDataAudio> ReadAudio() override;
    void GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const override;
};

} // namespace Kestra::Proc
