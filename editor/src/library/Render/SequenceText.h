// SPDX-License-Identifier: GPL-3.0-or-later
// Render::describe: a sequence in words.
#pragma once

#include "Render/Sequence.h"
#include <string>

namespace Render {

/// For messages: how many clips it has, and the first one's name.
std::string describe(const Sequence& sequence);

} // namespace Render
