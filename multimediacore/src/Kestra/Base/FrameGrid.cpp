// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Base/FrameGrid.h"

#include "Kestra/Base/Exception.h"
#include <stdexcept>

namespace Kestra {

FrameGrid::FrameGrid(const boost::rational<long long>& rate)
    : rate(rate) {
    if (rate <= 0)
        KESTRA_THROW(std::invalid_argument("A grid of frames needs a rate above 0"));
}

} // namespace Kestra
