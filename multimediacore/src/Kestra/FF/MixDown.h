// How loud a mix of channels into fewer can become.
#pragma once

#include "Kestra/FF/Handles.h"

namespace Kestra::FF {

/// The highest sum of what one output channel takes of all inputs: above 1, inputs at full scale exceed it together.
/// 1 where the layouts are equal, or libswresample knows no mix of them.
double LoudestMix(const AVChannelLayout& from, const AVChannelLayout& to);

} // namespace Kestra::FF
