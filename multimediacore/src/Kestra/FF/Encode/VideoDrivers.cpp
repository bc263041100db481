// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/VideoDrivers.h"

namespace Kestra::FF {

const std::vector<const VideoDriver*>& VideoDriver::All() {
    static const auto& drivers = *new std::vector<const VideoDriver*>{
        &X264Driver(),   &X265Driver(),   &Vp9Driver(),   &Vp8Driver(),   &SvtAv1Driver(),
        &AomAv1Driver(), &ProResDriver(), &DnxhdDriver(), &Mpeg4Driver(), &Mpeg2Driver(),
        &MjpegDriver(),  &Ffv1Driver(),   &GifDriver(),   &PngDriver(),   &WebPDriver(),
    };
    return drivers;
}

} // namespace Kestra::FF
