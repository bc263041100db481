// SPDX-License-Identifier: GPL-3.0-or-later
// Timelines as text in the form of OpenTimelineIO, to be read again.
#pragma once

#include "Timeline/Document.h"
#include <string>

namespace TimelineTests {

/// Times are as exact as the document's. Media are named by their files' names alone.
std::string textOf(const Timeline::Document& document);

} // namespace TimelineTests
