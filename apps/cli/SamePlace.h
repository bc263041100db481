// SPDX-License-Identifier: GPL-3.0-or-later
// Cli::isSamePlace: two names of one file.
#pragma once

#include <string>

namespace Cli {

/// Whether both name one file, through whatever links and folders; one that is not there yet as well, by its folder and
/// its name. What cannot be looked at is only the same under the same name.
bool isSamePlace(const std::string& a, const std::string& b);
/// The same for all names of one place, as far as folders and links to it tell.
std::string placeOf(const std::string& path);

} // namespace Cli
