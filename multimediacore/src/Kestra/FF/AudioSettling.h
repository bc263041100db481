#pragma once

#include "Kestra/FF/Handles.h"
#include <cstdint>

namespace Kestra::FF {

/// Samples of whole packets that a decoder of this sound has to have seen before what it gives is right.
std::int64_t SettlingSamples(const AVCodecParameters& parameters) noexcept;

} // namespace Kestra::FF
