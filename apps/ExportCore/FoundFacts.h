// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::FoundFacts: the facts of a file that was checked.
#pragma once

#include "ExportCore/ExportFacts.h"

namespace ExportCore {

struct ExpectedFile;
struct SequenceName;

struct FoundFacts {
    /// All but what only the end of the run tells: how long it took.
    static ExportFacts of(const Kestra::Proc::CheckedFile& file, const ExpectedFile& expected, const QString& path);
    /// For what is not one file, as they stand at their place.
    static void namePictures(ExportFacts& facts, const SequenceName& sequence);

    FoundFacts() = delete;
};

} // namespace ExportCore
