// SPDX-License-Identifier: GPL-3.0-or-later
#include "Types/Time.h"

#include "Kestra/Base/Time.h"

namespace Types {

std::int64_t toAvTime(KTime time) {
    return Kestra::MulDivRound(time.count(), Kestra::TICKS_PER_MILLISECOND, 1);
}

KTime fromAvTime(std::int64_t time) {
    return KTime(Kestra::MulDivRound(time, 1, Kestra::TICKS_PER_MILLISECOND));
}

} // namespace Types
