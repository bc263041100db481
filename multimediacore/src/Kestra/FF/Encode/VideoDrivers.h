// SPDX-License-Identifier: GPL-3.0-or-later
// The drivers that there are, one function each; the list of them is VideoDriver::All.
#pragma once

#include "Kestra/FF/Encode/VideoDriver.h"

namespace Kestra::FF {

const VideoDriver& X264Driver();
const VideoDriver& X265Driver();
const VideoDriver& Vp9Driver();
const VideoDriver& Vp8Driver();
const VideoDriver& SvtAv1Driver();
const VideoDriver& AomAv1Driver();
const VideoDriver& ProResDriver();
const VideoDriver& DnxhdDriver();
const VideoDriver& Mpeg4Driver();
const VideoDriver& Mpeg2Driver();
const VideoDriver& MjpegDriver();
const VideoDriver& Ffv1Driver();
const VideoDriver& GifDriver();
const VideoDriver& PngDriver();
const VideoDriver& WebPDriver();

} // namespace Kestra::FF
