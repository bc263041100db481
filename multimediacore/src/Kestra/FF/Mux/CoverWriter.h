// SPDX-License-Identifier: GPL-3.0-or-later
// The picture that stands for a programme, as muxers take it.
#pragma once

#include "Kestra/Conf/Container.h"
#include "Kestra/Conf/ProgrammeInfo.h"
#include "Kestra/FF/Av/Handles.h"

namespace Kestra::FF {

/// Adds the cover to a context whose other tracks are there and whose header is not written, where the container has a
/// place for one and the file has no pictures. Returns its track's index; -1 where there is none, or no packet of it to
/// be written.
int AddCover(AVFormatContext& context, const Conf::ProgrammeInfo::Cover& cover, const Conf::Container& container);
/// Its one packet.
PacketHandle MakeCoverPacket(const Conf::ProgrammeInfo::Cover& cover, int track);

} // namespace Kestra::FF
