// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::PresetSelection: a request's preset, selected by its id.
#pragma once

#include "ExportCoreExport.h"
#include <memory>
#include <string>

namespace Export {
class PresetProvider;
}

namespace ExportCore {

struct EXPORTCORE_EXPORT PresetSelection {
    /// A provider that has loaded. Throws Refusal with file, place and reason when the catalogue cannot be read.
    static std::unique_ptr<Export::PresetProvider> makeProvider();
    /// Selects exactly that preset, under the first tag that holds it, though another one may equal it. Throws Refusal
    /// with near names for an id that is none.
    static void select(Export::PresetProvider& provider, const std::string& id);

    /// Likewise one of the presets of the current tag; an id that is none of those throws Refusal.
    static void selectInTag(Export::PresetProvider& provider, const std::string& id);

    PresetSelection() = delete;
};

} // namespace ExportCore
