// SPDX-License-Identifier: GPL-3.0-or-later
// How long an outro lasts.
#pragma once

#include "KTime/KTime.h"

inline constexpr KTime OUTRO_LENGTH{5000};
