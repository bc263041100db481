// SPDX-License-Identifier: GPL-3.0-or-later
// How loud a mix of channels into fewer can become.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include <string>

namespace Kestra::FF {

/// The highest sum of what one output channel takes of all inputs: above 1, inputs at full scale exceed it together.
/// 1 where the layouts are equal, or libswresample knows no mix of them.
double LoudestMix(const AVChannelLayout& from, const AVChannelLayout& to);

/// The filters, for FilterGraph, that such a mix has to pass, in floating point: peaks above full scale are limited,
/// and only they, and what comes is of `format`. They hold back some milliseconds and give as many samples as they
/// take.
std::string MixLimiter(AVSampleFormat format);

} // namespace Kestra::FF
