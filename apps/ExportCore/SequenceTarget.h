// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::SequenceTarget: the folder where finished pictures will stand.
#pragma once

#include "Kestra/Conf/NumberedName.h"
#include <QByteArray>

namespace ExportCore {

/// A value. Links on the way are resolved.
struct SequenceTarget {
    QByteArray path; ///< of the folder; absolute, UTF-8
    bool existed = false;
    bool replace = false; ///< whether pictures of the same names may be replaced
    Kestra::Conf::NumberedName name;

    /// Where the private folder stands: in the folder itself, where that is there, else beside it.
    QByteArray place() const { return existed ? path : path.left(path.lastIndexOf('/') + 1); }
};

} // namespace ExportCore
