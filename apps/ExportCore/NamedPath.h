// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::NamedPath: the file that a sentence is about.
#pragma once

#include "ExportCore/ExportRequest.h"

namespace ExportCore {

struct NamedPath {
    /// The input or output of the request that the sentence names in quotation marks: the one that stands first, the
    /// longer one of two in the same place. Empty when it names none.
    static QString in(const QString& sentence, const ExportRequest& request);

    NamedPath() = delete;
};

} // namespace ExportCore
