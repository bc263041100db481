// SPDX-License-Identifier: GPL-3.0-or-later
// What a file says of its programme, as muxers take it.
#pragma once

#include "Kestra/Conf/Container.h"
#include "Kestra/Conf/ProgrammeInfo.h"
#include "Kestra/FF/Av/Handles.h"

namespace Kestra::FF {

/// The time code of a day at that time, in frames of the rate: "01:00:00:00", or "01:00:00;00" with dropped numbers.
/// These need a rate that has them. Empty for a rate that time codes cannot count.
std::string TimecodeText(std::int64_t time, AVRational rate, bool dropFrame);

/// Whether its files tell all that there is of the whole in tags of their one track.
bool IsOgg(const Conf::Container& container);

/// Before the header is written.
void SetTrackTitle(AVStream& stream, const std::string& title, const Conf::Container& container);

/// Tells the context, whose tracks are there and whose header is not written, what of the programme the container has a
/// place for: tags, chapters, the names of the tracks of pictures and sound.
void DescribeProgramme(AVFormatContext& context, const Conf::ProgrammeInfo& programme,
                       const Conf::Container& container);

} // namespace Kestra::FF
