// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::PacketQueue: the packets between one encoder and the muxer.
#pragma once

#include "Kestra/Base/Time.h"
#include "Kestra/Proc/BoundedQueue.h"

namespace Kestra::Proc {

/// The encoder's thread pushes, the muxer's takes. A run that ends cancels it; one that was stopped writes what is
/// queued.
using PacketQueue = BoundedQueue<IDataRaw>;

constexpr QueueLimits PACKET_LIMITS{std::size_t{32} * 1024 * 1024, 2 * TIME_BASE,
                                    std::numeric_limits<std::size_t>::max(), true};

} // namespace Kestra::Proc
