// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/IStreamVideo.h"

namespace Kestra::Proc {

IStreamVideo::~IStreamVideo() = default;

void IStreamVideo::GetFormatCodecBase(boost::intrusive_ptr<Conf::IFormatCodec>& format) const {
    boost::intrusive_ptr<Conf::IFormatCodecVideo> video;
    GetVideoFormat(video);
    format = video;
}

} // namespace Kestra::Proc
