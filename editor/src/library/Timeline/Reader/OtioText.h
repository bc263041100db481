// SPDX-License-Identifier: GPL-3.0-or-later
// The text of a timeline's file, and what stands in it.
#pragma once

#include "Timeline/Reader/OtioContext.h"
#include <memory>
#include <rapidjson/document.h>
#include <string>

namespace Timeline {

/// Reads and parses a plain file. Null where it cannot be read, is too long, too deep or no JSON in UTF-8; then an
/// error is told. NaN and infinities are taken as numbers.
std::unique_ptr<const rapidjson::Document> parseFile(OtioContext& context, const std::string& path);

/// The value as JSON on one line.
std::string jsonOf(const rapidjson::Value& value);

} // namespace Timeline
