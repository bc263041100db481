// SPDX-License-Identifier: GPL-3.0-or-later
// Cli::filesOfMedium: what a medium of a timeline consists of.
#pragma once

#include "Timeline/MediaReference.h"
#include <QFileInfo>

namespace Cli {

/// One file, which need not be there, or the pictures of a sequence that are; none of a medium that is no file.
QFileInfoList filesOfMedium(const Timeline::MediaTarget& medium);

} // namespace Cli
