// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::AudioFilterBase: a stream that does with its source what it does not do itself.
#pragma once

#include "Kestra/Proc/Filters/FilterBase.h"
#include "Kestra/Proc/IStreamAudio.h"

namespace Kestra::Proc {

/// Forwards every operation to its source. A filter that overrides ReadAudio or GetAudioFormat has changed ReadData and
/// GetFormatCodec with it.
class KESTRA_EXPORT AudioFilterBase : public FilterBase<IStreamAudio> {
public:
    using FilterBase::FilterBase;
    ~AudioFilterBase() override;

    boost::intrusive_ptr<IDataAudio> ReadAudio() override;
    void GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const override;
};

} // namespace Kestra::Proc
