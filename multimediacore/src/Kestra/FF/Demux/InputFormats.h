// SPDX-License-Identifier: GPL-3.0-or-later
// Which kinds of files are opened.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include <string>

namespace Kestra::FF {

/// Whether files of that kind hold their pictures and audio themselves, in a form that says how they are to be read.
/// What people's cameras, recorders and programs make is among them; kinds that name other files, draw by
/// instructions, or leave their rate to be guessed are not.
bool IsMediaFormat(const AVInputFormat& format);

/// What such a file is and why it is not opened: "it is a playlist (...), which names other files ...".
std::string WhyNotOpened(const AVInputFormat& format);

} // namespace Kestra::FF
