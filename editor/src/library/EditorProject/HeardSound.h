// SPDX-License-Identifier: GPL-3.0-or-later
// Project::HeardSound: a medium whose sound an export has.
#pragma once

#include "Kestra/Base/ioPath.h"
#include <cstdint>

namespace Project {

/// A value.
struct HeardSound {
    Kestra::ioPath path;
    std::uint32_t channelLayout = 0;
};

} // namespace Project
