// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Filters/VideoFilterBase.h"

namespace Kestra::Proc {

VideoFilterBase::~VideoFilterBase() = default;

boost::intrusive_ptr<IDataVideo> VideoFilterBase::ReadVideo() {
    return source->ReadVideo();
}

void VideoFilterBase::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const {
    source->GetVideoFormat(format);
}

} // namespace Kestra::Proc
