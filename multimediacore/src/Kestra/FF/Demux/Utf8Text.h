// SPDX-License-Identifier: GPL-3.0-or-later
// Text of media files, which is not always in the encoding that it should be in.
#pragma once

#include <string>

namespace Kestra::FF {

bool IsUtf8(const std::string& text);
/// The text as it is where it is UTF-8, else taken for Windows-1252, in which such text mostly is.
std::string Utf8Of(const std::string& text);

} // namespace Kestra::FF
