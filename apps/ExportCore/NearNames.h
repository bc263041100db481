// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::NearNames: what somebody may have meant.
#pragma once

#include "ExportCoreExport.h"
#include "Kestra/Base/SourcePlace.h"
#include <cstddef>
#include <string>
#include <vector>

namespace ExportCore {

struct EXPORTCORE_EXPORT NearNames {
    /// How many letters must be put in, left out, replaced or swapped with their neighbour to make b of a.
    static std::size_t distance(const std::string& a, const std::string& b);
    /// The known names that are near enough to be a slip, or that hold what was asked for; the nearest first, in their
    /// own order where they are equally near, at most `limit`.
    static std::vector<std::string> find(const std::string& wanted, const std::vector<std::string>& known,
                                         std::size_t limit = 3);

    /// "; did you mean a, b or c?" with those names; empty when none is near.
    static std::string question(const std::string& wanted, const std::vector<std::string>& known);

    /// Throws Refusal: There is no `what` "name", with that question, or with all names where none is near.
    [[noreturn]] static void refuseUnknown(const char* what, const std::string& name,
                                           const std::vector<std::string>& known,
                                           Kestra::SourcePlace place = Kestra::SourcePlace::Here());
    /// The same of a preset, but for all names, which are many. A tag that presets are listed by is told to be one;
    /// where no preset is near, those tags are proposed that are.
    [[noreturn]] static void refuseUnknownPreset(const std::string& name, const std::vector<std::string>& known,
                                                 const std::vector<std::string>& tags,
                                                 Kestra::SourcePlace place = Kestra::SourcePlace::Here());

    NearNames() = delete;
};

} // namespace ExportCore
