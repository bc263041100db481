// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::VideoFilterBase: a stream that does with its source what it does not do itself.
#pragma once

#include "Kestra/Proc/Filters/FilterBase.h"
#include "Kestra/Proc/IStreamVideo.h"

namespace Kestra::Proc {

/// Forwards every operation to its source. A filter that overrides ReadVideo or GetVideoFormat has changed ReadData and
/// GetFormatCodec with it.
class KESTRA_EXPORT VideoFilterBase : public FilterBase<IStreamVideo> {
public:
    using FilterBase::FilterBase;
    ~VideoFilterBase() override;

    boost::intrusive_ptr<IDataVideo> ReadVideo() override;
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override;
};

} // namespace Kestra::Proc
