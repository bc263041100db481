// The options that x265 takes in a list of its own.
#pragma once

#include "Kestra/FF/Av/Handles.h"

namespace Kestra::FF {

/// Adds one to those that are there, or takes its place. Throws ProcException (CodecRefused).
void SetX265Parameter(AVCodecContext& context, const char* name, const char* value);

} // namespace Kestra::FF
