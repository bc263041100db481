// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Filters/ReadAheadVideo.h"

namespace Kestra::Proc {

namespace {

constexpr std::size_t MAX_BYTES = std::size_t{256} << 20;

} // namespace

ReadAheadVideo::ReadAheadVideo(const boost::intrusive_ptr<IStreamVideo>& source, int pictures)
    : ReadAheadBase(source, "kestra-read-vid", pictures, MAX_BYTES) {}

boost::intrusive_ptr<IDataVideo> ReadAheadVideo::ReadVideo() {
    return boost::static_pointer_cast<IDataVideo>(Pop());
}

void ReadAheadVideo::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& result) const {
    const Conf::IFormatCodec* const known = FormatAtStart();
    if (!known)
        return VideoFilterBase::GetVideoFormat(result);
    result = Conf::IFormatCodecVideo::Create();
    result->SetProperty(known->GetProperty());
}

} // namespace Kestra::Proc
