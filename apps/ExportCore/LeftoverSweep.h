// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::LeftoverSweep: removes what dead runs left behind.
#pragma once

#include "ExportCoreExport.h"
#include <QByteArray>

namespace ExportCore {

struct EXPORTCORE_EXPORT LeftoverSweep {
    /// Removes the private files in the folder whose writer is dead: what carries the mark of PrivateName, is a regular
    /// file and locked by nobody. Likewise private folders of pictures; a PictureSwap that a dead run had begun is
    /// brought to an end first. Whatever is in doubt stays; never fails. Returns how many went.
    static int run(const QByteArray& folder) noexcept;

    LeftoverSweep() = delete;
};

} // namespace ExportCore
