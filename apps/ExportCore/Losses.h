// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::Losses: what of its inputs an export does not show, or not as they are.
#pragma once

#include "EditorProject/EditorProject.h"
#include "Export/PresetProvider.h"
#include "ExportCore/ExportOutcome.h"
#include "ExportCore/ExportRequest.h"
#include "Types/Range.h"

namespace ExportCore {

class Losses {
public:
    /// Of an export of the range, all where it is empty, by the provider's preset as it was edited: notes on what later
    /// inputs lose by the first ones, warnings of clips that no frame shows. The project shows the sequence.
    static void tell(ExportOutcome& outcome, const EditorProject& project, const Render::Sequence& sequence,
                     const Types::Range& range, const ExportRequest& request, const Export::PresetProvider& provider);

    Losses() = delete;
};

} // namespace ExportCore
