// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Base/SampleGrid.h"

#include "Kestra/Base/Exception.h"
#include <stdexcept>

namespace Kestra {

SampleGrid::SampleGrid(int rate)
    : rate(rate) {
    if (rate <= 0)
        KESTRA_THROW(std::invalid_argument("A grid of samples needs a rate above 0"));
}

} // namespace Kestra
