// How long an outro lasts.
#pragma once

#include "KTime/KTime.h"

inline constexpr KTime OUTRO_LENGTH{5000};
