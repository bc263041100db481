// SPDX-License-Identifier: GPL-3.0-or-later
// What people wrote into a file about its programme, told apart from what programs noted of the file.
#pragma once

#include "Kestra/Conf/ProgrammeInfo.h"
#include "Kestra/FF/Av/Handles.h"
#include <string>
#include <vector>

namespace Kestra::FF {

/// The value in UTF-8; empty where there is none.
std::string TagOf(const AVDictionary* tags, const char* key);
/// The language of a track; empty where the file does not tell one.
std::string LanguageOf(const AVStream& stream);
/// Whether its subtitles are shown also to those who want none.
bool IsForced(const AVStream& stream);

/// Whether it is the tracks of such a file that have the tags of the whole, and so none of their own.
bool TagsItsTracks(const AVFormatContext& context);

/// Title and tags of the file, and of its first track where it is the tracks that have them, as in Ogg. Keys are in
/// lower case. Left out is what speaks of the file, its coding or its makers' programs. What is too large to be a tag
/// is left out, too, and what is in no UTF-8 read as best it can be: both are noted.
void ReadTags(const AVFormatContext& context, Conf::ProgrammeInfo& programme, std::vector<std::string>& notes);

} // namespace Kestra::FF
