// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Proc/PictureReading.h"

namespace Kestra::FF {

/// As Proc::ReadPicture().
Proc::RgbPicture ReadPicture(const Proc::IDataVideo& picture, int width, int height);

} // namespace Kestra::FF
