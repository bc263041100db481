// SPDX-License-Identifier: GPL-3.0-or-later
// Texts taken at their bytes, independently of what is tested.
#pragma once

#include <string>

namespace TestSupport {

/// Whether the bytes are UTF-8 as Unicode defines it: no surrogates, nothing longer than it needs be.
bool isUtf8(const std::string& text);
/// The text with what has no shape of its own, and what is no UTF-8, as \xNN: for the messages of tests.
std::string shown(const std::string& text);
/// Whether a terminal would do something but show it: a control character, also one beyond ASCII. A line's end counts,
/// too.
bool hasControls(const std::string& text);
/// The text as a JSON string with its quotation marks. Surrogates that stand alone in its bytes become escapes; other
/// bytes that are no UTF-8 must not be there.
std::string jsonString(const std::string& text);

} // namespace TestSupport
